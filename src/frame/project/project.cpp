#include "frame/project/project.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mrd::project {
namespace {

using base::Error;
using base::ErrorNumber;

struct RequiredTable {
  std::string_view name;
  std::vector<std::string_view> columns;
};

/// What even the oldest projects have; everything else is brought in by the migration.
const std::array kRequiredTables{
    RequiredTable{"Seite", {"id", "Überschrift", "html", "dateiname", "seitentyp-id"}},
    RequiredTable{"Einstellungen", {"Einstellung", "Wert"}},
};

[[noreturn]] void refuse(std::string_view DbName, std::string_view reason)
{
  throw Error(ErrorNumber::NotADatabase, base::format("\"{}\" ist keine Mirandel-Datenbank: {}", DbName, reason));
}

void checkTable(dao::Database& db, std::string_view DbName, const RequiredTable& table)
{
  if (!db.hasTable(table.name))
    refuse(DbName, base::format("Die Tabelle \"{}\" fehlt.", table.name));
  const auto columns = db.columns(table.name);
  for (const auto required : table.columns)
    if (std::none_of(columns.begin(), columns.end(), [&](const auto& column) { return !base::compareText(column, required); }))
      refuse(DbName, base::format("In der Tabelle \"{}\" fehlt die Spalte \"{}\".", table.name, required));
}

} // namespace

dao::Database openProject(std::string_view DbName)
{
  auto db = dao::Database::open(DbName);
  checkTables(db, files::nativePath(DbName).native());
  return db;
}

void checkTables(dao::Database& db, std::string_view DbName)
{
  for (const auto& table : kRequiredTables)
    checkTable(db, DbName, table);
}

std::string withoutEnding(std::string_view DbName)
{
  constexpr std::string_view kEnding = ".mdb";
  const bool hasEnding = base::lower(base::right(DbName, kEnding.size())) == kEnding;
  return std::string(DbName.substr(0, DbName.size() - (hasEnding ? kEnding.size() : 0)));
}

void copyTemplate(std::string_view templateFile, std::string_view target) { files::copyFile(templateFile, target); }

} // namespace mrd::project
