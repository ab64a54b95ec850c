#include "main_window.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ctime>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct PagesTest : testing::Test, OpenMainWindow {
  void openPage(const std::string& key)
  {
    start();
    window.pages().treeView().bringIn(key);
    click(key);
  }
  void save() { window.Toolbar2_ButtonClick("seitespeichern"); }
};

TEST_F(PagesTest, change_with_a_click_which_saves_the_one_before)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");

  click("@02");

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_EQ(text("01", "changingdate"), "2003-04-17 09:05:06");
  EXPECT_EQ(tree.label("@01"), "Villa");
  EXPECT_EQ(active(), "@02");
  EXPECT_EQ(window.help().page, "baumbereich.htm");
}

TEST_F(PagesTest, that_were_not_changed_are_not_written)
{
  openPage("@01");

  click("@02");

  EXPECT_TRUE(project.column("01", "changingdate").isNull());
}

TEST_F(PagesTest, stay_where_the_click_meets_no_node)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");

  window.treeMouse().TreeView1_MouseDown(std::nullopt);

  EXPECT_EQ(active(), "@01");
  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_EQ(text("01", "Überschrift"), "Haus");
}

TEST_F(PagesTest, show_a_new_heading_in_the_tree_at_once)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\"> Villa am Meer </h3>");

  save();

  EXPECT_EQ(tree.label("@01"), "Villa am Meer");
  EXPECT_EQ(tree.selected(), "@01");
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(PagesTest, with_an_empty_heading_show_three_hyphens)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\"> </h3>");

  save();

  EXPECT_EQ(text("01", "Überschrift"), "- - -");
  EXPECT_EQ(tree.label("@01"), "- - -");
}

TEST_F(PagesTest, get_a_lost_heading_back_at_the_next_load)
{
  openPage("@01");
  surface.type("<p>nur Text</p>");
  save();
  click("@02");

  click("@01");

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("id=\"ueberschrift\">- - -</h3>"));
}

TEST_F(PagesTest, with_server_code_keep_their_source_as_typed)
{
  openPage("@01");
  window.pages().fields.tbdateiname = "haus.php";
  window.pages().tbdateiname_Change();
  ui.expect(7, {}, ui::Button::No);
  selectTab(1);
  window.pages().fields.tbhtml = "<?php echo 1 ?><h3 id=\"ueberschrift\">Villa</h3>";
  window.pages().tbhtml_Change();

  save();

  EXPECT_EQ(text("01", "html"), "<?php echo 1 ?><h3 id=\"ueberschrift\">Villa</h3>");
}

TEST_F(PagesTest, become_dirty_by_each_of_their_fields)
{
  auto& pages = window.pages();
  openPage("@01");
  using Change = std::function<void()>;
  for (const auto& change : {Change([&] { pages.tbhtml_Change(); }), Change([&] { pages.tbdateiname_Change(); }),
                             Change([&] { pages.tbScript_Change(); }), Change([&] { pages.tbmeta_Change(); }),
                             Change([&] { pages.opseitentyp_Click(3); })}) {
    change();
    EXPECT_TRUE(pages.PageDirty());
    save();
    EXPECT_FALSE(pages.PageDirty());
  }
  EXPECT_EQ(text("01", "seitentyp-id"), "3");
}

TEST_F(PagesTest, are_made_below_the_open_one)
{
  openPage("@02");
  window.pages().fields.opseitentyp = 3;
  window.pages().opseitentyp_Click(3);

  window.SeiteSub_Click(0);

  EXPECT_EQ(active(), "@0201");
  EXPECT_EQ(tree.label("@0201"), "neue Seite:@0201");
  EXPECT_EQ(tree.selected(), "@0201");
  EXPECT_EQ(window.pages().fields.caption, "Mirandel: Neue Seite");
  EXPECT_EQ(window.pages().fields.tbdateiname, "*.htm");
  EXPECT_EQ(window.pages().fields.opseitentyp, 3);
  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_EQ(surface.focused, 1);
  EXPECT_TRUE(project.db().openRecordset("SELECT * FROM Seite WHERE ID = '0201'").eof());

  save();
  EXPECT_EQ(text("0201", "Überschrift"), "neue Seite:@0201");
}

TEST_F(PagesTest, begin_with_the_script_of_the_page_before)
{
  openPage("@02");
  window.pages().fields.tbScript = "<script></script>";

  window.SeiteSub_Click(0);
  EXPECT_EQ(window.pages().fields.tbScript, "<script></script>");

  click("@01");
  EXPECT_EQ(window.pages().fields.tbScript, " ");
}

TEST_F(PagesTest, are_numbered_behind_children_that_the_closed_node_has_not_shown)
{
  project.addPage({"0102", "Bad"});
  openPage("@01");
  ASSERT_EQ(tree.childCount("@01"), 1u);

  window.Toolbar2_ButtonClick("seiteneu");

  EXPECT_EQ(active(), "@0103");
  EXPECT_THAT(tree.children("@01"), ElementsAre("@0101", "@0102", "@0103"));
}

TEST_F(PagesTest, are_ninety_nine_below_one_at_most)
{
  for (int number = 1; number <= 99; ++number)
    project.addPage({"02" + pagetree::formatNumber(number), "Beet"});
  openPage("@02");
  ui.expect(20);

  window.Toolbar2_ButtonClick("seiteneu");

  EXPECT_EQ(active(), "@02");
}

TEST_F(PagesTest, have_four_levels)
{
  project.addPage({"010101", "Schrank"});
  project.addPage({"01010101", "Fach"});
  openPage("@01010101");
  ASSERT_EQ(active(), "@01010101");
  ui.expect(19);

  window.Toolbar2_ButtonClick("seiteneu");

  EXPECT_EQ(active(), "@01010101");
}

TEST_F(PagesTest, that_share_an_id_are_left_alone)
{
  project.addPage({"02", "Zwilling", "<h3 id=\"ueberschrift\">Zwilling</h3>"});
  openPage("@02");
  surface.type("<h3 id=\"ueberschrift\">Neu</h3>");
  ui.expect(17);

  save();

  EXPECT_TRUE(window.pages().PageDirty());
  auto rows = project.db().openRecordset("SELECT * FROM Seite WHERE ID = '02'");
  EXPECT_EQ(rows.value("Überschrift").text(), "Garten");
  rows.moveNext();
  EXPECT_EQ(rows.value("Überschrift").text(), "Zwilling");
}

struct DeletionTest : PagesTest {};

TEST_F(DeletionTest, asks_for_one_page_and_shows_the_homepage_then)
{
  openPage("@02");
  ui.expect(22, {}, ui::Button::Yes);

  window.Toolbar2_ButtonClick("seitelöschen");

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101", "02"));
  EXPECT_EQ(text("02", "Überschrift"), "Hof");
  EXPECT_EQ(tree.label("@02"), "Hof");
  EXPECT_EQ(active(), "@00");
  EXPECT_EQ(tree.selected(), "@00");
}

TEST_F(DeletionTest, asks_otherwise_for_a_page_with_children)
{
  openPage("@01");
  ui.expect(23, {}, ui::Button::Yes);

  window.SeiteSub_Click(1);

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "02"));
}

TEST_F(DeletionTest, that_is_refused_changes_nothing)
{
  openPage("@01");
  ui.expect(23, {}, ui::Button::No);

  window.SeiteSub_Click(1);

  EXPECT_EQ(project.ids().size(), 5u);
  EXPECT_EQ(active(), "@01");
}

TEST_F(DeletionTest, of_the_homepage_is_refused)
{
  openPage("@00");
  ui.expect(21);

  window.SeiteSub_Click(1);

  EXPECT_EQ(project.ids().size(), 5u);
}

TEST_F(DeletionTest, does_not_save_what_goes_away)
{
  openPage("@03");
  surface.type("<h3 id=\"ueberschrift\">Weg</h3>");
  ui.expect(22, {}, ui::Button::Yes);

  window.SeiteSub_Click(1);

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101", "02"));
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(DeletionTest, of_a_page_while_the_head_is_edited_shows_the_tree_first)
{
  openPage("@03");
  selectTreeTab(1);
  ui.expect(22, {}, ui::Button::Yes);

  window.SeiteSub_Click(1);

  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(active(), "@00");
}

struct WaitingTest : PagesTest {};

TEST_F(WaitingTest, lets_no_command_in_while_a_page_loads)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");
  surface.busyFor = 3;
  surface.whenLoaded = [this] {
    click("@03");
    window.Toolbar2_ButtonClick("seiteneu");
    window.OpenProject_Click();
    selectTreeTab(1);
    EXPECT_FALSE(window.Form_QueryUnload());
  };

  click("@02");

  EXPECT_EQ(active(), "@02");
  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(project.ids().size(), 5u);
  EXPECT_EQ(text("01", "Überschrift"), "Villa");
}

struct LargeProjectTest : PagesTest {
  LargeProjectTest()
  {
    const std::string html(4000, 'x');
    dao::Transaction transaction(project.db());
    for (int first = 4; first <= 99; ++first) {
      const std::string id = pagetree::formatNumber(first);
      project.addPage({id, "Seite " + id, html});
      for (int second = 1; second <= 99; ++second)
        project.addPage({id + pagetree::formatNumber(second), "Seite", html});
    }
    transaction.commit();
  }
};

TEST_F(LargeProjectTest, saves_a_page_in_no_time)
{
  openPage("@01");
  for (const auto* const key : {"@04", "@50", "@99"})
    tree.setExpanded(key, true);
  save();
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");

  const auto begun = std::clock();
  save();
  const double milliseconds = 1000.0 * static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;

  RecordProperty("milliseconds", std::to_string(milliseconds));
  EXPECT_EQ(tree.label("@01"), "Villa");
  // A sanitizer takes its time; a query for each page would take minutes.
  EXPECT_LT(milliseconds, 2000);
}

struct PreviewTest : PagesTest {};

TEST_F(PreviewTest, saves_generates_and_shows_the_open_page)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");

  window.SeiteSub_Click(2);

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_THAT(shell.opened, ElementsAre(directory.file("site\\haus_01.htm")));
  EXPECT_THAT(directory.read("site/haus_01.htm"), HasSubstr("Villa"));
}

TEST_F(PreviewTest, of_the_homepage_shows_the_homepage)
{
  openPage("@00");

  window.Toolbar2_ButtonClick("seitenvorschau");

  EXPECT_THAT(shell.opened, ElementsAre(directory.file("site\\index.htm")));
}

struct ImodeDialogTest : PagesTest {};

TEST_F(ImodeDialogTest, is_shown_behind_a_saved_page_and_writes_all_pages)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");
  dialogs.exportingImode = [&](imode::frmimode& form) {
    RecordedScreen controls;
    ASSERT_TRUE(form.Form_Load(controls));
    EXPECT_TRUE(form.cbHTML_Click().finished);
    EXPECT_EQ(form.labelSeite, "Fertig!");
    EXPECT_FALSE(form.ProgressBar1.Visible);
    ASSERT_TRUE(form.publishing);
  };

  window.cbimode_Click();

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_TRUE(files::fileExists(directory.file("site\\imode\\index.htm")));
}

TEST_F(ImodeDialogTest, without_a_project_is_message_24)
{
  ui.expect(24);

  window.cbimode_Click();

  EXPECT_EQ(dialogs.shown, 0);
}

struct ExportDialogTest : PagesTest {};

TEST_F(ExportDialogTest, is_shown_for_all_pages_behind_a_saved_page)
{
  openPage("@01");
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");
  std::vector<std::size_t> steps;
  dialogs.exporting = [&](generator::frmHTMLExport& form) {
    RecordedScreen controls;
    ASSERT_TRUE(form.Form_Load(controls));
    EXPECT_EQ(form.selection.Lblseitenvorschauid, "#");
    EXPECT_TRUE(form.OpAlle());
    EXPECT_EQ(form.DHTMLKopf.bgColor, "#0080FF");
    form.window.refresh = [&] {
      if (form.ProgressBar1.Visible)
        steps.push_back(form.ProgressBar1.Value);
    };
    EXPECT_TRUE(form.cbHTML_Click().finished);
    EXPECT_FALSE(form.ProgressBar1.Visible);
    EXPECT_EQ(form.labelSeite, "Fertig! Es wurden 5 Seiten generiert.");
    form.cbvorschau_Click();
  };

  window.NetSub_Click(0);

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_EQ(*std::max_element(steps.begin(), steps.end()), 5u);
  EXPECT_THAT(shell.opened, ElementsAre(directory.file("site\\index.htm")));
}

TEST_F(ExportDialogTest, generates_only_new_pages_by_its_option)
{
  openPage("@01");
  dialogs.exporting = [&](generator::frmHTMLExport& form) {
    RecordedScreen controls;
    ASSERT_TRUE(form.Form_Load(controls));
    form.cbHTML_Click();
    form.opneue_Click();
    EXPECT_FALSE(form.OpAlle());
    form.cbHTML_Click();
    EXPECT_EQ(form.labelSeite, "Fertig! Es wurden 1 Seiten generiert.");
  };

  window.Toolbar2_ButtonClick("html");
}

TEST_F(ExportDialogTest, opens_the_export_directory_before_the_first_run)
{
  start();
  dialogs.exporting = [&](generator::frmHTMLExport& form) {
    form.Form_Load(form.DbName);
    form.cbvorschau_Click();
  };

  window.NetSub_Click(0);

  EXPECT_THAT(shell.opened, ElementsAre(directory.file("site\\")));
}

TEST_F(ExportDialogTest, stops_when_asked_and_closes_when_idle)
{
  openPage("@01");
  bool closed = false;
  dialogs.exporting = [&](generator::frmHTMLExport& form) {
    RecordedScreen controls;
    ASSERT_TRUE(form.Form_Load(controls));
    form.window.unload = [&] { closed = true; };
    form.window.refresh = [&] {
      if (form.ProgressBar1.Value == 2)
        form.cbabbrechen_Click();
      EXPECT_FALSE(form.isRunning() && form.cbHTML_Click().finished);
    };
    EXPECT_FALSE(form.cbHTML_Click().finished);
    EXPECT_FALSE(closed);
    form.cbabbrechen_Click();
  };

  window.Toolbar2_ButtonClick("html");

  EXPECT_TRUE(closed);
}

TEST_F(ExportDialogTest, closes_with_message_37_where_the_export_directory_is_gone)
{
  openPage("@01");
  window.settings().fields().tbpfadexport = directory.file("weg\\");
  bool closed = false;
  dialogs.exporting = [&](generator::frmHTMLExport& form) {
    RecordedScreen controls;
    form.window.unload = [&] { closed = true; };
    ASSERT_TRUE(form.Form_Load(controls));
    ui.expect(37);
    form.cbHTML_Click();
  };

  window.Toolbar2_ButtonClick("html");

  EXPECT_TRUE(closed);
}

} // namespace
} // namespace mrd::mainform
