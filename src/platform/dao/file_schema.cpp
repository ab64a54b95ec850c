#include "platform/dao/file_schema.h"

#include "base/errors.h"
#include "base/text.h"
#include "platform/dao/expression.h"

#include <array>

namespace mrd::dao {

void FileSchema::refresh()
{
  const std::int64_t version = connection_.number("PRAGMA schema_version");
  if (version == version_)
    return;
  version_ = -1;
  entries_.clear();
  described_.clear();
  Statement list =
      connection_.prepare("SELECT name, type = 'view' OR sql LIKE 'CREATE VIRTUAL%' FROM sqlite_master "
                          "WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
  while (list.step())
    entries_.push_back({list.value(0).text(), list.integer(1) != 0});
  version_ = version;
}

const TableDescription* FileSchema::table(std::string_view name) const
{
  std::vector<std::string> names;
  names.reserve(entries_.size());
  for (const auto& entry : entries_)
    names.push_back(entry.name);
  const auto at = findName(names, name);
  if (at == entries_.size())
    return nullptr;
  const Entry& entry = entries_[at];
  auto known = described_.find(entry.name);
  if (known == described_.end())
    known = described_.emplace(entry.name, describe(entry)).first;
  return &known->second;
}

TableDescription FileSchema::describe(const Entry& entry) const
{
  TableDescription out;
  out.name = entry.name;
  out.isView = entry.isView;
  Statement list = connection_.prepare("SELECT name, type, pk FROM pragma_table_xinfo(?1) WHERE hidden <> 1 ORDER BY cid");
  list.bind(1, Value(entry.name));
  int keyColumns = 0;
  while (list.step()) {
    const std::string type = list.value(1).text();
    out.columns.push_back({list.value(0).text(), contentTypeOf(type)});
    if (list.integer(2) == 0)
      continue;
    ++keyColumns;
    if (sameName(type, "INTEGER"))
      out.counter = out.columns.back().name;
  }
  for (const char* key : {"rowid", "_rowid_", "oid"})
    if (out.rowKey.empty() && !out.isView && hasRowKey(out, key))
      out.rowKey = key;
  if (keyColumns != 1 || out.rowKey.empty())
    out.counter.clear();
  return out;
}

/// A column of that name hides the key; a table made without row ids has none.
bool FileSchema::hasRowKey(const TableDescription& table, const char* key) const
{
  if (table.column(key) != nullptr)
    return false;
  try {
    connection_.prepare(base::replaceAll("SELECT KEY FROM ", "KEY", key) + quotedName(table.name));
    return true;
  } catch (const base::Error&) {
    // Its rows are then read at once and cannot be changed one by one.
    return false;
  }
}

} // namespace mrd::dao
