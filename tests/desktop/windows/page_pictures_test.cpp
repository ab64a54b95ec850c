// Commands for the pictures of a page.

#include "picture_windows.h"
#include "platform/files/path.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QProcess>
#include <QTabWidget>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace mrd::desktop {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST_F(PictureWindows, write_thumbnails_of_the_sub_pages)
{
  photo("..\\site\\pix\\a.jpg", 300, 200);
  project.addPage({"0101", "Küche", "<img src=\"file://" + project.directory().file("site\\pix\\a.jpg") + "\">"});
  open("pix_thumbs");

  desk->settle();
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("a_xs.jpg"));
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Küche"));
}

TEST_F(PictureWindows, give_the_pictures_of_a_page_shadows_that_the_editor_shows)
{
  photo("a.jpg");
  open("pix_mehrere");
  scanAndChooseAll();
  press("cbeinfügen");
  desk->settle();

  desk->action("mnupixSchatten").trigger();

  desk->settle();
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("a_shd.jpg"));
  EXPECT_TRUE(std::filesystem::exists(project.directory().native() / "site/pix/a_shd.jpg"));
}

TEST_F(PictureWindows, put_one_picture_where_the_cursor_is)
{
  photo("a.jpg");
  desk->answers.dialogs.push_back([](QDialog& dialog) {
    // Apart from the look at what is shown, so that the dialog over this one is used too.
    QTimer::singleShot(0, &dialog, [&dialog] {
      dialog.findChild<QAbstractButton*>("cbbild")->click();
      dialog.findChild<QAbstractButton*>("cbok")->click();
    });
  });
  desk->answers.dialogs.push_back(fileNamed(project.directory().native() / "fotos/a.jpg"));

  open("pix_eins");

  desk->settle();
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("src=\"file://" + fotos("a.jpg") + "\""));
  EXPECT_TRUE(desk->form().pages().PageDirty());
}

TEST_F(PictureWindows, insert_nothing_when_the_dialog_is_cancelled)
{
  open("pix_eins");

  EXPECT_EQ(desk->answers.dialogTitles.size(), 1U);
  EXPECT_THAT(desk->surface().bodyInnerHtml(), Not(HasSubstr("<img")));
  EXPECT_FALSE(desk->form().pages().PageDirty());
}

TEST_F(PictureWindows, make_the_same_copies_as_the_command_line)
{
  std::filesystem::copy_file(std::filesystem::path(MRD_TEST_DATA) / "pictures/flower.jpg",
                             project.directory().native() / "site/pix/blume.jpg");
  const auto picture = "<img src=\"file://" + project.directory().file("site\\pix\\blume.jpg") + "\">";
  project.addPage({"0101", "Blume", "<h3 id=\"ueberschrift\">Blume</h3>" + picture});
  const auto site = project.directory().native() / "site/pix";
  const auto read = [&](const char* name) { return project.directory().read(std::string("site/pix/") + name); };
  const auto mrd = [&](QStringList arguments) {
    arguments.insert(0, "pictures");
    arguments.insert(2, QString::fromStdString(files::nativePath(project.file()).string()));
    EXPECT_EQ(QProcess::execute(QStringLiteral(MRD_PROGRAM_DIR "/mrd"), arguments), 0);
  };
  desk->form().pages().ZeigeStruktur();
  open("pix_thumbs");
  desk->settle();
  desk->form().pages().changePage("@0101");
  desk->settle();
  open("mnupixSchatten");
  desk->settle();
  desk->form().pages().giveUp();
  const auto shadow = read("blume_shd.jpg"), thumbnail = read("blume_xs.jpg");
  std::filesystem::remove(site / "blume_shd.jpg");
  std::filesystem::remove(site / "blume_xs.jpg");

  mrd({"shadow", "0101"});
  EXPECT_EQ(read("blume_shd.jpg"), shadow);
  project.db().execute("UPDATE Seite SET html = ? WHERE ID = '0101'", {picture});
  mrd({"thumbnails", "01"});
  EXPECT_EQ(read("blume_xs.jpg"), thumbnail);
}

TEST_F(PictureWindows, show_the_rounded_corner_as_the_site_will_have_it)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(3);
  desk->settle();
  desk->find<QCheckBox>("CheckRundeEcke").setChecked(true);
  for (const auto& [field, value] : {std::pair{"Tbtabelle", "ff0000"}, {"tbhintergrundaussen", "00ff00"}, {"tbradius", "20"}})
    desk->find<QLineEdit>(field).setText(value);
  desk->settle();

  auto& sample = desk->find<QWidget>("LEADEcke");
  EXPECT_EQ(sample.size(), QSize(21, 21));
  const QImage picture = sample.grab().toImage();
  EXPECT_EQ(picture.pixelColor(0, 0), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(19, 19), QColor(0, 255, 0));
  EXPECT_EQ(picture.pixelColor(20, 0), QColor(0, 255, 0));
}

} // namespace
} // namespace mrd::desktop
