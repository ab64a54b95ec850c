#include "frame/project/jet_content.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/page_file.h"
#include "frame/project/page_number.h"
#include "frame/project/project.h"
#include "frame/settings/stored_settings.h"
#include "platform/dao/schema.h"

#include <algorithm>
#include <array>

namespace mrd::project {
namespace {

using base::Error;
using base::ErrorNumber;
using dao::sameName;

constexpr std::string_view kPages = "Seite", kSettings = "Einstellungen", kFiles = "Dateien";
constexpr std::string_view kRoot = "00";
/// How the first version numbered the home page.
constexpr std::string_view kFirstRoot = "index";
/// What the migration does not touch.
constexpr std::string_view kUnreadableVersion = "9999";
constexpr std::size_t kMostNotes = 1000;
constexpr std::size_t kShownCharacters = 40;

constexpr std::array<std::string_view, 6> kPlainTypes{"TEXT", "MEMO", "LONG", "DOUBLE", "BIT", "DATE"};
constexpr std::string_view kCounterType = "COUNTER";

/// Columns that no project leaves Null in all its rows.
struct FilledColumn {
  std::string_view table, column;
};
constexpr std::array kFilledColumns{FilledColumn{kPages, "Überschrift"}, FilledColumn{kPages, "html"},
                                    FilledColumn{kSettings, "Einstellung"}, FilledColumn{kSettings, "Wert"}};

/// Columns of the pages, by the version that brought them.
struct PageColumn {
  std::string_view version, column;
};
constexpr std::array kPageColumns{PageColumn{"2", "expanded"}, PageColumn{"3", "script"}, PageColumn{"4", "changingdate"}};
constexpr std::string_view kArtikelVersion = "5";

/// The register of files.
struct FileColumn {
  std::string_view column, type;
};
constexpr std::array kFileColumns{FileColumn{"pfad", "TEXT"},        FileColumn{"dateiname", "TEXT"},
                                  FileColumn{"erweiterung", "TEXT"}, FileColumn{"dateityp-id", "LONG"},
                                  FileColumn{"übertragen", "BIT"},   FileColumn{"dateidatum", "DATE"},
                                  FileColumn{"pfadLokal", "TEXT"}};

/// No statement can name what has a bracket in its name, and only damage has; names of that start are the engine's own.
bool isUsableName(std::string_view name)
{
  return !name.empty() && name.size() <= 256 && name.find_first_of(std::string_view("[]\0", 3)) == std::string_view::npos &&
         !base::lower(name).starts_with("sqlite_");
}

std::string shown(std::string_view text)
{
  const auto start = base::left(text, kShownCharacters);
  return base::format("\"{}{}\"", start, start.size() < text.size() ? "..." : "");
}

} // namespace

void JetContent::leftOut(std::string what) { note(what); }

void JetContent::note(std::string_view what)
{
  // More of them tell nobody anything.
  if (notes_.size() < kMostNotes)
    notes_.emplace_back(what);
}

void JetContent::table(dao::JetTable table)
{
  name_ = std::move(table.name);
  insert_.clear();
  taken_.clear();
  counters_.clear();
  id_ = heading_ = counter_ = kNowhere;
  if (!isUsableName(name_) || db_.hasTable(name_)) {
    note(base::format("Die Tabelle {} ist beschädigt und fehlt.", shown(name_)));
    return;
  }
  std::vector<std::string> names;
  std::string definitions, bracketed, places;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const auto& [name, type] = table.columns[i];
    const bool isCounter = type == kCounterType && counter_ == kNowhere;
    const bool isKnownType = isCounter || std::ranges::find(kPlainTypes, type) != kPlainTypes.end();
    if (!isUsableName(name) || !isKnownType || dao::findName(names, name) != names.size()) {
      note(base::format("Tabelle {}: Die Spalte {} ist beschädigt und fehlt.", name_, shown(name)));
      continue;
    }
    if (isCounter)
      counter_ = i;
    rememberPlace(name, i);
    const std::string_view separator = names.empty() ? "" : ", ";
    definitions += separator;
    definitions +=
        isCounter ? base::format("[{0}] COUNTER CONSTRAINT [{0}] PRIMARY KEY", name) : base::format("[{}] {}", name, type);
    bracketed += base::format("{}[{}]", separator, name);
    places += base::format("{}?", separator);
    names.push_back(name);
    taken_.push_back(i);
  }
  if (names.empty()) {
    note(base::format("Die Tabelle {} hat keine Spalten und fehlt.", shown(name_)));
    return;
  }
  db_.execute(base::format("CREATE TABLE [{}] ({})", name_, definitions));
  insert_ = base::format("INSERT INTO [{}] ({}) VALUES ({})", name_, bracketed, places);
}

void JetContent::rememberPlace(std::string_view column, std::size_t place)
{
  if (!sameName(name_, kPages))
    return;
  if (sameName(column, "id"))
    id_ = place;
  else if (sameName(column, "Überschrift"))
    heading_ = place;
}

void JetContent::row(std::vector<dao::Value> values)
{
  if (insert_.empty() || !acceptPage(values) || !acceptCounter(values))
    return;
  dao::Parameters parameters;
  parameters.reserve(taken_.size());
  for (const auto place : taken_)
    parameters.push_back(std::move(values[place]));
  db_.execute(insert_, parameters);
}

bool JetContent::acceptPage(const std::vector<dao::Value>& values)
{
  if (id_ == kNowhere)
    return true;
  const auto id = values[id_].text();
  const bool isFirstRoot = base::compareText(id, kFirstRoot) == 0;
  const bool isId = isFirstRoot || isPageId(id);
  if (isId && pages_.insert(isFirstRoot ? std::string(kFirstRoot) : id).second)
    return true;
  const auto heading = shown(heading_ == kNowhere ? "" : values[heading_].text());
  note(isId ? base::format("Eine zweite Seite mit der Nummer {} und der Überschrift {} fehlt.", shown(id), heading)
            : base::format("Eine Seite mit der unmöglichen Nummer {} und der Überschrift {} fehlt.", shown(id), heading));
  return false;
}

bool JetContent::acceptCounter(const std::vector<dao::Value>& values)
{
  if (counter_ == kNowhere || (!values[counter_].isNull() && counters_.insert(values[counter_].integer()).second))
    return true;
  note(base::format("Tabelle {}: Eine Zeile ohne eigene Zählnummer fehlt.", name_));
  return false;
}

void JetContent::finish(std::string_view name)
{
  checkTables(db_, name);
  if (pages_.empty())
    throw Error(ErrorNumber::NotADatabase, base::format("In \"{}\" ist keine einzige Seite lesbar.", name));
  noteEmptyColumns();
  completeTables();
  completeRoot();
  noteMissingParents();
  lowerDamagedVersion();
}

void JetContent::noteEmptyColumns()
{
  for (const auto& [table, column] : kFilledColumns) {
    const bool hasRows = !db_.openRecordset(base::format("SELECT TOP 1 * FROM [{}]", table)).eof();
    if (hasRows && db_.openRecordset(base::format("SELECT TOP 1 * FROM [{}] WHERE [{}] IS NOT NULL", table, column)).eof())
      note(base::format("Tabelle {}: Die Spalte {} ist in keiner Zeile lesbar.", table, column));
  }
}

void JetContent::completeTables()
{
  db_.execute("CREATE INDEX SeiteId ON Seite (id)");
  // Every run writes the register anew: an empty one does.
  const bool hasFiles = db_.hasTable(kFiles);
  if (!hasFiles) {
    db_.execute("CREATE TABLE Dateien (pfad TEXT)");
    note("Die Tabelle Dateien fehlt. Das nächste Erzeugen der Seiten füllt sie neu.");
  }
  const auto columns = db_.columns(kFiles);
  for (const auto& [column, type] : kFileColumns) {
    if (dao::findName(columns, column) != columns.size())
      continue;
    db_.execute(base::format("ALTER TABLE Dateien ADD COLUMN [{}] {}", column, type));
    if (hasFiles)
      note(base::format("Tabelle Dateien: Die Spalte {} fehlt. Sie ist neu angelegt und leer.", column));
  }
}

void JetContent::completeRoot()
{
  const bool hasFirstRoot = pages_.contains(std::string(kFirstRoot));
  if (pages_.contains(std::string(kRoot))) {
    // It cannot become the homepage any more, and no tree shows it.
    if (hasFirstRoot)
      note(base::format("Neben der Homepage gibt es eine Seite mit der Nummer {}. Sie steht in keinem Menü.", kFirstRoot));
    return;
  }
  if (hasFirstRoot)
    return;
  // Everything else hangs below it.
  db_.execute("INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id]) VALUES (?, ?, ?, ?, 1)",
              {kRoot, "Homepage", "<h3 id=\"ueberschrift\">Homepage</h3>", paths::kDefaultPattern});
  note("Die Homepage fehlt. Eine leere steht an ihrer Stelle.");
}

void JetContent::noteMissingParents()
{
  std::set<std::string> missing;
  for (const auto& id : pages_)
    if (isPageId(id) && id.size() > 2 && !pages_.contains(id.substr(0, id.size() - 2)))
      missing.insert(id.substr(0, id.size() - 2));
  for (const auto& id : missing)
    note(base::format("Die Seite {} fehlt. Die Seiten unter ihr sind da.", id));
}

void JetContent::lowerDamagedVersion()
{
  // A project that claims to be of a version whose tables it lacks would never get them. Versions are compared as text, as the
  // migration does.
  const auto columns = db_.columns(kPages);
  settings::StoredSettings stored(db_);
  const auto version = base::trim(stored.value("dbVersion").value_or("0"));
  const bool lacksColumn = std::ranges::any_of(kPageColumns, [&](const PageColumn& page) {
    return version >= page.version && dao::findName(columns, page.column) == columns.size();
  });
  const bool lacksArtikel = version >= kArtikelVersion && !db_.hasTable("Artikel");
  if ((!lacksColumn && !lacksArtikel) || version == kUnreadableVersion)
    return;
  stored.set("dbVersion", "0");
  note("Spalten der Tabelle Seite oder die Tabelle Artikel fehlen. Sie sind neu angelegt und leer.");
}

} // namespace mrd::project
