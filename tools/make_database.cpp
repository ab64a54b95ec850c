// Makes a database from text: make_database OUT SCHEMA.sql [TABLE=ROWS.tsv ...]

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "tools/database_text.h"

#include <cstdio>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace mrd;

/// The database appears under its name complete or not at all: a build that was stopped must not leave half of one.
void makeDatabase(const std::filesystem::path& target, std::span<const std::string> inputs)
{
  auto unfinished = target;
  unfinished += ".new";
  std::filesystem::remove(unfinished);
  {
    auto db = dao::Database::create(files::systemPath(unfinished));
    dao::Transaction transaction(db);
    tools::runStatements(db, files::readFile(files::systemPath(inputs.front())));
    for (const auto& input : inputs.subspan(1)) {
      const auto equals = input.find('=');
      if (equals == std::string::npos)
        throw base::Error(base::ErrorNumber::SyntaxError, base::format("\"{}\" is not TABLE=FILE", input));
      tools::insertRows(db, input.substr(0, equals), files::readFile(files::systemPath(input.substr(equals + 1))));
    }
    transaction.commit();
  }
  std::filesystem::rename(unfinished, target);
}

} // namespace

int main(int count, char** values)
{
  const std::vector<std::string> arguments(values + 1, values + count);
  if (arguments.size() < 2) {
    std::fputs("usage: make_database OUT SCHEMA.sql [TABLE=ROWS.tsv ...]\n", stderr);
    return 2;
  }
  try {
    makeDatabase(arguments.front(), std::span(arguments).subspan(1));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_database: %s: %s\n", arguments.front().c_str(), error.what());
    return 1;
  }
}
