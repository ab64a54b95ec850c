#include "platform/dao/engine.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/engine_functions.h"

#include <sqlite3.h>

#include <new>
#include <utility>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using base::format;

constexpr int kBusyTimeoutMs = 3000;
/// The longest text or row that is read from a file.
constexpr int kLongestValue = 256 << 20;
constexpr int kStepsPerLook = 1'000'000;

int openFlags(Access access)
{
  switch (access) {
  case Access::ReadOnly:
    return SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
  case Access::ReadWrite:
    return SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  case Access::Create:
    break;
  }
  return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
}

} // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void Statement::fail(int code) const { connection_->fail(code); }

void Statement::bind(int parameter, const Value& value)
{
  int code = SQLITE_OK;
  const auto& content = value.content();
  if (const auto* text = std::get_if<std::string>(&content))
    code = sqlite3_bind_text64(statement_.get(), parameter, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  else if (const auto* integer = std::get_if<std::int64_t>(&content))
    code = sqlite3_bind_int64(statement_.get(), parameter, *integer);
  else if (const auto* number = std::get_if<double>(&content))
    code = sqlite3_bind_double(statement_.get(), parameter, *number);
  else
    code = sqlite3_bind_null(statement_.get(), parameter);
  if (code != SQLITE_OK)
    fail(code);
}

void Statement::bind(int parameter, std::int64_t number)
{
  if (const int code = sqlite3_bind_int64(statement_.get(), parameter, number); code != SQLITE_OK)
    fail(code);
}

void Statement::bindBytes(int parameter, std::string_view bytes)
{
  const int code = sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(), SQLITE_STATIC);
  if (code != SQLITE_OK)
    fail(code);
}

bool Statement::step()
{
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW)
    return true;
  if (code == SQLITE_DONE)
    return false;
  // The reset repeats the failure; the message has to be taken first.
  try {
    fail(code);
  } catch (...) {
    sqlite3_reset(statement_.get());
    throw;
  }
}

void Statement::reset() { sqlite3_reset(statement_.get()); }

void Statement::run()
{
  while (step()) {
  }
  reset();
}

int Statement::parameterCount() const { return sqlite3_bind_parameter_count(statement_.get()); }
int Statement::columnCount() const { return sqlite3_column_count(statement_.get()); }

std::string Statement::columnName(int column) const
{
  const char* name = sqlite3_column_name(statement_.get(), column);
  return name == nullptr ? std::string() : storedText(name);
}

std::int64_t Statement::integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
double Statement::number(int column) const { return sqlite3_column_double(statement_.get(), column); }
bool Statement::isNull(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL; }
bool Statement::isInteger(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER; }
bool Statement::isNumber(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_FLOAT; }

bool Statement::isBlob(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_BLOB; }

std::string_view Statement::bytes(int column) const
{
  const void* data = isBlob(column) ? sqlite3_column_blob(statement_.get(), column)
                                    : static_cast<const void*>(sqlite3_column_text(statement_.get(), column));
  const int size = sqlite3_column_bytes(statement_.get(), column);
  return data == nullptr ? std::string_view() : std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size));
}

Value Statement::value(int column) const
{
  if (isNull(column))
    return {};
  if (isInteger(column))
    return integer(column);
  if (isNumber(column))
    return number(column);
  return storedText(bytes(column));
}

void Connection::Close::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

Connection::Connection(const std::filesystem::path& native, std::string_view shownPath, Access access) : path_(shownPath)
{
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(native.c_str(), &handle, openFlags(access), nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK)
    fail(code);
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_busy_timeout(handle, kBusyTimeoutMs);
}

Statement Connection::prepare(std::string_view sql, bool usedOften) const
{
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(handle_.get(), sql.data(), static_cast<int>(sql.size()),
                                      usedOften ? SQLITE_PREPARE_PERSISTENT : 0, &prepared, nullptr);
  Statement out;
  out.statement_.reset(prepared);
  out.connection_ = this;
  if ((code & 0xFF) == SQLITE_ERROR)
    throw base::Error(ErrorNumber::SyntaxError, format("Die Abfrage ist nicht ausführbar: {}", sqlite3_errmsg(handle_.get())));
  if (code != SQLITE_OK || prepared == nullptr)
    fail(code);
  return out;
}

void Connection::run(const char* sql) const
{
  if (const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr); code != SQLITE_OK)
    fail(code);
}

std::int64_t Connection::number(std::string_view sql) const
{
  Statement statement = prepare(sql);
  return statement.step() ? statement.integer(0) : 0;
}

bool Connection::inTransaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }
std::int64_t Connection::lastRowId() const { return sqlite3_last_insert_rowid(handle_.get()); }
std::size_t Connection::changedRows() const { return static_cast<std::size_t>(sqlite3_changes64(handle_.get())); }

void Connection::registerDialect() const { registerFunctions(handle_.get()); }

void Connection::distrustFile() const
{
  sqlite3* handle = handle_.get();
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
}

void Connection::limitWork(int steps) const
{
  looksLeft_ = steps / kStepsPerLook;
  const auto look = [](void* left) { return --*static_cast<int*>(left) < 0 ? 1 : 0; };
  sqlite3_progress_handler(handle_.get(), steps == 0 ? 0 : kStepsPerLook, steps == 0 ? nullptr : +look, &looksLeft_);
}

PageCopy::PageCopy(const Connection& source, const Connection& target)
    : source_(source), target_(target), copy_(sqlite3_backup_init(target.handle_.get(), "main", source.handle_.get(), "main"))
{
  if (!copy_)
    target_.fail(sqlite3_errcode(target_.handle_.get()));
}

bool PageCopy::step(int pages)
{
  switch (const int code = sqlite3_backup_step(copy_.get(), pages); code & 0xFF) {
  case SQLITE_OK:
    return false;
  case SQLITE_DONE:
    return true;
  case SQLITE_FULL:
  case SQLITE_CANTOPEN:
  case SQLITE_READONLY:
    target_.fail(code);
  default:
    (code == SQLITE_IOERR_WRITE ? target_ : source_).fail(code);
  }
}

void PageCopy::Finish::operator()(sqlite3_backup* copy) const { sqlite3_backup_finish(copy); }

void Connection::fail(int code) const
{
  // What failed between two files is not known to either of them.
  const bool isKnown = handle_ && sqlite3_errcode(handle_.get()) != SQLITE_OK;
  const std::string reason = isKnown ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code);
  switch (code & 0xFF) {
  case SQLITE_BUSY:
  case SQLITE_LOCKED:
    throw base::Error(ErrorNumber::DatabaseLocked,
                      format("Die Datei '{}' wird gerade von einem anderen Programm benutzt.", path_));
  case SQLITE_NOTADB:
    throw base::Error(ErrorNumber::NotADatabase, format("Die Datei '{}' ist keine Datenbank.", path_));
  case SQLITE_CORRUPT:
    throw base::Error(ErrorNumber::NotADatabase, format("Die Datenbank '{}' ist beschädigt.", path_));
  case SQLITE_FULL:
    throw base::Error(ErrorNumber::DiskFull, format("Der Datenträger der Datei '{}' ist voll.", path_));
  case SQLITE_READONLY:
  case SQLITE_PERM:
  case SQLITE_CANTOPEN:
    throw base::Error(ErrorNumber::AccessDenied, format("Kein Zugriff auf die Datei '{}'.", path_));
  case SQLITE_NOMEM:
    throw std::bad_alloc();
  default:
    throw base::Error(ErrorNumber::EngineError, format("Fehler in der Datenbank '{}': {}", path_, reason));
  }
}

} // namespace mrd::dao
