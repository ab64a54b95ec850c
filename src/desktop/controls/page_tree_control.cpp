#include "desktop/controls/page_tree_control.h"

#include "base/errors.h"
#include "desktop/looks/icons.h"

#include <QScrollBar>

#include <array>

namespace mrd::desktop {
namespace {

/// Whether the node is open. The widget forgets it of a node without children, the pages do not.
constexpr int kExpandedRole = Qt::UserRole + 1;

/// By page type, from 1: normal, external, blind, auction.
constexpr std::array kPictures{"page", "page-external", "page-blind", "page-auction"};

QIcon pictureOf(int type)
{
  const auto index = static_cast<std::size_t>(type >= 1 && type <= static_cast<int>(kPictures.size()) ? type - 1 : 0);
  return icon(kPictures[index]);
}

QString text(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

/// Keeps the widget from telling what is not the user's doing.
class Quiet {
public:
  explicit Quiet(PageTree& tree) : tree_(tree) { tree_.setQuiet(true); }
  ~Quiet() { tree_.setQuiet(false); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

private:
  PageTree& tree_;
};

} // namespace

QTreeWidgetItem& PageTreeControl::item(std::string_view key) const
{
  const auto found = nodes_.find(std::string(key));
  if (found == nodes_.end())
    throw base::Error(base::ErrorNumber::ItemNotFound, "Element nicht gefunden: " + std::string(key));
  return *found->second;
}

void PageTreeControl::opened(const std::string& key)
{
  item(key).setData(0, kExpandedRole, true);
  events_.expand(key);
}

void PageTreeControl::clear()
{
  tree_.forgetItems();
  nodes_.clear();
  tree_.clear();
}

void PageTreeControl::addNode(std::string_view parent, std::string_view key, std::string_view label, int image)
{
  auto* const node = PageTree::newItem(std::string(key), text(label), pictureOf(image));
  if (parent.empty())
    tree_.addTopLevelItem(node);
  else
    item(parent).addChild(node);
  nodes_.emplace(std::string(key), node);
}

void PageTreeControl::removeNode(std::string_view key)
{
  QTreeWidgetItem& node = item(key);
  tree_.forgetItems();
  forget(node);
  delete &node;
}

void PageTreeControl::forget(const QTreeWidgetItem& node)
{
  for (int i = 0; i < node.childCount(); ++i)
    forget(*node.child(i));
  nodes_.erase(PageTree::keyOf(node));
}

std::string PageTreeControl::label(std::string_view key) const { return item(key).text(0).toStdString(); }

void PageTreeControl::setLabel(std::string_view key, std::string_view label)
{
  item(key).setText(0, text(label));
  item(key).setToolTip(0, text(label));
}

std::size_t PageTreeControl::childCount(std::string_view key) const { return static_cast<std::size_t>(item(key).childCount()); }

std::vector<std::string> PageTreeControl::children(std::string_view key) const
{
  const QTreeWidgetItem& node = item(key);
  std::vector<std::string> found;
  for (int i = 0; i < node.childCount(); ++i)
    found.push_back(PageTree::keyOf(*node.child(i)));
  return found;
}

std::vector<std::string> PageTreeControl::keys() const
{
  std::vector<std::string> found;
  for (QTreeWidgetItemIterator node(&tree_); *node; ++node)
    found.push_back(PageTree::keyOf(**node));
  return found;
}

bool PageTreeControl::expanded(std::string_view key) const
{
  const QTreeWidgetItem& node = item(key);
  return node.childCount() > 0 ? node.isExpanded() : node.data(0, kExpandedRole).toBool();
}

void PageTreeControl::setExpanded(std::string_view key, bool expanded)
{
  if (this->expanded(key) == expanded)
    return;
  item(key).setData(0, kExpandedRole, expanded);
  if (expanded)
    events_.expand(key);
  const Quiet quiet(tree_);
  item(key).setExpanded(expanded);
}

std::optional<std::string> PageTreeControl::selected() const
{
  const auto chosen = tree_.selectedItems();
  return chosen.empty() ? std::nullopt : std::optional(PageTree::keyOf(*chosen.front()));
}

void PageTreeControl::select(std::string_view key)
{
  QTreeWidgetItem& node = item(key);
  for (QTreeWidgetItem* above = node.parent(); above; above = above->parent())
    setExpanded(PageTree::keyOf(*above), true);
  const Quiet quiet(tree_);
  tree_.setCurrentItem(&node);
  tree_.scrollToItem(&node);
}

void PageTreeControl::setDrawing(bool draw) { tree_.setUpdatesEnabled(draw); }

void PageTreeControl::setDropHighlight(const std::optional<std::string>& key)
{
  tree_.setDropMark(key && hasNode(*key) ? &item(*key) : nullptr);
}

ui::TreeExtent PageTreeControl::extent() const { return {tree_.viewport()->width(), tree_.viewport()->height()}; }

void PageTreeControl::scroll(ui::ScrollStep step)
{
  const bool vertical = step == ui::ScrollStep::LineUp || step == ui::ScrollStep::LineDown;
  QScrollBar& bar = vertical ? *tree_.verticalScrollBar() : *tree_.horizontalScrollBar();
  const bool back = step == ui::ScrollStep::LineUp || step == ui::ScrollStep::LineLeft;
  bar.triggerAction(back ? QAbstractSlider::SliderSingleStepSub : QAbstractSlider::SliderSingleStepAdd);
}

int PageTreeControl::horizontalPosition() const { return tree_.horizontalScrollBar()->value(); }

} // namespace mrd::desktop
