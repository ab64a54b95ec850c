#include "pagetree/id_table.h"

#include "base/text.h"
#include "pagetree/page_id.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace mrd::pagetree {
namespace {

constexpr std::string_view kWaitFlag = "M";

std::unordered_map<std::string, std::size_t> countIds(const std::vector<std::string>& ids)
{
  std::unordered_map<std::string, std::size_t> counts;
  for (const auto& id : ids)
    ++counts[id];
  return counts;
}

} // namespace

IdTable::IdTable(dao::Database& db) : pages_(db.openRecordset("Select id from Seite"))
{
  for (const std::size_t id = pages_.column("id"); !pages_.eof(); pages_.moveNext())
    original_.emplace_back(pages_.text(id));
  ids_ = original_;
}

std::vector<std::int64_t> IdTable::rowNumbers()
{
  std::vector<std::int64_t> numbers;
  if (!original_.empty())
    for (pages_.moveFirst(); !pages_.eof(); pages_.moveNext())
      numbers.push_back(pages_.rowNumber());
  return numbers;
}

std::vector<std::size_t> IdTable::level(std::size_t length) const
{
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < ids_.size(); ++row)
    if (base::length(ids_[row]) == length && ids_[row] != kRootId)
      rows.push_back(row);
  std::ranges::stable_sort(rows, [this](std::size_t a, std::size_t b) { return base::compareText(ids_[a], ids_[b]) < 0; });
  return rows;
}

void IdTable::movePagesBelow(std::string_view oldPrefix, std::string_view newPrefix)
{
  for (auto& id : ids_)
    if (id.size() > oldPrefix.size() && id.starts_with(oldPrefix))
      id.replace(0, oldPrefix.size(), newPrefix);
}

bool IdTable::hasNewDuplicates() const
{
  const auto before = countIds(original_);
  return std::ranges::any_of(countIds(ids_), [&](const auto& entry) {
    const auto known = before.find(entry.first);
    return entry.second > std::max<std::size_t>(1, known == before.end() ? 0 : known->second);
  });
}

void IdTable::write()
{
  // A table may have a unique key: a number that another row still bears is written with a flag until that row has its own.
  auto inUse = countIds(original_);
  std::vector<std::string> present = original_;
  writeRows([&](std::size_t row) {
    if (ids_[row] == original_[row])
      return std::string();
    --inUse[original_[row]];
    present[row] = ids_[row];
    while (inUse[present[row]] > 0)
      present[row].insert(0, kWaitFlag);
    ++inUse[present[row]];
    return present[row];
  });
  writeRows([&](std::size_t row) { return ids_[row] == present[row] ? std::string() : ids_[row]; });
  original_ = ids_;
}

void IdTable::writeRows(const std::function<std::string(std::size_t)>& newId)
{
  if (original_.empty())
    return;
  pages_.moveFirst();
  for (std::size_t row = 0; row < ids_.size(); ++row, pages_.moveNext()) {
    if (std::string id = newId(row); !id.empty()) {
      pages_.edit();
      pages_.set("id", std::move(id));
      pages_.update();
    }
  }
}

} // namespace mrd::pagetree
