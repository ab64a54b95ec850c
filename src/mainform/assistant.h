#pragma once
// The assistant of the first start: the few settings without which nothing can be generated or sent, and the short guide.

#include "mainform/program.h"
#include "mainform/settings_tabs.h"
#include "platform/files/user_settings.h"
#include "platform/ui/form_window.h"
#include "platform/ui/shell.h"
#include "platform/ui/window_controls.h"

#include <string>

namespace mrd::mainform {

class FrmAssistent {
public:
  struct Parts {
    Program& program;
    SettingsTabs& settings;
    files::UserSettings& userSettings;
    ui::Shell& shell;
  };
  explicit FrmAssistent(const Parts& parts) : parts_(parts) {}

  /// Pages of the assistant.
  static constexpr int kGreeting = 0, kFields = 1;

  /// The page on top; a window that lets the user choose one sets it and calls TabAssistent_Click.
  int TabAssistent = kGreeting;
  bool CheckAssistentaqnzeigen = false;
  std::string tbexportpfad, tbFTPServer, tbtitel, tbbasisurl = "Geben Sie hier ihre Domäne an";
  /// The short guide: a file in the system's form, or, where that is missing, the text in its place.
  std::string guideFile, guideHtml;
  /// Buttons of the page on top.
  bool cbweiter1Enabled = true, cbweiter2Enabled = false, cbschliessenEnabled = false;
  /// Name of the control that has the focus on the page on top.
  std::string focus = "cbweiter1";

  ui::FormWindow window;

  /// Applies the language and fills the fields. Keeps the page that was chosen before.
  void Form_Load(ui::WindowControls& controls);
  void Form_Load();
  void TabAssistent_Click();
  void cbweiter1_Click();
  void cbweiter2_Click();
  void cbpfad_Click();
  /// A mail to the support.
  void Label4_Click();
  /// Asks about a directory that does not exist, takes the fields over and saves the settings.
  void cbschliessen_Click();
  void cbabbrechen_Click() { window.unload(); }

private:
  void showTab(int tab);
  bool directoryIsSettled(const std::string& path);
  void takeOver(const std::string& path);

  const Parts parts_;
};

} // namespace mrd::mainform
