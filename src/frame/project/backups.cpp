#include "frame/project/backups.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/project/project.h"
#include "platform/dao/database_copy.h"
#include "platform/files/files.h"

#include <algorithm>

namespace mrd::project {
namespace {

constexpr std::string_view kDirectoryEnding = ".sicherung", kEnding = ".mdb", kUnfinished = ".tmp";
/// What names are made of: "2003-04-17", "-090506", "-02". A 0 stands for any digit.
constexpr std::string_view kDay = "0000-00-00", kMoment = "0000-00-00-000000", kNumberedMoment = "0000-00-00-000000-00";

bool hasForm(std::string_view text, std::string_view form)
{
  return std::ranges::equal(text, form, [](char c, char model) { return model == '0' ? c >= '0' && c <= '9' : c == model; });
}

bool isOfDay(std::string_view name) { return hasForm(name, kDay); }

/// The moment that a name tells; nothing for a text that is no name.
std::optional<base::DateTime> momentOf(std::string_view text)
{
  if (isOfDay(text))
    return base::parseDateTime(text);
  if (!hasForm(text, kMoment) && !hasForm(text, kNumberedMoment))
    return std::nullopt;
  const auto day = text.substr(0, kDay.size()), time = text.substr(kDay.size() + 1);
  return base::parseDateTime(base::format("{} {}:{}:{}", day, time.substr(0, 2), time.substr(2, 2), time.substr(4, 2)));
}

/// 0 for a file that is closed to the user.
std::uintmax_t sizeOf(const std::string& path)
{
  try {
    return files::fileSize(path);
  } catch (const base::Error&) {
    return 0;
  }
}

void removeIfPossible(const std::string& path)
{
  try {
    dao::removeCompanions(path);
    files::removeLeftOver(path);
  } catch (const base::Error&) {
    // Nobody may remove it; what is there too long does no harm.
  }
}

/// The text between the two ends; nothing for one that has other ends.
std::string_view between(std::string_view text, std::string_view start, std::string_view end)
{
  if (text.size() < start.size() + end.size() || !text.starts_with(start) || !text.ends_with(end))
    return {};
  return text.substr(start.size(), text.size() - start.size() - end.size());
}

} // namespace

Backups::Backups(std::string_view DbName)
    : project_(files::behindLinks(DbName)), directory_(project_ + std::string(kDirectoryEnding)),
      prefix_(withoutEnding(project_.substr(project_.rfind('\\') + 1)) + "-")
{
}

std::string Backups::nameOfDay(const base::DateTime& day) { return day.iso().substr(0, kDay.size()); }

std::string Backups::freeName(const base::DateTime& moment) const
{
  const std::string name = base::format("{}-{:02}{:02}{:02}", nameOfDay(moment), moment.hour, moment.minute, moment.second);
  std::string numbered = name;
  constexpr int kMost = 99;
  for (int number = 2; files::fileExists(pathOf(numbered)) && number <= kMost; ++number)
    numbered = base::format("{}-{:02}", name, number);
  return numbered;
}

std::string Backups::pathOf(std::string_view name) const
{
  return base::format("{}\\{}{}{}", directory_, prefix_, name, kEnding);
}

std::vector<Backup> Backups::list() const
{
  std::vector<Backup> out;
  for (const auto& file : files::fileNames(directory_))
    if (const auto name = between(file, prefix_, kEnding); const auto moment = momentOf(name)) {
      std::string path = directory_ + "\\" + file;
      const auto size = sizeOf(path);
      out.push_back({std::string(name), *moment, isOfDay(name), std::move(path), size});
    }
  std::ranges::sort(out, std::ranges::greater(), &Backup::name);
  return out;
}

std::optional<Backup> Backups::find(std::string_view name) const
{
  const auto all = list();
  const auto found = std::ranges::find(all, name, &Backup::name);
  return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::size_t> Backups::pagesOf(const Backup& backup)
{
  try {
    auto db = dao::Database::open(backup.path, dao::OpenMode::ReadOnly);
    return db.openRecordset("Select id from Seite").recordCount();
  } catch (const base::Error&) {
    return std::nullopt;
  }
}

std::unique_ptr<files::FileLock> Backups::markOpen() const
{
  if (!files::directoryExists(directory_))
    return nullptr;
  try {
    return std::make_unique<files::FileLock>(directory_, files::FileLock::Kind::Shared);
  } catch (const base::Error& error) {
    // Whoever may not look into the directory can work with the project all the same.
    if (error.kind() == base::ErrorNumber::DatabaseLocked)
      throw;
    return nullptr;
  }
}

void Backups::removeOldest(std::string_view made) const
{
  auto all = list();
  std::erase_if(all, [&](const Backup& backup) { return backup.isOfDay != isOfDay(made); });
  // A clock that was wrong may have left names of days to come; what has just been made stays all the same.
  std::stable_partition(all.begin(), all.end(), [&](const Backup& backup) { return backup.name == made; });
  for (std::size_t i = kKeptBackups; i < all.size(); ++i)
    removeIfPossible(all[i].path);
}

void Backups::removeLeftOvers() const
{
  for (const auto& file : files::fileNames(directory_)) {
    // "haus-2003-04-17.mdb.4711.tmp", of a process that may still be at it.
    const auto rest = between(file, prefix_, kUnfinished);
    const auto end = rest.find(kEnding);
    if (end == std::string_view::npos || !momentOf(rest.substr(0, end)))
      continue;
    const std::string path = directory_ + "\\" + file;
    try {
      const files::FileLock lock(path);
      removeIfPossible(path);
    } catch (const base::Error&) {
      // Another program is still at it.
    }
  }
}

} // namespace mrd::project
