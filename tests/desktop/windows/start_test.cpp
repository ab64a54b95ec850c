#include "desktop/windows/desk.h"

#include "desktop/editing/web_editing_surface.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Button;

constexpr auto kNoProjectChosen = "Sie haben keine Datenbank ausgewählt. Möchten Sie es noch einmal versuchen?";

void useAssistant(const ProgramHome& home, const char* value)
{
  files::UserSettings(home.userSettingsFile()).setValue("Settings", "Assistent", value);
}

struct FirstStart : testing::Test {
  FirstStart() { useAssistant(home, "nein"); }
  ProgramHome home;
};

TEST_F(FirstStart, asks_for_a_project_until_the_user_has_refused_twice)
{
  Desk desk(home);
  desk.answers.buttons = {Button::Retry, Button::Cancel};

  EXPECT_TRUE(desk.start());

  EXPECT_THAT(desk.answers.dialogTitles, ElementsAre("Datenbank öffnen", "Datenbank öffnen"));
  ASSERT_THAT(desk.answers.boxes, SizeIs(3));
  EXPECT_EQ(desk.answers.boxes[0], kNoProjectChosen);
  EXPECT_EQ(desk.answers.boxes[1], kNoProjectChosen);
  EXPECT_THAT(desk.answers.boxes[2], HasSubstr("Es ist keine Datenbank geöffnet."));
  EXPECT_TRUE(desk.window().isVisible());
  EXPECT_FALSE(desk.form().project().isOpen());
}

TEST_F(FirstStart, opens_the_project_that_the_user_chooses_and_remembers_it)
{
  support::TemporaryProject project({{"00", "Start"}, {"01", "Haus"}});
  Desk desk(home);
  desk.answers.dialogs.push_back(fileNamed(project.directory().native() / "projekt.mdb"));

  EXPECT_TRUE(desk.start());

  EXPECT_THAT(desk.answers.boxes, IsEmpty());
  EXPECT_EQ(home.iniValue("LastFile", "File1"), project.file());
  EXPECT_EQ(desk.window().windowTitle(), "Mirandel: Start");
  ASSERT_NE(desk.node("@01"), nullptr);
  EXPECT_EQ(desk.node("@01")->text(0), "Haus");
}

TEST_F(FirstStart, speaks_german_where_the_language_has_two_letters)
{
  home.setIniValue("Language", "Lang", "de");
  support::TemporaryProject project({{"00", "Start"}});
  home.setIniValue("LastFile", "File1", project.file());
  Desk desk(home);

  desk.start();

  EXPECT_TRUE(desk.action("GER").isChecked());
  EXPECT_EQ(desk.find<QTabWidget>("tabHtml").tabText(2), "Seite");
}

TEST_F(FirstStart, asks_where_the_last_project_is_gone)
{
  home.setIniValue("LastFile", "File1", home.directory.file("weg.mdb"));
  Desk desk(home);
  desk.answers.buttons = {Button::Cancel};

  desk.start();

  EXPECT_THAT(desk.answers.dialogTitles, ElementsAre("Datenbank öffnen"));
}

TEST_F(FirstStart, goes_on_in_german_without_a_language_database)
{
  std::filesystem::remove(home.directory.native() / "language.mdb");
  support::TemporaryProject project({{"00", "Start"}});
  home.setIniValue("LastFile", "File1", project.file());
  Desk desk(home);

  EXPECT_TRUE(desk.start());

  EXPECT_THAT(desk.answers.boxes, Contains(HasSubstr("Language Database konnte nicht gefunden werden.")));
  EXPECT_EQ(desk.find<QTabWidget>("tabHtml").tabText(5), "Sonstiges");
  EXPECT_EQ(desk.window().windowTitle(), "Mirandel: Start");
}

TEST(NewProject, begins_with_its_home_page_and_the_second_page_of_the_assistant)
{
  ProgramHome home;
  useAssistant(home, "nein");
  Desk desk(home);
  desk.answers.buttons = {Button::Cancel};
  desk.start();
  const auto file = home.directory.native() / "urlaub.mdb";
  int page = -1;
  desk.answers.dialogs.push_back(fileNamed(file));
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    page = dialog.findChild<QTabWidget*>("TabAssistent")->currentIndex();
    dialog.reject();
  });

  desk.action("NewProject").trigger();
  desk.settle();

  EXPECT_TRUE(std::filesystem::exists(file));
  EXPECT_EQ(page, 1);
  EXPECT_NE(desk.node("@00"), nullptr);
}

struct Assistant : testing::Test {
  Assistant() { home.setIniValue("LastFile", "File1", project.file()); }
  support::TemporaryProject project{{"00", "Start"}};
  ProgramHome home;
};

TEST_F(Assistant, comes_at_the_start_walks_through_its_pages_and_saves)
{
  project.setSetting("Exportpfad", home.directory.file("exportpfad\\"));
  Desk desk(home);
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    auto& tabs = *dialog.findChild<QTabWidget*>("TabAssistent");
    EXPECT_EQ(tabs.currentIndex(), 0);
    dialog.findChild<QAbstractButton*>("cbweiter1")->click();
    EXPECT_EQ(tabs.currentIndex(), 1);
    dialog.findChild<QLineEdit*>("tbtitel")->setText("Meine Möwen");
    dialog.findChild<QAbstractButton*>("cbweiter2")->click();
    EXPECT_EQ(tabs.currentIndex(), 2);
    dialog.findChild<QAbstractButton*>("CheckAssistentaqnzeigen")->setChecked(true);
    dialog.findChild<QAbstractButton*>("cbschliessen")->click();
  });

  desk.start();

  EXPECT_EQ(project.setting("Titel"), "Meine Möwen");
  EXPECT_EQ(desk.find<QLineEdit>("tbtitel").text(), "Meine Möwen");
  EXPECT_EQ(desk.userSettings.value("Settings", "Assistent", ""), "nein");
}

TEST_F(Assistant, stays_away_when_it_was_switched_off)
{
  useAssistant(home, "nein");
  Desk desk(home);

  desk.start();

  EXPECT_THAT(desk.answers.dialogTitles, IsEmpty());
}

struct Window : testing::Test {
  Window()
  {
    home.setIniValue("LastFile", "File1", project.file());
    files::UserSettings settings(home.userSettingsFile());
    for (const auto& [key, value] : {std::pair{"Assistent", "nein"},
                                     {"MainLeft", "150"},
                                     {"MainTop", "75"},
                                     {"MainWidth", "15000"},
                                     {"MainHeight", "9000"},
                                     {"picSplitterLeft", "4500"}})
      settings.setValue("Settings", key, value);
  }
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"02", "Garten"}};
  ProgramHome home;
};

TEST_F(Window, stands_where_it_stood)
{
  Desk desk(home);

  desk.start();

  EXPECT_EQ(desk.window().size(), QSize(1000, 600));
  EXPECT_EQ(desk.window().pos(), QPoint(10, 5));
  EXPECT_NEAR(desk.find<QTabWidget>("TabTree").width(), 300, 2);
}

TEST_F(Window, that_stood_on_a_screen_which_is_gone_comes_into_sight)
{
  files::UserSettings(home.userSettingsFile()).setValue("Settings", "MainLeft", "150000");
  Desk desk(home);

  desk.start();

  EXPECT_TRUE(desk.window().screen()->geometry().contains(desk.window().pos()));
  EXPECT_EQ(desk.window().size(), QSize(1000, 600));
}

TEST_F(Window, keeps_open_nodes_selection_and_placement)
{
  {
    Desk desk(home);
    desk.start();
    desk.node("@01")->setExpanded(true);
    desk.clickNode("@0101");
    desk.window().resize(900, 700);
    desk.settle();
    desk.window().close();
  }
  Desk again(home);

  again.start();

  EXPECT_EQ(again.window().windowTitle(), "Mirandel: Küche");
  EXPECT_TRUE(again.node("@01")->isExpanded());
  EXPECT_TRUE(again.node("@0101")->isSelected());
  EXPECT_EQ(again.window().size(), QSize(900, 700));
}

TEST_F(Window, that_is_minimised_at_its_close_leaves_the_placement_alone)
{
  {
    Desk desk(home);
    desk.start();
    desk.window().resize(700, 500);
    desk.window().showMinimized();
    letPass(50);
    desk.window().close();
  }

  EXPECT_EQ(files::UserSettings(home.userSettingsFile()).value("Settings", "MainWidth", ""), "15000");
}

TEST_F(Window, keeps_its_tree_and_its_page_in_sight_when_it_gets_narrow)
{
  Desk desk(home);
  desk.start();
  auto& tree = desk.find<QTabWidget>("TabTree");
  auto& page = desk.find<QTabWidget>("tabHtml");

  desk.window().resize(450, 500);
  desk.settle();
  EXPECT_GE(tree.width(), 160);
  EXPECT_GE(page.width(), 90);

  desk.window().resize(1000, 600);
  desk.settle();
  EXPECT_GE(tree.width(), 160);
  EXPECT_GE(page.width(), 600);
}

TEST_F(Window, does_not_get_narrower_than_its_least_width)
{
  Desk desk(home);
  desk.start();

  desk.window().resize(120, 500);
  desk.settle();

  EXPECT_GE(desk.window().width(), 200);
}

} // namespace
} // namespace mrd::desktop
