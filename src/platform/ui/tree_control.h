#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ui {

/// What a tree tells its owner.
struct TreeEvents {
  /// A closed node is being opened, by the user or by setExpanded: its children are to be there when this returns.
  std::function<void(std::string_view key)> expand = [](std::string_view) {};
};

/// By one line of the tree, or about as far to the side.
enum class ScrollStep { LineUp, LineDown, LineLeft, LineRight };

/// Size of the part of a tree that is on the screen, in pixels.
struct TreeExtent {
  int widthPx = 0, heightPx = 0;
};

/// The tree of pages on the screen. A node is named by its key ("@0102"); asking for a missing one throws base::Error
/// (ItemNotFound). Nothing but `TreeEvents::expand` follows from its operations: select() is no click.
class TreeControl {
public:
  virtual ~TreeControl() = default;

  /// Replaces what is told to the owner.
  virtual void setEvents(TreeEvents events) = 0;

  virtual bool hasNode(std::string_view key) const = 0;
  virtual void clear() = 0;
  /// Adds a node behind its siblings; an empty parent makes the top node. `image` is the page type, 1 to 4.
  virtual void addNode(std::string_view parent, std::string_view key, std::string_view label, int image) = 0;
  virtual void removeNode(std::string_view key) = 0;
  virtual std::string label(std::string_view key) const = 0;
  virtual void setLabel(std::string_view key, std::string_view label) = 0;
  virtual std::size_t childCount(std::string_view key) const = 0;
  /// Keys of the node's children in their order.
  virtual std::vector<std::string> children(std::string_view key) const = 0;
  /// Keys of all nodes, parents before their children.
  virtual std::vector<std::string> keys() const = 0;
  /// A node without children remembers it too.
  virtual bool expanded(std::string_view key) const = 0;
  virtual void setExpanded(std::string_view key, bool expanded) = 0;
  virtual std::optional<std::string> selected() const = 0;
  /// Selects the node and brings it into sight.
  virtual void select(std::string_view key) = 0;

  // What only a tree on a screen has.

  /// Off while many nodes change: the user sees the outcome and no step.
  virtual void setDrawing(bool) {}
  /// Starts a drag of the selected node.
  virtual void startDrag() {}
  /// Marks the node that would take what is dragged; nothing takes the mark away.
  virtual void setDropHighlight(const std::optional<std::string>&) {}
  virtual TreeExtent extent() const { return {}; }
  virtual void scroll(ScrollStep) {}
  virtual int horizontalPosition() const { return 0; }
  virtual void refresh() {}
};

/// Keeps a tree, where there is one, from drawing for the length of a scope.
class StillTree {
public:
  explicit StillTree(TreeControl* tree) : tree_(tree) { draw(false); }
  ~StillTree() { draw(true); }
  StillTree(const StillTree&) = delete;
  StillTree& operator=(const StillTree&) = delete;

private:
  void draw(bool on)
  {
    if (tree_)
      tree_->setDrawing(on);
  }
  TreeControl* tree_;
};

} // namespace mrd::ui
