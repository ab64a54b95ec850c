#pragma once
// The program at its desk: a program directory and settings of its own, the main window on the screen, and a user who answers
// boxes.

#include "desktop/editing/web_editing_surface.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/windows/mainform_window.h"
#include "support/temporary.h"

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mrd::desktop {

/// Lets events run until it is so; false when that takes too long.
bool comesTrue(const std::function<bool()>& condition, int milliseconds = 10000);
void letPass(int milliseconds);

/// What a user does with a file dialog who knows the path: types it and accepts. Choosing in the list instead would race with the
/// thread that fills it.
std::function<void(QDialog&)> fileNamed(const std::filesystem::path& path);

/// Answers every message box and dialog as soon as it is on the screen.
class Answers {
public:
  Answers();

  /// Answers for the boxes to come, in their order; a box without one gets its default button.
  std::deque<ui::Button> buttons;
  /// Texts of the boxes that came.
  std::vector<std::string> boxes;
  /// What is done with the dialogs that come, in their order; one without gets the Escape key.
  std::deque<std::function<void(QDialog&)>> dialogs;
  /// Titles of the dialogs that came.
  std::vector<std::string> dialogTitles;

private:
  void look();
  void answer(QMessageBox& box);

  QTimer timer_;
  /// Windows that had their answer; a dialog comes to the front again behind each of its boxes.
  std::vector<QPointer<QWidget>> answered_;
};

/// The program directory as it was built, for one test.
class ProgramHome {
public:
  ProgramHome();

  support::TemporaryDirectory directory;
  std::string iniValue(std::string_view section, std::string_view key) const;
  void setIniValue(std::string_view section, std::string_view key, std::string_view value) const;
  /// Leaves behind what a user does who works with this project, in a window of this size: the next start opens it, without the
  /// assistant. Twips.
  void lastWorkedOn(const std::string& project, int width = 15000, int height = 9000) const;
  std::string userSettingsFile() const { return (directory.native() / "settings.ini").string(); }
};

/// A page's heading in its source.
inline std::string heading(const std::string& text) { return "<h3 id=\"ueberschrift\">" + text + "</h3>"; }

/// One run of the program.
class Desk {
public:
  explicit Desk(ProgramHome& home);
  ~Desk();

  /// Starts as the program does, and waits until the page is there.
  bool start();
  void settle();

  MainformWindow& window() { return *window_; }
  mainform::Mainform& form() { return window_->form(); }
  template <class Widget>
  Widget& find(const char* name)
  {
    return *window_->findChild<Widget*>(QString::fromUtf8(name));
  }
  QAction& action(const char* name) { return find<QAction>(name); }
  WebEditingSurface& surface() { return find<WebEditingSurface>("DHTMLEdit1"); }
  PageTree& tree() { return find<PageTree>("TreeView1"); }
  QTreeWidgetItem* node(const std::string& key);
  void clickNode(const std::string& key);
  /// What the user would have written in place of the page: its source, and then back to the page.
  void writeSource(const std::string& html);
  void dragNode(const std::string& from, const std::string& to);

  ProgramHome& home;
  Answers answers;
  files::UserSettings userSettings;

private:
  base::SystemClock clock_;
  QtUi ui_;
  std::unique_ptr<mainform::Program> program_;
  std::unique_ptr<MainformWindow> window_;
};

} // namespace mrd::desktop
