#pragma once
// Rows of a table by their keys. For the sources of this folder only.

#include "platform/dao/engine.h"
#include "platform/dao/schema.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// One field of a row; its memory is used again for the next row.
class Field {
public:
  void assign(const Statement& statement, int column);
  bool isNull() const { return kind_ == Kind::Null; }
  Value value() const;
  /// The text form; valid until the next assign.
  std::string_view text() const { return text_; }

private:
  enum class Kind { Null, Integer, Number, Text };
  Kind kind_ = Kind::Null;
  std::int64_t integer_ = 0;
  double number_ = 0;
  std::string text_;
};

/// Reads one row at a time, and of it only columns that somebody asked for, in this row or in one before: a page's body is long,
/// and most walks have no use for it. Holds no lock between two calls.
class RowReader {
public:
  RowReader(const Connection& connection, const TableDescription& table, std::vector<std::string> columns);

  /// Makes the row with this key the current one; false when there is none.
  bool load(std::int64_t key);
  /// Field of the current row. Throws NoCurrentRecord when the row was removed meanwhile.
  const Field& field(std::size_t column);
  /// Lets the current row be read anew when it is asked for.
  void forget();

private:
  void prepare();
  /// False where the row is no more.
  bool readRow();
  void readAll();

  const Connection& connection_;
  std::string table_, rowKey_;
  std::vector<std::string> columns_;
  Statement statement_;
  std::vector<std::size_t> wanted_;
  std::vector<Field> fields_;
  std::vector<bool> loaded_;
  std::int64_t key_ = 0;
};

} // namespace mrd::dao
