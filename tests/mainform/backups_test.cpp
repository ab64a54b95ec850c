// The day's backup of a project that is opened, and another state in its place.

#include "main_window.h"

#include "mainform/backup_dialog.h"
#include "platform/files/path.h"

#include <gmock/gmock.h>

#include <fstream>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct BackupsTest : testing::Test, OpenMainWindow {
  const project::Backups backups{project.file()};

  std::vector<std::string> names() const
  {
    std::vector<std::string> out;
    for (const auto& backup : backups.list())
      out.push_back(backup.name);
    return out;
  }
  void restoresFirst()
  {
    dialogs.backups = [](FrmSicherung& form) { form.cbzurueckholen_Click(); };
    ui.expect(164, "", ui::Button::Yes).expect(170, "2003-04-17-090506");
    window.menu_Click("RestoreProject", std::nullopt);
  }
  static void damage(const std::string& path, std::size_t at)
  {
    std::fstream file(files::nativePath(path), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(at));
    file << std::string(4096, '\xff');
  }
};

TEST_F(BackupsTest, are_made_when_a_project_is_opened)
{
  start();

  EXPECT_THAT(names(), ElementsAre("2003-04-17"));
  EXPECT_EQ(project::Backups::pagesOf(backups.list().front()), 5U);
}

TEST_F(BackupsTest, are_finished_when_the_window_closes)
{
  paths::SchreibeIni("LastFile", "File1", project.file(), files().iniFile());
  window.Form_Load();

  window.Form_Unload();

  EXPECT_THAT(names(), ElementsAre("2003-04-17"));
}

TEST_F(BackupsTest, that_cannot_be_made_are_told_once_and_stop_nothing)
{
  project.directory().write("projekt.mdb.sicherung", "Hier ist kein Verzeichnis.");
  ui.expect(161, "projekt.mdb.sicherung");
  start();
  EXPECT_EQ(active(), "@00");

  ui.answerOpenDialog(project.file());
  window.OpenProject_Click();
  window.project().finishBackup();

  EXPECT_EQ(active(), "@00");
  EXPECT_EQ(ui.messages.size(), 1U);
}

TEST_F(BackupsTest, that_cannot_be_made_are_told_by_the_timer)
{
  project.directory().write("projekt.mdb.sicherung", "Hier ist kein Verzeichnis.");
  paths::SchreibeIni("LastFile", "File1", project.file(), files().iniFile());
  window.Form_Load();
  EXPECT_THAT(ui.messages, IsEmpty());
  ui.expect(161);

  window.Timer();

  EXPECT_EQ(ui.messages.size(), 1U);
}

TEST_F(BackupsTest, of_a_damaged_project_are_not_made_which_is_told)
{
  project.db().execute("UPDATE Seite SET script = ? WHERE ID = '03'", {std::string(60000, 'x')});
  damage(project.file(), std::filesystem::file_size(files::nativePath(project.file())) / 4096 / 2 * 4096 + 8192);
  ui.acceptAll();

  start();

  EXPECT_THAT(names(), IsEmpty());
  EXPECT_TRUE(std::ranges::any_of(ui.messages, [](const auto& message) { return message.number == 162; }));
}

TEST_F(BackupsTest, take_the_place_of_the_project_which_is_opened_anew)
{
  start();
  click("@01");
  surface.setBodyInnerHtml("<h3 id=\"ueberschrift\">Villa</h3>");
  window.pages().changed();
  project.addPage({"04", "Keller"});

  restoresFirst();

  EXPECT_EQ(active(), "@00");
  EXPECT_FALSE(tree.hasNode("@04"));
  EXPECT_EQ(tree.label("@01"), "Haus");
  EXPECT_FALSE(window.pages().PageDirty());
  // What was in the editor belongs to the state that was kept.
  auto kept = dao::Database::open(backups.pathOf("2003-04-17-090506"), dao::OpenMode::ReadOnly);
  EXPECT_EQ(kept.openRecordset("SELECT * FROM Seite WHERE ID = '01'").value("Überschrift").text(), "Villa");
  EXPECT_EQ(kept.openRecordset("Seite").recordCount(), 6U);
}

TEST_F(BackupsTest, leave_a_project_that_can_be_worked_with)
{
  start();
  restoresFirst();
  click("@02");
  surface.setBodyInnerHtml("<h3 id=\"ueberschrift\">Park</h3>");
  window.pages().changed();

  click("@01");

  auto now = dao::Database::open(project.file(), dao::OpenMode::ReadOnly);
  EXPECT_EQ(now.openRecordset("SELECT * FROM Seite WHERE ID = '02'").value("Überschrift").text(), "Park");
}

TEST_F(BackupsTest, change_nothing_when_the_user_does_not_want_them)
{
  start();
  click("@01");
  window.pages().changed();
  dialogs.backups = [](FrmSicherung& form) { form.cbzurueckholen_Click(); };
  ui.expect(164, "", ui::Button::No);

  window.RestoreProject_Click();

  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_EQ(active(), "@01");
  EXPECT_THAT(names(), ElementsAre("2003-04-17"));
}

TEST_F(BackupsTest, change_nothing_while_another_program_has_the_project_open)
{
  start();
  project.addPage({"04", "Keller"});
  const auto elsewhere = backups.markOpen();
  ui.expect(164, "", ui::Button::Yes).expect(165);
  dialogs.backups = [](FrmSicherung& form) { form.cbzurueckholen_Click(); };

  window.RestoreProject_Click();

  EXPECT_TRUE(window.project().isOpen());
  EXPECT_TRUE(tree.hasNode("@04"));
}

TEST_F(BackupsTest, of_a_project_that_has_none_are_not_asked_for)
{
  start();
  std::filesystem::remove_all(files::nativePath(backups.directory()));
  ui.expect(163);

  window.RestoreProject_Click();

  EXPECT_EQ(dialogs.shown, 0);
}

TEST_F(BackupsTest, bring_back_a_project_that_can_no_longer_be_opened)
{
  project::makeBackup(backups, "2003-04-16");
  project.directory().write("projekt.mdb", "Das war einmal ein Projekt.");
  ui.expect(1);
  start();
  ASSERT_FALSE(window.project().isOpen());
  ui.expect(164, "16.04.2003", ui::Button::Yes).expect(170);
  dialogs.backups = [](FrmSicherung& form) { form.cbzurueckholen_Click(); };

  window.RestoreProject_Click();

  EXPECT_TRUE(window.project().isOpen());
  EXPECT_EQ(active(), "@00");
}

TEST_F(BackupsTest, are_asked_for_of_a_file_where_no_project_is_open)
{
  ui.answerOpenDialog(std::nullopt);

  window.RestoreProject_Click();

  EXPECT_EQ(ui.fileDialogs.size(), 1U);
}

struct BackupDialogTest : testing::Test {
  support::TestProgram program;
  support::TemporaryProject project{{"00", "Start"}};
  const project::Backups backups{project.file()};
};

TEST_F(BackupDialogTest, lists_date_and_number_of_pages_the_newest_first)
{
  project::makeBackup(backups, "2003-04-16");
  project.addPage({"01", "Haus"});
  project::makeBackup(backups, "2003-04-17-090506");
  project.directory().write("projekt.mdb.sicherung/projekt-2003-04-15.mdb", "kaputt");

  const FrmSicherung form(program.language, project.file());

  EXPECT_THAT(form.Listsicherungen, ElementsAre("17.04.2003 09:05:06: 2 Seiten (vor einem Zurückholen)", "16.04.2003: 1 Seite",
                                                "15.04.2003: nicht lesbar"));
  program.language.setSprache("ENG");
  EXPECT_THAT(
      FrmSicherung(program.language, project.file()).Listsicherungen,
      ElementsAre("2003-04-17 09:05:06: 2 pages (before a restoration)", "2003-04-16: 1 page", "2003-04-15: cannot be read"));
}

TEST_F(BackupDialogTest, answers_with_the_chosen_one_when_the_user_is_sure)
{
  project::makeBackup(backups, "2003-04-16");
  project::makeBackup(backups, "2003-04-17");
  FrmSicherung form(program.language, project.file());
  int closed = 0;
  form.window.unload = [&] { ++closed; };
  form.Listsicherungen_Click(1);
  form.Listsicherungen_Click(2);
  form.Listsicherungen_Click(-1);

  program.ui.expect(164, "16.04.2003: 1 Seite", ui::Button::No);
  form.cbzurueckholen_Click();
  EXPECT_FALSE(form.answer);
  EXPECT_EQ(closed, 0);

  program.ui.expect(164, "", ui::Button::Yes);
  form.cbzurueckholen_Click();
  EXPECT_EQ(form.answer, "2003-04-16");
  EXPECT_EQ(closed, 1);
}

} // namespace
} // namespace mrd::mainform
