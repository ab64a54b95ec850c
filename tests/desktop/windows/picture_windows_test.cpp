// A user with a camera folder: scanning, choosing by looking, dragging, inserting, stopping, viewing.

#include "desktop/controls/file_list_view.h"
#include "desktop/windows/desk.h"
#include "desktop/windows/file_list.h"
#include "platform/files/path.h"
#include "platform/image/image.h"

#include <QCheckBox>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct PictureWindows : testing::Test {
  PictureWindows()
  {
    std::filesystem::create_directories(project.directory().native() / "site/pix");
    std::filesystem::create_directories(project.directory().native() / "fotos");
    project.setSetting("Exportpfad", project.directory().file("site\\"));
    home.setIniValue("LastFile", "File1", project.file());
    files::UserSettings settings(home.userSettingsFile());
    for (const auto& [key, value] : {std::pair{"Assistent", "nein"}, {"MainWidth", "15000"}, {"MainHeight", "9000"}})
      settings.setValue("Settings", key, value);
    settings.setValue("Settings", "search", fotos());
    desk = std::make_unique<Desk>(home);
    desk->start();
    desk->clickNode("@01");
  }

  std::string fotos(const std::string& name = {}) const { return project.directory().file("fotos\\" + name); }
  void photo(const std::string& name, int width = 40, int height = 30, image::Colour colour = {200, 40, 40}) const
  {
    auto picture = image::Image::create(width, height);
    picture.fill(colour);
    picture.saveJpeg(fotos(name), 2);
  }
  QDialog& scan() { return desk->find<QDialog>("FrmFileScan"); }
  QDialog& viewer() { return desk->find<QDialog>("formobjektanzeigen"); }
  FileListView& list(const char* name) { return desk->find<FileListView>(name); }
  void press(const char* button) { desk->find<QAbstractButton>(button).click(); }
  /// Empty for a window that is not there yet.
  std::string text(const char* label)
  {
    auto* const found = desk->window().findChild<QLabel*>(label);
    return found ? found->text().toStdString() : "";
  }
  std::vector<std::string> names(const char* name)
  {
    std::vector<std::string> out;
    const auto* const model = list(name).model();
    for (int row = 0; row < model->rowCount(); ++row)
      out.push_back(model->index(row, 0).data().toString().toStdString());
    return out;
  }
  void open(const char* key)
  {
    desk->action(key).trigger();
    letPass(30);
  }
  void scanAndChooseAll()
  {
    press("Command1");
    press("cballemarkieren");
    press("cbhinein");
  }
  void drop(const QMimeData& data)
  {
    QWidget* const target = list("Listpix").viewport();
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
  }

  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus", "<h3 id=\"ueberschrift\">Haus</h3>"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

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
  desk->answers.dialogs.push_back([this](QDialog& dialog) {
    auto& files = dynamic_cast<QFileDialog&>(dialog);
    files.selectFile(QString::fromStdString((project.directory().native() / "fotos/a.jpg").string()));
    QMetaObject::invokeMethod(&files, "accept");
  });

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

TEST_F(PictureWindows, speak_english)
{
  desk->action("eng").trigger();
  open("pix_mehrere");

  EXPECT_EQ(scan().windowTitle(), "insert new pictures");
  EXPECT_EQ(desk->find<QPushButton>("cbeinfügen").text(), "&4. Insert pictures");
  // The scan knows its state by this caption.
  EXPECT_EQ(desk->find<QPushButton>("Command1").text(), "&2. Scanlauf starten");
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
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
