#include "editor/document_surface.h"
#include "editor/font_dialog.h"
#include "editor/insert_html.h"
#include "editor/insert_table.h"
#include "editor/link_dialog.h"
#include "editor/picture_dialog.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <limits>

namespace mrd::editor {
namespace {

using testing::ElementsAre;

struct Surface : DocumentSurface {
  bool insertTable(const ui::NewTable& table) override
  {
    tables.push_back(table);
    return takes;
  }
  bool pasteHtml(std::string_view html) override
  {
    pasted.emplace_back(html);
    return takes;
  }

  std::vector<ui::NewTable> tables;
  std::vector<std::string> pasted;
  bool takes = true;
};

struct DialogTest : testing::Test {
  template <class Form>
  Form& watched(Form& form)
  {
    form.window.unload = [this] { ++closed; };
    return form;
  }

  support::TestProgram program;
  Surface surface;
  int changes = 0, closed = 0;
  std::function<void()> changed = [this] { ++changes; };
};

struct InsertTable : DialogTest {
  InsertTableDlg form{program.language, surface, changed};
};

TEST_F(InsertTable, proposes_what_the_surface_proposes)
{
  EXPECT_EQ(form.Rows + " " + form.Cols, "3 3");
  EXPECT_EQ(form.TableAttrs, "border=1 cellpadding=1 cellspacing=1 width=75%");
  EXPECT_EQ(form.CellAttrs + form.TableCaption, "");
}

TEST_F(InsertTable, puts_the_table_at_the_cursor_and_closes)
{
  watched(form).Rows = " 2 ";
  form.Cols = "5";
  form.CellAttrs = "align=center";
  form.TableCaption = "Preise";

  form.OkCmd_Click();

  ASSERT_EQ(surface.tables.size(), 1U);
  EXPECT_EQ(surface.tables[0].rows, 2);
  EXPECT_EQ(surface.tables[0].columns, 5);
  EXPECT_EQ(surface.tables[0].cellAttributes, "align=center");
  EXPECT_EQ(surface.tables[0].caption, "Preise");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(closed, 1);
}

TEST_F(InsertTable, stays_with_numbers_that_are_none)
{
  watched(form);
  for (const auto* const number : {"", " ", "0", "-1", "-0,5", "zwei", "3x", "1 2", "nan", "inf", "0x3"}) {
    form.Rows = number;
    form.Cols = "2";
    program.ui.expect(43);
    form.OkCmd_Click();
    form.Rows = "2";
    form.Cols = number;
    program.ui.expect(43);
    form.OkCmd_Click();
  }

  EXPECT_TRUE(surface.tables.empty());
  EXPECT_EQ(closed, 0);
}

TEST_F(InsertTable, takes_every_number_above_nothing_and_leaves_it_to_the_surface_what_is_too_many)
{
  for (const auto* const number : {"2.5", "2,5", "0.3", "1e3", "99999999999999999999"}) {
    form.Rows = number;
    form.OkCmd_Click();
  }

  std::vector<int> rows;
  for (const auto& table : surface.tables)
    rows.push_back(table.rows);
  EXPECT_THAT(rows, testing::ElementsAre(2, 2, 0, 1000, std::numeric_limits<int>::max()));
}

TEST_F(InsertTable, tells_that_the_surface_refused_and_closes)
{
  watched(form);
  surface.takes = false;
  program.ui.expect(44);

  form.OkCmd_Click();

  EXPECT_EQ(changes, 0);
  EXPECT_EQ(closed, 1);
}

struct InsertHtml : DialogTest {
  InsertHTMLDlg form{program.language, surface, changed};
};

TEST_F(InsertHtml, pastes_what_was_written)
{
  watched(form).HTMLText = "<b>x</b>";

  form.cmdOK_Click();

  EXPECT_THAT(surface.pasted, ElementsAre("<b>x</b>"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(closed, 1);
}

TEST_F(InsertHtml, closes_where_an_element_is_selected_and_nothing_is_pasted)
{
  watched(form);
  surface.takes = false;

  form.cmdOK_Click();

  EXPECT_EQ(changes, 0);
  EXPECT_EQ(closed, 1);
}

TEST_F(InsertHtml, that_is_cancelled_pastes_nothing)
{
  watched(form).HTMLText = "<b>x</b>";

  form.CmdCancel_Click();

  EXPECT_TRUE(surface.pasted.empty());
  EXPECT_EQ(closed, 1);
}

struct Picture : DialogTest {
  FrmBild of(ui::PictureValues present) { return {program.language, present, "jpg|*.jpg"}; }
};

TEST_F(Picture, that_is_new_begins_empty_and_without_a_border)
{
  const auto form = of({});

  EXPECT_EQ(form.tbbild, "");
  EXPECT_EQ(form.tbrahmen, "0");
}

TEST_F(Picture, is_chosen_as_a_file_with_its_own_size)
{
  auto form = of({.src = "alt.jpg", .width = "40", .height = "30"});
  program.ui.answerOpenDialog("\\home\\anna\\möwe.jpg").answerOpenDialog(std::nullopt);

  form.cbbild_Click();
  form.cbbild_Click();
  form.cbok_Click();

  ASSERT_TRUE(form.answer);
  EXPECT_EQ(form.answer->src, "file://\\home\\anna\\möwe.jpg");
  EXPECT_EQ(form.answer->width + form.answer->height, "");
}

TEST_F(Picture, keeps_what_it_has)
{
  auto form = of({"file://C:\\web\\pix/a.jpg", "Möwe", "40", "30", "RIGHT", "2", 400, 300});

  form.cbok_Click();

  ASSERT_TRUE(form.answer);
  EXPECT_EQ(form.answer->src, "file://C:\\web\\pix/a.jpg");
  EXPECT_EQ(form.answer->alt, "Möwe");
  EXPECT_EQ(form.answer->width + "x" + form.answer->height, "40x30");
  EXPECT_EQ(form.answer->align, "right");
  EXPECT_EQ(form.answer->border, "2");
}

TEST_F(Picture, keeps_its_proportions)
{
  auto form = of({.src = "a.jpg", .naturalWidth = 400, .naturalHeight = 300});

  form.tbbreite = "200";
  form.tbbreite_Change();
  EXPECT_EQ(form.tbhöhe, "150");
  form.tbhöhe = "30";
  form.tbhöhe_Change();
  EXPECT_EQ(form.tbbreite, "40");
  form.CheckSeitenverhältnis = false;
  form.tbbreite = "7";
  form.tbbreite_Change();
  EXPECT_EQ(form.tbhöhe, "30");
  form.cboriginal_Click();

  EXPECT_EQ(form.tbbreite + form.tbhöhe, "");
}

TEST_F(Picture, wants_a_file_and_numbers)
{
  auto form = of({});
  program.ui.expect(151);
  form.cbok_Click();
  form.tbbild = "a.jpg";
  form.tbbreite = "breit";
  program.ui.expect(152);
  form.cbok_Click();
  EXPECT_FALSE(form.answer);
  form.tbbreite = "50%";

  form.cbok_Click();

  EXPECT_TRUE(form.answer);
}

TEST_F(Picture, that_was_cancelled_answers_nothing)
{
  auto form = of({.src = "a.jpg"});

  watched(form).cbabbrechen_Click();

  EXPECT_FALSE(form.answer);
  EXPECT_EQ(closed, 1);
}

struct Link : DialogTest {
  FrmVerweis of(const ui::LinkValues& present)
  {
    return {
        program.language, present, {{"00", "Start", "index.htm"}, {"01", "Haus", "haus_01.htm"}, {"0101", "Küche", "0101.htm"}}};
  }
};

TEST_F(Link, shows_the_pages_in_their_tree) { EXPECT_THAT(of({}).Listseiten, ElementsAre("Start", "Haus", "    Küche")); }

TEST_F(Link, leads_to_the_page_that_is_chosen)
{
  auto form = of({});

  form.Listseiten_Click(2);
  form.cbok_Click();

  ASSERT_TRUE(form.answer);
  EXPECT_EQ(form.answer->href, "0101.htm");
  EXPECT_EQ(form.answer->target, "");
}

TEST_F(Link, finds_its_page_again)
{
  auto form = of({"haus_01.htm", "_blank"});

  EXPECT_EQ(form.listIndex, 1);
  EXPECT_TRUE(form.Checkneuesfenster);
  form.tbadresse = "http://www.beispiel.de";
  form.tbadresse_Change();
  EXPECT_EQ(form.listIndex, -1);
  form.Checkneuesfenster = false;
  form.cbok_Click();

  EXPECT_EQ(form.answer->target, "");
}

TEST_F(Link, keeps_the_window_that_somebody_chose_by_hand)
{
  auto form = of({"a.htm", "unten"});

  form.cbok_Click();

  EXPECT_EQ(form.answer->target, "unten");
}

TEST_F(Link, completes_addresses_as_people_write_them)
{
  const auto answered = [&](const char* address) {
    auto form = of({});
    form.tbadresse = address;
    form.cbok_Click();
    return form.answer->href;
  };

  EXPECT_EQ(answered("www.beispiel.de"), "http://www.beispiel.de");
  EXPECT_EQ(answered("anna@beispiel.de"), "mailto:anna@beispiel.de");
  EXPECT_EQ(answered("https://a.de/x@y"), "https://a.de/x@y");
  EXPECT_EQ(answered(" seite.htm "), "seite.htm");
}

TEST_F(Link, wants_an_address_and_can_be_taken_away)
{
  auto form = of({});
  program.ui.expect(153);
  form.cbok_Click();
  EXPECT_FALSE(form.answer);
  EXPECT_FALSE(form.hasLink());
  EXPECT_TRUE(of({"a.htm", ""}).hasLink());

  form.cbentfernen_Click();

  EXPECT_EQ(form.answer->href, "");
}

TEST_F(DialogTest, of_the_font_answers_with_what_was_changed)
{
  FrmSchriftart form(program.language, {"Arial", "3"});
  EXPECT_EQ(form.Combogröße, 3);

  form.Combogröße = 5;
  form.cbok_Click();

  EXPECT_EQ(form.answer->name, "");
  EXPECT_EQ(form.answer->size, "5");
}

} // namespace
} // namespace mrd::editor
