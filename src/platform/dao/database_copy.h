#pragma once
// Whole database files: a copy of one that is in use, whether one is sound, and what the engine leaves beside them.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// A copy of a database, as it is at one moment, into a file of its own. It is made piece by piece, so that those who work with
/// the database can write meanwhile. Not on the disk for sure before the file is synced. One thread at a time.
class DatabaseCopy {
public:
  /// Opens the source for reading; `target` is missing or empty. Throws as Database::open does, and AccessDenied for the target.
  DatabaseCopy(std::string_view source, std::string_view target);
  ~DatabaseCopy();
  DatabaseCopy(const DatabaseCopy&) = delete;
  DatabaseCopy& operator=(const DatabaseCopy&) = delete;

  /// Copies a megabyte or so. True when the copy is complete. Throws DatabaseLocked, DiskFull and others.
  bool copyPiece();
  /// The same for all that is left.
  void copyRest();

private:
  bool copy(int pages);

  struct State;
  std::unique_ptr<State> state_;
};

/// Names of the files that the engine may put beside a database.
std::vector<std::string> companionsOf(std::string_view path);

/// Whether the file is a database whose structure is sound throughout. What keeps it from being read at all is thrown:
/// FileNotFound, AccessDenied, DatabaseLocked.
bool isSound(std::string_view path);

/// Brings what a killed program or a write-ahead log left beside a database into the file itself, so that the file alone is all
/// of it. Throws as Database::open does, and DatabaseLocked where another program works with it.
void mergeCompanions(std::string_view path);

/// Removes the files beside a database in which the engine keeps what a killed program left open. Throws PathFileAccess.
void removeCompanions(std::string_view path);

} // namespace mrd::dao
