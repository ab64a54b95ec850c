#pragma once
// From the system's SQL dialect to the engine's, token by token: what stands inside a literal is never touched.

#include <string>
#include <string_view>

namespace mrd::dao {

/// What a statement does, as far as its caller must know before running it.
struct Translation {
  std::string sql;
  /// The table of a SELECT over one table, as written; empty otherwise.
  std::string table;
  /// Rows of a SELECT can be found again by their key (no DISTINCT, no aggregate, one table).
  bool keyed = false;
};

/// Translation of one complete statement. Throws base::Error (SyntaxError) for anything else.
Translation translateStatement(std::string_view statement);

/// The engine's form of one boolean expression; throws base::Error (SyntaxError) for anything that is not exactly one.
std::string translateCriteria(std::string_view criteria);

} // namespace mrd::dao
