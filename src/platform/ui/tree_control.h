#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// The tree of pages on the screen. A node is named by its key ("@0102"); asking for a missing one throws base::Error
/// (ItemNotFound).
class TreeControl {
public:
  virtual ~TreeControl() = default;

  virtual bool hasNode(std::string_view key) const = 0;
  virtual void clear() = 0;
  /// Adds a node behind its siblings; an empty parent makes the top node.
  virtual void addNode(std::string_view parent, std::string_view key, std::string_view label, int image) = 0;
  virtual void removeNode(std::string_view key) = 0;
  virtual std::string label(std::string_view key) const = 0;
  virtual void setLabel(std::string_view key, std::string_view label) = 0;
  virtual std::size_t childCount(std::string_view key) const = 0;
  virtual bool expanded(std::string_view key) const = 0;
  virtual void setExpanded(std::string_view key, bool expanded) = 0;
  virtual std::optional<std::string> selected() const = 0;
  virtual void select(std::string_view key) = 0;
};

} // namespace mrd::ui
