#include "platform/dao/recordset_state.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/dao/dialect.h"
#include "platform/dao/expression.h"

#include <algorithm>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using base::format;

[[noreturn]] void failNoRecord() { throw base::Error(ErrorNumber::NoCurrentRecord, "Es gibt keinen aktuellen Datensatz."); }

[[noreturn]] void failReadOnly()
{
  throw base::Error(ErrorNumber::EngineError, "Die Datensätze dieser Abfrage können nicht geändert werden.");
}

/// An INSERT of the columns that were set; of an empty row where there are none.
std::string insertSql(const std::string& table, const std::vector<std::string>& columns)
{
  std::string names;
  std::string values;
  for (std::size_t at = 0; at < columns.size(); ++at) {
    names += (at == 0 ? "" : ", ") + quotedName(columns[at]);
    values += format("{}?{}", at == 0 ? "" : ", ", at + 1);
  }
  if (columns.empty())
    return format("INSERT INTO {} DEFAULT VALUES", quotedName(table));
  return format("INSERT INTO {} ({}) VALUES ({})", quotedName(table), names, values);
}

std::string updateSql(const TableDescription& table, const std::vector<std::string>& columns)
{
  std::string assignments;
  for (std::size_t at = 0; at < columns.size(); ++at)
    assignments += format("{}{} = ?{}", at == 0 ? "" : ", ", quotedName(columns[at]), at + 1);
  return format("UPDATE {} SET {} WHERE {} = ?{}", quotedName(table.name), assignments, table.rowKey, columns.size() + 1);
}

} // namespace

Recordset::State::State(const Connection& opened, TableDescription described, std::vector<std::string> columnNames,
                        std::vector<std::int64_t> rowKeys)
    : connection(opened), table(std::move(described)), names(std::move(columnNames)), keys(std::move(rowKeys)),
      reader(std::in_place, connection, table, names)
{
}

Recordset::State::State(const Connection& opened, std::vector<std::string> columnNames, std::vector<std::vector<Field>> readRows)
    : connection(opened), names(std::move(columnNames)), rows(std::move(readRows))
{
  for (const auto& name : names)
    table.columns.push_back({name, ContentType::Unknown});
}

std::size_t Recordset::State::count() const { return reader ? keys.size() : rows.size(); }

/// Puts the cursor on the row at this place; false when it was removed meanwhile.
bool Recordset::State::land(std::size_t place)
{
  if (reader && !reader->load(keys[place]))
    return false;
  at = place;
  cursor = Cursor::OnRow;
  return true;
}

void Recordset::State::landFrom(std::size_t place)
{
  discardEdit();
  cursor = Cursor::Nowhere;
  while (place < count() && !land(place))
    ++place;
}

const Field& Recordset::State::field(std::size_t column)
{
  if (cursor != Cursor::OnRow)
    failNoRecord();
  return reader ? reader->field(column) : rows[at][column];
}

std::size_t Recordset::State::position(std::string_view column) const
{
  const auto exact = std::find(names.begin(), names.end(), column);
  if (exact != names.end())
    return static_cast<std::size_t>(exact - names.begin());
  // Callers spell one column in several ways; each spelling is folded once.
  const auto known = spellings.find(column);
  if (known != spellings.end())
    return known->second;
  const auto found = findName(names, column);
  if (found == names.size())
    throw base::Error(ErrorNumber::ItemNotFound, format("Die Spalte '{}' fehlt in der Abfrage.", column));
  spellings.emplace(column, found);
  return found;
}

void Recordset::State::discardEdit()
{
  edit = Edit::None;
  pending.assign(names.size(), std::nullopt);
}

/// The first place among `matches`; the count of rows for none.
std::size_t Recordset::State::firstPlace(Statement& matches)
{
  if (places.empty())
    for (std::size_t place = 0; place < keys.size(); ++place)
      places.emplace(keys[place], place);
  std::size_t first = count();
  while (matches.step()) {
    const auto known = places.find(matches.integer(0));
    if (known != places.end())
      first = std::min(first, known->second);
  }
  return first;
}

std::size_t Recordset::State::findByKey(const std::string& criteria, const Parameters& parameters)
{
  Statement matches = connection.prepare(format("SELECT {} FROM {} WHERE {}", table.rowKey, quotedName(table.name), criteria));
  for (std::size_t i = 0; i < parameters.size(); ++i)
    matches.bind(static_cast<int>(i) + 1, parameters[i]);
  return firstPlace(matches);
}

/// Rows that were read at once are shown to the engine one by one.
std::size_t Recordset::State::findByValues(const std::string& criteria, const Parameters& parameters)
{
  std::string row;
  for (std::size_t i = 0; i < names.size(); ++i)
    row += format("{}?{} AS {}", i == 0 ? "" : ", ", parameters.size() + i + 1, quotedName(names[i]));
  Statement test = connection.prepare(format("SELECT 1 FROM (SELECT {}) WHERE {}", row, criteria));
  for (std::size_t place = 0; place < rows.size(); ++place) {
    for (std::size_t i = 0; i < parameters.size(); ++i)
      test.bind(static_cast<int>(i) + 1, parameters[i]);
    for (std::size_t i = 0; i < names.size(); ++i)
      test.bind(static_cast<int>(parameters.size() + i) + 1, rows[place][i].value());
    const bool found = test.step();
    test.reset();
    if (found)
      return place;
  }
  return rows.size();
}

void Recordset::State::insert(const std::vector<std::string>& columns, const std::vector<Value>& values)
{
  Statement statement = connection.prepare(insertSql(table.name, columns));
  for (std::size_t i = 0; i < values.size(); ++i)
    statement.bind(static_cast<int>(i) + 1, values[i]);
  statement.run();
  keys.push_back(connection.lastRowId());
  if (!places.empty())
    places.emplace(keys.back(), keys.size() - 1);
}

void Recordset::State::change(const std::vector<std::string>& columns, const std::vector<Value>& values)
{
  if (columns.empty())
    return;
  Statement statement = connection.prepare(updateSql(table, columns));
  for (std::size_t i = 0; i < values.size(); ++i)
    statement.bind(static_cast<int>(i) + 1, values[i]);
  statement.bind(static_cast<int>(values.size()) + 1, keys[at]);
  statement.run();
  if (connection.changedRows() == 0)
    failNoRecord();
  // A counter is the row's key itself.
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i] == table.counter) {
      keys[at] = values[i].integer();
      places.clear();
    }
  }
  land(at);
}

Recordset::Recordset(std::unique_ptr<State> state) : state_(std::move(state))
{
  state_->discardEdit();
  moveFirst();
}

Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

std::size_t Recordset::recordCount() const { return state_->count(); }
bool Recordset::eof() const { return state_->cursor == State::Cursor::Nowhere; }

void Recordset::moveFirst() { state_->landFrom(0); }

void Recordset::moveLast()
{
  state_->discardEdit();
  state_->cursor = State::Cursor::Nowhere;
  for (std::size_t place = state_->count(); place > 0; --place)
    if (state_->land(place - 1))
      return;
}

void Recordset::moveNext()
{
  if (eof())
    failNoRecord();
  state_->landFrom(state_->cursor == State::Cursor::BeforeRow ? state_->at : state_->at + 1);
}

void Recordset::findFirst(std::string_view criteria, const Parameters& parameters)
{
  const Criteria condition = translateCriteria(criteria, &state_->table);
  if (condition.parameters != parameters.size())
    throw base::Error(ErrorNumber::SyntaxError, "Die Zahl der Parameter stimmt nicht mit dem Ausdruck überein.");
  state_->discardEdit();
  const auto place =
      state_->reader ? state_->findByKey(condition.sql, parameters) : state_->findByValues(condition.sql, parameters);
  state_->cursor = State::Cursor::Nowhere;
  state_->noMatch = place == state_->count() || !state_->land(place);
}

bool Recordset::noMatch() const { return state_->noMatch; }

void Recordset::addNew()
{
  if (!state_->reader)
    failReadOnly();
  state_->discardEdit();
  state_->edit = State::Edit::Adding;
}

void Recordset::edit()
{
  if (!state_->reader)
    failReadOnly();
  if (state_->cursor != State::Cursor::OnRow)
    failNoRecord();
  state_->discardEdit();
  state_->edit = State::Edit::Changing;
}

void Recordset::update()
{
  if (state_->edit == State::Edit::None)
    throw base::Error(ErrorNumber::EngineError, "Es wurde kein Datensatz zum Ändern geöffnet.");
  std::vector<std::string> columns;
  std::vector<Value> values;
  for (std::size_t i = 0; i < state_->names.size(); ++i) {
    if (state_->pending[i]) {
      columns.push_back(state_->names[i]);
      values.push_back(std::move(*state_->pending[i]));
      state_->pending[i].reset();
    }
  }
  const bool adding = state_->edit == State::Edit::Adding;
  state_->discardEdit();
  if (adding)
    state_->insert(columns, values);
  else
    state_->change(columns, values);
}

void Recordset::remove()
{
  if (!state_->reader)
    failReadOnly();
  if (state_->cursor != State::Cursor::OnRow)
    failNoRecord();
  state_->discardEdit();
  const TableDescription& table = state_->table;
  Statement statement = state_->connection.prepare(format("DELETE FROM {} WHERE {} = ?1", quotedName(table.name), table.rowKey));
  statement.bind(1, state_->keys[state_->at]);
  statement.run();
  state_->keys.erase(state_->keys.begin() + static_cast<std::ptrdiff_t>(state_->at));
  state_->places.clear();
  state_->cursor = State::Cursor::BeforeRow;
}

std::size_t Recordset::column(std::string_view column) const { return state_->position(column); }

Value Recordset::value(std::string_view column) const { return value(state_->position(column)); }

Value Recordset::value(std::size_t column) const
{
  if (state_->edit != State::Edit::None && state_->pending[column])
    return *state_->pending[column];
  if (state_->edit == State::Edit::Adding)
    return {};
  return state_->field(column).value();
}

std::string_view Recordset::text(std::size_t column) const { return state_->field(column).text(); }
bool Recordset::isNull(std::size_t column) const { return state_->field(column).isNull(); }

void Recordset::set(std::string_view column, Value value)
{
  const auto position = state_->position(column);
  if (state_->edit == State::Edit::None)
    throw base::Error(ErrorNumber::EngineError, "Es wurde kein Datensatz zum Ändern geöffnet.");
  state_->pending[position] = std::move(value);
}

std::int64_t Recordset::rowNumber() const
{
  if (!state_->reader)
    failReadOnly();
  if (state_->cursor != State::Cursor::OnRow)
    failNoRecord();
  return state_->keys[state_->at];
}

std::vector<std::string> Recordset::columns() const { return state_->names; }

} // namespace mrd::dao
