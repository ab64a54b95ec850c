#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <functional>
#include <string>

namespace mrd::editor {

/// Puts HTML in place of the selection as the user writes it.
class InsertHTMLDlg {
public:
  InsertHTMLDlg(messages::Language& language, ui::EditingSurface& DHTMLEdit1, std::function<void()> pageChanged)
      : language_(language), surface_(DHTMLEdit1), pageChanged_(std::move(pageChanged))
  {
  }

  std::string HTMLText;
  ui::FormWindow window;

  void Form_Load(ui::WindowControls& controls) { language_.Setlanguage(controls); }

  void cmdOK_Click()
  {
    // A selected element has no text that could be replaced: the surface refuses, and the dialog closes all the same.
    if (surface_.pasteHtml(HTMLText))
      pageChanged_();
    window.unload();
  }
  void CmdCancel_Click() { window.unload(); }

private:
  messages::Language& language_;
  ui::EditingSurface& surface_;
  const std::function<void()> pageChanged_;
};

} // namespace mrd::editor
