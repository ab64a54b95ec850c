#include "platform/files/succession.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/native_file.h"
#include "platform/files/path.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace mrd::files {
namespace {

namespace fs = std::filesystem;

/// On disk with all its bytes.
void syncFile(const fs::path& native)
{
  const Descriptor file(openFile(native, O_RDONLY));
  if (file.get() < 0 || ::fsync(file.get()) != 0)
    fail(errno, native);
}

bool holdsTheSame(const fs::path& a, const fs::path& b)
{
  std::error_code failure;
  if (fs::equivalent(a, b, failure))
    return true;
  return fs::is_regular_file(b, failure) && fs::file_size(a, failure) == fs::file_size(b, failure) &&
         readFile(systemPath(a)) == readFile(systemPath(b));
}

/// Who was allowed to read the old file may read the new one, and nobody else. A file system without owners or modes has the same
/// for all its files.
void giveAwayTo(const fs::path& native, const struct stat& old)
{
  const bool isOwned = ::chown(native.c_str(), old.st_uid, old.st_gid) == 0 || errno == EPERM;
  if (!isOwned || (::chmod(native.c_str(), old.st_mode & 07777) != 0 && errno != EPERM))
    fail(errno, native);
}

/// Whether a file at `kept` has what `original` has, and still has it when `original` is gone: a link to it has not.
bool isKeptBy(const fs::path& kept, const fs::path& original)
{
  std::error_code failure;
  return !fs::is_symlink(fs::symlink_status(kept, failure)) && holdsTheSame(original, kept);
}

/// "haus.jet.mdb", "haus.jet2.mdb", ...
std::string numbered(std::string_view stem, std::string_view ending, int number)
{
  const auto dot = ending.rfind('.');
  return base::format("{}{}{}{}", stem, ending.substr(0, dot), number == 1 ? "" : std::to_string(number), ending.substr(dot));
}

} // namespace

struct FileLock::State {
  fs::path native;
  Descriptor file;
};

FileLock::FileLock(std::string_view path, Kind kind)
{
  auto native = nativePath(path);
  Descriptor file(openFile(native, O_RDONLY));
  if (file.get() < 0)
    fail(errno, native);
  if (!lockFile(file.get(), kind == Kind::Shared))
    throw base::Error(base::ErrorNumber::DatabaseLocked,
                      base::format("Die Datei '{}' wird gerade von einem anderen Programm benutzt.", native.native()));
  state_ = std::make_unique<State>(State{std::move(native), std::move(file)});
}

FileLock::~FileLock() = default;

bool FileLock::isStillNamed() const { return files::isStillNamed(state_->file.get(), state_->native); }

std::string behindLinks(std::string_view path)
{
  std::error_code failure;
  const auto native = nativePath(path);
  const auto target = fs::canonical(native, failure);
  return systemPath(failure ? native : target);
}

void removeLeftOver(std::string_view path)
{
  const auto native = nativePath(path);
  if (::unlink(native.c_str()) != 0 && errno != ENOENT)
    fail(errno, native);
}

std::string keepAs(std::string_view path, std::string_view stem, std::string_view ending)
{
  const auto from = nativePath(path);
  for (int number = 1;; ++number) {
    std::string name = numbered(stem, ending, number);
    const auto to = nativePath(name);
    std::error_code failure;
    if (fs::exists(fs::symlink_status(to, failure))) {
      if (!isKeptBy(to, from))
        continue;
    } else if (::link(from.c_str(), to.c_str()) != 0) {
      if (errno == EEXIST)
        continue;
      copyFile(path, name);
      syncFile(to);
    }
    syncDirectoryOf(to);
    return name;
  }
}

void giveAccessOf(std::string_view model, std::string_view path)
{
  const auto native = nativePath(model);
  struct stat status {};
  if (::stat(native.c_str(), &status) != 0)
    fail(errno, native);
  giveAwayTo(nativePath(path), status);
}

void takePlaceOf(std::string_view path, std::string_view finished)
{
  const auto from = nativePath(finished), to = nativePath(path);
  giveAccessOf(path, finished);
  syncFile(from);
  if (::rename(from.c_str(), to.c_str()) != 0)
    fail(errno, to);
  syncDirectoryOf(to);
}

bool takeNewName(std::string_view finished, std::string_view path)
{
  const auto from = nativePath(finished), to = nativePath(path);
  syncFile(from);
  // A rename would replace a file that came meanwhile; where it is the only way, the gap is as small as can be.
  if (::link(from.c_str(), to.c_str()) == 0) {
    ::unlink(from.c_str());
  } else {
    std::error_code failure;
    if (errno == EEXIST || fs::exists(fs::symlink_status(to, failure)))
      return false;
    if (::rename(from.c_str(), to.c_str()) != 0)
      fail(errno, to);
  }
  syncDirectoryOf(to);
  return true;
}

} // namespace mrd::files
