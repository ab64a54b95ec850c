#pragma once
// The toolbar of formats, the font boxes and the menu entries that drive the editing surface.

#include "frame/settings/fields.h"
#include "mainform/main_screen.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/ui.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::mainform {

inline constexpr std::size_t kFormatButtons = 11;

struct ButtonState {
  bool enabled = false, pressed = false;
};

class EditorTools {
public:
  EditorTools(ui::Ui& ui, ui::EditingSurface& DHTMLEdit1, MainScreen& screen);

  /// Keys of the buttons of `Toolbar1`, and their states, in the order of the buttons.
  static std::span<const std::string_view, kFormatButtons> keys();
  std::array<ButtonState, kFormatButtons> Toolbar1;
  /// Fonts and sizes to choose from; `Text` is what the cursor stands in, empty where there is none.
  settings::ComboBox FontCombo, FontSizeCombo;
  /// Captions of the entries of `FormatSub`: the names of the block formats.
  std::vector<std::string> FormatSub;

  /// The command of a button, by its exact key; `Color` asks for the colour first.
  void Toolbar1_ButtonClick(std::string_view Key);
  /// Refreshes the states of the toolbar and the block format in the status bar. Failures are ignored.
  void DisplayChanged();
  /// Takes the names of the block formats over, once.
  void DocumentComplete();
  void refreshFonts();
  /// The entry of the box with this number has been chosen.
  void FontCombo_Click(int ListIndex);
  void FontSizeCombo_Click(int ListIndex);
  /// Borders (0) or details (1) of the document are shown, or no more.
  void ViewSub_Click(int Index);
  bool ViewSubChecked(int Index) const;

private:
  void setFont(settings::ComboBox& box, int ListIndex, int command);

  ui::Ui& ui_;
  ui::EditingSurface& surface_;
  MainScreen& screen_;
  bool formatNamesTaken_ = false;
};

} // namespace mrd::mainform
