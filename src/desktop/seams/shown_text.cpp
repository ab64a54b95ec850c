#include "desktop/seams/shown_text.h"

#include <algorithm>
#include <filesystem>

namespace mrd::desktop {
namespace {

constexpr bool kBackslashIsNative = std::filesystem::path::preferred_separator == '\\';

} // namespace

QString shownPath(std::string_view systemPath)
{
  std::string text(systemPath);
  if (!kBackslashIsNative && text.starts_with('\\'))
    std::ranges::replace(text, '\\', '/');
  return shown(text);
}

std::string typedPath(const QString& typed)
{
  std::string text = typed.toStdString();
  if (!kBackslashIsNative && text.starts_with('/'))
    std::ranges::replace(text, '/', '\\');
  return text;
}

} // namespace mrd::desktop
