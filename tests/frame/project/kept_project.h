#pragma once
// A project in a directory of its own, and its backups.

#include "frame/project/backup_copy.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace mrd::project {

struct KeptProject {
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}};
  const Backups backups{project.file()};

  std::vector<std::string> names() const
  {
    std::vector<std::string> out;
    for (const auto& backup : backups.list())
      out.push_back(backup.name);
    return out;
  }
  /// All that lies in the directory of the backups.
  std::vector<std::string> files() const { return files::fileNames(backups.directory()); }
  void put(const std::string& name, const std::string& bytes) const
  {
    project.directory().write("projekt.mdb.sicherung/" + name, bytes);
  }
  /// Of the project, without leaving a lock on it.
  static std::size_t pagesOf(const std::string& file)
  {
    auto db = dao::Database::open(file, dao::OpenMode::ReadOnly);
    return db.openRecordset("Seite").recordCount();
  }

  /// Overwrites a page of the file in its middle.
  void damage(const std::string& path) const
  {
    std::fstream file(files::nativePath(path), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096 * 2);
    file << std::string(4096, '\xff');
  }
};

} // namespace mrd::project
