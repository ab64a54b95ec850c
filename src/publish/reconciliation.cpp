#include "publish/reconciliation.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "publish/command_channel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mrd::publish {
namespace {

constexpr int kGeneralFailure = 1;

std::string criteria(const paths::PathParts& parts, project::Dateityp type)
{
  return base::format("(dateiname = '{}') and (erweiterung = '{}') and ([dateityp-id]={})", parts.name, parts.erweiterung,
                      static_cast<int>(type));
}

bool breaksSearch(const paths::PathParts& parts)
{
  return base::contains(parts.name, "'") || base::contains(parts.erweiterung, "'");
}

std::string keyOf(std::string_view name, std::string_view extension)
{
  return base::comparisonKey(name) + '\0' + base::comparisonKey(extension);
}

/// The project's files of one type by name: a listing of thousands of names takes time by their number, not by its square.
class OwnFiles {
public:
  OwnFiles(dao::Database& db, project::Dateityp type)
  {
    auto rows = db.openSnapshot("SELECT dateiname, erweiterung, [dateityp-id] FROM Dateien");
    for (std::size_t position = 0; !rows.eof(); rows.moveNext(), ++position)
      if (rows.value(2).integer() == static_cast<int>(type))
        positions_.try_emplace(keyOf(rows.text(0), rows.text(1)), position);
  }

  /// Place of the first row in the table.
  std::optional<std::size_t> find(const paths::PathParts& parts) const
  {
    const auto found = positions_.find(keyOf(parts.name, parts.erweiterung));
    return found == positions_.end() ? std::nullopt : std::optional(found->second);
  }

private:
  std::unordered_map<std::string, std::size_t> positions_;
};

/// Files whose content changes while their name stays: the rounded corners follow the colours.
bool isAlwaysDue(std::string_view line, const paths::PathParts& parts)
{
  return parts.erweiterung == "jpg" && line.starts_with("ecke-");
}

std::vector<std::string> linesOf(std::string_view Liste)
{
  std::vector<std::string> lines;
  while (true) {
    const auto end = Liste.find(base::kCrLf);
    const auto line = Liste.substr(0, end);
    // Directories, the directory itself and the empty tail.
    if (base::length(line) >= 2 && !base::contains(line, "/"))
      lines.emplace_back(line);
    if (end == std::string_view::npos)
      return lines;
    Liste.remove_prefix(end + base::kCrLf.size());
  }
}

void clearFlags(dao::Database& db, const std::unordered_set<std::size_t>& positions)
{
  auto rows = db.openRecordset("SELECT * FROM Dateien");
  for (std::size_t position = 0; !rows.eof(); rows.moveNext(), ++position) {
    if (!positions.contains(position) || !rows.value("übertragen").yes())
      continue;
    rows.edit();
    rows.set("übertragen", dao::Value::yesNo(false));
    rows.update();
  }
}

} // namespace

void createlist(std::string_view Liste, const ListTypes& types, ListBox& list, dao::Database& db, messages::Language& language)
{
  db.execute("DELETE * FROM Dateien WHERE [Dateityp-ID]=?", {static_cast<int>(types.server)});
  list.entries.clear();
  const OwnFiles ownFiles(db, types.project);
  auto search = db.openRecordset("SELECT * FROM Dateien");
  std::unordered_set<std::size_t> present;
  std::vector<paths::PathParts> found;
  std::unordered_map<std::string, std::size_t> firstWithText;
  for (auto& line : linesOf(Liste)) {
    list.entries.push_back({line, false});
    const auto first = firstWithText.try_emplace(line, list.entries.size() - 1).first->second;
    auto parts = paths::teile_dateipfad(line);
    try {
      if (breaksSearch(parts))
        search.findFirst(criteria(parts, types.project));
      const auto position = ownFiles.find(parts);
      if (!position)
        list.entries[first].isSelected = true;
      else if (types.project != project::Dateityp::Page && !isAlwaysDue(line, parts))
        present.insert(*position);
    } catch (const base::Error& error) {
      // Not selected: nothing is to be deleted because its search failed.
      language.GetMsg(kGeneralFailure, "createlist " + numberText(error.number()), "R");
    }
    found.push_back(std::move(parts));
  }

  dao::Transaction transaction(db);
  if (!present.empty())
    clearFlags(db, present);
  for (const auto& parts : found)
    db.execute("INSERT INTO Dateien (dateiname, erweiterung, [dateityp-id]) VALUES (?, ?, ?)",
               {parts.name, parts.erweiterung.empty() ? dao::Value(dao::Null{}) : dao::Value(parts.erweiterung),
                static_cast<int>(types.server)});
  transaction.commit();
}

void markAsDue(std::string_view name, project::Dateityp type, dao::Recordset& rows)
{
  const auto parts = paths::teile_dateipfad(name);
  const std::string_view extension = parts.erweiterung.empty() ? "(erweiterung = ?) or (erweiterung IS NULL)" : "erweiterung = ?";
  rows.findFirst(base::format("(dateiname = ?) and ({}) and ([dateityp-id]={})", extension, static_cast<int>(type)),
                 {parts.name, parts.erweiterung});
  if (rows.noMatch())
    return;
  rows.edit();
  rows.set("übertragen", dao::Value::yesNo(true));
  rows.update();
}

} // namespace mrd::publish
