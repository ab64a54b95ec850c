#pragma once
// What a translation has to know of the tables: their names as they are really written, and what their columns hold.

#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// What a column or an expression holds. Unknown: anything, as far as can be told before it is read.
enum class ContentType { Unknown, Number, Text };

struct ColumnDescription {
  std::string name;
  ContentType type = ContentType::Unknown;
};

struct TableDescription {
  std::string name;
  std::vector<ColumnDescription> columns;
  /// How a statement names a row's key; empty for what has no such key (a view, a table without row ids).
  std::string rowKey;
  /// The column that is the row's key at the same time (a counter); empty without one.
  std::string counter;
  /// Not a plain table: reading it runs a statement that came with the file.
  bool isView = false;

  /// Case does not count, umlauts included; an exact match comes first. Null for an unknown name.
  const ColumnDescription* column(std::string_view columnName) const;
};

/// The tables of a database by name.
class Schema {
public:
  virtual ~Schema() = default;
  /// Case does not count, umlauts included. Null for an unknown name.
  virtual const TableDescription* table(std::string_view name) const = 0;
};

/// What a column declared with this type holds, by the engine's rules:
/// https://www.sqlite.org/datatype3.html#determination_of_column_affinity
ContentType contentTypeOf(std::string_view declaredType);

/// Whether two names of tables or columns mean the same.
bool sameName(std::string_view a, std::string_view b);

/// Position of the first name that is `wanted` to the letter, else of the first that means the same; `names.size()` for none.
std::size_t findName(const std::vector<std::string>& names, std::string_view wanted);

} // namespace mrd::dao
