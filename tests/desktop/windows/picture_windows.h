#pragma once
// A user with a camera folder in front of the open windows.

#include "desktop/controls/file_list_view.h"
#include "desktop/windows/desk.h"
#include "platform/image/image.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMimeData>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mrd::desktop {

struct PictureWindows : testing::Test {
  PictureWindows()
  {
    std::filesystem::create_directories(project.directory().native() / "site/pix");
    std::filesystem::create_directories(project.directory().native() / "fotos");
    project.setSetting("Exportpfad", project.directory().file("site\\"));
    home.lastWorkedOn(project.file());
    files::UserSettings(home.userSettingsFile()).setValue("Settings", "search", fotos());
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

} // namespace mrd::desktop
