#pragma once
// The kept states of a project: one for each day on which it was opened for work, and one for each time that another took its
// place. They lie beside the project, "haus.mdb.sicherung\haus-2003-04-17.mdb", so that they go where it goes.

#include "base/clock.h"
#include "platform/files/succession.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::project {

/// How many are kept of each kind, those of days and those from before a restoration.
inline constexpr std::size_t kKeptBackups = 10;

struct Backup {
  /// "2003-04-17" for the state of a day, "2003-04-17-090506" for one that was replaced at this time; where that is taken, with a
  /// number behind it. The order of names is the order in time.
  std::string name;
  /// What the name says: midnight for the state of a day.
  base::DateTime moment;
  bool isOfDay = true;
  std::string path;
  /// Length in bytes.
  std::uintmax_t size = 0;
};

class Backups {
public:
  /// Of the project file, or of the one behind it if it is a link.
  explicit Backups(std::string_view DbName);

  /// The project file itself.
  const std::string& project() const { return project_; }
  const std::string& directory() const { return directory_; }
  static std::string nameOfDay(const base::DateTime& day);
  /// A name that no backup has yet.
  std::string freeName(const base::DateTime& moment) const;
  std::string pathOf(std::string_view name) const;

  /// All there are, the newest first. Files whose names are none of ours are left out.
  std::vector<Backup> list() const;
  std::optional<Backup> find(std::string_view name) const;
  /// Pages of a backup; nothing for a file that cannot be read.
  static std::optional<std::size_t> pagesOf(const Backup& backup);

  /// Tells other programs that the project is open, for as long as the mark lives: it is not replaced meanwhile. Nothing as long
  /// as there is no directory, which has no backup that could replace it. Throws DatabaseLocked while the project is being
  /// replaced.
  std::unique_ptr<files::FileLock> markOpen() const;

  /// Removes the oldest of those that are of one kind with `made`, which stays, and what killed programs left of theirs.
  void removeOldest(std::string_view made) const;
  void removeLeftOvers() const;

private:
  std::string project_, directory_, prefix_;
};

} // namespace mrd::project
