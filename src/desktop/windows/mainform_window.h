#pragma once

#include "desktop/controls/page_tree_control.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/seams/qt_clipboard.h"
#include "desktop/seams/qt_shell.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/windows/form_dialogs.h"
#include "desktop/windows/mainform_fields.h"
#include "desktop/windows/mainform_screen.h"
#include "mainform/mainform.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

class QLabel;
class QMenu;
class QProgressBar;

namespace Ui {
class Mainform;
}

namespace mrd::desktop {

/// The main window: shows the form object `Mainform` and passes what the user does on to it.
class MainformWindow : public QMainWindow, private StatusDisplay {
public:
  /// `surface` can be made before the rest, so that its process starts meanwhile.
  MainformWindow(mainform::Program& program, QtUi& ui, files::UserSettings& userSettings,
                 std::unique_ptr<WebEditingSurface> surface = std::make_unique<WebEditingSurface>());
  ~MainformWindow() override;

  mainform::Mainform& form() { return *form_; }
  /// Shows the window and opens the last project. False when the window has been closed by what happened.
  bool start();
  /// The opening picture must not cover what the user is asked.
  void hideSplash() { userInterface_.hideSplash(); }

protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  WebEditingSurface& place(std::unique_ptr<WebEditingSurface> surface);
  void addStatusPanels();
  void connectMenus();
  void connectMenu(QMenu& menu);
  void connectToolbars();
  void connectTree();
  void connectTabs();
  void connectKeys();
  void showStatus(ui::StatusPlace place, std::string_view text) override;
  void showProgress(std::size_t value, std::size_t maximum) override;
  void hideProgress() override;

  friend class MainformScreen;
  void showFirst();
  void unloadWithoutQuestion();
  void placeSplitter(int leftPx);

  QtUi& userInterface_;
  files::UserSettings& userSettings_;
  std::unique_ptr<Ui::Mainform> ui_;
  /// Belongs to the page of `tabHtml` that shows it.
  WebEditingSurface& surface_;
  PageTreeControl tree_;
  QtShell shell_;
  QtClipboard clipboard_;
  MainformScreen screen_;
  FormDialogs dialogs_;
  std::unique_ptr<mainform::Mainform> form_;
  std::unique_ptr<MainformFields> fields_;
  QTimer timer_;
  QLabel* panel1_ = nullptr;
  QLabel* panel2_ = nullptr;
  QLabel* running_ = nullptr;
  QProgressBar* progress_ = nullptr;
  bool started_ = false, closed_ = false, unloading_ = false;
};

} // namespace mrd::desktop
