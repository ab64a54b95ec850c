// From the chosen files to the page: options, progress, stopping, what did not arrive.

#include "picture_windows.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(PictureWindows, take_photographs_from_a_folder_to_the_page)
{
  photo("Möwe.jpg", 900, 600);
  photo("klein.jpg");
  open("pix_mehrere");
  ASSERT_TRUE(scan().isVisible());
  EXPECT_FALSE(scan().isModal());
  EXPECT_TRUE(desk->find<QRadioButton>("Opdieseseite").isChecked());

  press("Command1");
  EXPECT_THAT(names("List1"), ElementsAre("klein.jpg", "Möwe.jpg"));
  EXPECT_EQ(text("labelanz"), "2");
  press("cballemarkieren");
  EXPECT_EQ(list("List1").selectionModel()->selectedRows().size(), 2);
  press("cbhinein");
  EXPECT_THAT(names("List1"), IsEmpty());
  EXPECT_THAT(names("Listpix"), ElementsAre("klein.jpg", "Möwe.jpg"));
  EXPECT_EQ(text("lblpixanz"), "2");
  press("cbeinfügen");

  desk->settle();
  EXPECT_FALSE(scan().isVisible());
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("/klein.jpg\""));
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("/01_moewe_580.jpg\""));
  EXPECT_TRUE(std::filesystem::exists(project.directory().native() / "site/pix/01_moewe_580.jpg"));
  EXPECT_TRUE(desk->form().pages().PageDirty());
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(PictureWindows, bring_pictures_into_an_empty_directory_that_the_assistant_has_taken_over)
{
  const auto empty = project.directory().native() / "leer";
  std::filesystem::create_directory(empty);
  photo("a.jpg");
  desk->answers.dialogs = {[&](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("tbexportpfad")->setText(QString::fromStdString(empty.string()));
    dialog.findChild<QTabWidget*>("TabAssistent")->setCurrentIndex(2);
    dialog.findChild<QAbstractButton*>("cbschliessen")->click();
  }};
  desk->action("HelpSub1_3").trigger();
  EXPECT_TRUE(std::filesystem::is_empty(empty));

  open("pix_mehrere");
  scanAndChooseAll();
  press("cbeinfügen");

  desk->settle();
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
  EXPECT_TRUE(std::filesystem::exists(empty / "pix/a.jpg"));
}

TEST_F(PictureWindows, make_a_page_for_each_photograph)
{
  photo("a.jpg");
  photo("b.jpg");
  open("pix_eigene");
  EXPECT_TRUE(desk->find<QRadioButton>("OpjedesBildeineSeite").isChecked());
  EXPECT_FALSE(desk->find<QLineEdit>("tbtabspalten").isEnabled());
  EXPECT_FALSE(desk->find<QCheckBox>("CheckRahmen").isEnabled());

  scanAndChooseAll();
  press("cbeinfügen");

  desk->settle();
  ASSERT_NE(desk->node("@0102"), nullptr);
  EXPECT_TRUE(desk->node("@01")->isExpanded());
  EXPECT_EQ(project.column("0102", "Überschrift").text(), "b");
}

TEST_F(PictureWindows, take_dragged_files_from_elsewhere_when_nothing_was_chosen)
{
  photo("a.jpg");
  desk->userSettings.setValue("Settings", "search", "c:\\");
  open("pix_mehrere");
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString((project.directory().native() / "fotos/a.jpg").string()))});
  drop(files);

  press("cbeinfügen");

  desk->settle();
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("pix/a.jpg"));
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(PictureWindows, count_the_pictures_and_stop_when_they_are_told_to)
{
  for (int n = 10; n < 50; ++n)
    photo("p" + std::to_string(n) + ".jpg", 1600, 1200);
  open("pix_mehrere");
  scanAndChooseAll();
  std::string counted;
  bool blocked = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* const working = desk->window().findChild<QWidget*>("frmBildkonvertierer");
    if (!working || !working->isVisible() || !counted.empty())
      return;
    // Several may be done within one look.
    if (const auto now = text("LabelAnzahl"); std::atoi(now.c_str()) >= 2) {
      counted = now;
      blocked = QApplication::activeModalWidget() == working;
      press("cbanhalten");
    }
  });
  watch.start(1);

  press("cbeinfügen");

  desk->settle();
  EXPECT_THAT(counted, HasSubstr(" / 40"));
  EXPECT_TRUE(blocked);
  const auto html = QString::fromStdString(desk->surface().bodyInnerHtml());
  const auto pictures = html.count("<img");
  EXPECT_GE(pictures, 2);
  EXPECT_LT(pictures, 40);
  // Each that was made is in the page, in the order of the list.
  EXPECT_THAT(html.toStdString(), HasSubstr("01_p10_580.jpg"));
}

TEST_F(PictureWindows, tell_what_did_not_arrive)
{
  project.directory().write("fotos/a.jpg", "kein Bild");
  open("pix_mehrere");
  scanAndChooseAll();

  press("cbeinfügen");

  ASSERT_EQ(desk->answers.boxes.size(), 1U);
  EXPECT_THAT(desk->answers.boxes.front(), HasSubstr("a.jpg: Die Datei ist kein Bild von bekannter Art."));
}

TEST_F(PictureWindows, keep_their_options_for_the_next_time)
{
  photo("a.jpg");
  open("pix_mehrere");
  scanAndChooseAll();
  desk->find<QLineEdit>("tbpixel").clear();
  QTest::keyClicks(&desk->find<QLineEdit>("tbpixel"), "640");
  desk->find<QCheckBox>("CheckSchatten").click();
  desk->find<QSlider>("Slider1").setValue(50);
  press("cbeinfügen");
  desk->settle();

  open("pix_eigene");

  EXPECT_EQ(desk->find<QLineEdit>("tbpixel").text(), "640");
  EXPECT_TRUE(desk->find<QCheckBox>("CheckSchatten").isChecked());
  EXPECT_EQ(desk->find<QSlider>("Slider1").value(), 50);
  EXPECT_EQ(desk->find<QSlider>("Slider1").toolTip(), "Kompressionsfaktor 50%");
  EXPECT_TRUE(desk->find<QRadioButton>("OpjedesBildeineSeite").isChecked());
}

TEST_F(PictureWindows, ask_for_a_number_when_the_size_is_left)
{
  open("pix_mehrere");
  auto& size = desk->find<QLineEdit>("tbpixel");
  size.setFocus();
  size.clear();
  QTest::keyClicks(&size, "viel");
  QTest::keyClick(&size, Qt::Key_Tab);
  letPass(100);

  ASSERT_EQ(desk->answers.boxes.size(), 1U);
  EXPECT_THAT(desk->answers.boxes.front(), HasSubstr("eine Zahl"));
}

TEST_F(PictureWindows, lock_options_to_each_other)
{
  open("pix_mehrere");
  desk->find<QCheckBox>("CheckOriginalbilder").click();
  EXPECT_TRUE(desk->find<QCheckBox>("CheckPopupfenster").isChecked());
  desk->find<QCheckBox>("CheckOriginalbilder").click();
  EXPECT_FALSE(desk->find<QCheckBox>("CheckPopupfenster").isEnabled());
  desk->find<QRadioButton>("opnichtkonvertieren").click();
  EXPECT_TRUE(desk->find<QCheckBox>("CheckPopupfenster").isEnabled());
  desk->find<QRadioButton>("OpjedesBildeineSeite").click();
  EXPECT_FALSE(desk->find<QCheckBox>("CheckRahmen").isEnabled());
}

} // namespace
} // namespace mrd::desktop
