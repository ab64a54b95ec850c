#include "frame/project/backup_copy.h"

#include "base/format.h"
#include "frame/project/project.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <unistd.h>

#include <exception>
#include <utility>

namespace mrd::project {
namespace {

/// Runs `work`; what went wrong, if anything did.
template <class Work>
std::optional<base::Error> failureOf(Work work) noexcept
{
  try {
    work();
    return std::nullopt;
  } catch (const base::Error& error) {
    return error;
  } catch (const std::exception& error) {
    return base::Error(base::ErrorNumber::EngineError, error.what());
  }
}

} // namespace

BackupCopy::BackupCopy(Backups backups, std::string_view name)
    : backups_(std::move(backups)), name_(name), unfinished_(base::format("{}.{}.tmp", backups_.pathOf(name), ::getpid()))
{
  files::makeDirectory(backups_.directory());
  backups_.removeLeftOvers();
  files::OutputFile(unfinished_).close();
  try {
    lock_ = std::make_unique<files::FileLock>(unfinished_);
    files::giveAccessOf(backups_.project(), unfinished_);
    copy_ = std::make_unique<dao::DatabaseCopy>(backups_.project(), unfinished_);
  } catch (...) {
    files::removeLeftOver(unfinished_);
    throw;
  }
}

BackupCopy::~BackupCopy()
{
  copy_.reset();
  try {
    dao::removeCompanions(unfinished_);
    files::removeLeftOver(unfinished_);
  } catch (const base::Error&) {
    // The next backup removes it.
  }
}

void BackupCopy::complete(const std::atomic<bool>& hurry)
{
  for (bool done = false; !done;) {
    if (hurry)
      copy_->copyRest();
    done = hurry || copy_->copyPiece();
  }
  copy_.reset();
  check();
  // Where another program has been faster, its copy is as good.
  files::takeNewName(unfinished_, backups_.pathOf(name_));
  backups_.removeOldest(name_);
}

void BackupCopy::check() const
{
  const std::string shown = files::nativePath(backups_.project()).native();
  if (!dao::isSound(unfinished_))
    throw base::Error(base::ErrorNumber::NotADatabase, base::format("Die Datenbank '{}' ist beschädigt.", shown));
  auto db = dao::Database::open(unfinished_, dao::OpenMode::ReadOnly);
  checkTables(db, shown);
}

void makeBackup(const Backups& backups, std::string_view name) { BackupCopy(backups, name).complete(true); }

DailyBackup::DailyBackup(const Backups& backups, const base::DateTime& today)
{
  const std::string name = Backups::nameOfDay(today);
  if (files::fileExists(backups.pathOf(name))) {
    backups.removeLeftOvers();
    done_ = true;
    return;
  }
  // The thread tells of its end by itself, and may have done so before it is let go here.
  if (const auto failure = failureOf([&] { begin(backups, name); })) {
    failure_ = failure;
    done_ = true;
  }
}

void DailyBackup::begin(const Backups& backups, const std::string& name)
{
  // Here, for the project's file must not be opened and closed beside the work: that would give up the locks of all who have it
  // open in this process.
  copy_ = std::make_unique<BackupCopy>(backups, name);
  thread_ = std::thread([this] {
    failure_ = failureOf([&] { copy_->complete(hurry_); });
    copy_.reset();
    done_ = true;
  });
}

DailyBackup::~DailyBackup() { wait(); }

void DailyBackup::wait()
{
  hurry_ = true;
  if (thread_.joinable())
    thread_.join();
}

} // namespace mrd::project
