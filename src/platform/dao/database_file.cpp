#include "platform/dao/database_file.h"

#include "base/errors.h"
#include "base/format.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace mrd::dao {
namespace {

namespace fs = std::filesystem;
using base::ErrorNumber;
using base::format;

constexpr std::string_view kSignature{"SQLite format 3\0", 16};

[[noreturn]] void fail(ErrorNumber number, std::string_view form, std::string_view path)
{
  throw base::Error(number, format(fmt::runtime(form), path));
}

/// Refuses what is no plain file, before anything opens it: opening a pipe would wait for its other end.
void checkKind(const fs::path& native, std::string_view path)
{
  std::error_code error;
  const auto kind = fs::status(native, error).type();
  if (kind == fs::file_type::not_found)
    fail(ErrorNumber::FileNotFound, "Die Datei '{}' wurde nicht gefunden.", path);
  if (kind == fs::file_type::directory)
    fail(ErrorNumber::PathFileAccess, "'{}' ist ein Verzeichnis und keine Datei.", path);
  if (kind == fs::file_type::none)
    fail(ErrorNumber::AccessDenied, "Kein Zugriff auf die Datei '{}'.", path);
  if (kind != fs::file_type::regular)
    fail(ErrorNumber::NotADatabase, "'{}' ist keine Datenbank.", path);
}

void checkAccess(const fs::path& native, std::string_view path, bool readOnly)
{
  if (::access(native.c_str(), R_OK) != 0)
    fail(ErrorNumber::AccessDenied, "Die Datei '{}' darf nicht gelesen werden.", path);
  if (!readOnly && ::access(native.c_str(), W_OK) != 0)
    fail(ErrorNumber::AccessDenied, "Die Datei '{}' ist schreibgeschützt.", path);
}

void checkSignature(const fs::path& native, std::string_view path)
{
  std::array<char, kSignature.size()> start{};
  std::ifstream file(native, std::ios::binary);
  file.read(start.data(), start.size());
  const auto size = file.gcount();
  if (size == 0)
    fail(ErrorNumber::NotADatabase, "Die Datei '{}' ist leer.", path);
  if (std::string_view(start.data(), static_cast<std::size_t>(size)) != kSignature)
    fail(ErrorNumber::NotADatabase, "Die Datei '{}' ist keine Datenbank.", path);
}

/// Reads the schema, which brings a transaction that a crash interrupted to its end, and compares the pages that the file claims
/// to have with its size. Pages of a write-ahead log are not in the file yet.
void probe(const Connection& connection, const fs::path& native, std::string_view path)
{
  connection.number("SELECT count(*) FROM sqlite_master");
  const auto claimed = connection.number("PRAGMA page_count") * connection.number("PRAGMA page_size");
  std::error_code error;
  fs::path log = native;
  log += "-wal";
  if (fs::exists(log, error))
    return;
  const auto size = fs::file_size(native, error);
  if (!error && size < static_cast<std::uintmax_t>(claimed))
    fail(ErrorNumber::NotADatabase, "Die Datenbank '{}' ist unvollständig: Ihr Ende fehlt.", path);
}

/// The journal's removal is the moment of commit: it has to reach the disk as well, hence EXTRA.
constexpr const char* kSettings = "PRAGMA synchronous = EXTRA; PRAGMA foreign_keys = OFF; PRAGMA cell_size_check = ON; "
                                  "PRAGMA cache_size = -16384; PRAGMA temp_store = MEMORY;";

/// Page size 4096 and the application's mark 0x4D52444C, "MRDL"; the mark is what writes the file's first page.
constexpr const char* kNewFile = "PRAGMA page_size = 4096; PRAGMA encoding = 'UTF-8'; PRAGMA application_id = 1297237068;";

} // namespace

std::unique_ptr<Connection> openFile(const fs::path& native, std::string_view path, bool readOnly)
{
  checkKind(native, path);
  checkAccess(native, path, readOnly);
  checkSignature(native, path);
  auto connection = std::make_unique<Connection>(native, path, readOnly ? Access::ReadOnly : Access::ReadWrite);
  connection->distrustFile();
  connection->registerDialect();
  connection->run(kSettings);
  probe(*connection, native, path);
  return connection;
}

std::unique_ptr<Connection> createFile(const fs::path& native, std::string_view path)
{
  // Made exclusively: two that create the same file must not share it.
  const int descriptor = ::open(native.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
  if (descriptor < 0 && errno == EEXIST)
    fail(ErrorNumber::PathFileAccess, "Die Datei '{}' ist schon vorhanden.", path);
  if (descriptor < 0)
    fail(ErrorNumber::PathFileAccess, "Die Datei '{}' kann nicht angelegt werden.", path);
  ::close(descriptor);
  try {
    auto connection = std::make_unique<Connection>(native, path, Access::ReadWrite);
    connection->run(kSettings);
    connection->run(kNewFile);
    connection->distrustFile();
    connection->registerDialect();
    return connection;
  } catch (...) {
    ::unlink(native.c_str());
    throw;
  }
}

} // namespace mrd::dao
