#include "platform/files/native_file.h"

#include "base/errors.h"
#include "base/format.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>
#include <system_error>

namespace mrd::files {
namespace {

using base::ErrorNumber;
using NativePath = std::filesystem::path;

struct Failure {
  ErrorNumber number;
  std::string_view description;
};

Failure failureOf(int code)
{
  switch (code) {
  case ENOENT:
    return {ErrorNumber::FileNotFound, "Datei nicht gefunden"};
  case ENOTDIR:
    return {ErrorNumber::PathNotFound, "Pfad nicht gefunden"};
  case ENOSPC:
  case EDQUOT:
    return {ErrorNumber::DiskFull, "Der Datenträger ist voll"};
  case EACCES:
  case EPERM:
    return {ErrorNumber::PathFileAccess, "Kein Zugriff auf die Datei"};
  case EROFS:
    return {ErrorNumber::PathFileAccess, "Der Datenträger ist schreibgeschützt"};
  case EISDIR:
    return {ErrorNumber::PathFileAccess, "Das ist ein Verzeichnis und keine Datei"};
  case ENAMETOOLONG:
    return {ErrorNumber::PathFileAccess, "Der Name ist zu lang"};
  default:
    return {ErrorNumber::PathFileAccess, "Die Datei kann nicht gelesen oder geschrieben werden"};
  }
}

} // namespace

void fail(int code, const NativePath& native)
{
  std::error_code ignored;
  const bool isBelowNothing = native.has_parent_path() && !std::filesystem::is_directory(native.parent_path(), ignored);
  const auto failure = failureOf(code == ENOENT && isBelowNothing ? ENOTDIR : code);
  throw base::Error(failure.number, base::format("{}: {}", failure.description, native.native()));
}

Descriptor::~Descriptor()
{
  if (number_ >= 0)
    ::close(number_);
}

int openFile(const NativePath& native, int flags)
{
  return uninterrupted([&] { return ::open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666); });
}

bool lockFile(int descriptor, bool shared)
{
  return ::flock(descriptor, (shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool isStillNamed(int descriptor, const NativePath& native)
{
  struct stat opened {
  }, named{};
  return ::fstat(descriptor, &opened) == 0 && ::stat(native.c_str(), &named) == 0 && named.st_ino == opened.st_ino &&
         named.st_dev == opened.st_dev;
}

void syncDirectoryOf(const NativePath& native)
{
  const auto directory = native.parent_path();
  const Descriptor descriptor(openFile(directory.empty() ? "." : directory, O_RDONLY | O_DIRECTORY));
  if (descriptor.get() >= 0)
    ::fsync(descriptor.get());
}

} // namespace mrd::files
