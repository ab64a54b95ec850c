// Backups and the last change of the tree, as a user meets them in the menus.

#include "desktop/windows/desk.h"

#include "frame/project/backups.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using ui::Button;

struct BackupWindows : testing::Test {
  BackupWindows()
  {
    home.lastWorkedOn(project.file());
    desk = std::make_unique<Desk>(home);
    desk->start();
    comesTrue([&] { return !project::Backups(project.file()).list().empty(); });
  }

  /// The entry of the menu "Edit" as it is when that opens.
  QAction& undo()
  {
    desk->form().menuOpens("Edit");
    return desk->action("mnuSeitenZurueck");
  }
  void deletePage(const std::string& key)
  {
    desk->clickNode(key);
    desk->answers.buttons.push_back(Button::Yes);
    desk->action("SeiteSub_1").trigger();
    desk->settle();
  }

  support::TemporaryProject project{
      {"00", "Start", heading("Start")}, {"01", "Haus", heading("Haus")}, {"0101", "Küche", heading("Küche")}, {"02", "Garten"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

TEST_F(BackupWindows, list_what_there_is_and_bring_it_back)
{
  deletePage("@02");
  ASSERT_EQ(desk->node("@02"), nullptr);
  desk->answers.buttons = {Button::Yes, Button::Ok};
  QStringList rows;
  desk->answers.dialogs.push_back([&](QDialog& dialog) {
    auto& list = *dialog.findChild<QListWidget*>("Listsicherungen");
    for (int row = 0; row < list.count(); ++row)
      rows << list.item(row)->text();
    EXPECT_EQ(list.currentRow(), 0);
    // The box that comes is answered by who has called this, who has to be left for it.
    QTimer::singleShot(0, &dialog, [&dialog] { dialog.findChild<QPushButton*>("cbzurueckholen")->click(); });
  });

  desk->action("RestoreProject").trigger();
  desk->settle();

  ASSERT_EQ(rows.size(), 1);
  EXPECT_TRUE(rows.front().endsWith(": 4 Seiten")) << rows.front().toStdString();
  EXPECT_NE(desk->node("@02"), nullptr);
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Start");
  ASSERT_THAT(desk->answers.boxes, SizeIs(3));
  EXPECT_THAT(desk->answers.boxes.back(), HasSubstr("ist gesichert als"));
  EXPECT_EQ(project::Backups(project.file()).list().size(), 2U);
}

TEST_F(BackupWindows, leave_all_as_it_is_when_the_dialog_is_left)
{
  desk->action("RestoreProject").trigger();

  EXPECT_THAT(desk->answers.dialogTitles, ElementsAre("Sicherung zurückholen"));
  EXPECT_EQ(project::Backups(project.file()).list().size(), 1U);
}

TEST_F(BackupWindows, offer_to_undo_only_what_there_is)
{
  EXPECT_FALSE(undo().isEnabled());

  deletePage("@02");
  EXPECT_TRUE(undo().isEnabled());
  EXPECT_EQ(undo().text(), "&Löschen der Seite(n) rückgängig");
  undo().trigger();
  desk->settle();

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101", "02"));
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Garten");
  EXPECT_FALSE(undo().isEnabled());
}

TEST_F(BackupWindows, undo_a_move)
{
  desk->answers.dialogs.push_back([](QDialog& dialog) { dialog.findChild<QPushButton*>("btnMove")->click(); });
  desk->dragNode("@01", "@02");
  ASSERT_EQ(project.column("02", "Überschrift").text(), "Haus");
  EXPECT_EQ(undo().text(), "&Verschieben rückgängig");
  desk->action("eng").trigger();
  EXPECT_EQ(undo().text(), "Undo &Moving Page(s)");

  undo().trigger();
  desk->settle();

  EXPECT_EQ(project.column("01", "Überschrift").text(), "Haus");
  EXPECT_EQ(project.column("0101", "Überschrift").text(), "Küche");
}

TEST_F(BackupWindows, undo_by_the_key_where_the_tree_has_the_keyboard)
{
  deletePage("@02");
  // Where no window manager does it, the window has to ask for the keyboard after each box.
  ASSERT_TRUE(comesTrue([&] {
    desk->window().activateWindow();
    desk->tree().setFocus();
    return desk->tree().hasFocus();
  }));

  QTest::keyClick(&desk->tree(), Qt::Key_Z, Qt::ControlModifier);
  desk->settle();

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101", "02"));
}

} // namespace
} // namespace mrd::desktop
