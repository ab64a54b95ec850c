#include "pagetree/plain_tree.h"

#include "base/errors.h"
#include "base/text.h"
#include "pagetree/page_id.h"

#include <algorithm>
#include <utility>

namespace mrd::pagetree {

bool PlainTree::hasNode(std::string_view key) const { return nodes_.find(key) != nodes_.end(); }

void PlainTree::clear()
{
  nodes_.clear();
  selected_.reset();
}

void PlainTree::addNode(std::string_view parent, std::string_view key, std::string_view label, int)
{
  if (!parent.empty())
    node(parent).children.emplace_back(key);
  nodes_.insert_or_assign(std::string(key), Node{std::string(parent), std::string(label), {}, false});
}

void PlainTree::removeNode(std::string_view key)
{
  const auto children = node(key).children;
  for (const auto& child : children)
    removeNode(child);
  if (const auto parent = nodes_.find(node(key).parent); parent != nodes_.end())
    std::erase(parent->second.children, key);
  nodes_.erase(nodes_.find(key));
}

std::string PlainTree::label(std::string_view key) const { return node(key).label; }

void PlainTree::setLabel(std::string_view key, std::string_view label) { node(key).label = label; }

std::size_t PlainTree::childCount(std::string_view key) const { return node(key).children.size(); }

bool PlainTree::expanded(std::string_view key) const { return node(key).expanded; }

std::vector<std::string> PlainTree::keys() const
{
  // A key begins with its parent's, and sorts behind it; the root alone has no share in those of its children.
  std::vector<std::string> keys;
  for (const auto& [key, node] : nodes_)
    keys.push_back(key);
  return keys;
}

void PlainTree::setExpanded(std::string_view key, bool expanded)
{
  if (expanded && !node(key).expanded)
    events_.expand(key);
  node(key).expanded = expanded;
}

void PlainTree::select(std::string_view key)
{
  node(key);
  selected_ = key;
}

const PlainTree::Node& PlainTree::node(std::string_view key) const
{
  const auto found = nodes_.find(key);
  if (found == nodes_.end())
    throw base::Error(base::ErrorNumber::ItemNotFound, "Element nicht gefunden: " + std::string(key));
  return found->second;
}

PlainTree::Node& PlainTree::node(std::string_view key) { return const_cast<Node&>(std::as_const(*this).node(key)); }

void fillTree(ui::TreeControl& tree, dao::Database& db)
{
  tree.clear();
  const std::string rootKey = keyOf(kRootId);
  tree.addNode("", rootKey, "", 1);
  for (auto pages = db.openSnapshot("SELECT id, Überschrift FROM Seite ORDER BY ID"); !pages.eof(); pages.moveNext()) {
    const std::string id = pages.value("id").text();
    const std::string label = pages.value("Überschrift").text();
    const std::string key = keyOf(id);
    if (tree.hasNode(key)) {
      tree.setLabel(key, label);
      continue;
    }
    const std::string parent = parentOf(id);
    // A stray page is nobody's child, so that it does not count where a new child gets its number.
    const std::string parentKey = id.size() == 2 ? rootKey : keyOf(parent);
    tree.addNode(tree.hasNode(parentKey) ? parentKey : "", key, label, 1);
  }
}

} // namespace mrd::pagetree
