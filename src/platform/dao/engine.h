#pragma once
// The engine's connection and statement, owned and with failures as base::Error. For the sources of this folder only.

#include "platform/dao/value.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_backup;
struct sqlite3_stmt;

namespace mrd::dao {

enum class Access { ReadOnly, ReadWrite, Create };

/// A prepared statement. Must not outlive its connection.
class Statement {
public:
  Statement() = default;

  /// Parameters count from 1.
  void bind(int parameter, const Value& value);
  void bind(int parameter, std::int64_t number);
  /// `bytes` have to stay where they are until the statement has run.
  void bindBytes(int parameter, std::string_view bytes);
  /// Runs up to the next row; false behind the last one.
  bool step();
  /// Gives the row and its locks back, so that the statement can run anew.
  void reset();
  /// Runs a statement that gives no rows.
  void run();

  int parameterCount() const;
  int columnCount() const;
  std::string columnName(int column) const;
  std::int64_t integer(int column) const;
  double number(int column) const;
  bool isNull(int column) const;
  bool isInteger(int column) const;
  bool isNumber(int column) const;
  bool isBlob(int column) const;
  /// Bytes of a text or blob, as stored; valid until the next step or reset.
  std::string_view bytes(int column) const;
  Value value(int column) const;

  explicit operator bool() const { return statement_ != nullptr; }

private:
  friend class Connection;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  [[noreturn]] void fail(int code) const;

  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  const class Connection* connection_ = nullptr;
};

/// An open file of the engine. Stays where it was made: statements point to it.
class Connection {
public:
  Connection(const std::filesystem::path& native, std::string_view shownPath, Access access);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  Statement prepare(std::string_view sql, bool usedOften = false) const;
  /// Runs statements that give no rows and need no parameters.
  void run(const char* sql) const;
  /// First column of the first row; 0 without one.
  std::int64_t number(std::string_view sql) const;

  bool inTransaction() const;
  std::int64_t lastRowId() const;
  std::size_t changedRows() const;
  const std::string& path() const { return path_; }

  /// The functions and the text order of the dialect.
  void registerDialect() const;
  /// What a file that a stranger made must not be able to do is switched off.
  void distrustFile() const;
  /// Stops statements that run for ages: what a stranger's view asks for may never end. 0 lifts the limit.
  void limitWork(int steps) const;

  [[noreturn]] void fail(int code) const;

private:
  friend class PageCopy;
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  std::string path_;
  mutable int looksLeft_ = 0;
  std::unique_ptr<sqlite3, Close> handle_;
};

/// Copies the pages of an open file into another one, piece by piece. Between two pieces others may write; when they do, the copy
/// begins anew, so that what it ends with is the state of one moment. Must not outlive the connections.
class PageCopy {
public:
  PageCopy(const Connection& source, const Connection& target);

  /// Copies so many pages, all that are left for -1. True when the copy is complete.
  bool step(int pages);

private:
  struct Finish {
    void operator()(sqlite3_backup* copy) const;
  };
  const Connection& source_;
  const Connection& target_;
  std::unique_ptr<sqlite3_backup, Finish> copy_;
};

} // namespace mrd::dao
