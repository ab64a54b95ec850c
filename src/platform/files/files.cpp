#include "platform/files/files.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/files/native_file.h"
#include "platform/files/path.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>
#include <utility>

namespace mrd::files {
namespace {

using NativePath = std::filesystem::path;

void writeAll(int descriptor, std::string_view bytes, const NativePath& native)
{
  while (!bytes.empty()) {
    const auto written = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written < 0)
      fail(errno, native);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// A file opened for reading, and what the system knows about it. Only regular files: a device or a pipe may never end.
struct Source {
  Descriptor descriptor;
  struct stat status {};

  explicit Source(const NativePath& native) : descriptor(openFile(native, O_RDONLY))
  {
    if (descriptor.get() < 0 || ::fstat(descriptor.get(), &status) != 0)
      fail(errno, native);
    if (!S_ISREG(status.st_mode))
      fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL, native);
  }
};

/// Hands the bytes of a file to `take`, piece by piece.
template <class Take>
void readAll(const Source& source, const NativePath& native, Take take)
{
  std::array<char, 128 * 1024> buffer;
  for (;;) {
    const auto count = uninterrupted([&] { return ::read(source.descriptor.get(), buffer.data(), buffer.size()); });
    if (count < 0)
      fail(errno, native);
    if (count == 0)
      return;
    take(std::string_view(buffer.data(), static_cast<std::size_t>(count)));
  }
}

std::optional<struct stat> statusOf(const NativePath& native)
{
  struct stat status {};
  if (::stat(native.c_str(), &status) != 0)
    return std::nullopt;
  return status;
}

// --- files that appear at once

/// Where the content of a path lies: a symbolic link stays a link, what it points to is replaced.
NativePath behindLinks(const NativePath& native)
{
  std::error_code error;
  if (!std::filesystem::is_symlink(native, error))
    return native;
  const auto target = std::filesystem::weakly_canonical(native, error);
  return error ? native : target;
}

/// A file beside its target, renamed to it when it is complete and gone when it never was. Its name follows from the target's, so
/// that what a killed run left is taken up by the next; a lock tells it from the file of a run that is at work.
class Replacement {
public:
  explicit Replacement(NativePath target) : target_(behindLinks(target))
  {
    const auto hash = std::hash<std::string>{}(target_.filename().native());
    for (int attempt = 0; descriptor_ < 0; ++attempt) {
      name_ = target_.parent_path() / base::format(".mrd-{:016x}-{}.tmp", hash, attempt);
      Descriptor file(openFile(name_, O_WRONLY | O_CREAT | O_NOFOLLOW));
      if (file.get() < 0 && errno != ELOOP && errno != EISDIR)
        fail(errno, target_);
      if (file.get() < 0 || !isOurs(file.get()))
        continue;
      check(::ftruncate(file.get(), 0));
      descriptor_ = file.release();
    }
  }
  ~Replacement()
  {
    // The lock must outlive the name: a run that took up the file meanwhile would lose it.
    if (!name_.empty())
      ::unlink(name_.c_str());
    if (descriptor_ >= 0)
      ::close(descriptor_);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  int descriptor() const { return descriptor_; }
  const NativePath& target() const { return target_; }
  void write(std::string_view bytes) { writeAll(descriptor_, bytes, target_); }
  void check(int result) const
  {
    if (result != 0)
      fail(errno, target_);
  }

  void takePlace()
  {
    check(::rename(name_.c_str(), target_.c_str()));
    name_.clear();
    check(::close(std::exchange(descriptor_, -1)));
  }

private:
  bool isOurs(int descriptor) const { return lockFile(descriptor) && isStillNamed(descriptor, name_); }

  NativePath target_, name_;
  int descriptor_ = -1;
};

bool endsWithSeparator(std::string_view path) { return path.ends_with('\\') || path.ends_with('/'); }

} // namespace

bool fileExists(std::string_view path)
{
  if (endsWithSeparator(path))
    return false;
  const auto status = statusOf(nativePath(path));
  return status && S_ISREG(status->st_mode);
}

bool directoryExists(std::string_view path)
{
  const auto status = statusOf(nativePath(path));
  return status && S_ISDIR(status->st_mode);
}

void makeDirectory(std::string_view path)
{
  const auto native = nativePath(path);
  if (::mkdir(native.c_str(), 0777) == 0)
    return;
  const int code = errno;
  const auto status = statusOf(native);
  if (code != EEXIST || !status || !S_ISDIR(status->st_mode))
    // The directory itself is what was to be made, so a missing one is always that above it.
    fail(code == ENOENT ? ENOTDIR : code, native);
}

std::vector<std::string> fileNames(std::string_view directory)
{
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entries(nativePath(directory), error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    std::error_code ignored;
    std::string name = entries->path().filename().native();
    // A name with a backslash in it cannot be told from a path in the system's form, and nothing could open it.
    if (entries->is_regular_file(ignored) && name.find('\\') == std::string::npos)
      names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

void copyFile(std::string_view source, std::string_view target)
{
  const auto native = nativePath(source);
  const Source from(native);
  Replacement to(nativePath(target));
  readAll(from, native, [&](std::string_view piece) { to.write(piece); });
  const std::array times{from.status.st_atim, from.status.st_mtim};
  to.check(::futimens(to.descriptor(), times.data()));
  to.takePlace();
}

void removeFile(std::string_view path)
{
  const auto native = nativePath(path);
  if (::unlink(native.c_str()) != 0)
    fail(errno, native);
}

base::DateTime modificationTime(std::string_view path)
{
  const auto native = nativePath(path);
  const auto status = statusOf(native);
  if (!status)
    fail(errno, native);
  return base::localTime(status->st_mtim.tv_sec);
}

std::uintmax_t fileSize(std::string_view path) { return static_cast<std::uintmax_t>(Source(nativePath(path)).status.st_size); }

std::string readFile(std::string_view path)
{
  const auto native = nativePath(path);
  const Source source(native);
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(source.status.st_size));
  readAll(source, native, [&](std::string_view piece) { bytes.append(piece); });
  return bytes;
}

void writeFileAtomically(std::string_view path, std::string_view bytes)
{
  Replacement file(nativePath(path));
  // Who was allowed to read the old content may read the new one, and nobody else.
  if (const auto old = statusOf(file.target()))
    file.check(::fchmod(file.descriptor(), old->st_mode & 07777));
  file.write(bytes);
  file.check(::fsync(file.descriptor()));
  file.takePlace();
  syncDirectoryOf(file.target());
}

OutputFile::OutputFile(std::string_view path) : OutputFile(Native{nativePath(path)}) {}

OutputFile::OutputFile(const Native& native) : descriptor_(-1), path_(native.path.native())
{
  descriptor_ = openFile(path_, O_WRONLY | O_CREAT | O_TRUNC);
  if (descriptor_ < 0)
    // What is missing cannot be the file, which would have been made.
    fail(errno == ENOENT ? ENOTDIR : errno, path_);
}

OutputFile::~OutputFile()
{
  if (descriptor_ >= 0)
    ::close(descriptor_);
}

void OutputFile::write(std::string_view bytes) { writeAll(descriptor_, bytes, path_); }

void OutputFile::close()
{
  if (descriptor_ >= 0 && ::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR)
    fail(errno, path_);
}

OutputDirectory::OutputDirectory(std::string_view path) : directory_(nativePath(path))
{
  std::error_code error;
  std::filesystem::directory_iterator entries(directory_, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    std::string name = entries->path().filename().native();
    nameOnDisk_.emplace(base::lower(name), std::move(name));
  }
}

OutputFile OutputDirectory::open(std::string_view name)
{
  NativePath native = directory_ / name;
  const auto [known, isNew] = nameOnDisk_.emplace(base::lower(name), name);
  // Of two names that differ in case alone the one as written is meant.
  if (!isNew && known->second != name && !statusOf(native))
    native = directory_ / known->second;
  return OutputFile(OutputFile::Native{native});
}

} // namespace mrd::files
