#pragma once
// Making a backup of a project: in the way of whoever waits for it, or beside the work.

#include "base/errors.h"
#include "frame/project/backups.h"
#include "platform/dao/database_copy.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace mrd::project {

/// A copy of a project on its way to its place among the backups. It gets there whole and sound or not at all, and only then do
/// older ones go. What is not completed leaves nothing behind.
class BackupCopy {
public:
  /// Opens the project for reading, and makes the directory where it is missing. Throws base::Error.
  BackupCopy(Backups backups, std::string_view name);
  ~BackupCopy();
  BackupCopy(const BackupCopy&) = delete;
  BackupCopy& operator=(const BackupCopy&) = delete;

  /// Copies piece by piece, and all the rest at once as soon as `hurry` is set. May run on another thread than the constructor,
  /// for it opens no file of the project. Throws base::Error, NotADatabase for a project that is damaged.
  void complete(const std::atomic<bool>& hurry);

private:
  void check() const;

  const Backups backups_;
  const std::string name_, unfinished_;
  std::unique_ptr<files::FileLock> lock_;
  std::unique_ptr<dao::DatabaseCopy> copy_;
};

/// Makes the backup at once. Throws as BackupCopy does.
void makeBackup(const Backups& backups, std::string_view name);

/// The backup of the day, where there is none yet, made on a thread of its own while the project is being worked with.
class DailyBackup {
public:
  /// Begins. Nothing is thrown: what went wrong is told by failure().
  DailyBackup(const Backups& backups, const base::DateTime& today);
  /// Waits for the end, which comes the sooner for it.
  ~DailyBackup();
  DailyBackup(const DailyBackup&) = delete;
  DailyBackup& operator=(const DailyBackup&) = delete;

  bool isDone() const { return done_; }
  void wait();
  /// Why there is no backup of the day; NotADatabase for a project that is damaged. To be asked when it is done.
  const std::optional<base::Error>& failure() const { return failure_; }

private:
  void begin(const Backups& backups, const std::string& name);

  std::atomic<bool> hurry_ = false, done_ = false;
  std::optional<base::Error> failure_;
  std::unique_ptr<BackupCopy> copy_;
  std::thread thread_;
};

} // namespace mrd::project
