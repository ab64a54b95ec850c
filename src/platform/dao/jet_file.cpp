#include "platform/dao/jet_file.h"

#include "base/errors.h"
#include "platform/dao/jet_process.h"
#include "platform/dao/jet_wire.h"
#include "platform/files/path.h"

#include <bit>
#include <fstream>
#include <system_error>

namespace mrd::dao {
namespace {

namespace fs = std::filesystem;
using wire::Field;
using wire::Record;

constexpr std::string_view kSignature{"\0\1\0\0Standard Jet DB\0", 20};
constexpr const char* kReader = "mrd-jet-reader";

[[noreturn]] void failGarbled()
{
  throw base::Error(base::ErrorNumber::NotADatabase, "Die Datei ist beschädigt und kann nicht gelesen werden.");
}

JetTable readTable(JetProcess& process)
{
  JetTable table{process.text(), {}};
  const auto count = process.number(2);
  if (count > wire::kMostColumns)
    failGarbled();
  for (std::uint64_t i = 0; i < count; ++i) {
    auto name = process.text();
    table.columns.push_back({std::move(name), process.text()});
  }
  return table;
}

Value readField(JetProcess& process)
{
  switch (static_cast<Field>(process.number(1))) {
  case Field::Null:
    return Null{};
  case Field::Integer:
    return static_cast<std::int64_t>(process.number(8));
  case Field::Double:
    return std::bit_cast<double>(process.number(8));
  case Field::Text:
    return process.text();
  }
  failGarbled();
}

std::vector<Value> readRow(JetProcess& process, std::size_t columns)
{
  std::vector<Value> values;
  values.reserve(columns);
  for (std::size_t i = 0; i < columns; ++i)
    values.push_back(readField(process));
  return values;
}

} // namespace

bool isJetFile(std::string_view path)
{
  const fs::path native = files::nativePath(path);
  std::error_code failure;
  if (!fs::is_regular_file(native, failure))
    return false;
  std::string start(kSignature.size(), '\0');
  std::ifstream file(native, std::ios::binary);
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  // The byte behind the signature's end tells version 3 from 4; the later ones have another signature.
  return file.gcount() == static_cast<std::streamsize>(start.size()) && start.substr(0, 19) == kSignature.substr(0, 19);
}

JetReading installedJetReading()
{
  std::error_code failure;
  return {fs::read_symlink("/proc/self/exe", failure).parent_path() / kReader};
}

void readJetFile(std::string_view path, const JetReading& reading, JetSink& sink)
{
  JetProcess process(files::nativePath(path), reading);
  process.greeting();
  std::size_t columns = 0;
  for (;;) {
    switch (static_cast<Record>(process.number(1))) {
    case Record::Table: {
      auto table = readTable(process);
      columns = table.columns.size();
      sink.table(std::move(table));
      break;
    }
    case Record::Row:
      if (columns == 0)
        failGarbled();
      sink.row(readRow(process, columns));
      break;
    case Record::LeftOut:
      sink.leftOut(process.text());
      break;
    case Record::Failure:
      throw base::Error(base::ErrorNumber::NotADatabase, process.text());
    case Record::End:
      return;
    default:
      failGarbled();
    }
  }
}

} // namespace mrd::dao
