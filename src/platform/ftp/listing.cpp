#include "platform/ftp/listing.h"

#include "base/text.h"
#include "base/windows1252.h"
#include "platform/ftp/operation.h"

#include <algorithm>
#include <array>

namespace mrd::ftp {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isAllDigits(std::string_view text) { return !text.empty() && std::all_of(text.begin(), text.end(), isDigit); }

/// The next word of a line, which loses it and the blanks in front of it.
std::string_view takeWord(std::string_view& line)
{
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  const auto word = line.substr(0, line.find(' '));
  line.remove_prefix(word.size());
  return word;
}

std::optional<ListingEntry> entryOfFacts(std::string_view line)
{
  const auto blank = line.find(' ');
  if (blank == std::string_view::npos)
    return std::nullopt;
  const auto facts = base::lower(line.substr(0, blank));
  if (base::contains(facts, "type=cdir") || base::contains(facts, "type=pdir"))
    return std::nullopt;
  const bool isLink = base::contains(facts, "type=os.unix=slink") || base::contains(facts, "type=os.unix=symlink");
  return ListingEntry{std::string(line.substr(blank + 1)), base::contains(facts, "type=dir"), isLink};
}

/// The name of a symbolic link without what it leads to.
std::string_view withoutLinkTarget(std::string_view name) { return name.substr(0, name.find(" -> ")); }

bool isMonth(std::string_view word)
{
  constexpr std::array<std::string_view, 17> kMonths{"jan", "feb", "mar", "mär", "mrz", "apr", "may", "mai", "jun",
                                                     "jul", "aug", "sep", "oct", "okt", "nov", "dec", "dez"};
  return std::find(kMonths.begin(), kMonths.end(), base::left(base::lower(word), 3)) != kMonths.end();
}

bool isTimeOrYear(std::string_view word)
{
  // "12:30" or "2003", and no day: a size of few digits in front of "Jan 31" is no day either.
  return word.size() >= 4 && isDigit(word.front()) &&
         std::all_of(word.begin(), word.end(), [](char c) { return isDigit(c) || c == ':'; });
}

/// Whether three words are a date as listings of Unix write it: "Jan 31 12:30", "31 Jan 2003" or "2003-01-31 12:30" with what
/// follows. Gives the number of words that belong to it.
std::size_t wordsOfDate(std::string_view rest)
{
  const auto first = takeWord(rest);
  const auto second = takeWord(rest);
  const auto third = takeWord(rest);
  const bool isDay = isAllDigits(second.substr(0, second.find('.'))) && second.size() <= 3;
  if (isMonth(first) && isDay && isTimeOrYear(third))
    return 3;
  if (isAllDigits(first.substr(0, first.find('.'))) && first.size() <= 3 && isMonth(second) && isTimeOrYear(third))
    return 3;
  const bool isIso = first.size() == 10 && first[4] == '-' && first[7] == '-';
  return isIso && base::contains(second, ":") ? 2 : 0;
}

/// "-rw-r--r--  1 anna users  4711 Jan 31 12:30 name with blanks": owner and group may be missing or hold blanks, so the date is
/// looked for. One blank divides it from the name, which may begin with blanks of its own.
std::optional<ListingEntry> entryOfUnix(std::string_view line)
{
  constexpr std::string_view kKinds = "-dlbcps";
  if (line.size() < 10 || kKinds.find(line.front()) == std::string_view::npos)
    return std::nullopt;
  const bool isDirectory = line.front() == 'd';
  const bool isLink = line.front() == 'l';
  takeWord(line);
  std::string_view before;
  while (!line.empty()) {
    if (const auto count = isAllDigits(before) ? wordsOfDate(line) : 0; count > 0) {
      for (std::size_t i = 0; i < count; ++i)
        takeWord(line);
      const auto name = line.empty() ? line : line.substr(1);
      return ListingEntry{std::string(isLink ? withoutLinkTarget(name) : name), isDirectory, isLink};
    }
    before = takeWord(line);
  }
  return std::nullopt;
}

/// "01-31-03  12:30PM       <DIR>          name" or with a size in place of the word.
std::optional<ListingEntry> entryOfDos(std::string_view line)
{
  const auto date = takeWord(line);
  const auto time = takeWord(line);
  if (date.size() < 8 || !isDigit(date.front()) || (date[2] != '-' && date[4] != '-' && date[2] != '.' && date[2] != '/') ||
      !base::contains(time, ":"))
    return std::nullopt;
  auto size = takeWord(line);
  if (size == "AM" || size == "PM")
    size = takeWord(line);
  const bool isDirectory = base::lower(size) == "<dir>";
  if (!isDirectory && !isAllDigits(base::replaceAll(base::replaceAll(size, ".", ""), ",", "")))
    return std::nullopt;
  // Sizes end in one column with one blank behind; the word for a directory is padded.
  const auto start = isDirectory ? line.find_first_not_of(' ') : std::size_t{1};
  return ListingEntry{std::string(start < line.size() ? line.substr(start) : std::string_view()), isDirectory};
}

std::optional<ListingEntry> entryOf(std::string_view line, ListingForm form)
{
  if (form == ListingForm::Facts)
    return entryOfFacts(line.starts_with(' ') ? line.substr(1) : line);
  if (auto entry = entryOfUnix(line))
    return entry;
  return entryOfDos(line);
}

} // namespace

std::vector<ListingEntry> parseListing(std::string_view text, ListingForm form)
{
  std::vector<ListingEntry> entries;
  while (!text.empty()) {
    const auto end = text.find('\n');
    auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    auto entry = entryOf(base::isValidUtf8(line) ? std::string(line) : base::fromWindows1252(line), form);
    if (entry && isFileName(entry->name))
      entries.push_back(std::move(*entry));
  }
  return entries;
}

std::string asLines(const std::vector<ListingEntry>& entries)
{
  std::string lines;
  for (const auto& entry : entries)
    lines += entry.name + (entry.isDirectory ? "/" : "") + std::string(base::kCrLf);
  return lines;
}

std::vector<std::string> linksOf(const std::vector<ListingEntry>& entries)
{
  std::vector<std::string> names;
  for (const auto& entry : entries)
    if (entry.isLink)
      names.push_back(entry.name);
  return names;
}

} // namespace mrd::ftp
