#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::editor {

/// Asks for typeface and size of the selected text.
class FrmSchriftart {
public:
  /// Sizes of HTML, "1" to "7"; the first entry leaves the size.
  static constexpr std::array<std::string_view, 8> kSizes{"", "1", "2", "3", "4", "5", "6", "7"};

  FrmSchriftart(messages::Language& language, const ui::FontChoice& present)
      : Comboschrift(present.name), language_(language), present_(present)
  {
    for (std::size_t i = 0; i < kSizes.size(); ++i)
      if (kSizes[i] == present.size)
        Combogröße = static_cast<int>(i);
  }

  // The controls: a typeface by name, empty to leave it; the place in kSizes.
  std::string Comboschrift;
  int Combogröße = 0;
  ui::FormWindow window;
  /// What is to be changed; nothing until the user has agreed.
  std::optional<ui::FontChoice> answer;

  void Form_Load(ui::WindowControls& controls) { language_.Setlanguage(controls); }
  void cbok_Click()
  {
    const std::string size(kSizes.at(static_cast<std::size_t>(Combogröße)));
    answer = ui::FontChoice{Comboschrift == present_.name ? "" : Comboschrift, size == present_.size ? "" : size};
    window.unload();
  }
  void cbabbrechen_Click() { window.unload(); }

private:
  messages::Language& language_;
  const ui::FontChoice present_;
};

} // namespace mrd::editor
