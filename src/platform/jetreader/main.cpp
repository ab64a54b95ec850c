// Writes what the tables of an old database hold to standard output. A program of its own, started under limits: a damaged file
// may bring it to a fall, and nothing else with it.

#include "platform/jetreader/jet_rows.h"
#include "platform/jetreader/jet_text.h"
#include "platform/jetreader/output.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>

namespace mrd::jetreader {
namespace {

namespace wire = dao::wire;

constexpr unsigned long kSystemTable = 2;
constexpr std::int64_t kKindTable = 1, kPageOfId = 0xffffff;
constexpr std::uint32_t kSystemFlags = 0x80000002;

std::int64_t integer(const Field& field)
{
  std::int64_t out = 0;
  if (field && field->size() == sizeof out)
    std::memcpy(&out, field->data(), sizeof out);
  return out;
}

double real(const Field& field)
{
  double out = 0;
  if (field && field->size() == sizeof out)
    std::memcpy(&out, field->data(), sizeof out);
  return out;
}

bool isText(const Column& column) { return column.type == Type::Text || column.type == Type::Memo; }

struct TableEntry {
  std::string name;
  unsigned long page;
};

/// The user's tables, from the table that lists everything in the file.
std::vector<TableEntry> tablesOf(JetFile& file)
{
  std::vector<TableEntry> out;
  const bool found = file.walk(
      kSystemTable, "MSysObjects", [](const auto&) {},
      [&](const std::vector<Column>& columns, std::vector<Field>& fields) {
        std::int64_t kind = 0, flags = 0, id = 0;
        std::string name;
        for (std::size_t i = 0; i < columns.size(); ++i) {
          if (columns[i].name == "Type")
            kind = integer(fields[i]);
          else if (columns[i].name == "Flags")
            flags = integer(fields[i]);
          else if (columns[i].name == "Id")
            id = integer(fields[i]);
          else if (columns[i].name == "Name" && fields[i])
            name = file.text(*fields[i]);
        }
        if (kind == kKindTable && (static_cast<std::uint32_t>(flags) & kSystemFlags) == 0 && !name.starts_with("MSys"))
          out.push_back({name, static_cast<unsigned long>(id & kPageOfId)});
      });
  if (!found)
    throw std::runtime_error("Die Datei ist beschädigt: Ihr Verzeichnis der Tabellen ist nicht zu lesen.");
  return out;
}

/// Of a field whose text is UTF-8 already.
void putField(const Column& column, const Field& field)
{
  if (column.type == Type::Yes) {
    put(wire::Field::Integer);
    return putNumber(field ? 1 : 0, 8);
  }
  if (!field)
    return put(wire::Field::Null);
  if (isText(column)) {
    put(wire::Field::Text);
    return putText(*field);
  }
  if (column.type == Type::Date) {
    put(wire::Field::Text);
    return putText(*dateOf(real(field)));
  }
  put(column.type == Type::Double ? wire::Field::Double : wire::Field::Integer);
  putNumber(static_cast<std::uint64_t>(integer(field)), 8);
}

void putColumns(const std::string& name, const std::vector<Column>& columns)
{
  std::uint64_t count = 0;
  for (const auto& column : columns)
    if (column.type != Type::Other)
      ++count;
    else
      leaveOut("Tabelle " + name + ": Die Spalte " + column.name + " hat einen Typ, den es nicht mehr gibt.");
  put(wire::Record::Table);
  putText(name);
  putNumber(count, 2);
  for (const auto& column : columns)
    if (column.type != Type::Other) {
      putText(column.name);
      putText(column.declared);
    }
}

/// Whether a text holds what no keyboard makes: a zero, the unit with all bits set, half a pair of units (the replacement
/// character).
bool isGarbled(std::string_view text)
{
  return text.find('\0') != std::string_view::npos || text.find("\xef\xbf\xbf") != std::string_view::npos ||
         text.find("\xef\xbf\xbd") != std::string_view::npos;
}

/// What only damage can have done to a field, in words for the user; empty for a sound one. Dates reach from the year 100 to
/// 9999.
std::string_view damageOf(const Column& column, const Field& field)
{
  if (!field)
    return {};
  if (isText(column) && isGarbled(*field))
    return " ist teilweise unlesbar.";
  if (column.type == Type::Date && !dateOf(real(field)))
    return " ist kein Datum und fehlt.";
  if (column.type == Type::Double && std::isnan(real(field)))
    return " ist keine Zahl und fehlt.";
  return {};
}

void putRow(JetFile& file, const std::string& table, const std::vector<Column>& columns, std::vector<Field>& fields)
{
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (fields[i] && isText(columns[i]))
      fields[i] = file.text(*fields[i]);
    const auto damage = damageOf(columns[i], fields[i]);
    if (damage.empty())
      continue;
    leaveOut("Tabelle " + table + ": Ein Wert der Spalte " + columns[i].name + std::string(damage));
    if (!isText(columns[i]))
      fields[i].reset();
  }
  put(wire::Record::Row);
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].type != Type::Other)
      putField(columns[i], fields[i]);
}

void putTable(JetFile& file, const TableEntry& entry)
{
  const bool found = file.walk(
      entry.page, entry.name, [&](const auto& columns) { putColumns(entry.name, columns); },
      [&](const auto& columns, auto& fields) { putRow(file, entry.name, columns, fields); });
  if (!found)
    leaveOut("Die Tabelle " + entry.name + " ist beschädigt und fehlt.");
}

int run(const char* path)
{
  std::fwrite(wire::kGreeting.data(), 1, wire::kGreeting.size(), stdout);
  try {
    JetFile file(path);
    for (const auto& entry : tablesOf(file))
      putTable(file, entry);
    put(wire::Record::End);
  } catch (const std::exception& failure) {
    put(wire::Record::Failure);
    putText(failure.what());
  }
  return std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace
} // namespace mrd::jetreader

int main(int argc, char** argv) { return argc == 2 ? mrd::jetreader::run(argv[1]) : 2; }
