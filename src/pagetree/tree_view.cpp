#include "pagetree/tree_view.h"

#include "base/stored_text.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"
#include "pagetree/page_id.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace mrd::pagetree {
namespace {

constexpr int kMessageNoHomepage = 9;
constexpr int kNormalPage = 1;

} // namespace

/// The pages as the tree needs them, read in one go: a level costs a look into memory, whatever the size of the project.
class PageTreeView::Rows {
public:
  explicit Rows(dao::Database& db)
  {
    auto pages = db.openSnapshot("SELECT id, Überschrift, [seitentyp-id], expanded FROM Seite ORDER BY ID");
    const std::size_t id = pages.column("id"), heading = pages.column("Überschrift"), type = pages.column("seitentyp-id"),
                      expanded = pages.column("expanded");
    for (; !pages.eof(); pages.moveNext()) {
      const int image = pages.isNull(type) ? kNormalPage : base::wholeNumber(pages.text(type));
      rows_.push_back({std::string(pages.text(id)), base::trim(pages.text(heading)), image, base::yesNo(pages.text(expanded))});
    }
    std::ranges::stable_sort(rows_, {}, &Row::id);
  }

  const std::vector<Row>& all() const { return rows_; }

  const Row* find(std::string_view id) const
  {
    const auto found = std::ranges::lower_bound(rows_, id, {}, &Row::id);
    return found != rows_.end() && found->id == id ? &*found : nullptr;
  }

  /// The first page strictly below, whose type a placeholder shows; null for a leaf.
  const Row* firstBelow(std::string_view id) const
  {
    const auto found = std::ranges::upper_bound(rows_, id, {}, &Row::id);
    return found != rows_.end() && found->id.starts_with(id) ? &*found : nullptr;
  }

  /// Direct children in their order; those of the root are the first level.
  std::vector<const Row*> children(std::string_view id) const
  {
    const std::string prefix = childPrefix(id);
    std::vector<const Row*> found;
    for (auto row = std::ranges::lower_bound(rows_, prefix, {}, &Row::id); row != rows_.end() && row->id.starts_with(prefix);
         ++row)
      if (row->id.size() == prefix.size() + 2 && row->id != kRootId)
        found.push_back(&*row);
    return found;
  }

private:
  std::vector<Row> rows_;
};

PageTreeView::PageTreeView(dao::Database& db, messages::Language& language, ui::TreeControl& TreeView1, ActivePage& active)
    : db_(db), language_(language), tree_(TreeView1), active_(active)
{
}

/// Makes one reading of the table serve all that happens in a scope, nodes that are opened on the way included.
class PageTreeView::Reading {
public:
  explicit Reading(PageTreeView& view) : view_(view)
  {
    if (!view_.rows_)
      view_.rows_ = &own_.emplace(view_.db_);
  }
  ~Reading()
  {
    if (own_)
      view_.rows_ = nullptr;
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  const Rows& rows() const { return *view_.rows_; }

private:
  PageTreeView& view_;
  std::optional<Rows> own_;
};

void PageTreeView::ZeigeStruktur()
{
  failures::withStandardHandler(language_, "ZeigeStruktur", [&] {
    const ui::StillTree still(&tree_);
    const Reading reading(*this);
    tree_.clear();
    if (!ReadRootNode(reading.rows()))
      return;
    ExpandTreeView1OnLoad(reading.rows());
    if (const auto stored = settings::StoredSettings(db_).value("LastActivePage"))
      bringIn(keyOf(base::trim(*stored)));
    active_.SetLastActivePage();
  });
}

bool PageTreeView::ReadRootNode(const Rows& rows)
{
  const Row* const root = rows.find(kRootId);
  failures::withStandardHandler(language_, "ReadRootNode", [&] {
    if (root) {
      tree_.addNode("", keyOf(kRootId), root->label, root->image);
      return;
    }
    language_.ui().pumpEvents();
    language_.GetMsg(kMessageNoHomepage);
  });
  return root != nullptr;
}

void PageTreeView::ExpandTreeView1OnLoad(const Rows& rows)
{
  failures::withStandardHandler(language_, "ExpandTreeView1OnLoad", [&] {
    const std::string root = keyOf(kRootId);
    for (const Row* const page : rows.children(kRootId))
      addPage(root, *page, rows);
    // The first level is always in sight.
    tree_.setExpanded(root, true);
  });
}

void PageTreeView::addPage(std::string_view parentKey, const Row& row, const Rows& rows)
{
  // Of pages that share an id by a fault of old, the tree shows the first.
  if (const std::string key = keyOf(row.id); !tree_.hasNode(key)) {
    tree_.addNode(parentKey, key, row.label, row.image);
    showBelow(row, rows);
  }
}

void PageTreeView::showBelow(const Row& row, const Rows& rows)
{
  const std::string key = keyOf(row.id);
  const Row* const below = rows.firstBelow(row.id);
  if (below && tree_.childCount(key) == 0)
    tree_.addNode(key, key + formatNumber(1), row.id, below->image);
  if (row.expanded)
    tree_.setExpanded(key, true);
}

void PageTreeView::Expand(std::string_view key)
{
  failures::withStandardHandler(language_, "Expand", [&] {
    if (!isRoot(key))
      fill(key, Reading(*this).rows());
  });
}

void PageTreeView::fill(std::string_view key, const Rows& rows)
{
  const std::string id = idOf(key);
  const auto pages = rows.children(id);
  if (pages.empty())
    return;
  // A placeholder bears the key that the first child of a dense tree has, and the parent's digits as its text.
  const std::string placeholder = std::string(key) + formatNumber(1);
  const bool isPlaceholder = tree_.hasNode(placeholder) && tree_.label(placeholder) == id;
  if (isPlaceholder && !rows.find(idOf(placeholder)))
    tree_.removeNode(placeholder);
  for (const Row* const page : pages) {
    const std::string child = keyOf(page->id);
    if (!tree_.hasNode(child))
      addPage(key, *page, rows);
    else if (tree_.label(child) != page->label) {
      tree_.setLabel(child, page->label);
      if (child == placeholder && isPlaceholder)
        showBelow(*page, rows);
    }
  }
}

void PageTreeView::WriteExpandedNodes()
{
  failures::withStandardHandler(language_, "WriteExpandedNodes", [&] {
    std::unordered_map<std::string, bool> states;
    for (const auto& key : tree_.keys())
      states.emplace(idOf(key), tree_.expanded(key));
    const Rows rows(db_);
    // Only what has changed is written: a save must not cost a write for each page.
    std::vector<std::pair<std::string, bool>> changed;
    for (const auto& row : rows.all())
      if (const auto state = states.find(row.id); state != states.end() && state->second != row.expanded)
        changed.emplace_back(row.id, state->second);
    if (changed.empty())
      return;
    dao::Transaction transaction(db_);
    for (const auto& [id, isOpen] : changed)
      db_.execute("UPDATE Seite SET expanded = ? WHERE ID = ?", {dao::Value::yesNo(isOpen), id});
    transaction.commit();
  });
}

bool PageTreeView::bringIn(std::string_view key)
{
  const std::string id = idOf(key);
  if (!isPageId(id))
    return false;
  const Reading reading(*this);
  for (std::size_t length = 2; length < id.size(); length += 2)
    if (const std::string parent = keyOf(id.substr(0, length)); tree_.hasNode(parent))
      fill(parent, reading.rows());
  return tree_.hasNode(key);
}

} // namespace mrd::pagetree
