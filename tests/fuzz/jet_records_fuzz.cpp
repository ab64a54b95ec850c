// Fuzz target of what comes from the reader of old databases: any bytes behind its greeting, made into a project. Whatever comes
// of it, an error of ours is the only exception, and no project holds a page of an impossible number or two of one number.
//
// Started with the folder jet_records/ beside it as its corpus: what the reader wrote for files of the tests, cut short.

#include "base/errors.h"
#include "base/text.h"
#include "frame/project/jet_content.h"
#include "frame/project/page_number.h"
#include "platform/dao/database.h"
#include "platform/dao/jet_records.h"
#include "platform/dao/jet_wire.h"
#include "platform/files/path.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

using mrd::dao::Database;

struct Bytes : mrd::dao::JetBytes {
  explicit Bytes(std::string_view given) : rest(given) {}

  std::size_t read(char* target, std::size_t count) override
  {
    if (rest.empty())
      throw mrd::base::Error(mrd::base::ErrorNumber::NotADatabase, "no more bytes");
    const auto part = std::min(count, rest.size());
    std::memcpy(target, rest.data(), part);
    rest.remove_prefix(part);
    return part;
  }

  std::string_view rest;
};

/// An empty database, empty again after each input.
class Playground {
public:
  Playground()
      : file_(std::filesystem::temp_directory_path() / ("mrd-jet-" + std::to_string(::getpid()) + ".mdb")),
        database_((std::filesystem::remove(file_), Database::create(mrd::files::systemPath(file_))))
  {
  }
  ~Playground()
  {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;

  void convert(std::string_view records)
  {
    const mrd::dao::Transaction undone(database_);
    mrd::project::JetContent content(database_);
    Bytes bytes(records);
    mrd::dao::readJetRecords(bytes, content);
    content.finish("fuzz");
    checkPages();
  }

private:
  void checkPages()
  {
    std::set<std::string> seen;
    for (auto rows = database_.openRecordset("Seite"); !rows.eof(); rows.moveNext()) {
      auto id = rows.value("id").text();
      // The first version's name of the home page, in any case.
      if (mrd::base::compareText(id, "index") == 0)
        id = "index";
      else if (!mrd::project::isPageId(id))
        fail(id);
      if (!seen.insert(id).second)
        fail(id);
    }
    if (!seen.contains("00") && !seen.contains("index"))
      fail("no home page");
  }

  [[noreturn]] static void fail(const std::string& what)
  {
    std::cerr << what << '\n';
    std::abort();
  }

  std::filesystem::path file_;
  Database database_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static const auto playground = std::make_unique<Playground>();
  std::string records(mrd::dao::wire::kGreeting);
  records.append(reinterpret_cast<const char*>(data), size);
  try {
    playground->convert(records);
  } catch (const mrd::base::Error&) {
    // A refusal.
  }
  return 0;
}
