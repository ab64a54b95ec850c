#pragma once
// What the main window does to generate the site and to send it: the two dialogs, and the preview of one page.

#include "generator/html_export.h"
#include "mainform/page_desk.h"
#include "mainform/project_frame.h"
#include "platform/files/user_settings.h"
#include "platform/ui/shell.h"

namespace mrd::mainform {

class ExportCommands {
public:
  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    Dialogs& dialogs;
    ui::Shell& shell;
    files::UserSettings& userSettings;
  };
  explicit ExportCommands(const Parts& parts) : parts_(parts) {}

  // Each throws base::Error; whoever gives the command has the handler.

  /// Saves the page, and shows the dialog that generates and publishes the site. Message 24 without a project.
  void html();
  /// The same for the edition for telephones.
  void cbimode_Click();
  /// Saves the page that is open, generates it and shows it. Message 24 without a project, message 2 without a page.
  void seitenvorschau();

private:
  /// Message 24 without a project; then saves the page.
  bool isReady();
  template <class Dialog>
  void showExport();
  generator::ExportEnvironment environment();

  const Parts parts_;
};

} // namespace mrd::mainform
