#include "platform/files/path.h"

#include "base/text.h"
#include "base/windows1252.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <system_error>

namespace mrd::files {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kBlanks = " \t\r\n\f\v";

bool isSeparator(char c) { return c == '\\' || c == '/'; }
bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsWithIgnoringCase(std::string_view text, std::string_view lowerStart)
{
  return text.size() >= lowerStart.size() &&
         std::equal(lowerStart.begin(), lowerStart.end(), text.begin(), [](char a, char b) { return a == lowerAscii(b); });
}

bool startsWithDrive(std::string_view path) { return path.size() >= 2 && isLetter(path[0]) && path[1] == ':'; }

// --- system form to native form

/// Equal but for the case of letters. Unlike the database's comparison it counts blanks at the end: they belong to a name.
bool isSameName(std::string_view a, std::string_view b)
{
  std::size_t at = 0;
  while (at < a.size() && at < b.size() && isAscii(a[at]) && isAscii(b[at])) {
    if (lowerAscii(a[at]) != lowerAscii(b[at]))
      return false;
    ++at;
  }
  a.remove_prefix(at);
  b.remove_prefix(at);
  return a.empty() || b.empty() ? a.empty() && b.empty() : base::lower(a) == base::lower(b);
}

bool isThere(const std::filesystem::path& native)
{
  struct stat status {};
  return ::stat(native.c_str(), &status) == 0;
}

/// The native path with the letters as written. Doubled separators count as one, as everywhere in file systems.
/// A path with a drive has no place here: it becomes one below the root that nothing bears, not one below the current directory.
std::filesystem::path asWritten(std::string_view path)
{
  std::string native;
  if (startsWithDrive(path)) {
    native.append("/").append(path.substr(0, 2)).append("/");
    path.remove_prefix(2);
  }
  for (const char c : path) {
    if (!isSeparator(c))
      // A zero byte would end the path early and name another file.
      native += c == '\0' ? '?' : c;
    else if (native.empty() || native.back() != '/')
      native += '/';
  }
  if (native.size() > 1 && native.back() == '/')
    native.pop_back();
  return native;
}

/// The entry of a directory that bears the name in another case; the first in byte order of several.
std::optional<std::string> entryIgnoringCase(const std::filesystem::path& directory, std::string_view name)
{
  std::optional<std::string> found;
  // The C library's reader, because this runs for every file that is not there, and paths for all entries would cost the most.
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(directory.empty() ? "." : directory.c_str()), ::closedir);
  for (const dirent* entry = nullptr; entries && (entry = ::readdir(entries.get()));) {
    const std::string_view entryName(entry->d_name);
    if (isSameName(entryName, name) && (!found || entryName < *found))
      found = entryName;
  }
  return found;
}

/// Looks from the end of the path towards the root, because nearly always the directory is there as written.
std::filesystem::path ignoringCase(const std::filesystem::path& native)
{
  if (native.empty() || native == native.root_path() || isThere(native))
    return native;
  const auto directory = ignoringCase(native.parent_path());
  const auto entry = entryIgnoringCase(directory, native.filename().native());
  return directory / (entry ? std::filesystem::path(*entry) : native.filename());
}

// --- references

int hexDigit(char c)
{
  if (isDigit(c))
    return c - '0';
  const char lower = lowerAscii(c);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The byte of the percent escape at the start of the text. `%00` is none: no name holds a zero byte.
std::optional<char> escapedByte(std::string_view text)
{
  if (text.size() < 3 || text[0] != '%' || hexDigit(text[1]) < 0 || hexDigit(text[2]) < 0)
    return std::nullopt;
  const int byte = hexDigit(text[1]) * 16 + hexDigit(text[2]);
  return byte == 0 ? std::nullopt : std::optional(static_cast<char>(byte));
}

/// UTF-8 where the bytes are that, character by character; the rest came from a page in Windows-1252.
void appendDecoded(std::string& out, std::string_view bytes)
{
  while (!bytes.empty()) {
    std::size_t length = 1;
    while (length < std::min<std::size_t>(4, bytes.size()) && !base::isValidUtf8(bytes.substr(0, length)))
      ++length;
    const bool isUtf8 = base::isValidUtf8(bytes.substr(0, length));
    length = isUtf8 ? length : 1;
    out += isUtf8 ? std::string(bytes.substr(0, length)) : base::fromWindows1252(bytes.substr(0, 1));
    bytes.remove_prefix(length);
  }
}

std::string withoutPercentEscapes(std::string_view text)
{
  std::string out;
  while (!text.empty()) {
    std::string run;
    while (const auto byte = escapedByte(text)) {
      run += *byte;
      text.remove_prefix(3);
    }
    appendDecoded(out, run);
    if (text.empty())
      break;
    out += text.front();
    text.remove_prefix(1);
  }
  return out;
}

std::string_view withoutBlanksInFront(std::string_view text)
{
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

/// `C:` or, as older browsers wrote it, `C|`, and then a separator or nothing more.
bool startsWithDriveOfReference(std::string_view text)
{
  return text.size() >= 2 && isLetter(text[0]) && (text[1] == ':' || text[1] == '|') &&
         (text.size() == 2 || isSeparator(text[2]) || text[1] == ':');
}

/// What follows `file:`, with its root: `///home/x`, `//C:\x`, `/home/x`, `//localhost/home/x`. Two separators alone are no root:
/// pages name a directory of the site as `file://pix/x.jpg`.
std::string pathBehindScheme(std::string_view rest)
{
  const auto separators = std::min(rest.find_first_not_of(kSeparators), rest.size());
  rest.remove_prefix(separators);
  constexpr std::string_view kThisMachine = "localhost";
  if (separators == 2 && startsWithIgnoringCase(rest, kThisMachine) && rest.size() > kThisMachine.size() &&
      isSeparator(rest[kThisMachine.size()]))
    return pathBehindScheme(rest.substr(kThisMachine.size()));
  if (startsWithDriveOfReference(rest))
    return std::string(rest.substr(0, 1)).append(":").append(rest.substr(2));
  const bool isBelowRoot = separators == 1 || separators > 2;
  return (isBelowRoot ? "\\" : "") + std::string(rest);
}

/// A plain path begins at the root once, however often its separator was written.
std::string withSingleRoot(std::string_view path)
{
  const auto separators = std::min(path.find_first_not_of(kSeparators), path.size());
  return (separators > 0 ? "\\" : "") + std::string(path.substr(separators));
}

/// Lower-case scheme in front of a colon; empty where there is none. Browsers pass over tabs and line ends in it.
std::string schemeOf(std::string_view reference)
{
  std::string scheme;
  for (const char c : withoutBlanksInFront(reference)) {
    if (c == ':')
      return scheme;
    if (c == '\t' || c == '\r' || c == '\n')
      continue;
    const bool belongs = isLetter(c) || (!scheme.empty() && (isDigit(c) || c == '+' || c == '-' || c == '.'));
    if (!belongs)
      return {};
    scheme += lowerAscii(c);
  }
  return {};
}

/// Without `.` and doubled separators; `..` is resolved by the file system, because a symbolic link may stand before it.
std::filesystem::path tidy(const std::filesystem::path& absolute)
{
  if (std::find(absolute.begin(), absolute.end(), "..") == absolute.end())
    return absolute.lexically_normal();
  std::error_code error;
  const auto resolved = std::filesystem::weakly_canonical(absolute, error);
  return error ? absolute : resolved;
}

} // namespace

std::filesystem::path nativePath(std::string_view path) { return ignoringCase(asWritten(path)); }

std::string systemPath(const std::filesystem::path& native)
{
  if (native.empty())
    return {};
  std::error_code error;
  const auto absolute = std::filesystem::absolute(native, error);
  std::string path = tidy(error ? native : absolute).native();
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

std::string pathFromReference(std::string_view reference)
{
  const std::string decoded = withoutPercentEscapes(reference);
  const auto text = withoutBlanksInFront(decoded);
  constexpr std::string_view kScheme = "file:";
  std::string path =
      startsWithIgnoringCase(text, kScheme) ? pathBehindScheme(text.substr(kScheme.size())) : withSingleRoot(decoded);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

bool isForeignReference(std::string_view reference)
{
  const std::string scheme = schemeOf(reference);
  if (scheme.size() < 2 || scheme == "file" || scheme == "http")
    return false;
  return scheme != "javascript" || !base::containsIgnoringCase(reference, "file:");
}

} // namespace mrd::files
