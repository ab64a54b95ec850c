// Scanning, choosing by looking, dragging, viewing.

#include "desktop/windows/file_list.h"
#include "picture_windows.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(PictureWindows, show_small_pictures_beside_the_names_in_both_lists)
{
  photo("rot.jpg", 800, 600, {220, 10, 10});
  photo("blau.jpg", 800, 600, {10, 10, 220});
  project.directory().write("fotos/kaputt.jpg", "kein Bild");
  open("pix_mehrere");
  press("Command1");
  const auto colour = [&](const char* view, int row) {
    const auto icon = list(view).model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
    return icon.pixmap(kThumbnailSize).toImage().pixelColor(kThumbnailSize.width() / 2, kThumbnailSize.height() / 2);
  };

  EXPECT_TRUE(comesTrue([&] { return colour("List1", 0).blue() > 180 && colour("List1", 2).red() > 180; }));
  EXPECT_LT(colour("List1", 0).red(), 60);

  list("List1").selectionModel()->select(list("List1").model()->index(2, 0), QItemSelectionModel::ClearAndSelect);
  press("cbauswahlrüber");
  EXPECT_GT(colour("Listpix", 0).red(), 180);
}

TEST_F(PictureWindows, take_files_that_are_dragged_from_the_file_manager)
{
  photo("a.jpg");
  open("pix_mehrere");
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString((project.directory().native() / "fotos/a.jpg").string()))});
  drop(files);
  QMimeData lines;
  lines.setText(QString::fromStdString((project.directory().native() / "fotos/a.jpg").string() + "\n"));
  drop(lines);

  EXPECT_THAT(names("Listpix"), ElementsAre("a.jpg", "a.jpg"));
  EXPECT_EQ(text("lblpixanz"), "2");
}

TEST_F(PictureWindows, take_dropped_text_to_its_last_line)
{
  const auto path = (project.directory().native() / "fotos/a.jpg").string();
  open("pix_mehrere");
  QMimeData lines;
  lines.setText(QString::fromStdString(path + "\r\n"));

  drop(lines);

  EXPECT_THAT(names("Listpix"), ElementsAre("a.jpg", ""));
}

TEST_F(PictureWindows, are_used_with_the_keyboard)
{
  photo("a.jpg");
  photo("b.jpg");
  open("pix_mehrere");
  auto& directory = desk->find<QLineEdit>("tbshare");
  QTest::keyClick(&directory, Qt::Key_Return);
  EXPECT_EQ(names("List1").size(), 2U);

  QTest::keyClick(&list("List1"), Qt::Key_Down);
  QTest::keyClick(&list("List1"), Qt::Key_Space);
  EXPECT_EQ(names("Listpix").size(), 1U);
  EXPECT_EQ(QApplication::focusWidget(), &desk->find<QPushButton>("cbeinfügen"));

  list("Listpix").selectAll();
  QTest::keyClick(&list("Listpix"), Qt::Key_Delete);
  EXPECT_THAT(names("Listpix"), IsEmpty());
  EXPECT_EQ(names("List1").size(), 2U);

  QTest::keyClick(&scan(), Qt::Key_Escape);
  EXPECT_FALSE(scan().isVisible());
}

TEST_F(PictureWindows, stay_at_their_place_in_a_long_list)
{
  for (int n = 100; n < 200; ++n)
    photo("p" + std::to_string(n) + ".jpg");
  open("pix_mehrere");
  press("Command1");
  auto& found = list("List1");
  found.setCurrentIndex(found.model()->index(60, 0));
  letPass(50);
  const int row = found.currentIndex().row();

  QTest::keyClick(&found, Qt::Key_Down);
  letPass(50);
  EXPECT_EQ(found.currentIndex().row(), row + 1);
  QTest::keyClick(&found, Qt::Key_Space);

  EXPECT_EQ(found.currentIndex().row(), row + 1);
  EXPECT_EQ(found.currentIndex().data(), "p162.jpg");
  EXPECT_TRUE(found.viewport()->rect().intersects(found.visualRect(found.currentIndex())));
}

TEST_F(PictureWindows, move_a_file_with_a_double_click)
{
  photo("a.jpg");
  open("pix_mehrere");
  press("Command1");
  auto& found = list("List1");
  const QPoint place = found.visualRect(found.model()->index(0, 0)).center();

  QTest::mouseClick(found.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(found.viewport(), Qt::LeftButton, {}, place);

  EXPECT_THAT(names("Listpix"), ElementsAre("a.jpg"));
}

TEST_F(PictureWindows, show_a_clicked_picture_beside_them)
{
  photo("a.jpg", 800, 400);
  project.directory().write("fotos/b.jpg", "kein Bild");
  open("pix_mehrere");
  press("Command1");
  const auto click = [&](int row) {
    auto& found = list("List1");
    QTest::mouseClick(found.viewport(), Qt::LeftButton, {}, found.visualRect(found.model()->index(row, 0)).center());
    letPass(50);
  };

  click(0);
  EXPECT_TRUE(comesTrue([&] { return text("LabelInfo") == "800 x 400 pix: a.jpg"; }));
  EXPECT_TRUE(viewer().isVisible());
  EXPECT_THAT(viewer().windowTitle().toStdString(), HasSubstr("/fotos/a.jpg"));
  auto& canvas = desk->find<QWidget>("LEAD1");
  EXPECT_EQ(canvas.width(), 2 * canvas.height());
  EXPECT_GT(canvas.grab().toImage().pixelColor(canvas.rect().center()).red(), 180);

  click(1);
  EXPECT_EQ(text("LabelInfo"), "800 x 400 pix: a.jpg");

  desk->find<QCheckBox>("checkstretch").click();
  EXPECT_TRUE(comesTrue([&] { return canvas.size() == QSize(800, 400); }));

  press("cbschließen");
  EXPECT_FALSE(scan().isVisible());
}

TEST_F(PictureWindows, fit_the_picture_again_when_the_viewer_is_resized)
{
  photo("a.jpg", 800, 400);
  open("pix_mehrere");
  press("Command1");
  list("List1").setCurrentIndex(list("List1").model()->index(0, 0));
  ASSERT_TRUE(comesTrue([&] { return text("LabelInfo") == "800 x 400 pix: a.jpg"; }));
  auto& canvas = desk->find<QWidget>("LEAD1");
  const int before = canvas.width();

  viewer().resize(viewer().width() + 100, viewer().height() + 100);

  EXPECT_TRUE(comesTrue([&] { return canvas.width() == before + 100; }));
}

TEST_F(PictureWindows, turn_a_picture_and_show_it_turned)
{
  photo("a.jpg", 80, 40);
  open("pix_mehrere");
  press("Command1");
  list("List1").setCurrentIndex(list("List1").model()->index(0, 0));
  letPass(50);

  press("cbrotieren");

  EXPECT_TRUE(comesTrue([&] { return text("LabelInfo") == "40 x 80 pix: a.jpg"; }));
  EXPECT_THAT(names("List1"), ElementsAre("a.jpg"));
}

TEST_F(PictureWindows, stay_alive_while_they_scan_and_stop)
{
  for (int directory = 0; directory < 60; ++directory)
    for (int file = 0; file < 100; ++file)
      project.directory().write("fotos/d" + std::to_string(directory) + "/" + std::to_string(file) + ".jpg", "");
  open("pix_mehrere");
  QElapsedTimer clock;
  qint64 longest = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
    longest = std::max(longest, clock.restart());
    if (desk->find<QPushButton>("Command1").text() == "Scanlauf anhalten" && names("List1").size() > 500)
      press("Command1");
  });
  beat.start(5);
  clock.start();

  press("Command1");

  EXPECT_LT(longest, 250);
  EXPECT_EQ(desk->find<QPushButton>("Command1").text(), "&2. Scanlauf starten");
  EXPECT_THAT(names("List1"), testing::SizeIs(testing::AllOf(testing::Gt(500U), testing::Le(6000U))));
}

TEST_F(PictureWindows, close_with_the_main_window_in_the_middle_of_a_scan)
{
  for (int directory = 0; directory < 60; ++directory)
    for (int file = 0; file < 60; ++file)
      project.directory().write("fotos/d" + std::to_string(directory) + "/" + std::to_string(file) + ".jpg", "");
  open("pix_mehrere");
  QTimer::singleShot(1, &desk->window(), [&] { desk->window().close(); });

  press("Command1");

  EXPECT_TRUE(comesTrue([&] { return !desk->window().isVisible(); }));
  EXPECT_FALSE(scan().isVisible());
}

TEST_F(PictureWindows, speak_english)
{
  photo("a.jpg");
  desk->action("eng").trigger();
  open("pix_mehrere");

  EXPECT_EQ(scan().windowTitle(), "insert new pictures");
  EXPECT_EQ(desk->find<QPushButton>("cbeinfügen").text(), "&4. Insert pictures");
  // The scan knows its state by a caption that stays German; what stands on the button is another thing.
  EXPECT_EQ(desk->find<QPushButton>("Command1").text(), "&2. Start the scan");
  press("Command1");
  EXPECT_EQ(names("List1").size(), 1U);
  EXPECT_EQ(desk->find<QPushButton>("Command1").text(), "&2. Start the scan");
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

} // namespace
} // namespace mrd::desktop
