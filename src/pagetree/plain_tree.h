#pragma once

#include "platform/dao/database.h"
#include "platform/ui/tree_control.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mrd::pagetree {

/// A tree of pages that nobody looks at: for the command line and for tests.
class PlainTree : public ui::TreeControl {
public:
  void setEvents(ui::TreeEvents events) override { events_ = std::move(events); }
  bool hasNode(std::string_view key) const override;
  void clear() override;
  void addNode(std::string_view parent, std::string_view key, std::string_view label, int image) override;
  void removeNode(std::string_view key) override;
  std::string label(std::string_view key) const override;
  void setLabel(std::string_view key, std::string_view label) override;
  std::size_t childCount(std::string_view key) const override;
  std::vector<std::string> children(std::string_view key) const override { return node(key).children; }
  std::vector<std::string> keys() const override;
  bool expanded(std::string_view key) const override;
  void setExpanded(std::string_view key, bool expanded) override;
  std::optional<std::string> selected() const override { return selected_; }
  void select(std::string_view key) override;

private:
  struct Node {
    std::string parent, label;
    std::vector<std::string> children;
    bool expanded = false;
  };
  Node& node(std::string_view key);
  const Node& node(std::string_view key) const;

  ui::TreeEvents events_;
  std::map<std::string, Node, std::less<>> nodes_;
  std::optional<std::string> selected_;
};

/// Fills a tree with all pages of a project; a page whose parent is missing is a top node of its own.
void fillTree(ui::TreeControl& tree, dao::Database& db);

} // namespace mrd::pagetree
