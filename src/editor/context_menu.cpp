#include "editor/context_menu.h"

#include "platform/ui/editing_commands.h"

#include <array>

namespace mrd::editor {

namespace command = ui::command;

struct ContextMenu::Entry {
  std::string_view caption, german;
  ContextAction action = ContextAction::None;
  /// The command whose status is the state of the entry; 0 for one that is always there.
  int command = 0;
};

ContextMenu::ContextMenu(const ui::EditingSurface& surface)
{
  constexpr Entry separator{};
  constexpr std::array kBase{
      Entry{"Cut", "Ausschneiden", ContextAction::Cut, command::kCut},
      Entry{"Copy", "Kopieren", ContextAction::Copy, command::kCopy},
      Entry{"Paste", "Einfügen", ContextAction::Paste, command::kPaste},
      separator,
      Entry{"SelectAll", "Alles Markieren", ContextAction::SelectAll, command::kSelectAll},
      separator,
      Entry{"Font", "Schriftart...", ContextAction::Font, command::kFont},
  };
  constexpr std::array kPicture{
      separator,
      Entry{"Picture", "Bildeigenschaften", ContextAction::Picture},
      Entry{"AddShadow", "Schatten hinzufügen", ContextAction::AddShadow},
      Entry{"RemoveShadow", "Schatten entfernen", ContextAction::RemoveShadow},
  };
  constexpr std::array kTable{
      separator,
      Entry{"InsertRow", "Zeile einfügen", ContextAction::InsertRow},
      Entry{"InsertColumn", "Spalte einfügen", ContextAction::InsertColumn},
      separator,
      Entry{"DeleteRow", "Zeile löschen", ContextAction::DeleteRow},
      Entry{"DeleteColumn", "Spalte löschen", ContextAction::DeleteColumn},
      separator,
      Entry{"TableProperties", "Tabelleneigenschaften", ContextAction::TableProperties},
  };
  const auto addAll = [&](const auto& entries) {
    for (const Entry& entry : entries)
      shown_.push_back(
          {entry.caption, entry.german, entry.action, entry.command ? surface.queryStatus(entry.command) : command::kEnabled});
  };
  addAll(kBase);
  const int positioning = surface.queryStatus(command::kAbsolutePosition);
  if (positioning >= command::kEnabled) {
    const Entry position = positioning == command::kLatched
                               ? Entry{"PositionRelative", "relative Positionierung", ContextAction::Position}
                               : Entry{"PositionAbsolute", "absolute Positionierung", ContextAction::Position};
    addAll(std::array{separator, position});
    // A picture's block stands in the block for positioning: without that there is none.
    if (surface.queryStatus(command::kPicture) == command::kEnabled)
      addAll(kPicture);
  }
  if (surface.queryStatus(command::kInsertRow) >= command::kEnabled)
    addAll(kTable);
}

std::vector<ui::ContextMenuEntry> ContextMenu::entries(const Captions& captions) const
{
  std::vector<ui::ContextMenuEntry> all;
  for (const auto& [caption, german, action, state] : shown_)
    all.push_back({action == ContextAction::None ? "" : captions.text(caption, german), state, action == ContextAction::None});
  return all;
}

ContextAction ContextMenu::action(int index) const
{
  return index >= 0 && static_cast<std::size_t>(index) < shown_.size() ? shown_[static_cast<std::size_t>(index)].action
                                                                       : ContextAction::None;
}

} // namespace mrd::editor
