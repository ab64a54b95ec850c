#pragma once
// A user at the editor of the main window, with mouse and keyboard.

#include "desktop/windows/desk.h"
#include "platform/image/image.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace mrd::desktop {

struct EditorWindows : testing::Test {
  EditorWindows()
  {
    std::filesystem::create_directories(project.directory().native() / "site/pix");
    project.setSetting("Exportpfad", project.directory().file("site\\"));
    home.lastWorkedOn(project.file());
    desk = std::make_unique<Desk>(home);
    desk->start();
    desk->clickNode("@01");
  }

  WebEditingSurface& surface() { return desk->surface(); }
  QVariant inPage(const QString& expression)
  {
    bool answered = false;
    QVariant value;
    surface().findChild<QWebEngineView*>()->page()->runJavaScript(expression, QWebEngineScript::ApplicationWorld,
                                                                  [&](const QVariant& answer) {
                                                                    value = answer;
                                                                    answered = true;
                                                                  });
    comesTrue([&] { return answered; });
    return value;
  }
  void page(const std::string& html)
  {
    surface().setDocumentHtml(html);
    desk->settle();
  }
  void select(const char* selector)
  {
    inPage(QString("getSelection().selectAllChildren(document.querySelector('%1'))").arg(selector));
    desk->settle();
  }
  void placeCursor(const char* selector)
  {
    inPage(QString("getSelection().collapse(document.querySelector('%1').firstChild, 0)").arg(selector));
    desk->settle();
  }
  void selectWhole(const char* selector)
  {
    inPage(QString("{ const r = document.createRange(); r.selectNode(document.querySelector('%1')); "
                   "getSelection().removeAllRanges(); getSelection().addRange(r); }")
               .arg(selector));
    desk->settle();
  }
  void trigger(const std::string& entry)
  {
    desk->action(entry.c_str()).trigger();
    desk->settle();
  }
  std::string body() { return surface().bodyInnerHtml(); }
  /// Whether an entry is enabled and ticked while its menu is open.
  struct Shown {
    bool enabled, checked;
  };
  Shown shown(const char* menuName, const char* entry)
  {
    auto& menu = desk->find<QMenu>(menuName);
    menu.popup(desk->window().mapToGlobal(QPoint(10, 10)));
    const auto& action = desk->action(entry);
    const Shown state{action.isEnabled(), action.isChecked()};
    menu.close();
    return state;
  }
  /// Apart from the look at what is shown, so that a box over the dialog is answered too.
  void inDialog(std::function<void(QDialog&)> work)
  {
    desk->answers.dialogs.push_back(
        [work = std::move(work)](QDialog& dialog) { QTimer::singleShot(0, &dialog, [work, &dialog] { work(dialog); }); });
  }
  static void type(QDialog& dialog, const char* field, const char* text)
  {
    auto& line = *dialog.findChild<QLineEdit*>(QString::fromUtf8(field));
    line.selectAll();
    line.insert(QString::fromUtf8(text));
  }
  static void press(QDialog& dialog, const char* button)
  {
    dialog.findChild<QAbstractButton*>(QString::fromUtf8(button))->click();
  }
  bool dirty() { return desk->form().pages().PageDirty(); }
  std::string photo(const std::string& name)
  {
    auto picture = image::Image::create(40, 30);
    picture.fill({200, 40, 40});
    const std::string path = project.directory().file("site\\pix\\" + name);
    picture.saveJpeg(path, 2);
    return path;
  }
  QPoint placeOf(const char* selector)
  {
    const auto place = inPage(QString("(() => { const r = document.querySelector('%1').getBoundingClientRect(); "
                                      "return [r.left + r.width / 2, r.top + r.height / 2]; })()")
                                  .arg(selector))
                           .toList();
    return {qRound(place.at(0).toDouble()), qRound(place.at(1).toDouble())};
  }
  QMenu* contextMenu(const char* selector)
  {
    QTest::mouseClick(surface().findChild<QWebEngineView*>()->focusProxy(), Qt::RightButton, {}, placeOf(selector));
    comesTrue([&] { return surface().findChild<QMenu*>("ContextMenu") != nullptr; });
    return surface().findChild<QMenu*>("ContextMenu");
  }
  void choose(QMenu& menu, const char* caption)
  {
    for (QAction* const action : menu.actions())
      if (action->text() == QString::fromUtf8(caption)) {
        action->trigger();
        menu.close();
        desk->settle();
        return;
      }
    ADD_FAILURE() << "no entry " << caption;
  }

  support::TemporaryProject project{{"00", "Start", "<h3 id=\"ueberschrift\">Start</h3>"},
                                    {"01", "Haus", "<h3 id=\"ueberschrift\">Haus</h3><p>Text</p>", "haus_*.htm"},
                                    {"0101", "Küche", "<h3 id=\"ueberschrift\">Küche</h3>"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

} // namespace mrd::desktop
