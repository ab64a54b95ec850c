#include "platform/html/reference.h"

#include "platform/html/tags.h"

#include <algorithm>

namespace mrd::html {
namespace {

bool isSeparator(char c) { return c == '/' || c == '\\'; }

std::string_view withoutOuterSpace(std::string_view text)
{
  while (!text.empty() && isHtmlSpace(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isHtmlSpace(text.back()))
    text.remove_suffix(1);
  return text;
}

bool isSchemeCharacter(char c) { return isAsciiLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.'; }

/// Length of "file:" and the like, 0 without one. A single letter is a drive.
std::size_t schemeLength(std::string_view text)
{
  std::size_t at = 0;
  while (at < text.size() && isSchemeCharacter(text[at]))
    ++at;
  const bool isScheme = at > 1 && at < text.size() && text[at] == ':' && isAsciiLetter(text.front());
  return isScheme ? at + 1 : 0;
}

bool startsWithDrive(std::string_view text) { return text.size() > 1 && isAsciiLetter(text[0]) && text[1] == ':'; }

std::size_t separatorsAt(std::string_view text, std::size_t at)
{
  std::size_t count = 0;
  while (at + count < text.size() && isSeparator(text[at + count]))
    ++count;
  return count;
}

/// Length of what stands before the path of an absolute reference: scheme, the two separators behind it, host or drive.
std::size_t authorityLength(std::string_view absolute)
{
  std::size_t at = schemeLength(absolute);
  if (separatorsAt(absolute, at) >= 2)
    at += 2;
  else if (at > 0)
    return at;
  const std::size_t drive = at + (at < absolute.size() && isSeparator(absolute[at]) ? 1 : 0);
  if (startsWithDrive(absolute.substr(std::min(drive, absolute.size()))))
    return drive + 2;
  while (at < absolute.size() && !isSeparator(absolute[at]))
    ++at;
  return at;
}

std::string_view pathPart(std::string_view reference) { return reference.substr(0, reference.find_first_of("?#")); }

/// Appends a path to `out` segment by segment; ".." takes back what stands behind `root`.
void appendPath(std::string& out, std::string_view path, std::size_t root)
{
  while (!path.empty()) {
    const auto end = std::find_if(path.begin(), path.end(), isSeparator);
    const auto length = static_cast<std::size_t>(end - path.begin());
    const std::string_view segment = path.substr(0, length);
    const std::size_t taken = length + (end != path.end() ? 1 : 0);
    if (segment == "..") {
      std::size_t cut = out.size();
      if (cut > root)
        --cut;
      while (cut > root && !isSeparator(out[cut - 1]))
        --cut;
      out.resize(cut);
    } else if (segment != ".") {
      out.append(path.substr(0, taken));
    }
    path.remove_prefix(taken);
  }
}

/// An absolute reference whose path starts behind `root`, with its dots worked.
std::string withDotsWorked(std::string_view absolute)
{
  std::size_t root = authorityLength(absolute);
  root += separatorsAt(absolute, root);
  const std::string_view path = pathPart(absolute.substr(root));
  std::string out(absolute.substr(0, root));
  appendPath(out, path, root);
  out.append(absolute.substr(root + path.size()));
  return out;
}

std::string resolveRooted(std::string_view base, std::string_view reference)
{
  const bool isLocal = startsWithDrive(reference) || schemeLength(base) == 0 || sameName(base.substr(0, 5), "file:");
  std::string absolute(isLocal ? std::string_view("file://") : base.substr(0, authorityLength(base)));
  return withDotsWorked(absolute.append(reference));
}

} // namespace

std::string resolveReference(std::string_view base, std::string_view reference)
{
  const std::string_view trimmed = withoutOuterSpace(reference);
  if (trimmed.empty() || schemeLength(trimmed) > 0)
    return std::string(reference);
  base = withoutOuterSpace(base);
  if (isSeparator(trimmed.front()) || startsWithDrive(trimmed))
    return resolveRooted(base, trimmed);
  const std::string_view page = trimmed.front() == '#' ? base.substr(0, base.find('#')) : pathPart(base);
  if (trimmed.front() == '#' || trimmed.front() == '?')
    return std::string(page).append(trimmed);
  std::size_t root = authorityLength(page);
  root += separatorsAt(page, root);
  const auto lastSeparator = page.find_last_of("/\\");
  const std::size_t directory = std::max(root, lastSeparator == std::string_view::npos ? 0 : lastSeparator + 1);
  std::string out(page.substr(0, directory));
  if (!isSeparator(out.back())) {
    out += '/';
    ++root;
  }
  const std::string_view path = pathPart(trimmed);
  appendPath(out, path, root);
  return out.append(trimmed.substr(path.size()));
}

} // namespace mrd::html
