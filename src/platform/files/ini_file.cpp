#include "platform/files/ini_file.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>
#include <vector>

namespace mrd::files {
namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text)
{
  const auto first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string folded(std::string_view name) { return base::lower(trimmed(name)); }

/// Lines without their ends; the last is empty where the text ends with a line end.
Lines linesOf(std::string_view text)
{
  const std::string unified = base::toCrLf(text);
  Lines lines;
  for (std::string_view rest = unified;;) {
    const auto end = rest.find(base::kCrLf);
    lines.emplace_back(rest.substr(0, end));
    if (end == std::string_view::npos)
      return lines;
    rest.remove_prefix(end + base::kCrLf.size());
  }
}

bool isHeading(std::string_view line) { return trimmed(line).starts_with('['); }

bool isHeadingOf(std::string_view line, std::string_view section)
{
  if (!isHeading(line))
    return false;
  const auto name = trimmed(line).substr(1);
  return folded(name.substr(0, name.find(']'))) == folded(section);
}

bool isEntryOf(std::string_view line, std::string_view key)
{
  const auto equals = line.find('=');
  return equals != std::string_view::npos && !trimmed(line).starts_with(';') && folded(line.substr(0, equals)) == folded(key);
}

/// The lines below a section's heading, up to the next heading. Of sections with one name only the first counts.
struct Section {
  Lines::iterator begin, end;
  bool found;
};

Section sectionOf(Lines& lines, std::string_view name)
{
  const auto heading = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) { return isHeadingOf(line, name); });
  if (heading == lines.end())
    return {lines.end(), lines.end(), false};
  return {heading + 1, std::find_if(heading + 1, lines.end(), isHeading), true};
}

Lines::iterator entryOf(const Section& section, std::string_view key)
{
  return std::find_if(section.begin, section.end, [&](const std::string& line) { return isEntryOf(line, key); });
}

bool isQuoted(std::string_view value)
{
  return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
}

std::string_view withoutQuotes(std::string_view value) { return isQuoted(value) ? value.substr(1, value.size() - 2) : value; }

/// The value as one line that reads back as it is: what reading would take off is wrapped in a pair of quotes.
std::string written(std::string_view value)
{
  std::string line(value);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
  return trimmed(line) != line || isQuoted(line) ? "\"" + line + "\"" : line;
}

/// A name that would end its line or read as another thing cannot be a name.
void checkNames(std::string_view section, std::string_view key)
{
  const bool isBad = section.find_first_of(std::string_view("]\r\n\0", 4)) != std::string_view::npos || trimmed(key).empty() ||
                     key.find_first_of(std::string_view("=\r\n\0", 4)) != std::string_view::npos ||
                     trimmed(key).starts_with(';') || isHeading(key);
  if (isBad)
    throw base::Error(base::ErrorNumber::InvalidCall, base::format("Kein Name für eine Einstellung: [{}] {}", section, key));
}

void setEntry(Lines& lines, std::string_view section, std::string_view key, std::string_view value)
{
  auto place = sectionOf(lines, section);
  if (!place.found) {
    if (lines.back().empty())
      lines.pop_back();
    lines.insert(lines.end(), {base::format("[{}]", trimmed(section)), std::string()});
    place = sectionOf(lines, section);
  }
  if (const auto entry = entryOf(place, key); entry != place.end) {
    *entry = entry->substr(0, entry->find('=') + 1) + written(value);
    return;
  }
  // Blank lines that set off the next section stay behind the new entry.
  while (place.end != place.begin && trimmed(*(place.end - 1)).empty())
    --place.end;
  const bool isLast = place.end == lines.end();
  const auto entry = lines.insert(place.end, base::format("{}={}", trimmed(key), written(value)));
  if (isLast)
    lines.insert(entry + 1, std::string());
}

std::string textOf(const Lines& lines)
{
  std::string text;
  for (const auto& line : lines)
    text.append(text.empty() && &line == &lines.front() ? "" : base::kCrLf).append(line);
  return text;
}

/// Holds off the other writers of a directory's INI files. The directory carries the lock, because the file itself is replaced
/// by each write and a file for the lock alone would stay behind.
class WriterLock {
public:
  explicit WriterLock(const std::filesystem::path& file)
  {
    const auto directory = file.parent_path();
    descriptor_ = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ >= 0)
      acquire(file);
  }
  ~WriterLock()
  {
    if (descriptor_ >= 0)
      ::close(descriptor_);
  }
  WriterLock(const WriterLock&) = delete;
  WriterLock& operator=(const WriterLock&) = delete;

private:
  /// A writer takes milliseconds; one that holds on for seconds was stopped in the middle and must not stop us too.
  void acquire(const std::filesystem::path& file)
  {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    // File systems without such locks go on unlocked: a lost setting is better than none.
    while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR)) {
      if (std::chrono::steady_clock::now() > deadline) {
        ::close(descriptor_);
        throw base::Error(base::ErrorNumber::PathFileAccess,
                          base::format("Die Datei wird von einem anderen Programm benutzt: {}", file.native()));
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  int descriptor_;
};

Lines readLines(const std::string& path)
{
  return fileExists(path) ? linesOf(base::decodeText(readFile(path))) : Lines{std::string()};
}

} // namespace

IniFile::IniFile(std::string_view path) : path_(path) {}

std::optional<std::string> IniFile::value(std::string_view section, std::string_view key) const
try {
  Lines lines = readLines(path_);
  const auto place = sectionOf(lines, section);
  const auto entry = entryOf(place, key);
  if (entry == place.end)
    return std::nullopt;
  return std::string(withoutQuotes(trimmed(std::string_view(*entry).substr(entry->find('=') + 1))));
} catch (const base::Error&) {
  // A file that cannot be read holds nothing: the reader goes on with its defaults.
  return std::nullopt;
}

void IniFile::setValue(std::string_view section, std::string_view key, std::string_view value)
{
  checkNames(section, key);
  const WriterLock lock(nativePath(path_));
  const Lines before = readLines(path_);
  Lines lines = before;
  setEntry(lines, section, key, value);
  // A start writes much that stands there already, and a write that outlives a power cut can take longer than all else.
  if (lines != before || !fileExists(path_))
    writeFileAtomically(path_, textOf(lines));
}

} // namespace mrd::files
