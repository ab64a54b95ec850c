#pragma once
// The entries of the main menu and the buttons of the toolbars, as the window shows them.

#include <optional>
#include <span>
#include <string_view>

namespace mrd::mainform {

struct MenuEntry {
  /// Name of the menu that holds the entry, empty for the menus of the bar.
  std::string_view menu;
  std::string_view name;
  /// Number in a control array, nothing for a single entry.
  std::optional<int> index;
  /// Caption without a language database; "-" is a separator.
  std::string_view caption;
  /// Has a command behind it. What has none is there and disabled.
  bool works = true;
};
/// In the order of the menus.
std::span<const MenuEntry> menuEntries();

struct ToolButton {
  std::string_view toolbar, key;
  /// Tool tip without a language database.
  std::string_view toolTip;
  bool works = true;
};
/// In the order of the toolbars; languages number the buttons of each from 1.
std::span<const ToolButton> toolButtons();

} // namespace mrd::mainform
