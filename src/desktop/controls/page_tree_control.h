#pragma once

#include "desktop/controls/page_tree.h"
#include "platform/ui/tree_control.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace mrd::desktop {

/// The tree widget as the core drives it.
class PageTreeControl : public ui::TreeControl {
public:
  explicit PageTreeControl(PageTree& tree) : tree_(tree) {}

  void setEvents(ui::TreeEvents events) override { events_ = std::move(events); }
  /// The user has opened a node.
  void opened(const std::string& key);

  bool hasNode(std::string_view key) const override { return nodes_.contains(std::string(key)); }
  void clear() override;
  void addNode(std::string_view parent, std::string_view key, std::string_view label, int image) override;
  void removeNode(std::string_view key) override;
  std::string label(std::string_view key) const override;
  void setLabel(std::string_view key, std::string_view label) override;
  std::size_t childCount(std::string_view key) const override;
  std::vector<std::string> children(std::string_view key) const override;
  std::vector<std::string> keys() const override;
  bool expanded(std::string_view key) const override;
  void setExpanded(std::string_view key, bool expanded) override;
  std::optional<std::string> selected() const override;
  void select(std::string_view key) override;

  void setDrawing(bool draw) override;
  void startDrag() override { tree_.beginDrag(); }
  void setDropHighlight(const std::optional<std::string>& key) override;
  ui::TreeExtent extent() const override;
  void scroll(ui::ScrollStep step) override;
  int horizontalPosition() const override;
  void refresh() override { tree_.viewport()->update(); }

private:
  QTreeWidgetItem& item(std::string_view key) const;
  void forget(const QTreeWidgetItem& item);

  PageTree& tree_;
  ui::TreeEvents events_;
  std::unordered_map<std::string, QTreeWidgetItem*> nodes_;
};

} // namespace mrd::desktop
