// What reading the pages and writing the site costs at the least: each row of `Seite` is read from SQLite, and the bytes of its
// file, which are in memory before the clock starts, are written over that file. Prints the seconds.

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

std::string contentOf(const std::string& path)
{
  std::string bytes;
  if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
    char piece[1 << 16];
    for (std::size_t n = 0; (n = std::fread(piece, 1, sizeof piece, file)) > 0;)
      bytes.append(piece, n);
    std::fclose(file);
  }
  return bytes;
}

std::string fileOf(const char* id) { return (std::string(id) == "00" ? "index" : id) + std::string(".htm"); }

std::map<std::string, std::string> readSite(sqlite3* db, const std::string& directory)
{
  std::map<std::string, std::string> site;
  sqlite3_stmt* rows = nullptr;
  sqlite3_prepare_v2(db, "SELECT id FROM Seite", -1, &rows, nullptr);
  while (sqlite3_step(rows) == SQLITE_ROW) {
    const auto* id = reinterpret_cast<const char*>(sqlite3_column_text(rows, 0));
    site[id] = contentOf(directory + "/" + fileOf(id));
  }
  sqlite3_finalize(rows);
  return site;
}

bool writeFile(const std::string& path, const std::string& bytes)
{
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  const bool written = file >= 0 && ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  return written && ::close(file) == 0;
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 3)
    return 2;
  const std::string directory = argv[2];
  sqlite3* db = nullptr;
  sqlite3_open_v2(argv[1], &db, SQLITE_OPEN_READONLY, nullptr);
  const auto site = readSite(db, directory);
  const auto start = std::chrono::steady_clock::now();
  sqlite3_stmt* rows = nullptr;
  sqlite3_prepare_v2(db, "SELECT * FROM Seite ORDER BY id", -1, &rows, nullptr);
  std::size_t read = 0;
  while (sqlite3_step(rows) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(rows); ++column) {
      sqlite3_column_text(rows, column);
      read += static_cast<std::size_t>(sqlite3_column_bytes(rows, column));
    }
    const auto* id = reinterpret_cast<const char*>(sqlite3_column_text(rows, 0));
    if (!writeFile(directory + "/" + fileOf(id), site.at(id)))
      return 1;
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  sqlite3_finalize(rows);
  sqlite3_close(db);
  std::printf("%.4f\n", seconds.count());
  return read == 0 ? 1 : 0;
}
