#include "publish/reconciliation.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/number_text.h"
#include "base/text.h"
#include "frame/paths/paths.h"

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
  void read(dao::Database& db, project::Dateityp type)
  {
    auto rows = db.openSnapshot("SELECT dateiname, erweiterung, [dateityp-id] FROM Dateien");
    for (std::size_t position = 0; !rows.eof(); rows.moveNext(), ++position)
      // A search never finds a column that is unset.
      if (rows.value(2).integer() == static_cast<int>(type) && !rows.value(1).isNull())
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

/// One reconciliation: each statement that fails is told, and the next one follows.
class Reconciliation {
public:
  Reconciliation(const ListTypes& types, ListBox& list, dao::Database& db, messages::Language& language)
      : types_(types), list_(list), db_(db), language_(language)
  {
  }

  void run(std::string_view Liste)
  {
    attempt([&] { db_.execute("DELETE * FROM Dateien WHERE [Dateityp-ID]=?", {static_cast<int>(types_.server)}); });
    list_.entries.clear();
    const bool canSearch = attempt([&] {
      ownFiles_.read(db_, types_.project);
      search_.emplace(db_.openRecordset("SELECT * FROM Dateien"));
    });
    for (const auto& line : linesOf(Liste))
      take(line, canSearch);
    // One transaction: a listing can have thousands of names.
    std::optional<dao::Transaction> transaction;
    attempt([&] { transaction.emplace(db_); });
    attempt([&] { clearFlags(); });
    addRows();
    if (transaction)
      attempt([&] { transaction->commit(); });
  }

private:
  /// False when the statement failed, which is told.
  template <class Statement>
  bool attempt(Statement&& statement)
  {
    try {
      statement();
      return true;
    } catch (const base::Error& error) {
      language_.GetMsg(kGeneralFailure, "createlist " + base::numberText(error.number()), "R");
      return false;
    }
  }

  void take(const std::string& line, bool canSearch)
  {
    list_.entries.push_back({line, false});
    found_.push_back(paths::teile_dateipfad(line));
    // Not selected where the search fails: nothing is to be deleted because of that.
    if (canSearch)
      attempt([&] { judge(line, found_.back()); });
  }

  void judge(const std::string& line, const paths::PathParts& parts)
  {
    if (breaksSearch(parts))
      search_->findFirst(criteria(parts, types_.project));
    const auto position = ownFiles_.find(parts);
    if (!position)
      select(line);
    else if (types_.project != project::Dateityp::Page && !isAlwaysDue(line, parts))
      present_.insert(*position);
  }

  /// A line that came before selects its first entry once more.
  void select(const std::string& line)
  {
    auto place = list_.entries.size() - 1;
    if (!unowned_.insert(line).second) {
      std::int16_t Position = -1;
      itempos(list_, line, Position);
      place = static_cast<std::size_t>(Position);
    }
    list_.entries[place].isSelected = true;
  }

  void clearFlags()
  {
    if (present_.empty())
      return;
    auto rows = db_.openRecordset("SELECT * FROM Dateien");
    for (std::size_t position = 0; !rows.eof(); rows.moveNext(), ++position)
      if (present_.contains(position) && rows.value("übertragen").yes())
        attempt([&] {
          rows.edit();
          rows.set("übertragen", dao::Value::yesNo(false));
          rows.update();
        });
  }

  void addRows()
  {
    for (const auto& parts : found_)
      attempt([&] {
        db_.execute("INSERT INTO Dateien (dateiname, erweiterung, [dateityp-id]) VALUES (?, ?, ?)",
                    {parts.name, parts.erweiterung.empty() ? dao::Value(dao::Null{}) : dao::Value(parts.erweiterung),
                     static_cast<int>(types_.server)});
      });
  }

  const ListTypes& types_;
  ListBox& list_;
  dao::Database& db_;
  messages::Language& language_;
  OwnFiles ownFiles_;
  std::optional<dao::Recordset> search_;
  std::vector<paths::PathParts> found_;
  std::unordered_set<std::size_t> present_;
  std::unordered_set<std::string> unowned_;
};

} // namespace

void createlist(std::string_view Liste, const ListTypes& types, ListBox& list, dao::Database& db, messages::Language& language)
{
  Reconciliation(types, list, db, language).run(Liste);
}

void markAsDue(std::string_view name, project::Dateityp type, dao::Recordset& rows)
{
  const auto parts = paths::teile_dateipfad(name);
  rows.findFirst(base::format("(dateiname = ?) and (erweiterung = ?) and ([dateityp-id]={})", static_cast<int>(type)),
                 {parts.name, parts.erweiterung});
  if (rows.noMatch())
    return;
  rows.edit();
  rows.set("übertragen", dao::Value::yesNo(true));
  rows.update();
}

} // namespace mrd::publish
