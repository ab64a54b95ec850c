#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;

namespace {

struct SearchedPage {
  explicit SearchedPage(const std::string& html) { surface.load(html); }

  bool find(const std::string& text) { return surface.execCommand(kFindText, ui::Prompt::None, text); }
  int marks() const
  {
    return surface.inDocument("document.documentElement.lastElementChild.shadowRoot.querySelectorAll('.mark').length").toInt();
  }

  ShownSurface surface;
};

} // namespace

TEST(FindOnThePage, marks_every_place_and_selects_one_after_the_other)
{
  SearchedPage page("<p>Haus</p><p>das HAUS im Garten</p><p>Hausboot</p>");
  const std::string before = page.surface.bodyInnerHtml();

  EXPECT_TRUE(page.find("haus"));
  EXPECT_EQ(page.marks(), 3);
  EXPECT_EQ(page.surface.selectedText(), "Haus");
  page.find("haus");
  EXPECT_EQ(page.surface.selectedText(), "HAUS");

  EXPECT_EQ(page.surface.bodyInnerHtml(), before);
  EXPECT_EQ(page.surface.changes, 0);
}

TEST(FindOnThePage, reads_over_the_borders_of_elements_and_lines_of_the_source)
{
  SearchedPage page("<p>das <b>al</b>te\n  Haus&nbsp;am Meer</p><p>Ende</p>");

  EXPECT_TRUE(page.find("alte haus am"));
  EXPECT_TRUE(page.find("ALTE"));
  EXPECT_FALSE(page.find("Meer Ende"));
  EXPECT_FALSE(page.find("al te"));
}

TEST(FindOnThePage, knows_that_an_umlaut_and_its_capital_are_one_letter)
{
  SearchedPage page("<p>GRÜSSE AUS ÖTZ, İstanbul und Öl</p>");

  EXPECT_TRUE(page.find("grüsse aus ötz"));
  EXPECT_EQ(page.surface.selectedText(), "GRÜSSE AUS ÖTZ");
  EXPECT_TRUE(page.find("öl"));
  EXPECT_EQ(page.surface.selectedText(), "Öl");
}

TEST(FindOnThePage, looks_into_no_script_and_no_address)
{
  SearchedPage page("<p><a href=\"geheim.htm\">Text</a></p><script>geheim()</script><style>.geheim {}</style>");

  EXPECT_FALSE(page.find("geheim"));
  EXPECT_FALSE(page.find(""));
  EXPECT_FALSE(page.find("   "));
}

TEST(FindOnThePage, begins_behind_the_cursor_and_once_more_at_the_top)
{
  SearchedPage page("<p id=\"a\">eins</p><p id=\"b\">eins zwei</p>");
  page.surface.placeCursor("#b", 6);

  page.find("eins");

  EXPECT_TRUE(page.surface.inDocument("document.getElementById('a').contains(getSelection().anchorNode)").toBool());
}

TEST(FindOnThePage, brings_the_place_into_sight)
{
  std::string html;
  for (int i = 0; i < 200; ++i)
    html += "<p>Zeile</p>";
  SearchedPage page(html + "<p>Ziel</p>");

  page.find("Ziel");

  EXPECT_GT(page.surface.inDocument("window.scrollY").toInt(), 1000);
}

TEST(Marks, go_with_the_next_change_the_escape_key_and_the_next_page)
{
  SearchedPage page("<p>Haus</p>");

  page.find("Haus");
  page.surface.execCommand(kBold);
  EXPECT_EQ(page.marks(), 0);
  page.find("Haus");
  page.surface.press(Qt::Key_Escape);
  EXPECT_TRUE(comesTrue([&] { return page.marks() == 0; }));
  page.find("Haus");
  page.surface.load("<p>Haus</p>");
  EXPECT_EQ(page.marks(), 0);
  page.find("Haus");
  page.find("Garten");

  EXPECT_EQ(page.marks(), 0);
}

} // namespace mrd::desktop
