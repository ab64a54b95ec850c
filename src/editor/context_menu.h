#pragma once

#include "editor/captions.h"
#include "platform/ui/editing_surface.h"

#include <vector>

namespace mrd::editor {

/// What an entry does; None for a line between entries and for a place that has none.
enum class ContextAction {
  None,
  Cut,
  Copy,
  Paste,
  SelectAll,
  Font,
  Position,
  Picture,
  AddShadow,
  RemoveShadow,
  InsertRow,
  InsertColumn,
  DeleteRow,
  DeleteColumn,
  TableProperties
};

/// The context menu of the page for the present selection. Behind the base entries stand blocks for positioning, for a picture
/// and for a table, as far as the surface offers their commands; so an index means one thing or another.
class ContextMenu {
public:
  explicit ContextMenu(const ui::EditingSurface& surface);

  std::vector<ui::ContextMenuEntry> entries(const Captions& captions) const;
  ContextAction action(int index) const;

private:
  struct Entry;
  struct Shown {
    std::string_view caption, german;
    ContextAction action;
    int state;
  };
  std::vector<Shown> shown_;
};

} // namespace mrd::editor
