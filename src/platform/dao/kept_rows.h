#pragma once

#include "platform/dao/database.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_set>

namespace mrd::dao {

/// Rows of a table with all that they hold, every value in its own type and to the byte, so that they can be put back as they
/// were once they are gone.
class KeptRows {
public:
  KeptRows();
  /// Reads the rows that the criteria select. Throws as Database::openRecordset does, and EngineError for a table whose rows have
  /// no number.
  KeptRows(Database& db, std::string_view table, std::string_view criteria, const Parameters& parameters);
  KeptRows(KeptRows&&) noexcept;
  KeptRows& operator=(KeptRows&&) noexcept;
  ~KeptRows();

  std::size_t size() const;
  /// Forgets the rows with these numbers.
  void forget(const std::unordered_set<std::int64_t>& rowNumbers);
  /// Adds the rows to the table, each under its old number unless another row has that meanwhile. Belongs into a transaction.
  void putBack(Database& db) const;

private:
  struct State;
  std::unique_ptr<State> state_;
};

} // namespace mrd::dao
