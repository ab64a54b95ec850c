#include "mainform/editor_tools.h"

#include "base/errors.h"
#include "mainform/site_colours.h"
#include "platform/ui/editing_commands.h"

#include <algorithm>

namespace mrd::mainform {
namespace {

namespace command = ui::command;

constexpr std::array<std::string_view, kFormatButtons> kKeys{
    "Bold", "Italic", "Underline", "Numbers", "Bullets", "Outdent", "Indent", "LeftJustify", "Center", "RightJustify", "Color"};
constexpr std::array<int, kFormatButtons> kCommands{
    command::kBold,   command::kItalic, command::kUnderline, command::kNumbers, command::kBullets,      command::kOutdent,
    command::kIndent, command::kLeft,   command::kCentre,    command::kRight,   command::kSetForeColour};
/// The commands whose statuses the buttons show. Outdent and indent are crossed: each shows the other's state.
constexpr std::array<int, kFormatButtons> kShownCommands{
    command::kBold,    command::kItalic, command::kUnderline, command::kNumbers, command::kBullets,      command::kIndent,
    command::kOutdent, command::kLeft,   command::kCentre,    command::kRight,   command::kSetForeColour};
constexpr std::size_t kColourButton = kFormatButtons - 1;
constexpr std::size_t kMostFormats = 16;

settings::ComboBox boxOf(std::vector<std::string> entries)
{
  settings::ComboBox box{std::move(entries), 0, ""};
  box.selectIndex(0);
  return box;
}

} // namespace

EditorTools::EditorTools(ui::Ui& ui, ui::EditingSurface& DHTMLEdit1, MainScreen& screen)
    : FontCombo(boxOf({"Arial", "Times New Roman", "Tahoma", "Courier", "Verdana", "Wingdings"})),
      FontSizeCombo(boxOf({"1", "2", "3", "4", "5", "6", "7"})), ui_(ui), surface_(DHTMLEdit1), screen_(screen)
{
}

std::span<const std::string_view, kFormatButtons> EditorTools::keys() { return kKeys; }

void EditorTools::Toolbar1_ButtonClick(std::string_view Key)
{
  const auto found = std::ranges::find(kKeys, Key);
  if (found == kKeys.end())
    return;
  const auto button = static_cast<std::size_t>(found - kKeys.begin());
  std::string argument;
  if (button == kColourButton) {
    const auto colour = ui_.colourDialog(screenColour(surface_.commandValue(command::kGetForeColour)));
    if (!colour)
      return;
    argument = colourText(*colour);
  }
  surface_.execCommand(kCommands[button], ui::Prompt::None, argument);
  DisplayChanged();
}

void EditorTools::DisplayChanged()
{
  try {
    for (std::size_t button = 0; button < kFormatButtons; ++button) {
      const int status = surface_.queryStatus(kShownCommands[button]);
      Toolbar1[button] = {status >= command::kEnabled, status == command::kLatched};
    }
    if (surface_.queryStatus(command::kGetBlockFormat) >= command::kEnabled)
      ui_.status(ui::StatusPlace::Panel2, surface_.commandValue(command::kGetBlockFormat));
    refreshFonts();
  } catch (const base::Error&) {
    // The next move of the cursor asks again: a box at each of them would help nobody.
  }
  screen_.refresh(Shown::Tools);
}

void EditorTools::DocumentComplete()
{
  if (std::exchange(formatNamesTaken_, true))
    return;
  FormatSub = surface_.blockFormatNames();
  FormatSub.resize(std::min(FormatSub.size(), kMostFormats));
  screen_.refresh(Shown::Tools);
}

void EditorTools::refreshFonts()
{
  struct Shows {
    settings::ComboBox& box;
    int command;
  };
  for (const auto& [box, number] : {Shows{FontCombo, command::kGetFontName}, Shows{FontSizeCombo, command::kGetFontSize}})
    box.selectText(surface_.queryStatus(number) >= command::kEnabled ? surface_.commandValue(number) : "");
}

void EditorTools::FontCombo_Click(int ListIndex) { setFont(FontCombo, ListIndex, command::kSetFontName); }

void EditorTools::FontSizeCombo_Click(int ListIndex) { setFont(FontSizeCombo, ListIndex, command::kSetFontSize); }

void EditorTools::setFont(settings::ComboBox& box, int ListIndex, int number)
{
  box.selectIndex(ListIndex);
  if (surface_.queryStatus(number) >= command::kEnabled)
    surface_.execCommand(number, ui::Prompt::None, box.Text);
}

void EditorTools::ViewSub_Click(int Index)
{
  if (Index == 0)
    surface_.setShowBorders(!surface_.showBorders());
  else
    surface_.setShowDetails(!surface_.showDetails());
  screen_.refresh(Shown::Tools);
}

bool EditorTools::ViewSubChecked(int Index) const { return Index == 0 ? surface_.showBorders() : surface_.showDetails(); }

} // namespace mrd::mainform
