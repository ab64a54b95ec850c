#include "frame/project/restoration.h"

#include "base/errors.h"
#include "base/format.h"
#include "frame/project/backup_copy.h"
#include "frame/project/project.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

namespace mrd::project {
namespace {

/// The backup on its way: under a name beside the project, and gone when it does not get there.
class Successor {
public:
  explicit Successor(const std::string& place) : path_(place + ".zurueck.tmp") { remove(); }
  ~Successor()
  {
    try {
      remove();
    } catch (const base::Error&) {
      // The next restoration removes it.
    }
  }
  Successor(const Successor&) = delete;
  Successor& operator=(const Successor&) = delete;

  const std::string& path() const { return path_; }

  void take(const Backup& backup) const
  {
    files::copyFile(backup.path, path_);
    files::giveAccessOf(backup.path, path_);
    if (!dao::isSound(path_))
      throw base::Error(base::ErrorNumber::NotADatabase,
                        base::format("Die Sicherung '{}' ist beschädigt.", files::nativePath(backup.path).native()));
    auto db = dao::Database::open(path_, dao::OpenMode::ReadOnly);
    checkTables(db, files::nativePath(backup.path).native());
  }

private:
  void remove() const
  {
    dao::removeCompanions(path_);
    files::removeLeftOver(path_);
  }

  std::string path_;
};

bool isWhole(const std::string& project)
{
  try {
    dao::mergeCompanions(project);
    return dao::isSound(project);
  } catch (const base::Error& error) {
    if (error.kind() == base::ErrorNumber::NotADatabase)
      return false;
    throw;
  }
}

/// Somebody may still get something out of a damaged file, and what lies beside it belongs to it.
void keepBytes(const Backups& backups, const std::string& name)
{
  const std::string kept = backups.pathOf(name);
  files::copyFile(backups.project(), kept);
  files::giveAccessOf(backups.project(), kept);
  const auto from = dao::companionsOf(backups.project()), to = dao::companionsOf(kept);
  for (std::size_t i = 0; i < from.size(); ++i)
    if (files::fileExists(from[i])) {
      files::copyFile(from[i], to[i]);
      files::giveAccessOf(from[i], to[i]);
    }
  backups.removeOldest(name);
}

/// A journal that the old file left would be taken for one of the new.
void replace(const std::string& project, const std::string& successor)
{
  dao::removeCompanions(project);
  files::takePlaceOf(project, successor);
}

void keepAndReplace(const Backups& backups, const std::string& name, const std::string& successor)
{
  BackupCopy copy(backups, name);
  auto db = dao::Database::open(backups.project());
  // Nobody writes between the copy and the change of files. Nothing may open the project's file from here on: to close it would
  // give up the lock.
  const dao::Transaction hold(db);
  copy.complete(true);
  replace(backups.project(), successor);
}

} // namespace

std::string restore(const Backups& backups, const Backup& backup, const base::Clock& clock)
{
  const files::FileLock nobodyElse(backups.directory());
  const std::string& project = backups.project();
  const Successor successor(project);
  successor.take(backup);
  if (!files::fileExists(project)) {
    dao::removeCompanions(project);
    if (!files::takeNewName(successor.path(), project))
      throw base::Error(base::ErrorNumber::PathFileAccess,
                        base::format("Die Datei '{}' ist schon vorhanden.", files::nativePath(project).native()));
    return {};
  }
  std::string name = backups.freeName(clock.now());
  if (isWhole(project)) {
    keepAndReplace(backups, name, successor.path());
  } else {
    keepBytes(backups, name);
    replace(project, successor.path());
  }
  return name;
}

} // namespace mrd::project
