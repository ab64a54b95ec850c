#pragma once
// Expressions of the dialect, from tokens to the engine's SQL.

#include "platform/dao/schema.h"
#include "platform/dao/tokens.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::dao {

/// Names that dao registers with the engine on every connection.
inline constexpr std::string_view kTextCollation = "MRD_TEXT";

/// `name` as the engine takes it to the letter.
std::string quotedName(std::string_view name);
/// `text` as a literal of the engine.
std::string quotedText(std::string_view text);

/// A piece of the engine's SQL and what is known of its value.
struct Expression {
  enum class Role { Value, Column, Condition, Aggregate };

  std::string sql;
  ContentType type = ContentType::Unknown;
  Role role = Role::Value;
  /// No column and no parameter is in it.
  bool constant = false;
  /// It stands in parentheses of its own.
  bool parenthesised = false;
  /// Content of a text or date literal.
  std::optional<std::string> literal = {};
  /// Of TRUE and FALSE.
  std::optional<bool> truth = {};
  /// Of a plain column: its real name.
  std::string columnName = {};
};

/// Reads expressions off a token reader. Every failure is a base::Error: SyntaxError, ItemNotFound for a column that the table
/// lacks, TypeMismatch for a text compared with a number that it is not.
class ExpressionParser {
public:
  struct Scope {
    /// The statement's table as written; empty when any qualifier is fine.
    std::string tableName = {};
    /// Its columns; null: names go out as written, and nothing is known of them.
    const TableDescription* table = nullptr;
    /// Text was spliced into the expression by hand, as in search criteria. What only an apostrophe that ended a literal early
    /// brings in is refused then: a condition between constants, and an OR whose sides do not stand in parentheses.
    bool guarded = false;
  };

  ExpressionParser(TokenReader& reader, Scope scope) : reader_(reader), scope_(std::move(scope)) {}

  /// One condition, as behind WHERE: a comparison or what can stand for yes or no.
  Expression condition();
  /// Any expression.
  Expression expression() { return disjunction(); }
  /// An entry of a SELECT list, in which aggregates may stand.
  Expression selected();
  /// A column's name, with or without its table.
  Expression column();

  std::size_t parameters() const { return parameters_; }

private:
  class Nesting;

  Expression disjunction();
  Expression conjunction();
  Expression negation();
  Expression comparison();
  Expression isNull(const Expression& left);
  Expression like(const Expression& left);
  Expression between(const Expression& left);
  Expression in(const Expression& left);
  Expression concatenation();
  Expression sum();
  Expression product();
  Expression sign();
  Expression primary();
  Expression name();
  Expression call();
  std::vector<Expression> arguments();
  Expression compare(const Expression& left, std::string_view op, const Expression& right);
  Expression arithmetic(const Expression& left, std::string_view op, const Expression& right);
  void requireCondition(const Expression& expression) const;
  void refuseConstants(const Expression& left, const Expression& right) const;
  void countOperation(std::size_t size);

  TokenReader& reader_;
  Scope scope_;
  std::size_t parameters_ = 0;
  int depth_ = 0;
  int operations_ = 0;
};

} // namespace mrd::dao
