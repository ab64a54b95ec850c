#include "frame/paths/program_directory.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <cstdint>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

namespace mrd::paths {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRecord = ".installed";
constexpr std::string_view kLanguageDatabase = "language.mdb";
constexpr std::string_view kNewerBeside = ".neu";

/// A file of the installation as it was brought.
struct Brought {
  std::uintmax_t size = 0;
  std::int64_t changed = 0; // in the file clock's ticks
  std::uint64_t hash = 0;
  bool operator==(const Brought&) const = default;

  bool isOfSameDate(const Brought& other) const { return size == other.size && changed == other.changed; }
};
/// By the name below the directory.
using Record = std::map<std::string, Brought>;

/// FNV-1a: tells a file that somebody changed from one that nobody did, also on the next machine.
std::uint64_t hashOf(std::string_view bytes)
{
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const unsigned char byte : bytes)
    hash = (hash ^ byte) * 0x100000001b3;
  return hash;
}

std::string bytesOf(const fs::path& native) { return files::readFile(files::systemPath(native)); }

void write(const fs::path& native, std::string_view bytes) { files::writeFileAtomically(files::systemPath(native), bytes); }

// --- the record

/// Nothing for a record that is missing or damaged: then every file is compared again.
Record readRecord(const fs::path& directory)
{
  Record record;
  try {
    std::istringstream lines(bytesOf(directory / kRecord));
    Brought brought;
    std::string name;
    while (lines >> brought.size >> brought.changed >> brought.hash && lines.get() == '\t' && std::getline(lines, name))
      record[name] = brought;
  } catch (const base::Error&) {
    record.clear();
  }
  return record;
}

std::string textOf(const Record& record)
{
  std::string text;
  for (const auto& [name, brought] : record)
    text += base::format("{} {} {}\t{}\n", brought.size, brought.changed, brought.hash, name);
  return text;
}

// --- the files

/// The installation's files, their content not read yet.
Record filesOf(const fs::path& installed)
{
  Record found;
  std::error_code failure;
  for (fs::recursive_directory_iterator entry(installed, failure), end; !failure && entry != end; entry.increment(failure)) {
    std::error_code gone;
    const Brought file{entry->file_size(gone), entry->last_write_time(gone).time_since_epoch().count(), 0};
    if (entry->is_regular_file(gone) && !gone)
      found[entry->path().lexically_relative(installed).generic_string()] = file;
  }
  return found;
}

class Filling {
public:
  Filling(fs::path installed, fs::path directory)
      : installed_(std::move(installed)), directory_(std::move(directory)), known_(readRecord(directory_))
  {
  }

  void run()
  {
    for (const auto& [name, file] : filesOf(installed_)) {
      try {
        brought_[name] = bring(name, file);
      } catch (const base::Error&) {
        // Who needs the file says so, in words that belong to what the user is doing. The next start tries again.
        if (const auto* const before = known(name))
          brought_[name] = *before;
      }
    }
    removeDropped();
    if (brought_ != known_)
      write(directory_ / kRecord, textOf(brought_));
  }

private:
  const Brought* known(const std::string& name) const
  {
    const auto found = known_.find(name);
    return found == known_.end() ? nullptr : &found->second;
  }

  std::optional<std::uint64_t> hashOfUsers(const std::string& name) const
  {
    std::error_code failure;
    return fs::exists(directory_ / name, failure) ? std::optional(hashOf(bytesOf(directory_ / name))) : std::nullopt;
  }

  Brought bring(const std::string& name, Brought file) const
  {
    const Brought* const before = known(name);
    const fs::path target = directory_ / name;
    std::error_code failure;
    if (before && before->isOfSameDate(file) && fs::exists(target, failure))
      return *before;
    const std::string bytes = bytesOf(installed_ / name);
    file.hash = hashOf(bytes);
    const auto users = hashOfUsers(name);
    const bool isUsersWork = users && *users != file.hash && name != kLanguageDatabase && (!before || *users != before->hash);
    fs::create_directories(target.parent_path(), failure);
    if (!isUsersWork && users != file.hash)
      write(target, bytes);
    else if (isUsersWork && (!before || before->hash != file.hash))
      write(target.native() + std::string(kNewerBeside), bytes);
    return file;
  }

  /// What the installation no longer has goes, unless the user has made it his.
  void removeDropped() const
  {
    std::error_code failure;
    if (!fs::is_directory(installed_, failure))
      return;
    for (const auto& [name, file] : known_) {
      if (fs::exists(installed_ / name, failure) || failure)
        continue;
      if (hashOfUsers(name) == file.hash)
        fs::remove(directory_ / name, failure);
    }
  }

  fs::path installed_, directory_;
  Record known_, brought_;
};

} // namespace

void fillProgramDirectory(const fs::path& installed, const fs::path& directory)
{
  std::error_code failure;
  fs::create_directories(directory, failure);
  if (!fs::is_directory(installed, failure))
    return;
  try {
    Filling(installed, directory).run();
  } catch (const base::Error&) {
    return; // a directory that takes no record is filled anew at the next start
  }
}

} // namespace mrd::paths
