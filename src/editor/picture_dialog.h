#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mrd::editor {

/// Asks for a picture and how the page shows it.
class FrmBild {
public:
  /// `filter` names the kinds of files, as file dialogs take it.
  FrmBild(messages::Language& language, const ui::PictureValues& present, std::string_view filter);

  // The controls. An empty size is the picture's own.
  std::string tbbild, tbalt, tbbreite, tbhöhe, tbrahmen;
  /// The other side follows a change of one.
  bool CheckSeitenverhältnis = true;
  /// Place in `alignments()`.
  int ComboAusrichtung = 0;
  ui::FormWindow window;
  /// What was chosen; nothing until the user has agreed.
  std::optional<ui::PictureValues> answer;

  /// Values of the attribute "align"; the first is none.
  static std::span<const std::string_view> alignments();

  void Form_Load(ui::WindowControls& controls);
  void cbbild_Click();
  void tbbreite_Change();
  void tbhöhe_Change();
  /// The picture's own size again.
  void cboriginal_Click();
  /// Stays open without a picture.
  void cbok_Click();
  void cbabbrechen_Click() { window.unload(); }

private:
  messages::Language& language_;
  const ui::PictureValues present_;
  const std::string filter_;
};

} // namespace mrd::editor
