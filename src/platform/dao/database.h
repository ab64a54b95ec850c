#pragma once
// The database engine: opening a file, statements in the system's SQL dialect, navigable recordsets, transactions.
//
// The dialect: LIKE with * ? # and [..], Mid$ and Len, #m/d/yyyy h:mm:ss#, [names in brackets], Table.column, DELETE * FROM,
// SELECT TOP n, TRUE, FALSE, yes, no, DISTINCT, ALTER TABLE .. ADD COLUMN .. BIT|MEMO|DATE|TEXT|LONG|DOUBLE, CREATE TABLE with
// TEXT, MEMO, LONG, DOUBLE, BIT, DATE, COUNTER CONSTRAINT name PRIMARY KEY, CREATE INDEX, DROP TABLE. Text comparison ignores
// case and trailing blanks; a name of a table or column ignores case, umlauts included. A bare `?` stands for the next of the
// given parameters.
//
// Every failure is a base::Error.

#include "platform/dao/value.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

using Parameters = std::vector<Value>;

class Recordset;

enum class OpenMode { ReadWrite, ReadOnly };

/// An open database file. Movable; recordsets must not outlive it. One thread.
class Database {
public:
  /// `path` in the system's form. Throws FileNotFound, AccessDenied, NotADatabase (empty file, random bytes, cut off file).
  /// A directory is PathFileAccess.
  static Database open(std::string_view path, OpenMode mode = OpenMode::ReadWrite);
  /// A new, empty database marked as a Mirandel file. Throws PathFileAccess when the file exists or cannot be made.
  static Database create(std::string_view path);

  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;
  ~Database();

  /// `source` is a SELECT statement or a table's name.
  Recordset openRecordset(std::string_view source, const Parameters& parameters = {});
  /// The same for reading only: all rows are read now, in one go. The fast way to a few columns of many rows.
  Recordset openSnapshot(std::string_view source, const Parameters& parameters = {});
  /// Runs DELETE, UPDATE, INSERT and DDL; the number of rows changed.
  std::size_t execute(std::string_view statement, const Parameters& parameters = {});

  bool hasTable(std::string_view table) const;
  /// Column names in their order; throws ItemNotFound for a missing table.
  std::vector<std::string> columns(std::string_view table) const;

private:
  friend class KeptRows;
  friend class Recordset;
  friend class Transaction;
  struct State;
  explicit Database(std::unique_ptr<State> state);
  Recordset openRows(std::string_view source, const Parameters& parameters, bool atOnce);
  std::unique_ptr<State> state_;
};

/// Rows of a statement, remembered by their keys when it opens and read when the cursor reaches them, so that an edit of a key
/// column does not disturb the walk. Rows of a single table can be changed; those of DISTINCT, of calculated or renamed columns,
/// of a view or of a snapshot are read at once and cannot. A row that was removed meanwhile is passed over by the walk. The
/// cursor stands on the first row after opening. No lock is held between two calls.
class Recordset {
public:
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  /// Number of rows; right after opening nonzero exactly when there are rows.
  std::size_t recordCount() const;
  /// Behind the last row, or nowhere after a search without a match.
  bool eof() const;
  /// Without rows both leave the cursor at the end.
  void moveFirst();
  void moveLast();
  /// Throws NoCurrentRecord at the end.
  void moveNext();

  /// Puts the cursor on the first row that meets a criteria text such as "Einstellung = 'Titel'"; see noMatch. Without a match
  /// the cursor stands on no row. The text must be one boolean expression: anything else throws SyntaxError, and so does what
  /// only an apostrophe in a spliced value brings in (a condition between constants, an OR whose sides do not stand in
  /// parentheses). Parameters stand for bare `?`.
  void findFirst(std::string_view criteria, const Parameters& parameters = {});
  bool noMatch() const;

  void addNew();
  void edit();
  /// Writes what set() gathered since addNew() or edit(); a move of the cursor forgets it. After an added row the cursor stays
  /// where it was; the row is the recordset's last.
  void update();
  /// Removes the row under the cursor; the cursor then stands before the next one, which moveNext() reaches.
  void remove();

  /// Field of the row under the cursor, or what set() gave it in an open edit. Throws ItemNotFound, NoCurrentRecord.
  Value value(std::string_view column) const;
  void set(std::string_view column, Value value);

  /// Place of a column, for readers of many rows. Throws ItemNotFound.
  std::size_t column(std::string_view column) const;
  /// The same fields by place. Throws NoCurrentRecord.
  Value value(std::size_t column) const;
  /// Text form without a copy, an open edit left out of account; valid until the cursor moves or the row is written.
  std::string_view text(std::size_t column) const;
  bool isNull(std::size_t column) const;

  /// The engine's number of the row under the cursor, which stays the same whatever is changed in the row. Throws
  /// NoCurrentRecord, and EngineError where rows have none.
  std::int64_t rowNumber() const;

  /// Column names of the rows, in their order.
  std::vector<std::string> columns() const;

private:
  friend class Database;
  struct State;
  explicit Recordset(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// A transaction over all statements on a database: rolled back on destruction unless committed. Transactions do not nest: an
/// inner one throws EngineError.
class Transaction {
public:
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();
  void rollback();

private:
  Database::State* database_;
  bool open_ = true;
};

} // namespace mrd::dao
