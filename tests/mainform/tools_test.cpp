#include "main_window.h"
#include "mainform/menu_table.h"
#include "platform/image/image.h"
#include "platform/ui/editing_commands.h"

#include <gmock/gmock.h>

#include <set>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
namespace command = ui::command;

struct ToolsTest : testing::Test, OpenMainWindow {
  ToolsTest() { start(); }

  /// Bytes of a picture.
  std::string jpeg(int width, int height)
  {
    auto picture = image::Image::create(width, height);
    picture.fill({10, 200, 30});
    picture.saveJpeg(directory.file("quelle.jpg"), 2);
    return directory.read("quelle.jpg");
  }

  const ButtonState& button(std::string_view key)
  {
    const auto keys = EditorTools::keys();
    return window.tools().Toolbar1.at(static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin()));
  }
};

TEST_F(ToolsTest, run_the_command_of_their_key)
{
  for (const auto* const key : {"Bold", "Italic", "Underline", "Numbers", "Bullets", "Outdent", "Indent", "LeftJustify", "Center",
                                "RightJustify", "bold", "Fett"})
    window.Toolbar1_ButtonClick(key);

  EXPECT_THAT(surface.executed, ElementsAre("5000", "5023", "5048", "5030", "5051", "5031", "5018", "5025", "5024", "5026"));
}

TEST_F(ToolsTest, ask_for_the_colour_of_the_text)
{
  ui.answerColourDialog(0x0080FF).answerColourDialog(std::nullopt);

  window.Toolbar1_ButtonClick("Color");
  window.Toolbar1_ButtonClick("Color");

  EXPECT_THAT(surface.executed, ElementsAre("5046 #FF8000"));
}

TEST_F(ToolsTest, show_what_the_cursor_stands_in)
{
  surface.statuses = {{command::kBold, command::kLatched}, {command::kItalic, command::kEnabled}, {command::kBullets, 2}};

  surface.events.displayChanged();

  EXPECT_TRUE(button("Bold").enabled);
  EXPECT_TRUE(button("Bold").pressed);
  EXPECT_TRUE(button("Italic").enabled);
  EXPECT_FALSE(button("Italic").pressed);
  EXPECT_FALSE(button("Bullets").enabled);
  EXPECT_FALSE(button("Color").enabled);
}

TEST_F(ToolsTest, show_outdent_and_indent_each_with_the_others_state)
{
  surface.statuses = {{command::kIndent, command::kEnabled}};

  window.tools().DisplayChanged();

  EXPECT_TRUE(button("Outdent").enabled);
  EXPECT_FALSE(button("Indent").enabled);
}

TEST_F(ToolsTest, tell_the_block_format_in_the_status_bar)
{
  surface.statuses = {{command::kGetBlockFormat, command::kEnabled}};
  surface.values = {{command::kGetBlockFormat, "Überschrift 3"}};

  window.tools().DisplayChanged();

  EXPECT_EQ(ui.statusTexts.back(), "Überschrift 3");
}

TEST_F(ToolsTest, follow_the_font_under_the_cursor)
{
  EXPECT_THAT(window.tools().FontCombo.entries,
              ElementsAre("Arial", "Times New Roman", "Tahoma", "Courier", "Verdana", "Wingdings"));
  EXPECT_EQ(window.tools().FontSizeCombo.entries.size(), 7u);
  surface.statuses = {{command::kGetFontName, command::kEnabled}};
  surface.values = {{command::kGetFontName, "Tahoma"}};

  window.tools().DisplayChanged();

  EXPECT_EQ(window.tools().FontCombo.ListIndex, 2);
  EXPECT_EQ(window.tools().FontSizeCombo.Text, "");
  EXPECT_EQ(window.tools().FontSizeCombo.ListIndex, -1);
}

TEST_F(ToolsTest, set_font_and_size_where_the_command_is_available)
{
  surface.statuses = {{command::kSetFontName, command::kEnabled}};

  window.tools().FontCombo_Click(4);
  window.tools().FontSizeCombo_Click(2);

  EXPECT_THAT(surface.executed, ElementsAre("5044 Verdana"));
}

TEST_F(ToolsTest, ignore_a_surface_that_does_not_answer)
{
  surface.failing = true;

  window.tools().DisplayChanged();

  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ToolsTest, take_the_names_of_the_formats_over_once)
{
  surface.formats = {"Normal", "Überschrift 1"};
  surface.events.documentComplete();
  surface.formats = {"Normal"};
  surface.events.documentComplete();

  EXPECT_THAT(window.tools().FormatSub, ElementsAre("Normal", "Überschrift 1"));
}

TEST_F(ToolsTest, show_borders_and_details)
{
  window.menu_Click("ViewSub", 0);
  EXPECT_TRUE(window.tools().ViewSubChecked(0));
  EXPECT_FALSE(window.tools().ViewSubChecked(1));

  window.menu_Click("ViewSub", 1);
  window.menu_Click("ViewSub", 0);
  EXPECT_FALSE(surface.borders);
  EXPECT_TRUE(surface.details);
}

TEST_F(ToolsTest, tell_that_the_page_view_came_back)
{
  ui.expect(115);

  surface.events.restored();
}

TEST_F(ToolsTest, bring_a_pasted_picture_into_pix_on_the_way_of_all_pictures)
{
  click("@01");
  const auto small = jpeg(40, 30), large = jpeg(900, 300);
  userSettings.setValue("Settings", "pix_width", "200");

  EXPECT_EQ(surface.events.storePicture(small, "image/jpeg"), "file://" + directory.file("site\\pix/bild_1.jpg"));
  EXPECT_EQ(surface.events.storePicture(large, "image/jpeg"), "file://" + directory.file("site\\pix/01_bild_2_200.jpg"));
  EXPECT_EQ(surface.events.storePicture(large, "image/jpeg"), "file://" + directory.file("site\\pix/01_bild_3_200.jpg"));
  const auto size = image::Image::sizeOf(directory.file("site\\pix\\01_bild_2_200.jpg"));
  EXPECT_EQ(size.width, 200);
  EXPECT_FALSE(std::filesystem::exists(directory.native() / "site/pix/~eingefuegt.jpg"));
}

TEST_F(ToolsTest, keep_a_pasted_picture_as_it_is_where_none_are_converted)
{
  click("@01");
  const auto picture = jpeg(900, 300);
  userSettings.setValue("Settings", "pix_convert", "False");

  EXPECT_EQ(surface.events.storePicture(picture, "image/jpeg"), "file://" + directory.file("site\\pix/01_bild_1.jpg"));
  EXPECT_EQ(directory.read("site/pix/01_bild_1.jpg"), picture);
}

TEST_F(ToolsTest, refuse_a_pasted_picture_that_is_damaged)
{
  click("@01");
  ui.expect(110, "image/png");

  EXPECT_EQ(surface.events.storePicture("PNG-Daten", "image/png"), std::nullopt);
}

TEST_F(ToolsTest, refuse_a_pasted_thing_that_no_page_shows)
{
  ui.expect(110, "image/tiff");

  EXPECT_EQ(surface.events.storePicture("x", "image/tiff"), std::nullopt);
}

TEST_F(ToolsTest, let_what_is_pasted_wait_while_a_page_is_on_its_way)
{
  bool wasAtWork = false;
  surface.busyFor = 2;
  surface.whenLoaded = [&] { wasAtWork = surface.events.atWork(); };

  click("@02");

  EXPECT_TRUE(wasAtWork);
  EXPECT_FALSE(surface.events.atWork());
}

TEST_F(ToolsTest, tell_that_something_was_pasted_whose_page_is_gone)
{
  ui.expect(171);

  surface.events.pasteLost();
}

TEST(Menus, name_each_entry_once)
{
  std::set<std::string> names;
  for (const auto& entry : menuEntries()) {
    const std::string name = std::string(entry.name) + (entry.index ? std::to_string(*entry.index) : "");
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_TRUE(entry.menu.empty() || names.contains(std::string(entry.menu))) << name;
  }
}

TEST(Menus, have_the_keys_of_the_tools_in_their_order)
{
  std::vector<std::string_view> keys;
  for (const auto& button : toolButtons())
    if (button.toolbar == "Toolbar1")
      keys.push_back(button.key);

  const auto tools = EditorTools::keys();
  EXPECT_EQ(keys, std::vector<std::string_view>(tools.begin(), tools.end()));
}

struct MenusTest : testing::Test, OpenMainWindow {
  MenusTest() { start(); }
};

TEST_F(MenusTest, lead_to_the_dialogs_of_the_program)
{
  std::string caption, version;
  dialogs.about = [&](frmAbout& form) {
    RecordedScreen controls;
    form.Form_Load(controls);
    caption = form.caption;
    version = form.lblVersion;
    ui.expect(28);
    form.cmdSysInfo_Click();
    shell.hasSystemInformation = true;
    form.cmdSysInfo_Click();
  };
  bool assistant = false;
  dialogs.assistant = [&](FrmAssistent&) { assistant = true; };

  window.menu_Click("HelpSub1", 4);
  window.menu_Click("HelpSub1", 3);

  EXPECT_EQ(caption, "Info zu Mirandel");
  EXPECT_EQ(version, "Version 1.0.0");
  EXPECT_EQ(FrmStartbild().labelversion, "Version 1.0.0");
  EXPECT_TRUE(assistant);
}

TEST_F(MenusTest, do_nothing_where_the_command_is_not_there)
{
  for (const auto& entry : menuEntries())
    if (!entry.works)
      window.menu_Click(entry.name, entry.index);

  EXPECT_TRUE(surface.executed.empty());
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MenusTest, change_the_language_of_the_open_window_at_once)
{
  click("@01");
  surface.type("<p>x</p>");
  window.settings().fields().tbtitel = "ungespeichert";
  EXPECT_EQ(screen.caption("File"), "&Datei");

  window.menu_Click("eng", std::nullopt);

  EXPECT_EQ(screen.caption("File"), "&File");
  EXPECT_EQ(iniValue("Language", "Lang"), "ENG");
  EXPECT_TRUE(screen.checkedMenus.contains("ENG") || screen.checkedMenus.contains("eng"));
  EXPECT_FALSE(screen.checkedMenus.contains("GER"));
  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>x</p>");
  EXPECT_EQ(window.settings().fields().tbtitel, "ungespeichert");

  window.menu_Click("GER", std::nullopt);
  EXPECT_EQ(screen.caption("File"), "&Datei");
  EXPECT_TRUE(screen.checkedMenus.contains("GER"));
}

TEST_F(MenusTest, change_the_language_while_a_page_loads)
{
  surface.busyFor = 2;
  surface.whenLoaded = [&] { window.menu_Click("eng", std::nullopt); };

  click("@02");

  EXPECT_EQ(program.language.Sprache(), "ENG");
  EXPECT_EQ(active(), "@02");
}

TEST_F(MenusTest, go_on_with_a_language_database_that_names_strange_controls)
{
  screen.missing = {"mnuShop", "cbeinstellungen"};
  ui.expect(0, "730").expect(0, "Bitte besorgen Sie sich eine aktuelle language.mdb !");

  window.menu_Click("eng", std::nullopt);

  EXPECT_EQ(screen.caption("File"), "&File");
}

struct NoLanguageTest : testing::Test, OpenMainWindow {
  NoLanguageTest()
  {
    std::filesystem::remove(directory.native() / "language.mdb");
    ui.expect(0, "Language Database konnte nicht gefunden werden. \r\nBitte wenden Sie sich an den Support.");
  }
};

TEST_F(NoLanguageTest, saves_at_its_close_what_it_cannot_ask_about)
{
  start();
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");
  ui.expect(3, "Achtung! GetMsg: Nr.3 Spr.GER Wert:");

  EXPECT_TRUE(window.Form_QueryUnload());

  EXPECT_EQ(text("00", "Überschrift"), "Villa");
}

TEST_F(NoLanguageTest, keeps_unsaved_work_of_a_crash_that_it_cannot_ask_about)
{
  const auto file = draftFileOf(project.file());
  writeDraft(file, {"@01", "Haus", {2003, 4, 17}, "<p>x</p>", "", "", ""});
  ui.expect(114, "Achtung! GetMsg: Nr.114");

  start();

  EXPECT_TRUE(readDraft(file));
}

TEST_F(NoLanguageTest, starts_in_the_german_of_its_design)
{
  start();

  EXPECT_EQ(screen.caption("File"), "");
  EXPECT_EQ(active(), "@00");
}

} // namespace
} // namespace mrd::mainform
