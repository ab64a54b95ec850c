#include "platform/dao/kept_rows.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/database_state.h"
#include "platform/dao/dialect.h"
#include "platform/dao/expression.h"

#include <string>
#include <variant>
#include <vector>

namespace mrd::dao {
namespace {

struct Blob {
  std::string bytes;
};
/// A value as the engine holds it: what Value takes for a text may be none.
using RawValue = std::variant<Value, Blob>;

RawValue rawValue(const Statement& row, int column)
{
  if (row.isBlob(column))
    return Blob{std::string(row.bytes(column))};
  if (row.isNull(column))
    return Value();
  if (row.isInteger(column))
    return Value(row.integer(column));
  if (row.isNumber(column))
    return Value(row.number(column));
  return Value(std::string(row.bytes(column)));
}

void bind(Statement& statement, int parameter, const RawValue& value)
{
  if (const auto* const blob = std::get_if<Blob>(&value))
    statement.bindBytes(parameter, blob->bytes);
  else
    statement.bind(parameter, std::get<Value>(value));
}

} // namespace

struct KeptRows::State {
  struct Row {
    std::int64_t number;
    std::vector<RawValue> values;
  };

  std::string table, rowKey;
  /// All of them but the one that is the row's number.
  std::vector<std::string> columns;
  std::vector<Row> rows;

  bool isTaken(const Connection& connection, std::int64_t number) const
  {
    auto look = connection.prepare(base::format("SELECT 1 FROM {} WHERE {} = ?1", quotedName(table), rowKey));
    look.bind(1, number);
    return look.step();
  }

  /// Parameter 1 is the row's number where it has one; the columns follow.
  std::string insertSql(bool withNumber) const
  {
    std::string names = withNumber ? rowKey : "", values = withNumber ? "?1" : "";
    for (std::size_t i = 0; i < columns.size(); ++i) {
      names.append(names.empty() ? "" : ", ").append(quotedName(columns[i]));
      values.append(values.empty() ? "" : ", ").append(base::format("?{}", i + 2));
    }
    return base::format("INSERT INTO {} ({}) VALUES ({})", quotedName(table), names, values);
  }
};

KeptRows::KeptRows() = default;
KeptRows::KeptRows(KeptRows&&) noexcept = default;
KeptRows& KeptRows::operator=(KeptRows&&) noexcept = default;
KeptRows::~KeptRows() = default;

KeptRows::KeptRows(Database& db, std::string_view table, std::string_view criteria, const Parameters& parameters)
    : state_(std::make_unique<State>())
{
  const Connection& connection = *db.state_->connection;
  db.state_->schema.refresh();
  const TableDescription* const known = db.state_->schema.table(table);
  if (known == nullptr || known->isView || known->rowKey.empty())
    throw base::Error(base::ErrorNumber::EngineError, base::format("Die Zeilen von '{}' haben keine Nummern.", table));
  state_->table = known->name;
  state_->rowKey = known->rowKey;
  std::string list = known->rowKey;
  for (const auto& column : known->columns)
    if (column.name != known->counter) {
      state_->columns.push_back(column.name);
      list += ", " + quotedName(column.name);
    }
  auto rows = connection.prepare(base::format("SELECT {} FROM {} WHERE {} ORDER BY {}", list, quotedName(known->name),
                                              translateCriteria(criteria, known).sql, known->rowKey));
  for (std::size_t i = 0; i < parameters.size(); ++i)
    rows.bind(static_cast<int>(i) + 1, parameters[i]);
  while (rows.step()) {
    auto& row = state_->rows.emplace_back(State::Row{rows.integer(0), {}});
    for (int column = 1; column < rows.columnCount(); ++column)
      row.values.push_back(rawValue(rows, column));
  }
}

std::size_t KeptRows::size() const { return state_ ? state_->rows.size() : 0; }

void KeptRows::forget(const std::unordered_set<std::int64_t>& rowNumbers)
{
  if (state_)
    std::erase_if(state_->rows, [&](const State::Row& row) { return rowNumbers.contains(row.number); });
}

void KeptRows::putBack(Database& db) const
{
  if (size() == 0)
    return;
  const Connection& connection = *db.state_->connection;
  for (const auto& row : state_->rows) {
    const bool hasNumber = !state_->isTaken(connection, row.number);
    auto insert = connection.prepare(state_->insertSql(hasNumber));
    if (hasNumber)
      insert.bind(1, row.number);
    for (std::size_t i = 0; i < row.values.size(); ++i)
      bind(insert, static_cast<int>(i) + 2, row.values[i]);
    insert.run();
  }
}

} // namespace mrd::dao
