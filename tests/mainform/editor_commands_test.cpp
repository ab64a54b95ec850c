#include "main_window.h"
#include "mainform/menu_table.h"
#include "platform/image/image.h"
#include "platform/ui/editing_commands.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace command = ui::command;

struct EditorCommandsTest : testing::Test, OpenMainWindow {
  EditorCommandsTest()
  {
    start();
    click("@01");
    surface.executed.clear();
  }

  void menu(std::string_view name, int index) { window.menu_Click(name, index); }
  bool enabled(std::string_view name, int index) const { return window.editor().state(name, index).enabled; }
  bool checked(std::string_view name, int index) const { return window.editor().state(name, index).checked; }
  /// All commands at once have this status.
  void setAll(int status)
  {
    for (int number = 5000; number <= 5101; ++number)
      surface.statuses[number] = status;
  }
  /// A page with one element, which is selected as a whole.
  void select(const std::string& html)
  {
    surface.setBodyInnerHtml(html);
    surface.selected = "x";
  }
  std::string photo(const std::string& name)
  {
    std::filesystem::create_directories(directory.native() / "site/pix");
    auto picture = image::Image::create(40, 30);
    picture.fill({200, 40, 40});
    const std::string path = directory.file("site\\pix\\" + name);
    picture.saveJpeg(path, 2);
    return path;
  }
  std::string src() const
  {
    const std::string html = surface.bodyInnerHtml();
    const auto from = html.find("src=\"") + 5;
    return html.substr(from, html.find('"', from) - from);
  }
};

// --- entries

TEST_F(EditorCommandsTest, of_edit_run_their_numbers)
{
  for (const int entry : {0, 1, 2, 3, 4, 5, 6, 7, 9, 12})
    menu("editsub", entry);

  EXPECT_THAT(surface.executed, ElementsAre("5049", "5033", "5003", "5002", "5032", "5035", "5101"));
}

TEST_F(EditorCommandsTest, of_the_table_menu_run_their_numbers)
{
  for (int entry = 1; entry <= 11; ++entry)
    menu("TableSub", entry);

  EXPECT_THAT(surface.executed, ElementsAre("5021", "5020", "5019", "5007", "5006", "5005", "5029", "5047"));
}

TEST_F(EditorCommandsTest, of_positioning_run_their_numbers)
{
  for (int entry = 0; entry <= 8; ++entry)
    menu("D2DSub", entry);

  EXPECT_THAT(surface.executed, ElementsAre("5028", "5041", "5040", "5037", "5036", "5039", "5038", "5027"));
}

TEST_F(EditorCommandsTest, beyond_the_last_entry_are_errors)
{
  for (const auto* const name : {"D2DSub", "TableSub", "editsub"}) {
    ui.expect(1, "Index");
    menu(name, name == std::string_view("D2DSub") ? 9 : 20);
  }

  EXPECT_THAT(surface.executed, IsEmpty());
}

TEST_F(EditorCommandsTest, of_insert_ask_for_picture_and_link_and_leave_the_button_alone)
{
  menu("InsertSub1", 0);
  EXPECT_TRUE(surface.prompted);
  menu("InsertSub1", 1);
  EXPECT_TRUE(surface.prompted);
  menu("InsertSub1", 2);

  EXPECT_THAT(surface.executed, ElementsAre("5017", "5016"));
}

TEST_F(EditorCommandsTest, that_the_surface_refuses_say_nothing)
{
  surface.succeeds = false;

  menu("InsertSub1", 0);
  menu("InsertSub1", 1);
  menu("TableSub", 10);
  menu("editsub", 0);

  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EditorCommandsTest, set_the_block_format_by_its_caption_where_that_is_available)
{
  surface.formats = {"Normal", "Überschrift 1"};
  surface.events.documentComplete();
  menu("FormatSub", 1);
  EXPECT_THAT(surface.executed, IsEmpty());
  surface.statuses[command::kSetBlockFormat] = 3;

  menu("FormatSub", 1);
  menu("FormatSub", 7);

  EXPECT_THAT(surface.executed, ElementsAre("5043 Überschrift 1"));
}

TEST_F(EditorCommandsTest, insert_a_table_as_its_dialog_says)
{
  dialogs.insertTable = [](editor::InsertTableDlg& form) {
    form.Rows = "1";
    form.OkCmd_Click();
  };

  menu("TableSub", 0);

  ASSERT_EQ(surface.tables.size(), 1U);
  EXPECT_EQ(surface.tables[0].rows, 1);
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, insert_html_as_it_was_written)
{
  dialogs.insertHtml = [](editor::InsertHTMLDlg& form) {
    form.HTMLText = "<hr>";
    form.cmdOK_Click();
  };

  menu("InsertSub1", 3);

  EXPECT_THAT(surface.pasted, ElementsAre("<hr>"));
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, make_a_marquee_of_the_selected_text)
{
  surface.markedText = "A & B <i>C</i>";

  menu("InsertSub1", 4);

  EXPECT_THAT(surface.pasted, ElementsAre("<marquee>A & B <i>C</i></marquee>"));
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, make_no_marquee_of_nothing)
{
  ui.expect(13);

  menu("InsertSub1", 4);

  EXPECT_THAT(surface.pasted, IsEmpty());
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, give_the_element_around_the_cursor_twelve_points)
{
  surface.setBodyInnerHtml("<p id=\"cursor\">Text</p>");

  menu("InsertSub1", 5);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p id=\"cursor\" style=\"font-size: 12pt;\">Text</p>");
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, show_the_properties_of_the_table_around_the_cursor)
{
  surface.setBodyInnerHtml("<table border=\"1\"><tbody><tr><td id=\"cursor\">x</td></tr></tbody></table>");
  std::string border;
  dialogs.tableProperties = [&](editor::FrmTabelleneigenschaften& form) {
    border = form.tb_table_border;
    form.tb_table_border = "5";
    form.cbok_Click();
  };

  window.menu_Click("mnuTableProperties", {});

  EXPECT_EQ(border, "1");
  EXPECT_EQ(surface.bodyInnerHtml(), "<table border=\"5\"><tbody><tr><td id=\"cursor\">x</td></tr></tbody></table>");
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(EditorCommandsTest, refuse_the_table_properties_of_a_selected_picture)
{
  select("<img id=\"x\" src=\"a.jpg\">");
  ui.expect(0, "Bitte stellen Sie den Cursor in die Tabelle.");

  window.menu_Click("mnuTableProperties", {});
}

// --- states

TEST_F(EditorCommandsTest, are_disabled_below_three_and_ticked_at_seven)
{
  for (const int status : {0, 1, 2, 3, 7, 11}) {
    setAll(status);
    for (const auto* const menu : {"Edit", "Format", "Table", "D2D"})
      window.menuOpens(menu);
    for (const auto& [name, index] : {std::pair{"editsub", 0},
                                      {"editsub", 12},
                                      {"FormatSub", 15},
                                      {"TableSub", 0},
                                      {"TableSub", 11},
                                      {"D2DSub", 0},
                                      {"D2DSub", 8}}) {
      EXPECT_EQ(enabled(name, index), status >= 3) << name << index << " " << status;
      EXPECT_EQ(checked(name, index), status == 7) << name << index << " " << status;
    }
  }
}

TEST_F(EditorCommandsTest, of_edit_always_offer_replace_and_the_grid)
{
  setAll(1);

  window.menuOpens("Edit");

  EXPECT_TRUE(enabled("editsub", 10));
  EXPECT_TRUE(enabled("editsub", 11));
}

TEST_F(EditorCommandsTest, of_insert_have_no_states)
{
  setAll(1);

  window.menuOpens("Insert1");
  window.menuOpens("File");

  EXPECT_TRUE(enabled("InsertSub1", 0));
}

TEST_F(EditorCommandsTest, caption_of_positioning_tells_what_comes_next)
{
  window.menu_Click("eng", {});
  surface.statuses[command::kAbsolutePosition] = 7;
  menu("D2DSub", 0);
  EXPECT_EQ(window.editor().positionCaption(), "Set Position Attribute To &1D");

  surface.statuses[command::kAbsolutePosition] = 3;
  window.menuOpens("D2D");
  EXPECT_EQ(window.editor().positionCaption(), "Set Position Attribute To &Absolute");
  window.menu_Click("GER", {});
  menu("D2DSub", 0);

  EXPECT_EQ(window.editor().positionCaption(), "&Absolut positionieren");
}

TEST_F(EditorCommandsTest, turn_the_grid_on_and_off)
{
  menu("editsub", 10);
  EXPECT_TRUE(surface.snaps);
  EXPECT_TRUE(checked("editsub", 10));

  menu("editsub", 10);
  window.menuOpens("Edit");
  EXPECT_FALSE(surface.snaps);
  EXPECT_FALSE(checked("editsub", 10));
}

// --- with something else on top

TEST_F(EditorCommandsTest, of_edit_work_in_the_source_while_that_is_on_top)
{
  selectTab(1);
  for (const int entry : {0, 1, 3, 4, 5, 6, 12, 10})
    menu("editsub", entry);

  using ui::EditAction;
  EXPECT_THAT(source.actions, ElementsAre(EditAction::Undo, EditAction::Redo, EditAction::Cut, EditAction::Copy,
                                          EditAction::Paste, EditAction::SelectAll, EditAction::Paste));
  EXPECT_THAT(surface.executed, IsEmpty());
  window.menuOpens("Edit");
  EXPECT_TRUE(enabled("editsub", 0));
  EXPECT_FALSE(enabled("editsub", 1));
  EXPECT_FALSE(enabled("editsub", 10));
}

TEST_F(EditorCommandsTest, that_work_on_the_page_are_refused_while_something_else_is_on_top)
{
  for (const int tab : {1, 3}) {
    selectTab(tab);
    setAll(3);
    for (const auto* const name : {"Table", "D2D", "Format"})
      window.menuOpens(name);
    EXPECT_FALSE(enabled("TableSub", 2));
    EXPECT_FALSE(enabled("D2DSub", 0));
    EXPECT_FALSE(enabled("FormatSub", 0));
    for (int message = 0; message < 5; ++message)
      ui.expect(10);
    menu("InsertSub1", 4);
    menu("TableSub", 0);
    menu("TableSub", 2);
    menu("D2DSub", 0);
    window.menu_Click("mnuTableProperties", {});
  }

  EXPECT_THAT(surface.executed, IsEmpty());
}

TEST_F(EditorCommandsTest, look_for_a_text_on_the_page)
{
  ui.answerInputBox("Haus").answerInputBox(std::nullopt).answerInputBox("Hof");

  menu("editsub", 8);
  menu("editsub", 8);
  menu("editsub", 11);
  window.findNext();

  EXPECT_THAT(surface.executed, ElementsAre("5008 Haus", "5008 Hof", "5008 Hof"));
}

TEST_F(EditorCommandsTest, tell_that_a_text_is_not_on_the_page)
{
  surface.succeeds = false;
  ui.answerInputBox("Garten").expect(27);

  menu("editsub", 8);
}

TEST_F(EditorCommandsTest, show_the_dialog_for_the_source_and_a_message_among_the_settings)
{
  selectTab(1);
  menu("editsub", 11);
  menu("editsub", 8);
  EXPECT_THAT(dialogs.beside, ElementsAre("FormSuchenErsetzen", "FormSuchenErsetzen"));
  source.text = "ein Haus";
  window.editor().searchDialog().tbsuchen = "haus";
  window.findNext();
  EXPECT_EQ(source.selectedText(), "Haus");

  selectTab(3);
  ui.expect(10);
  menu("editsub", 11);

  EXPECT_THAT(surface.executed, IsEmpty());
}

TEST_F(EditorCommandsTest, replacing_in_the_source_changes_the_page)
{
  selectTab(1);
  source.text = "Haus";
  auto& search = window.editor().searchDialog();
  search.tbsuchen = "haus";
  search.tbersetzen = "Haus und Haus";
  search.cbsuchen_Click();
  EXPECT_FALSE(window.pages().PageDirty());

  search.cbersetzen_Click();

  EXPECT_TRUE(window.pages().PageDirty());
}

// --- what the surface asks

TEST_F(EditorCommandsTest, ask_for_a_link_with_the_pages_of_the_project)
{
  std::vector<std::string> pages;
  dialogs.link = [&](editor::FrmVerweis& form) {
    pages = form.Listseiten;
    form.Listseiten_Click(1);
    form.cbok_Click();
  };

  const auto link = surface.prompts.link({"", ""});

  EXPECT_THAT(pages, ElementsAre("Start", "Haus", "    Küche", "Garten", "Hof"));
  ASSERT_TRUE(link);
  EXPECT_EQ(link->href, "haus_01.htm");
  dialogs.link = [&](editor::FrmVerweis& form) {
    form.Listseiten_Click(0);
    form.cbok_Click();
  };
  EXPECT_EQ(surface.prompts.link({"", ""})->href, "index.htm");
}

TEST_F(EditorCommandsTest, ask_for_picture_and_font)
{
  dialogs.picture = [](editor::FrmBild& form) {
    form.tbbild = "a.jpg";
    form.cbok_Click();
  };
  dialogs.font = [](editor::FrmSchriftart& form) { form.cbabbrechen_Click(); };

  EXPECT_EQ(surface.prompts.picture({})->src, "a.jpg");
  EXPECT_FALSE(surface.prompts.font({}));
}

// --- context menu

TEST_F(EditorCommandsTest, of_the_context_menu_run_what_their_index_means_now)
{
  setAll(1);
  surface.events.showContextMenu(10, 20);
  EXPECT_EQ(surface.contextMenu.size(), 7U);
  for (const int index : {0, 1, 2, 4, 6})
    surface.events.contextMenuAction(index);
  EXPECT_THAT(surface.executed, ElementsAre("5003", "5002", "5032", "5035", "5009"));
  EXPECT_TRUE(surface.prompted);
  surface.executed.clear();
  surface.statuses[command::kAbsolutePosition] = 3;
  surface.statuses[command::kInsertRow] = 3;

  surface.events.showContextMenu(10, 20);
  EXPECT_EQ(surface.contextMenu.size(), 17U);
  for (const int index : {8, 10, 11, 13, 14})
    surface.events.contextMenuAction(index);

  EXPECT_THAT(surface.executed, ElementsAre("5028", "5021", "5020", "5007", "5006"));
}

TEST_F(EditorCommandsTest, of_the_context_menu_reach_the_table_behind_a_picture)
{
  for (const int number : {command::kAbsolutePosition, command::kPicture, command::kInsertRow})
    surface.statuses[number] = 3;
  select("<table><tbody><tr><td><img id=\"x\" src=\"a.jpg\"></td></tr></tbody></table>");
  ui.expect(0, "Bitte stellen Sie den Cursor in die Tabelle.");

  surface.events.contextMenuAction(10);
  EXPECT_THAT(surface.executed, ElementsAre("5017"));
  surface.events.contextMenuAction(6 + 6 + 8);
}

struct ShadowTest : EditorCommandsTest {
  ShadowTest()
  {
    surface.statuses[command::kAbsolutePosition] = 3;
    surface.statuses[command::kPicture] = 3;
  }
  void add() { surface.events.contextMenuAction(11); }
  void remove() { surface.events.contextMenuAction(12); }
};

TEST_F(ShadowTest, is_added_to_the_selected_picture_and_taken_away)
{
  const std::string path = photo("möwe.jpg");
  select("<p><img id=\"x\" src=\"file://" + path + "\"></p>");

  add();
  EXPECT_EQ(src(), directory.file("site\\pix\\") + "\\möwe_shd.jpg");
  EXPECT_TRUE(std::filesystem::exists(directory.native() / "site/pix/möwe_shd.jpg"));
  EXPECT_TRUE(window.pages().PageDirty());
  remove();

  EXPECT_EQ(src(), directory.file("site\\pix\\") + "\\möwe.jpg");
  EXPECT_TRUE(std::filesystem::exists(directory.native() / "site/pix/möwe_shd.jpg"));
}

TEST_F(ShadowTest, of_a_missing_picture_changes_nothing)
{
  select("<p><img id=\"x\" src=\"file://" + directory.file("site\\pix\\fehlt.jpg") + "\"></p>");

  add();

  EXPECT_EQ(src(), "file://" + directory.file("site\\pix\\fehlt.jpg"));
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(ShadowTest, that_never_was_is_taken_away_without_a_change_of_the_file)
{
  const std::string path = photo("möwe.jpg");
  select("<p><img id=\"x\" src=\"" + path + "\"></p>");

  remove();

  EXPECT_EQ(src(), path);
}

TEST_F(ShadowTest, whose_picture_is_gone_stays)
{
  const std::string path = photo("möwe_shd.jpg");
  select("<p><img id=\"x\" src=\"" + path + "\"></p>");
  ui.expect(0, "Die Originaldatei wurde nicht gefunden!\r\nBitte fügen Sie das Bild erneut ein!");

  remove();

  EXPECT_EQ(src(), path);
}

} // namespace
} // namespace mrd::mainform
