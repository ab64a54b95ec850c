#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <functional>
#include <string>

namespace mrd::editor {

/// Asks for the shape of a new table and puts it at the cursor.
class InsertTableDlg {
public:
  InsertTableDlg(messages::Language& language, ui::EditingSurface& DHTMLEdit1, std::function<void()> pageChanged);

  // The controls, with what the surface proposes.
  std::string Rows, Cols, TableAttrs, CellAttrs, TableCaption;
  ui::FormWindow window;

  void Form_Load(ui::WindowControls& controls);
  /// Message 43 for numbers that are none, and the dialog stays; message 44 where the surface refuses the table.
  void OkCmd_Click();
  void CancelCmd_Click() { window.unload(); }

private:
  messages::Language& language_;
  ui::EditingSurface& surface_;
  const std::function<void()> pageChanged_;
};

} // namespace mrd::editor
