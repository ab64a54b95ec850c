#include "frame/messages/messages.h"
#include "main_window.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct PictureCommandsTest : testing::Test, OpenMainWindow {
  PictureCommandsTest()
  {
    start();
    std::filesystem::create_directories(directory.native() / "site/pix");
    std::filesystem::create_directories(directory.native() / "fotos");
    click("@01");
  }

  std::string photo(const std::string& name, int width = 40, int height = 30) const
  {
    const auto path = directory.file("fotos\\" + name);
    image::Image::create(width, height).saveJpeg(path, 2);
    return path;
  }
  pictures::FrmFileScan& scan() { return *window.pictures().fileScan(); }
  void choose(std::initializer_list<const char*> names)
  {
    scan().tbshare = directory.file("fotos\\");
    for (const char* name : names) {
      photo(name);
      scan().Listpix.push_back({name});
    }
  }
};

TEST_F(PictureCommandsTest, save_the_page_and_open_the_scan_for_this_page)
{
  surface.type("<h3 id=\"ueberschrift\">Neues Haus</h3>");

  window.Toolbar3_ButtonClick("pix_mehrere");

  EXPECT_THAT(text("01", "html"), HasSubstr("Neues Haus"));
  EXPECT_THAT(dialogs.beside, ElementsAre("FrmFileScan"));
  EXPECT_TRUE(scan().Opdieseseite && scan().tableEnabled);
  EXPECT_EQ(scan().lblnode, "@01");
}

TEST_F(PictureCommandsTest, open_the_scan_for_a_page_each_from_the_menu)
{
  window.menu_Click("pixsub", 1);

  EXPECT_FALSE(scan().Opdieseseite || scan().tableEnabled);
}

TEST_F(PictureCommandsTest, bring_an_open_scan_to_the_front_with_its_lists_for_the_page_of_now)
{
  window.Toolbar3_ButtonClick("pix_mehrere");
  scan().Listpix = {{"a.jpg"}};
  click("@02");

  window.Toolbar3_ButtonClick("pix_eigene");

  EXPECT_EQ(scan().Listpix.size(), 1U);
  EXPECT_EQ(scan().lblnode, "@02");
  EXPECT_FALSE(scan().Opdieseseite);
}

TEST_F(PictureCommandsTest, put_pictures_into_the_page_which_is_then_to_be_saved)
{
  window.Toolbar3_ButtonClick("pix_mehrere");
  choose({"a.jpg"});

  scan().cbeinfügen_Click();

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("pix/a.jpg"));
  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_FALSE(scan().isLoaded());
  EXPECT_FALSE(window.pages().isBusy());
}

TEST_F(PictureCommandsTest, do_not_lose_what_was_typed_in_the_source)
{
  window.Toolbar3_ButtonClick("pix_mehrere");
  choose({"a.jpg"});
  selectTab(static_cast<int>(HtmlTab::Source));
  window.pages().fields.tbhtml = "<h3 id=\"ueberschrift\">Aus der Quelle</h3>";

  scan().cbeinfügen_Click();

  EXPECT_EQ(window.tabs().tabHtml, static_cast<int>(HtmlTab::Editor));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Aus der Quelle"));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("pix/a.jpg"));
}

TEST_F(PictureCommandsTest, add_a_page_for_each_picture_to_the_tree)
{
  window.Toolbar3_ButtonClick("pix_eigene");
  choose({"a.jpg", "b.jpg"});

  scan().cbeinfügen_Click();

  // One sub-page was there.
  EXPECT_EQ(text("0102", "Überschrift"), "a");
  EXPECT_EQ(text("0103", "Überschrift"), "b");
  EXPECT_EQ(tree.label("@0103"), "b");
}

TEST_F(PictureCommandsTest, make_no_pages_below_one_that_has_gone)
{
  window.Toolbar3_ButtonClick("pix_eigene");
  choose({"a.jpg"});
  project.db().execute("DELETE FROM Seite WHERE ID = '01'");
  ui.expect(2);

  EXPECT_FALSE(scan().cbeinfügen_Click().begun);

  EXPECT_EQ(scan().Listpix.size(), 1U);
}

TEST_F(PictureCommandsTest, close_the_scan_when_another_project_opens)
{
  support::TemporaryProject other{{"00", "Anderes"}};
  window.Toolbar3_ButtonClick("pix_mehrere");
  ui.answerOpenDialog(other.file());

  window.OpenProject_Click();

  EXPECT_FALSE(scan().isLoaded());
  window.Toolbar3_ButtonClick("pix_mehrere");
  EXPECT_TRUE(scan().isLoaded());
  EXPECT_THAT(scan().Listpix, IsEmpty());
}

TEST_F(PictureCommandsTest, write_the_table_of_sub_pages)
{
  window.settings().fields().CheckVorschauMeldung = true;
  ui.expect(0, "NICHT in die Thumbnails");

  window.Toolbar3_ButtonClick("pix_thumbs");

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("id=\"thumbs\""));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Küche"));
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(PictureCommandsTest, renew_all_tables_and_come_back_to_the_page)
{
  project.db().execute("UPDATE Seite SET html = ? WHERE ID = '02'",
                       {"<h3 id=\"ueberschrift\">Garten</h3><div id=\"thumbs\">alt</div>"});
  surface.type("<h3 id=\"ueberschrift\">Haus mit Dach</h3>");
  ui.expect(0, "Sollen jetzte alle Vorschaubilder aktualisiert werden?", ui::Button::Yes);

  window.menu_Click("pixsub", 4);

  EXPECT_THAT(text("02", "html"), Not(HasSubstr("alt")));
  EXPECT_THAT(text("02", "html"), HasSubstr("<table border=\"0\">"));
  EXPECT_THAT(text("01", "html"), HasSubstr("Haus mit Dach"));
  EXPECT_EQ(active(), "@01");
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Haus mit Dach"));
}

TEST_F(PictureCommandsTest, save_nothing_and_stay_where_the_user_is_when_the_tables_are_to_stay)
{
  surface.type("<h3 id=\"ueberschrift\">Haus mit Dach</h3>");
  ui.expect(0, "Sollen jetzte", ui::Button::No);
  window.menu_Click("pixsub", 4);

  EXPECT_THAT(text("01", "html"), Not(HasSubstr("Haus mit Dach")));
  EXPECT_TRUE(window.pages().PageDirty());

  window.pages().SavePage();
  selectTreeTab(static_cast<int>(TreeTab::Head));
  ui.expect(0, "Sollen jetzte", ui::Button::No);
  window.menu_Click("pixsub", 4);

  EXPECT_EQ(window.pages().document.kind, DocumentKind::Head);
}

TEST_F(PictureCommandsTest, never_take_the_head_for_a_page)
{
  project.db().execute("UPDATE Seite SET html = '<h3 id=\"ueberschrift\">Garten</h3><div id=thumbs></div>' WHERE ID = '02'");
  selectTreeTab(static_cast<int>(TreeTab::Head));
  surface.type("<p>Kopf</p>");
  ui.expect(0, "Sollen jetzte", ui::Button::Yes);

  window.menu_Click("pixsub", 4);

  EXPECT_THAT(project.setting("KopfHTML").value_or(""), HasSubstr("Kopf"));
  EXPECT_THAT(project.setting("KopfHTML").value_or(""), Not(HasSubstr("Garten")));
}

TEST_F(PictureCommandsTest, give_the_pictures_of_the_page_shadows)
{
  const auto picture = directory.file("site\\pix\\a.jpg");
  image::Image::create(40, 30).saveJpeg(picture, 2);
  surface.setBodyInnerHtml("<h3 id=\"ueberschrift\">Haus</h3><img src=\"file://" + picture + "\">");

  window.menu_Click("mnupixSchatten", std::nullopt);

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("a_shd.jpg"));
  EXPECT_TRUE(files::fileExists(directory.file("site\\pix\\a_shd.jpg")));
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST_F(PictureCommandsTest, leave_a_page_without_pictures_unchanged)
{
  window.menu_Click("mnupixSchatten", std::nullopt);

  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(PictureCommandsTest, keep_the_shadows_before_a_picture_that_fails_and_tell_the_failure)
{
  for (const char* name : {"a.jpg", "b.jpg"})
    image::Image::create(40, 30).saveJpeg(directory.file(std::string("site\\pix\\") + name), 2);
  files::writeFileAtomically(directory.file("site\\pix\\b.jpg"), "kein Bild");
  surface.setBodyInnerHtml("<img src=\"file://" + directory.file("site\\pix\\a.jpg") + "\"><img src=\"file://" +
                           directory.file("site\\pix\\b.jpg") + "\">");
  ui.expect(1);

  window.menu_Click("mnupixSchatten", std::nullopt);

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("a_shd.jpg"));
  EXPECT_TRUE(window.pages().PageDirty());
  EXPECT_FALSE(window.pages().isBusy());
}

TEST_F(PictureCommandsTest, insert_one_picture_through_the_surface)
{
  window.Toolbar3_ButtonClick("pix_eins");

  EXPECT_THAT(surface.executed, testing::Contains("5017"));
  EXPECT_TRUE(window.pages().PageDirty());
}

TEST(PictureCommandsWithoutProject, are_refused)
{
  MainWindow window;
  support::ScriptedUi& ui = window.ui;
  window.program.startLanguage();
  for (int entry = 0; entry < 5; ++entry) {
    ui.expect(24);
    window.window.menu_Click("pixsub", entry);
  }
  ui.expect(24);
  window.window.menu_Click("mnupixSchatten", std::nullopt);

  EXPECT_EQ(window.window.pictures().fileScan(), nullptr);
}

} // namespace
} // namespace mrd::mainform
