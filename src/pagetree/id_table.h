#pragma once
// The ids of all pages in memory: renumbering is worked out here and written in one go, whatever the number of pages.

#include "platform/dao/database.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pagetree {

class IdTable {
public:
  /// Reads the ids; the pages stay where they are until write().
  explicit IdTable(dao::Database& db);

  /// Present ids, in table order.
  const std::vector<std::string>& ids() const { return ids_; }
  /// The engine's numbers of the rows, in the same order. Throws EngineError for a table whose rows have none.
  std::vector<std::int64_t> rowNumbers();
  /// Places of the rows with ids of `length` characters other than "00", by id.
  std::vector<std::size_t> level(std::size_t length) const;

  void setId(std::size_t row, std::string id) { ids_[row] = std::move(id); }
  /// Gives every row whose id begins with `oldPrefix` and is longer the new prefix.
  void movePagesBelow(std::string_view oldPrefix, std::string_view newPrefix);

  /// Whether an id is there more often than when the table was read.
  bool hasNewDuplicates() const;
  /// Writes the ids that changed; no id is taken before it is free. Belongs into a transaction.
  void write();

private:
  /// Writes the row's id where there is a new one.
  void writeRows(const std::function<std::string(std::size_t)>& newId);

  dao::Recordset pages_;
  std::vector<std::string> original_, ids_;
};

} // namespace mrd::pagetree
