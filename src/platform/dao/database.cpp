#include "platform/dao/database.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/dao/database_file.h"
#include "platform/dao/database_state.h"
#include "platform/dao/dialect.h"
#include "platform/dao/expression.h"
#include "platform/dao/recordset_state.h"
#include "platform/files/path.h"

#include <algorithm>

namespace mrd::dao {

using base::ErrorNumber;
using base::format;

namespace {

/// What a view may cost before it counts as endless: a few seconds.
constexpr int kMostViewSteps = 200'000'000;

void bindAll(Statement& statement, const Parameters& parameters, std::size_t expected)
{
  if (parameters.size() != expected)
    throw base::Error(ErrorNumber::SyntaxError, "Die Zahl der Parameter stimmt nicht mit der Abfrage überein.");
  for (std::size_t i = 0; i < parameters.size(); ++i)
    statement.bind(static_cast<int>(i) + 1, parameters[i]);
}

/// The statement that gives the keys of a SELECT's rows. Rows that are equal for its order come as they lie in the table.
std::string keySql(const Translation& translation, const TableDescription& table)
{
  std::string sql = format("SELECT {} FROM {}", table.rowKey, quotedName(table.name));
  if (!translation.where.empty())
    sql += " WHERE " + translation.where;
  if (!translation.order.empty())
    sql += format(" ORDER BY {}, {}", translation.order, table.rowKey);
  else if (translation.top)
    sql += " ORDER BY " + table.rowKey;
  if (translation.top)
    sql += format(" LIMIT {}", *translation.top);
  return sql;
}

std::vector<std::int64_t> readKeys(const Connection& connection, const Translation& translation, const TableDescription& table,
                                   const Parameters& parameters)
{
  Statement statement = connection.prepare(keySql(translation, table));
  bindAll(statement, parameters, translation.parameters);
  std::vector<std::int64_t> keys;
  while (statement.step())
    keys.push_back(statement.integer(0));
  // Sorting here leaves the engine free to read the keys off whichever index is smallest.
  if (translation.order.empty())
    std::sort(keys.begin(), keys.end());
  return keys;
}

struct ReadRows {
  std::vector<std::string> names;
  std::vector<std::vector<Field>> rows;
};

ReadRows readRows(const Connection& connection, const Translation& translation, const Parameters& parameters)
{
  Statement statement = connection.prepare(translation.sql);
  bindAll(statement, parameters, translation.parameters);
  ReadRows out;
  for (int column = 0; column < statement.columnCount(); ++column)
    out.names.push_back(statement.columnName(column));
  while (statement.step()) {
    auto& row = out.rows.emplace_back(out.names.size());
    for (std::size_t column = 0; column < row.size(); ++column)
      row[column].assign(statement, static_cast<int>(column));
  }
  return out;
}

/// Bounds the work of reading from a view for as long as it lives.
class WorkLimit {
public:
  WorkLimit(const Connection& connection, bool applies) : connection_(connection), applies_(applies)
  {
    if (applies_)
      connection_.limitWork(kMostViewSteps);
  }
  ~WorkLimit()
  {
    if (applies_)
      connection_.limitWork(0);
  }
  WorkLimit(const WorkLimit&) = delete;
  WorkLimit& operator=(const WorkLimit&) = delete;

private:
  const Connection& connection_;
  bool applies_;
};

std::vector<std::string> namesOf(const TableDescription& table)
{
  std::vector<std::string> out;
  for (const auto& column : table.columns)
    out.push_back(column.name);
  return out;
}

} // namespace

Database::Database(std::unique_ptr<State> state) : state_(std::move(state)) {}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

Database Database::open(std::string_view path, OpenMode mode)
{
  const auto native = files::nativePath(path);
  Database out(std::make_unique<State>(openFile(native, native.native(), mode == OpenMode::ReadOnly)));
  out.state_->schema.refresh();
  return out;
}

Database Database::create(std::string_view path)
{
  const auto native = files::nativePath(path);
  return Database(std::make_unique<State>(createFile(native, native.native())));
}

Recordset Database::openRecordset(std::string_view source, const Parameters& parameters)
{
  return openRows(source, parameters, false);
}

Recordset Database::openSnapshot(std::string_view source, const Parameters& parameters)
{
  return openRows(source, parameters, true);
}

Recordset Database::openRows(std::string_view source, const Parameters& parameters, bool atOnce)
{
  const Connection& connection = *state_->connection;
  state_->schema.refresh();
  const bool isTable = state_->schema.table(source) != nullptr;
  const Translation translation =
      translateStatement(isTable ? format("SELECT * FROM [{}]", source) : std::string(source), &state_->schema);
  if (translation.kind != Translation::Kind::Select)
    failSyntax(source);
  const TableDescription& table = *state_->schema.table(translation.table);
  if (!atOnce && translation.keyed && !table.rowKey.empty()) {
    auto names = translation.columns.empty() ? namesOf(table) : translation.columns;
    auto keys = readKeys(connection, translation, table, parameters);
    return Recordset(std::make_unique<Recordset::State>(connection, table, std::move(names), std::move(keys)));
  }
  const WorkLimit limit(connection, table.isView);
  auto [names, rows] = readRows(connection, translation, parameters);
  return Recordset(std::make_unique<Recordset::State>(connection, std::move(names), std::move(rows)));
}

std::size_t Database::execute(std::string_view statement, const Parameters& parameters)
{
  state_->schema.refresh();
  const Translation translation = translateStatement(statement, &state_->schema);
  if (translation.kind == Translation::Kind::Select)
    failSyntax(statement);
  Statement prepared = state_->connection->prepare(translation.sql);
  bindAll(prepared, parameters, translation.parameters);
  prepared.run();
  return translation.kind == Translation::Kind::Change ? state_->connection->changedRows() : 0;
}

bool Database::hasTable(std::string_view table) const
{
  state_->schema.refresh();
  return state_->schema.table(table) != nullptr;
}

std::vector<std::string> Database::columns(std::string_view table) const
{
  state_->schema.refresh();
  const TableDescription* known = state_->schema.table(table);
  if (known == nullptr)
    throw base::Error(ErrorNumber::ItemNotFound, format("Die Tabelle '{}' fehlt in der Datenbank.", table));
  return namesOf(*known);
}

Transaction::Transaction(Database& database) : database_(database.state_.get())
{
  if (database_->connection->inTransaction())
    throw base::Error(ErrorNumber::EngineError, "Es ist schon eine Transaktion offen.");
  database_->connection->run("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
  try {
    rollback();
  } catch (const base::Error&) {
    // The file could not be reached; what was not committed is undone when it is opened next.
  }
}

void Transaction::commit()
{
  database_->connection->run("COMMIT");
  open_ = false;
}

void Transaction::rollback()
{
  // A failure such as a full disk has ended the transaction already.
  if (open_ && database_->connection->inTransaction())
    database_->connection->run("ROLLBACK");
  open_ = false;
}

} // namespace mrd::dao
