#pragma once
// From the system's SQL dialect to the engine's, token by token: what stands inside a literal is never touched.

#include "platform/dao/schema.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// What a statement does, as far as its caller must know before running it.
struct Translation {
  enum class Kind { Select, Change, Definition };

  Kind kind = Kind::Select;
  /// The whole statement in the engine's SQL; parameters are ?1, ?2, ...
  std::string sql;
  /// The statement's table: its real name where a schema is given, as written otherwise.
  std::string table;
  /// Rows of a SELECT can be found again by their key (plain columns of one table, no DISTINCT, no aggregate).
  bool keyed = false;
  /// Of a keyed SELECT: its columns in their order; none for `*`.
  std::vector<std::string> columns;
  /// Of a SELECT, its parts: what follows WHERE and ORDER BY, empty without them, and the number of TOP.
  std::string where, order;
  std::optional<std::int64_t> top;
  /// Number of bare `?`.
  std::size_t parameters = 0;
};

/// Translation of one complete statement. With a schema, names of tables and columns are those of the schema, whatever their case
/// in the statement. Throws base::Error: SyntaxError for anything else than a statement of the dialect, ItemNotFound for a name
/// that the schema lacks, TypeMismatch for a literal text compared with a number that it is not.
Translation translateStatement(std::string_view statement, const Schema* schema = nullptr);

/// A condition in the engine's SQL.
struct Criteria {
  std::string sql;
  /// Number of bare `?`.
  std::size_t parameters = 0;
};

/// The engine's form of one boolean expression over a table's columns; throws base::Error (SyntaxError) for anything that is not
/// exactly one. Values are spliced into criteria by hand, so what only an apostrophe in a value can bring in is refused too: a
/// condition between constants, and an OR whose sides do not stand in parentheses.
Criteria translateCriteria(std::string_view criteria, const TableDescription* table = nullptr);

} // namespace mrd::dao
