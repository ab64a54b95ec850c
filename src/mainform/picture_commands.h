#pragma once
// What the main window does with pictures: its third toolbar, the menu "pix", and the windows that they open.

#include "mainform/editor_tabs.h"
#include "mainform/page_desk.h"
#include "mainform/project_frame.h"
#include "pictures/bildkonvertierer.h"
#include "pictures/file_scan.h"
#include "pictures/objekt_anzeigen.h"
#include "pictures/thumbnails.h"
#include "platform/files/user_settings.h"
#include "platform/ui/shell.h"

#include <functional>
#include <optional>
#include <string_view>

namespace mrd::mainform {

class PictureCommands {
public:
  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    EditorTabs& tabs;
    Dialogs& dialogs;
    Help& help;
    ui::Shell& shell;
    files::UserSettings& userSettings;
  };
  explicit PictureCommands(const Parts& parts);
  PictureCommands(const PictureCommands&) = delete;
  PictureCommands& operator=(const PictureCommands&) = delete;

  // Each throws base::Error; whoever gives the command has the handler.

  /// The commands of the toolbar, by the exact key, and of the menu, by number.
  void Toolbar3_ButtonClick(std::string_view Key);
  void pixsub_Click(int Index);
  /// Gives every picture of the open page a shadow.
  void mnupixSchatten_Click();

  /// Closes the windows that work on the open project.
  void leaveProject();

  /// The window of the scan; there since it was opened for the first time.
  pictures::FrmFileScan* fileScan() { return fileScan_ ? &*fileScan_ : nullptr; }
  pictures::formobjektanzeigen& viewer() { return viewer_; }
  pictures::frmBildkonvertierer& converter() { return converter_; }

private:
  void pix_eins();
  void pix_eigene() { openFileScan(false); }
  void pix_mehrere() { openFileScan(true); }
  void pix_thumbs();
  void allevorschaubilderneu();

  /// Message 24 without a project; then the page in the editor, as its source may have changed it, on top.
  bool isReady();
  void openFileScan(bool onThisPage);
  pictures::FileScanHooks fileScanHooks();
  void showNewPages();
  void alone(const std::function<void()>& work);
  pictures::Thumbnails thumbnails();

  const Parts parts_;
  pictures::frmBildkonvertierer converter_;
  pictures::formobjektanzeigen viewer_;
  std::optional<pictures::FrmFileScan> fileScan_;
};

} // namespace mrd::mainform
