#include "platform/files/directory.h"

#include "base/format.h"
#include "base/text.h"
#include "platform/files/path.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace mrd::files {
namespace {

namespace fs = std::filesystem;

/// ASCII letters without their case: an order that costs little, for names that are mostly of such letters.
bool isBefore(const DirectoryEntry& a, const DirectoryEntry& b)
{
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  const auto order = std::ranges::lexicographical_compare(a.name, b.name, {}, upper, upper);
  return order || (!std::ranges::lexicographical_compare(b.name, a.name, {}, upper, upper) && a.name < b.name);
}

} // namespace

std::vector<DirectoryEntry> directoryEntries(std::string_view path)
{
  std::vector<DirectoryEntry> out;
  std::error_code failure;
  for (fs::directory_iterator entries(nativePath(path), failure); !failure && entries != fs::directory_iterator();
       entries.increment(failure)) {
    auto name = entries->path().filename().native();
    if (name.find('\\') != std::string::npos || !base::isValidUtf8(name))
      continue;
    std::error_code ignored; // A link that leads nowhere is neither file nor directory.
    const bool isDirectory = entries->is_directory(ignored);
    if (isDirectory || entries->is_regular_file(ignored))
      out.push_back({std::move(name), isDirectory});
  }
  std::ranges::sort(out, isBefore);
  return out;
}

std::string directoryIdentity(std::string_view path)
{
  const auto native = nativePath(path);
  struct stat status {};
  if (::stat(native.c_str(), &status) != 0)
    return native.native();
  return base::format("{}:{}", status.st_dev, status.st_ino);
}

} // namespace mrd::files
