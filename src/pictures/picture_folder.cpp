#include "pictures/picture_folder.h"

#include "base/text.h"
#include "platform/files/path.h"

#include <algorithm>
#include <system_error>

namespace mrd::pictures {
namespace {

namespace fs = std::filesystem;

/// More than anybody's pictures; a wrong folder is not walked for ever.
constexpr std::size_t kMostFiles = 1'000'000;

std::string_view takeLastName(std::string_view& path)
{
  const auto separator = path.rfind('\\');
  const auto name = separator == std::string_view::npos ? path : path.substr(separator + 1);
  path = path.substr(0, separator == std::string_view::npos ? 0 : separator);
  return name;
}

/// Names at the end that two paths in lower case have in common.
std::size_t sharedNames(std::string_view a, std::string_view b)
{
  std::size_t shared = 0;
  while (!a.empty() && !b.empty() && takeLastName(a) == takeLastName(b))
    ++shared;
  return shared;
}

} // namespace

PictureFolder::PictureFolder(std::string_view directory)
{
  std::error_code failure;
  fs::recursive_directory_iterator entries(files::nativePath(directory), fs::directory_options::skip_permission_denied, failure);
  for (std::size_t count = 0; !failure && count < kMostFiles && entries != fs::recursive_directory_iterator();
       ++count, entries.increment(failure)) {
    std::error_code ignored;
    const auto& native = entries->path().native();
    // A backslash in a name cannot be told from a separator.
    if (native.find('\\') == std::string::npos && entries->is_regular_file(ignored))
      files_[base::lower(entries->path().filename().native())].push_back(files::systemPath(native));
  }
  for (auto& [name, paths] : files_)
    std::ranges::sort(paths);
}

std::optional<std::string> PictureFolder::find(std::string_view oldPath) const
{
  const auto wanted = base::lower(oldPath);
  std::string_view rest = wanted;
  const auto found = files_.find(std::string(takeLastName(rest)));
  if (found == files_.end())
    return std::nullopt;
  const auto shared = [&](const std::string& path) { return sharedNames(base::lower(path), wanted); };
  return *std::ranges::max_element(found->second, {}, shared);
}

} // namespace mrd::pictures
