// What the world does to a project while it is open.

#include "desktop/windows/desk.h"

#include "base/format.h"

#include <QLineEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using ui::Button;

struct OpenProject : testing::Test {
  void open()
  {
    home.lastWorkedOn(project.file());
    desk = std::make_unique<Desk>(home);
    desk->start();
  }
  void save()
  {
    desk->action("seitespeichern").trigger();
    desk->settle();
  }
  fs::path file() const { return project.directory().native() / "projekt.mdb"; }
  /// Lets the desk go without its page.
  void leaveUnsaved()
  {
    desk->answers.buttons.assign(20, Button::No);
    desk.reset();
  }

  support::TemporaryProject project{{"00", "Start", "<h3 id=\"ueberschrift\">Start</h3>"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

TEST_F(OpenProject, that_another_program_holds_keeps_the_page_dirty_until_it_is_free)
{
  open();
  desk->writeSource("<h3 id=\"ueberschrift\">Start</h3><p>Neu</p>");
  {
    dao::Transaction held(project.db());
    project.db().execute("UPDATE Seite SET script = 'x' WHERE ID = '00'");

    save();

    EXPECT_THAT(desk->answers.boxes, Contains(HasSubstr("SavePage")));
    EXPECT_TRUE(desk->form().pages().PageDirty());
    EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Neu"));
  }

  save();

  EXPECT_FALSE(desk->form().pages().PageDirty());
  EXPECT_THAT(project.column("00", "html").text(), HasSubstr("Neu"));
}

TEST_F(OpenProject, that_is_deleted_keeps_the_page_in_the_editor)
{
  open();
  desk->writeSource("<h3 id=\"ueberschrift\">Start</h3><p>Neu</p>");
  for (const auto& entry : fs::directory_iterator(project.directory().native()))
    fs::remove_all(entry.path());

  save();

  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Neu"));
  leaveUnsaved();
}

TEST_F(OpenProject, with_a_damaged_file_asks_for_another)
{
  home.setIniValue("LastFile", "File1", home.directory.file("kaputt.mdb"));
  home.directory.write("kaputt.mdb", std::string(5000, 'x'));
  files::UserSettings(home.userSettingsFile()).setValue("Settings", "Assistent", "nein");
  desk = std::make_unique<Desk>(home);
  desk->answers.buttons = {Button::Cancel, Button::Cancel};

  EXPECT_TRUE(desk->start());

  EXPECT_THAT(desk->answers.boxes, Not(IsEmpty()));
  EXPECT_FALSE(desk->form().project().isOpen());
}

TEST_F(OpenProject, takes_a_megabyte_of_nested_tags)
{
  open();
  std::string nested = "<h3 id=\"ueberschrift\">Tief</h3>";
  constexpr int kTags = 200000;
  for (int i = 0; i < kTags; ++i)
    nested += "<div>";
  project.db().execute("UPDATE Seite SET html = ? WHERE ID = '00'", {nested + "Boden"});

  desk->clickNode("@00");

  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Boden"));
}

TEST_F(OpenProject, of_9999_pages_opens_and_is_saved_with_its_tree)
{
  {
    dao::Transaction adding(project.db());
    for (int first = 1; first <= 99; ++first)
      for (int second = 0; second <= 99; ++second) {
        const auto id = base::format("{:02}", first) + (second == 0 ? "" : base::format("{:02}", second));
        project.addPage({id, "Seite " + id, "<h3 id=\"ueberschrift\">Seite " + id + "</h3>"});
      }
    adding.commit();
  }
  open();
  desk->clickNode("@50");
  desk->writeSource("<h3 id=\"ueberschrift\">Mitte</h3>");

  save();

  EXPECT_EQ(desk->node("@50")->text(0), "Mitte");
  EXPECT_EQ(desk->tree().topLevelItem(0)->childCount(), 99);
}

TEST_F(OpenProject, offers_what_a_crash_left_unsaved)
{
  open();
  desk->writeSource("<h3 id=\"ueberschrift\">Start</h3><p>Ungesichert</p>");
  desk->form().Timer();
  const auto crashed = home.directory.native() / "absturz";
  fs::copy(project.directory().native(), crashed, fs::copy_options::recursive);
  leaveUnsaved();
  fs::copy(crashed, project.directory().native(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  desk = std::make_unique<Desk>(home);
  desk->answers.buttons = {Button::Yes};

  desk->start();

  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Ungesichert"));
  EXPECT_TRUE(desk->form().pages().PageDirty());
  EXPECT_THAT(project.column("00", "html").text(), Not(HasSubstr("Ungesichert")));
  leaveUnsaved();
}

} // namespace
} // namespace mrd::desktop
