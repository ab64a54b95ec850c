// What the HTML parser alone needs for the bodies of a project: parse and write each one, on all cores. Prints the seconds.
// The bodies are in memory before the clock starts.

#include "generator/work_ahead.h"
#include "platform/html/document.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <future>
#include <string>
#include <vector>

namespace {

std::vector<std::string> readBodies(const char* file)
{
  std::vector<std::string> bodies;
  sqlite3* db = nullptr;
  sqlite3_stmt* rows = nullptr;
  sqlite3_open_v2(file, &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_prepare_v2(db, "SELECT html FROM Seite WHERE html IS NOT NULL", -1, &rows, nullptr);
  while (sqlite3_step(rows) == SQLITE_ROW)
    bodies.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(rows, 0)),
                        static_cast<std::size_t>(sqlite3_column_bytes(rows, 0)));
  sqlite3_finalize(rows);
  sqlite3_close(db);
  return bodies;
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 2)
    return 2;
  const auto bodies = readBodies(argv[1]);
  const auto start = std::chrono::steady_clock::now();
  std::size_t written = 0;
  {
    mrd::generator::WorkerPool workers;
    std::vector<std::future<std::size_t>> results;
    results.reserve(bodies.size());
    for (const auto& body : bodies)
      results.push_back(workers.submit([&body] {
        auto document = mrd::html::Document::fromText("<html><head><title></title></head><body>" + body + "</body></html>");
        return document.body().innerHtml().size();
      }));
    for (auto& result : results)
      written += result.get();
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  std::printf("%.4f\n", seconds.count());
  return written == 0 && !bodies.empty() ? 1 : 0;
}
