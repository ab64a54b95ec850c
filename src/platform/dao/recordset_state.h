#pragma once
// What a recordset holds. For the sources of this folder only.

#include "platform/dao/database.h"
#include "platform/dao/row_reader.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace mrd::dao {

/// Either keys of rows that are read one by one, or rows that were read at once because nothing finds them again.
struct Recordset::State {
  /// BeforeRow: the row there was removed, and moveNext() goes to the one that took its place. Nowhere: behind the last row, or
  /// a search found nothing.
  enum class Cursor { OnRow, BeforeRow, Nowhere };
  enum class Edit { None, Adding, Changing };

  State(const Connection& opened, TableDescription described, std::vector<std::string> columnNames,
        std::vector<std::int64_t> rowKeys);
  State(const Connection& opened, std::vector<std::string> columnNames, std::vector<std::vector<Field>> readRows);

  std::size_t count() const;
  bool land(std::size_t place);
  /// On the first row at or behind `place` that is still there.
  void landFrom(std::size_t place);
  const Field& field(std::size_t column);
  /// Place of a column by its name. Throws ItemNotFound.
  std::size_t position(std::string_view column) const;
  void discardEdit();

  std::size_t findByKey(const std::string& criteria, const Parameters& parameters);
  std::size_t findByValues(const std::string& criteria, const Parameters& parameters);
  std::size_t firstPlace(Statement& matches);
  void insert(const std::vector<std::string>& columns, const std::vector<Value>& values);
  void change(const std::vector<std::string>& columns, const std::vector<Value>& values);

  const Connection& connection;
  TableDescription table;
  std::vector<std::string> names;
  mutable std::map<std::string, std::size_t, std::less<>> spellings;

  std::vector<std::int64_t> keys;
  std::optional<RowReader> reader;
  /// Place of each key, made for the first search and dropped when places move.
  std::unordered_map<std::int64_t, std::size_t> places;
  std::vector<std::vector<Field>> rows;

  Cursor cursor = Cursor::Nowhere;
  std::size_t at = 0;
  bool noMatch = false;
  Edit edit = Edit::None;
  std::vector<std::optional<Value>> pending;
};

} // namespace mrd::dao
