#include "pagetree/tree_undo.h"

#include "base/errors.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"
#include "pagetree/id_table.h"
#include "pagetree/page_id.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mrd::pagetree {
namespace {

constexpr int kMessageTooLate = 168;
constexpr std::string_view kLastActivePage = "LastActivePage";

using Ids = std::map<std::int64_t, std::string>;

Ids idsOf(dao::Database& db)
{
  IdTable pages(db);
  const auto numbers = pages.rowNumbers();
  Ids ids;
  for (std::size_t row = 0; row < numbers.size(); ++row)
    ids.emplace(numbers[row], pages.ids()[row]);
  return ids;
}

/// Gives pages that the table did not have then a place behind the other children of their parents.
class Newcomers {
public:
  /// `places` leads from the present ids of the other pages to those that they will have; `given` are all ids of that time.
  Newcomers(std::map<std::string, std::string> places, const Ids& given) : places_(std::move(places))
  {
    for (const auto& [number, id] : given)
      take(id);
  }

  /// The page's id from now on; empty where there is no place for it. Parents come before their children.
  std::string place(const std::string& id)
  {
    if (!isPageId(id) || isRoot(id))
      return {};
    const std::string parent = parentOf(id);
    const auto parentPlace = places_.find(parent);
    if (!parent.empty() && parentPlace == places_.end())
      return {};
    const std::string prefix = parent.empty() ? parent : parentPlace->second;
    const int number = last_[prefix] + 1;
    if (number > kMaxChildren || prefix.size() + 2 > kMaxIdLength)
      return {};
    std::string place = prefix + formatNumber(number);
    take(place);
    places_.emplace(id, place);
    return place;
  }

private:
  void take(const std::string& id)
  {
    if (isPageId(id) && !isRoot(id))
      last_[parentOf(id)] = std::max(last_[parentOf(id)], numberOf(id));
  }

  std::map<std::string, std::string> places_;
  /// Number of the last child, by the parent's id.
  std::map<std::string, int> last_;
};

} // namespace

void TreeUndo::deletion(std::string_view id, const std::function<bool()>& run) { remember(Change::Deletion, id, run); }

void TreeUndo::move(const std::function<bool()>& run) { remember(Change::Move, {}, run); }

void TreeUndo::remember(Change change, std::string_view deletedId, const std::function<bool()>& run)
{
  std::optional<Last> next(std::in_place);
  try {
    next->change = change;
    next->before = idsOf(db_);
    next->LastActivePage = settings::StoredSettings(db_).value(kLastActivePage).value_or("");
    if (!deletedId.empty())
      next->deleted = dao::KeptRows(db_, "Seite", "id LIKE ?", {dao::Value(std::string(deletedId) + "*")});
  } catch (const base::Error&) {
    // A page that cannot be read can still be deleted, only not brought back.
    next.reset();
  }
  if (!run())
    return;
  if (!next) {
    last_.reset();
    return;
  }
  next->after = idsOf(db_);
  if (next->after == next->before)
    return;
  // What another program added meanwhile is new to this one.
  std::erase_if(next->after, [&](const auto& page) { return !next->before.contains(page.first); });
  std::unordered_set<std::int64_t> stayed;
  for (const auto& [number, id] : next->after)
    stayed.insert(number);
  next->deleted.forget(stayed);
  last_ = std::move(next);
}

std::optional<std::string> TreeUndo::undo()
{
  if (!last_)
    return std::nullopt;
  bool done = false;
  const bool ran = failures::withStandardHandler(language_, "TreeUndo", [&] {
    dao::Transaction transaction(db_);
    done = takeBack();
    if (done)
      transaction.commit();
  });
  // A disk that was full may have room next time.
  if (!ran)
    return std::nullopt;
  const auto last = std::exchange(last_, std::nullopt);
  if (done)
    return last->LastActivePage;
  language_.GetMsg(kMessageTooLate);
  return std::nullopt;
}

bool TreeUndo::takeBack()
{
  IdTable pages(db_);
  const auto numbers = pages.rowNumbers();
  std::map<std::string, std::string> places;
  std::vector<std::size_t> newcomers;
  std::size_t known = 0;
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    const auto after = last_->after.find(numbers[row]);
    if (after == last_->after.end()) {
      newcomers.push_back(row);
      continue;
    }
    // Another program has been at the tree.
    if (after->second != pages.ids()[row])
      return false;
    ++known;
    const std::string& before = last_->before.at(after->first);
    places.emplace(after->second, before);
    pages.setId(row, before);
  }
  if (known != last_->after.size() || !placeNewcomers(pages, newcomers, std::move(places)))
    return false;
  pages.write();
  last_->deleted.putBack(db_);
  settings::StoredSettings stored(db_);
  if (const auto present = stored.value(kLastActivePage); present && *present != last_->LastActivePage)
    stored.edit(kLastActivePage, last_->LastActivePage);
  return true;
}

bool TreeUndo::placeNewcomers(IdTable& pages, std::vector<std::size_t> rows, std::map<std::string, std::string> places) const
{
  std::ranges::sort(rows, {}, [&](std::size_t row) { return pages.ids()[row]; });
  Newcomers newcomers(std::move(places), last_->before);
  for (const std::size_t row : rows) {
    std::string place = newcomers.place(pages.ids()[row]);
    if (place.empty())
      return false;
    pages.setId(row, std::move(place));
  }
  return true;
}

} // namespace mrd::pagetree
