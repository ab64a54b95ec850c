#include "platform/dao/row_reader.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/expression.h"

#include <algorithm>

namespace mrd::dao {

void Field::assign(const Statement& statement, int column)
{
  text_.clear();
  if (statement.isNull(column)) {
    kind_ = Kind::Null;
  } else if (statement.isInteger(column)) {
    kind_ = Kind::Integer;
    integer_ = statement.integer(column);
    text_ = Value(integer_).text();
  } else if (statement.isNumber(column)) {
    kind_ = Kind::Number;
    number_ = statement.number(column);
    text_ = Value(number_).text();
  } else {
    kind_ = Kind::Text;
    assignStoredText(text_, statement.bytes(column));
  }
}

Value Field::value() const
{
  switch (kind_) {
  case Kind::Integer:
    return integer_;
  case Kind::Number:
    return number_;
  case Kind::Text:
    return text_;
  case Kind::Null:
    break;
  }
  return {};
}

RowReader::RowReader(const Connection& connection, const TableDescription& table, std::vector<std::string> columns)
    : connection_(connection), table_(table.name), rowKey_(table.rowKey), columns_(std::move(columns)), fields_(columns_.size()),
      loaded_(columns_.size(), false)
{
}

void RowReader::prepare()
{
  std::string list = wanted_.empty() ? "1" : "";
  for (const auto column : wanted_)
    list.append(list.empty() ? "" : ", ").append(quotedName(columns_[column]));
  statement_ = connection_.prepare(base::format("SELECT {} FROM {} WHERE {} = ?1", list, quotedName(table_), rowKey_), true);
}

/// What is loaded stays as it is: its text may be in use.
bool RowReader::readRow()
{
  statement_.bind(1, key_);
  const bool found = statement_.step();
  if (found)
    readAll();
  statement_.reset();
  return found;
}

void RowReader::readAll()
{
  for (std::size_t at = 0; at < wanted_.size(); ++at) {
    if (loaded_[wanted_[at]])
      continue;
    fields_[wanted_[at]].assign(statement_, static_cast<int>(at));
    loaded_[wanted_[at]] = true;
  }
}

bool RowReader::load(std::int64_t key)
{
  forget();
  key_ = key;
  if (!statement_)
    prepare();
  return readRow();
}

const Field& RowReader::field(std::size_t column)
{
  if (loaded_[column])
    return fields_[column];
  if (std::find(wanted_.begin(), wanted_.end(), column) == wanted_.end()) {
    wanted_.push_back(column);
    prepare();
  }
  if (!readRow())
    throw base::Error(base::ErrorNumber::NoCurrentRecord, "Der Datensatz wurde inzwischen gelöscht.");
  return fields_[column];
}

void RowReader::forget() { loaded_.assign(loaded_.size(), false); }

} // namespace mrd::dao
