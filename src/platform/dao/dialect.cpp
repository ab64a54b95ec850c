#include "platform/dao/dialect.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/comparison.h"
#include "platform/dao/expression.h"
#include "platform/dao/table_definition.h"
#include "platform/dao/tokens.h"

#include <algorithm>
#include <charconv>

namespace mrd::dao {
namespace {

using base::format;
using Role = Expression::Role;

std::string joined(const std::vector<std::string>& pieces)
{
  std::string out;
  for (const auto& piece : pieces)
    out.append(out.empty() ? "" : ", ").append(piece);
  return out;
}

/// An entry of a SELECT list.
struct Item {
  Expression expression;
  /// Name of the result's column.
  std::string name;
};

/// A statement that reads or changes the rows of one table, from behind its first keyword.
class RowStatement {
public:
  RowStatement(TokenReader& reader, const std::string& table, const Schema* schema)
      : reader_(reader), table_(describe(table, schema)), tableName_(table_ ? table_->name : table),
        expressions_(reader, {tableName_, table_, false})
  {
  }

  Translation select();
  Translation remove();
  Translation update();
  Translation insert();

private:
  static const TableDescription* describe(const std::string& table, const Schema* schema);

  bool acceptAll();
  std::vector<Item> items();
  Item item(std::size_t number);
  std::vector<Item> allColumns() const;
  std::string where();
  std::string order();
  Translation changed(std::string sql);

  TokenReader& reader_;
  const TableDescription* table_;
  std::string tableName_;
  ExpressionParser expressions_;
};

const TableDescription* RowStatement::describe(const std::string& table, const Schema* schema)
{
  if (schema == nullptr)
    return nullptr;
  const TableDescription* known = schema->table(table);
  if (known == nullptr)
    throw base::Error(base::ErrorNumber::ItemNotFound, format("Die Tabelle '{}' fehlt in der Datenbank.", table));
  return known;
}

/// `*` or `Table.*`.
bool RowStatement::acceptAll()
{
  if (reader_.isOperator(".", 1) && reader_.isOperator("*", 2)) {
    if (!sameName(reader_.expectName(), tableName_))
      reader_.fail();
    reader_.expectOperator(".");
  }
  return reader_.acceptOperator("*");
}

Item RowStatement::item(std::size_t number)
{
  Expression expression = expressions_.selected();
  std::string name = expression.columnName.empty() ? format("Expr{}", 1000 + number) : expression.columnName;
  if (reader_.acceptKeyword("as")) {
    name = reader_.expectName();
    // A renamed column is read like any other expression.
    if (expression.role == Role::Column)
      expression.role = Role::Value;
  }
  return {std::move(expression), std::move(name)};
}

std::vector<Item> RowStatement::items()
{
  std::vector<Item> out;
  do
    out.push_back(item(out.size()));
  while (reader_.acceptOperator(","));
  return out;
}

std::vector<Item> RowStatement::allColumns() const
{
  std::vector<Item> out;
  if (table_ != nullptr)
    for (const auto& column : table_->columns)
      out.push_back({{quotedName(column.name), column.type, Role::Column, false, false, {}, {}, column.name}, column.name});
  return out;
}

std::string RowStatement::where() { return reader_.acceptKeyword("where") ? expressions_.condition().sql : std::string(); }

std::string RowStatement::order()
{
  std::vector<std::string> out;
  if (!reader_.acceptKeyword("order"))
    return {};
  reader_.expectKeyword("by");
  do {
    const Expression by = expressions_.expression();
    // The engine would take a bare number for a column's place in the list.
    if (by.constant)
      reader_.fail();
    const bool descending = reader_.acceptKeyword("desc");
    if (!descending)
      reader_.acceptKeyword("asc");
    out.push_back(inTextOrder(by) + (descending ? " DESC" : ""));
  } while (reader_.acceptOperator(","));
  return joined(out);
}

std::optional<std::int64_t> acceptTop(TokenReader& reader)
{
  if (!reader.isKeyword("top") || reader.peek(1).kind != TokenKind::Number)
    return std::nullopt;
  reader.take();
  const std::string digits = reader.take().text;
  std::int64_t top = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), top);
  if (result.ec != std::errc() || result.ptr != digits.data() + digits.size())
    failSyntax(digits);
  return top;
}

Translation RowStatement::select()
{
  Translation out;
  const bool distinct = reader_.acceptKeyword("distinct");
  out.top = acceptTop(reader_);
  const bool all = acceptAll();
  const auto chosen = all ? allColumns() : items();
  reader_.expectKeyword("from");
  reader_.expectName();
  out.where = where();
  out.order = order();
  reader_.expectEnd();

  std::vector<std::string> list;
  std::vector<std::string> places;
  for (const auto& [expression, name] : chosen) {
    list.push_back(format("{} AS {}", distinct ? inTextOrder(expression) : expression.sql, quotedName(name)));
    places.push_back(std::to_string(list.size()));
    if (!all)
      out.columns.push_back(name);
  }
  // Double rows are found by sorting: they come out in that order.
  if (distinct && out.order.empty())
    out.order = joined(places);
  out.table = tableName_;
  out.keyed =
      !distinct && std::all_of(chosen.begin(), chosen.end(), [](const auto& i) { return i.expression.role == Role::Column; });
  out.sql = format("SELECT {}{} FROM {}", distinct ? "DISTINCT " : "", all && list.empty() ? "*" : joined(list),
                   quotedName(tableName_));
  out.sql += out.where.empty() ? "" : " WHERE " + out.where;
  out.sql += out.order.empty() ? "" : " ORDER BY " + out.order;
  out.sql += out.top ? format(" LIMIT {}", *out.top) : "";
  out.parameters = expressions_.parameters();
  return out;
}

Translation RowStatement::changed(std::string sql)
{
  reader_.expectEnd();
  Translation out;
  out.kind = Translation::Kind::Change;
  out.sql = std::move(sql);
  out.table = tableName_;
  out.parameters = expressions_.parameters();
  return out;
}

Translation RowStatement::remove()
{
  acceptAll();
  reader_.expectKeyword("from");
  reader_.expectName();
  const std::string which = where();
  return changed(format("DELETE FROM {}{}", quotedName(tableName_), which.empty() ? "" : " WHERE " + which));
}

Translation RowStatement::update()
{
  std::vector<std::string> assignments;
  reader_.expectName();
  reader_.expectKeyword("set");
  do {
    const Expression column = expressions_.column();
    reader_.expectOperator("=");
    assignments.push_back(format("{} = {}", column.sql, expressions_.expression().sql));
  } while (reader_.acceptOperator(","));
  const std::string which = where();
  return changed(
      format("UPDATE {} SET {}{}", quotedName(tableName_), joined(assignments), which.empty() ? "" : " WHERE " + which));
}

Translation RowStatement::insert()
{
  std::vector<std::string> columns;
  std::vector<std::string> values;
  reader_.expectName();
  if (reader_.acceptOperator("(")) {
    do
      columns.push_back(expressions_.column().sql);
    while (reader_.acceptOperator(","));
    reader_.expectOperator(")");
  }
  reader_.expectKeyword("values");
  reader_.expectOperator("(");
  do
    values.push_back(expressions_.expression().sql);
  while (reader_.acceptOperator(","));
  reader_.expectOperator(")");
  return changed(format("INSERT INTO {}{} VALUES ({})", quotedName(tableName_),
                        columns.empty() ? "" : format(" ({})", joined(columns)), joined(values)));
}

/// The table of a statement whose list stands in front of FROM.
std::string tableBehindFrom(const TokenReader& reader)
{
  std::size_t ahead = 0;
  while (!reader.isKeyword("from", ahead) && reader.peek(ahead).kind != TokenKind::End)
    ++ahead;
  return reader.peek(ahead + 1).text;
}

} // namespace

Translation translateStatement(std::string_view statement, const Schema* schema)
{
  TokenReader reader(tokenize(statement));
  if (reader.acceptKeyword("select"))
    return RowStatement(reader, tableBehindFrom(reader), schema).select();
  if (reader.acceptKeyword("delete"))
    return RowStatement(reader, tableBehindFrom(reader), schema).remove();
  if (reader.acceptKeyword("update"))
    return RowStatement(reader, reader.peek().text, schema).update();
  if (reader.acceptKeyword("insert")) {
    reader.expectKeyword("into");
    return RowStatement(reader, reader.peek().text, schema).insert();
  }
  Translation out;
  out.kind = Translation::Kind::Definition;
  out.sql = definitionSql(reader, schema);
  return out;
}

Criteria translateCriteria(std::string_view criteria, const TableDescription* table)
{
  TokenReader reader(tokenize(criteria));
  ExpressionParser expressions(reader, {table == nullptr ? std::string() : table->name, table, true});
  std::string sql = expressions.condition().sql;
  if (reader.peek().kind != TokenKind::End)
    reader.fail();
  return {std::move(sql), expressions.parameters()};
}

} // namespace mrd::dao
