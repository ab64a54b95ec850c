#include "editor/search_replace.h"
#include "support/plain_source.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

namespace mrd::editor {
namespace {

using Top = FormSuchenErsetzen::Top;

struct SearchAndReplace : testing::Test {
  void search(const std::string& text)
  {
    form.tbsuchen = text;
    form.cbsuchen_Click();
  }

  support::TestProgram program;
  support::PlainSource source;
  Top top = Top::Source;
  int changes = 0, editorSearches = 0;
  FormSuchenErsetzen form{
      program.language, source, {[this] { return top; }, [this] { ++editorSearches; }, [this] { ++changes; }}};
};

TEST_F(SearchAndReplace, finds_one_place_after_the_other_whatever_the_case)
{
  source.text = "Haus HAUS haus";

  search("haus");
  EXPECT_EQ(source.selected, (ui::TextRange{0, 4}));
  search("haus");
  EXPECT_EQ(source.selected, (ui::TextRange{5, 4}));
  search("hAUS");
  EXPECT_EQ(source.selected, (ui::TextRange{10, 4}));

  EXPECT_EQ(source.focused, 3);
}

TEST_F(SearchAndReplace, finds_a_text_at_the_very_end_with_the_cursor_behind_it_once_more_from_the_top)
{
  source.text = "der Garten";
  source.selected = {10, 0};

  search("garten");

  EXPECT_EQ(source.selected, (ui::TextRange{4, 6}));
}

TEST_F(SearchAndReplace, knows_that_an_umlaut_and_its_capital_are_one_letter)
{
  source.text = "<p>GRÜSSE AUS ÖTZ</p>";

  search("grüsse aus ötz");

  EXPECT_EQ(source.selectedText(), "GRÜSSE AUS ÖTZ");
}

TEST_F(SearchAndReplace, tells_that_a_text_is_not_there)
{
  source.text = "Haus";
  source.selected = {1, 2};
  program.ui.expect(27);

  search("Garten");

  EXPECT_EQ(source.selected, (ui::TextRange{1, 2}));
}

TEST_F(SearchAndReplace, finds_nothing_for_an_empty_text)
{
  source.text = "Haus";
  program.ui.expect(27);

  search("");

  EXPECT_EQ(source.selected, ui::TextRange{});
}

TEST_F(SearchAndReplace, only_finds_at_the_first_press_on_replace)
{
  source.text = "Haus und Haus";
  form.tbsuchen = "haus";
  form.tbersetzen = "Hof";

  form.cbersetzen_Click();
  EXPECT_EQ(source.text, "Haus und Haus");
  EXPECT_EQ(changes, 0);
  form.cbersetzen_Click();

  EXPECT_EQ(source.text, "Hof und Haus");
  EXPECT_EQ(source.selectedText(), "Haus");
  EXPECT_EQ(changes, 1);
}

TEST_F(SearchAndReplace, goes_on_behind_a_replacement_that_holds_the_text_itself)
{
  source.text = "ab ab";
  form.tbsuchen = "ab";
  form.tbersetzen = "abab";

  for (int press = 0; press < 3; ++press)
    form.cbersetzen_Click();

  EXPECT_EQ(source.text, "abab abab");
}

TEST_F(SearchAndReplace, inserts_the_replacement_at_the_cursor_where_nothing_is_looked_for)
{
  source.text = "ab";
  source.selected = {1, 0};
  form.tbersetzen = "X";
  program.ui.expect(27);

  form.cbersetzen_Click();

  EXPECT_EQ(source.text, "aXb");
}

TEST_F(SearchAndReplace, leaves_the_search_of_the_page_to_the_page)
{
  top = Top::Editor;
  source.text = "Haus";

  search("haus");
  form.cbersetzen_Click();

  EXPECT_EQ(editorSearches, 2);
  EXPECT_EQ(source.selected, ui::TextRange{});
  EXPECT_EQ(source.text, "Haus");
}

TEST_F(SearchAndReplace, has_nothing_to_search_among_the_settings)
{
  top = Top::Other;
  program.ui.expect(10);

  search("haus");
}

TEST_F(SearchAndReplace, marks_every_place_until_it_is_closed)
{
  bool closed = false;
  form.window.unload = [&] { closed = true; };
  form.tbsuchen = "haus";

  form.tbsuchen_Change();
  EXPECT_EQ(source.marked, "haus");
  form.cbschließen_Click();

  EXPECT_EQ(source.marked, "");
  EXPECT_TRUE(closed);
}

} // namespace
} // namespace mrd::editor
