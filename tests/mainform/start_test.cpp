#include "main_window.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct StartTest : testing::Test, OpenMainWindow {};

TEST_F(StartTest, shows_the_window_before_it_touches_the_project)
{
  ui.answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Cancel).expect(15);

  window.Form_Load();

  EXPECT_THAT(screen.steps, ElementsAre("place", "show"));
  EXPECT_EQ(ui.fileDialogs.at(0).title, "Datenbank öffnen");
  EXPECT_EQ(program.language.Sprache(), "GER");
  EXPECT_TRUE(screen.checkedMenus.contains("GER"));
  EXPECT_FALSE(screen.checkedMenus.contains("ENG"));
}

TEST_F(StartTest, opens_the_last_project_at_its_last_page)
{
  project.setSetting("LastActivePage", "01");

  start();

  EXPECT_EQ(window.project().DbName(), project.file());
  EXPECT_EQ(active(), "@01");
  EXPECT_EQ(tree.selected(), "@01");
  EXPECT_EQ(window.pages().fields.caption, "Mirandel: Haus");
  EXPECT_EQ(window.pages().fields.tbdateiname, "haus_*.htm");
  EXPECT_THAT(surface.bodyInnerHtml(), testing::HasSubstr("<p>Dach</p>"));
  EXPECT_EQ(ui.statusTexts.back(), "ID:@01");
  EXPECT_FALSE(window.pages().PageDirty());
  EXPECT_EQ(surface.siteDirectory, directory.file("site\\"));
}

TEST_F(StartTest, opens_a_last_page_below_a_node_that_is_closed)
{
  project.setSetting("LastActivePage", "0101");

  start();

  EXPECT_EQ(active(), "@0101");
  EXPECT_EQ(tree.selected(), "@0101");
}

TEST_F(StartTest, opens_the_homepage_where_the_last_page_is_gone)
{
  project.setSetting("LastActivePage", "77");

  start();

  EXPECT_EQ(active(), "@00");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(StartTest, reads_two_letters_of_a_language_as_german)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=de\r\n");
  start();

  EXPECT_EQ(program.language.Sprache(), "GER");
  EXPECT_TRUE(screen.checkedMenus.contains("GER"));
}

TEST_F(StartTest, checks_the_entry_of_the_language)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=eng\r\n");
  start();

  EXPECT_TRUE(screen.checkedMenus.contains("ENG"));
  EXPECT_EQ(screen.caption("cbeinstellungen"), "Save settin&gs");
}

TEST_F(StartTest, asks_for_another_project_where_the_last_one_is_gone)
{
  ui.answerOpenDialog(project.file());

  MainWindow::start(directory.file("verschwunden.mdb"));

  EXPECT_TRUE(window.project().isOpen());
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(StartTest, opens_the_project_that_is_named_in_place_of_the_last_one)
{
  support::TemporaryProject named({{"00", "Anderes"}});
  paths::SchreibeIni("LastFile", "File1", project.file(), files().iniFile());

  window.Form_Load(named.file());

  EXPECT_EQ(window.project().DbName(), named.file());
  EXPECT_EQ(iniValue("LastFile", "File1"), named.file());
}

TEST_F(StartTest, tells_that_the_named_project_is_missing_and_opens_none)
{
  const auto missing = directory.file("verschwunden.mdb");
  paths::SchreibeIni("LastFile", "File1", project.file(), files().iniFile());
  ui.expect(109, files::nativePath(missing).string());

  window.Form_Load(missing);

  EXPECT_FALSE(window.project().isOpen());
  EXPECT_EQ(iniValue("LastFile", "File1"), project.file());
}

TEST_F(StartTest, leaves_a_window_without_a_project_after_two_refusals)
{
  ui.answerOpenDialog(std::nullopt).answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Retry).expect(14, {}, ui::Button::Cancel).expect(15);

  window.Form_Load();

  EXPECT_FALSE(window.project().isOpen());
  EXPECT_FALSE(window.pages().isOpen());
}

TEST_F(StartTest, without_a_project_nothing_happens_to_one)
{
  ui.answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Cancel).expect(15);
  window.Form_Load();

  ui.expect(24).expect(24).expect(24);
  for (const auto* const key : {"seitespeichern", "seitelöschen", "seiteneu", "html", "seitenvorschau", "unbekannt"})
    window.Toolbar2_ButtonClick(key);
  EXPECT_FALSE(window.settings().cbeinstellungen_Click());
  click("@01");
  dropOn(std::nullopt);
  selectTab(1);
  selectTab(0);
  selectTreeTab(1);
  window.Timer();

  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_TRUE(window.Form_QueryUnload());
  window.Form_Unload();
}

TEST_F(StartTest, shows_the_assistant_unless_it_is_switched_off)
{
  userSettings.setValue("Settings", "Assistent", "ja");
  int page = -1;
  dialogs.assistant = [&](FrmAssistent& form) { page = form.TabAssistent; };

  start();

  EXPECT_EQ(page, 0);
}

TEST_F(StartTest, ends_with_message_24_where_the_ini_file_names_an_empty_project)
{
  userSettings.setValue("Settings", "Assistent", "ja");
  directory.write("mirandel.INI", "[LastFile]\r\nFile1=\r\n");
  ui.expect(24);

  window.Form_Load();

  EXPECT_EQ(screen.steps.back(), "unload");
  EXPECT_EQ(dialogs.shown, 0);
}

TEST_F(StartTest, tells_a_failure_with_the_step_and_stays_as_far_as_it_got)
{
  screen.missing.insert("frmhintergrund");
  ui.expect(1, "Element nicht gefunden (730) in Modul Mainform.Form_Load. Zeile:8");

  start();

  EXPECT_THAT(screen.steps, ElementsAre("place"));
}

TEST_F(StartTest, has_the_users_layouts_behind_its_own)
{
  directory.write("xml/meins.xml", "<layout name=\"Mein Layout\"></layout>");

  start();

  EXPECT_GT(window.settings().fields().ComboGrundlayout.entries.size(), 4u);
}

TEST_F(StartTest, stands_where_it_stood)
{
  userSettings.setValue("Settings", "MainLeft", "150");
  userSettings.setValue("Settings", "MainWidth", "9000.7");
  userSettings.setValue("Settings", "MainHeight", "99999999999");

  start();

  EXPECT_EQ(screen.placed, (Placement{150, 1000, 9000, 6500, 2000}));
}

TEST_F(StartTest, keeps_its_least_width)
{
  start();

  screen.placed.MainWidth = 2400;
  window.Form_Resize(2400);
  EXPECT_EQ(screen.placed.MainWidth, 3000);

  screen.placed.MainWidth = 3001;
  window.Form_Resize(3001);
  EXPECT_EQ(screen.placed.MainWidth, 3001);
}

TEST_F(StartTest, keeps_the_splitter_between_tree_and_editor)
{
  screen.placed.MainWidth = 10000;

  EXPECT_EQ(window.SizeControls(100), 2400);
  EXPECT_EQ(window.SizeControls(5000), 5000);
  EXPECT_EQ(window.SizeControls(9999), 8500);
}

struct CloseTest : testing::Test, OpenMainWindow {
  CloseTest() { start(); }
};

TEST_F(CloseTest, keeps_placement_page_and_open_nodes)
{
  tree.setExpanded("@01", true);
  click("@0101");
  screen.placed = {10, 20, 8000, 7000, 3000};

  window.Form_Unload();

  EXPECT_EQ(userSettings.value("Settings", "MainWidth", ""), "8000");
  EXPECT_EQ(userSettings.value("Settings", "picSplitterLeft", ""), "3000");
  EXPECT_EQ(project.setting("LastActivePage"), "0101");
  EXPECT_TRUE(project.column("01", "expanded").yes());
  EXPECT_FALSE(project.column("02", "expanded").yes());
  EXPECT_FALSE(window.project().isOpen());
  EXPECT_EQ(screen.steps.back(), "unloadOtherWindows");
}

TEST_F(CloseTest, and_the_next_start_show_the_same_nodes)
{
  tree.setExpanded("@01", true);
  click("@0101");
  window.Form_Unload();

  MainWindow again;
  again.start(project.file());

  EXPECT_TRUE(again.tree.expanded("@01"));
  EXPECT_EQ(again.tree.selected(), "@0101");
  EXPECT_EQ(again.active(), "@0101");
}

TEST_F(CloseTest, of_a_minimised_window_leaves_the_stored_placement)
{
  userSettings.setValue("Settings", "MainWidth", "5000");
  screen.minimised = true;

  window.Form_Unload();

  EXPECT_EQ(userSettings.value("Settings", "MainWidth", ""), "5000");
}

TEST_F(CloseTest, does_not_save_the_page_by_itself)
{
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Neu</h3>");

  window.Form_Unload();

  EXPECT_EQ(text("01", "Überschrift"), "Haus");
}

TEST_F(CloseTest, asks_about_unsaved_work)
{
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Neu</h3>");

  ui.expect(3, {}, ui::Button::Cancel);
  window.FileExit_Click();
  EXPECT_THAT(screen.steps, testing::Not(testing::Contains("unload")));

  ui.expect(3, {}, ui::Button::Yes);
  window.FileExit_Click();
  EXPECT_EQ(screen.steps.back(), "unload");
  EXPECT_EQ(text("01", "Überschrift"), "Neu");
}

TEST_F(CloseTest, gives_up_unsaved_work_on_no)
{
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Neu</h3>");
  window.Timer();
  ui.expect(3, {}, ui::Button::No);

  EXPECT_TRUE(window.Form_QueryUnload());

  EXPECT_EQ(text("01", "Überschrift"), "Haus");
  EXPECT_FALSE(files::fileExists(draftFileOf(project.file())));
}

struct ProjectChangeTest : testing::Test, OpenMainWindow {
  ProjectChangeTest() { start(); }
};

TEST_F(ProjectChangeTest, saves_the_page_first)
{
  support::TemporaryProject next{{"00", "Anders"}};
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Neu</h3>");
  ui.answerOpenDialog(next.file());

  window.OpenProject_Click();

  EXPECT_EQ(text("01", "Überschrift"), "Neu");
  EXPECT_EQ(window.project().DbName(), next.file());
  EXPECT_EQ(active(), "@00");
  EXPECT_EQ(window.pages().fields.caption, "Mirandel: Anders");
}

TEST_F(ProjectChangeTest, never_carries_a_page_into_the_next_project)
{
  support::TemporaryProject next{{"01", "Ohne Homepage"}};
  ui.answerOpenDialog(next.file());
  ui.expect(9);
  click("@02");

  window.OpenProject_Click();
  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_THAT(next.ids(), ElementsAre("01"));
  EXPECT_EQ(active(), "");
  EXPECT_THAT(tree.keys(), IsEmpty());
}

TEST_F(ProjectChangeTest, that_is_cancelled_leaves_all_as_it_was)
{
  ui.answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Cancel).expect(15);
  click("@02");

  window.OpenProject_Click();

  EXPECT_EQ(active(), "@02");
  EXPECT_EQ(window.project().DbName(), project.file());
}

TEST_F(ProjectChangeTest, to_a_file_that_is_no_project_leaves_the_open_one_under_its_name)
{
  directory.write("brief.mdb", "Liebe Oma, das ist keine Datenbank.");
  ui.answerOpenDialog(directory.file("brief.mdb"));
  ui.expect(1, "in Modul DialogOpenChangeNewDB");
  click("@02");

  window.OpenProject_Click();
  surface.type("<h3 id=\"ueberschrift\">Beet</h3>");
  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(window.project().DbName(), project.file());
  EXPECT_EQ(text("02", "Überschrift"), "Beet");
}

TEST_F(ProjectChangeTest, to_a_new_one_shows_the_second_page_of_the_assistant)
{
  ui.answerOpenDialog(directory.file("neu.mdb"));
  int page = -1;
  dialogs.assistant = [&](FrmAssistent& form) { page = form.TabAssistent; };

  window.NewProject_Click();

  EXPECT_EQ(page, 1);
  EXPECT_EQ(window.project().DbName(), directory.file("neu.mdb"));
  EXPECT_EQ(active(), "@00");
}

TEST_F(ProjectChangeTest, from_the_head_of_the_site_starts_with_the_tree)
{
  support::TemporaryProject next{{"00", "Anders"}};
  selectTreeTab(1);
  ui.answerOpenDialog(next.file());

  window.OpenProject_Click();

  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(window.pages().document.kind, DocumentKind::Page);
}

} // namespace
} // namespace mrd::mainform
