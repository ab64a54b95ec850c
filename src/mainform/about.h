#pragma once
// The opening picture and the box that tells what program this is.

#include "frame/messages/messages.h"
#include "platform/ui/form_window.h"
#include "platform/ui/shell.h"
#include "platform/ui/window_controls.h"

#include <string>

namespace mrd::mainform {

/// The opening picture; a click closes it.
class FrmStartbild {
public:
  FrmStartbild();

  std::string labelversion;
  ui::FormWindow window;

  void Form_Click() { window.unload(); }
};

class frmAbout {
public:
  frmAbout(messages::Language& language, ui::Shell& shell);

  std::string caption, lblVersion;
  ui::FormWindow window;

  /// Applies the language; caption and version stay.
  void Form_Load(ui::WindowControls& controls);
  /// The desktop's description of the computer; message 28 where there is none.
  void cmdSysInfo_Click() { StartSysInfo(); }
  void cmdOK_Click() { window.unload(); }

private:
  void StartSysInfo();

  messages::Language& language_;
  ui::Shell& shell_;
};

} // namespace mrd::mainform
