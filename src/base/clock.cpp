#include "base/clock.h"

#include "base/format.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace mrd::base {
namespace {

DateTime fromBrokenDown(const std::tm& tm)
{
  return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

/// Within the years that have four digits: a damaged disk shows files of any date.
std::time_t presentable(long long unixSeconds)
{
  constexpr long long kFirst = -59'011'459'200; // 0100-01-01
  constexpr long long kLast = 253'402'214'400;  // 9999-12-31
  return static_cast<std::time_t>(std::clamp(unixSeconds, kFirst, kLast));
}

DateTime utcTime(long long unixSeconds)
{
  const auto seconds = presentable(unixSeconds);
  std::tm tm{};
  gmtime_r(&seconds, &tm);
  return fromBrokenDown(tm);
}

std::optional<long long> number(std::string_view digits)
{
  long long value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() || digits.empty() || value < 0)
    return std::nullopt;
  return value;
}

/// Numbers between the separators; empty when a piece is no number or there are not `count` of them.
std::vector<int> numbers(std::string_view text, char separator, std::size_t count)
{
  std::vector<int> out;
  while (out.size() < count) {
    const auto end = text.find(separator);
    const auto piece = number(text.substr(0, end));
    if (!piece || *piece > 9999)
      return {};
    out.push_back(static_cast<int>(*piece));
    if (end == std::string_view::npos)
      return out.size() == count ? out : std::vector<int>{};
    text.remove_prefix(end + 1);
  }
  return {};
}

/// The year that two digits stand for, as the platform's date conversion has it: 1930 to 2029.
int fullYear(int year) { return year >= 100 ? year : year < 30 ? 2000 + year : 1900 + year; }

std::optional<DateTime> date(std::string_view text)
{
  DateTime out;
  if (const auto german = numbers(text, '.', 3); !german.empty()) {
    out.day = german[0], out.month = german[1], out.year = fullYear(german[2]);
  } else if (const auto iso = numbers(text, '-', 3); !iso.empty()) {
    out.year = iso[0], out.month = iso[1], out.day = iso[2];
  } else {
    return std::nullopt;
  }
  // The calendar keeps days and months in a byte, where 257 would pass for 1.
  if (out.month > 12 || out.day > 31)
    return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year(out.year), std::chrono::month(static_cast<unsigned>(out.month)),
                                        std::chrono::day(static_cast<unsigned>(out.day))};
  return day.ok() ? std::optional(out) : std::nullopt;
}

} // namespace

std::string DateTime::iso() const
{
  return format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", year, month, day, hour, minute, second);
}

std::string DateTime::german() const
{
  return format("{:02}.{:02}.{:04} {:02}:{:02}:{:02}", day, month, year, hour, minute, second);
}

std::optional<DateTime> parseDateTime(std::string_view text)
{
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos)
    return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  const auto gap = text.find_first_of(" T");
  auto out = date(text.substr(0, gap));
  if (!out || gap == std::string_view::npos)
    return out;
  const auto time = numbers(text.substr(gap + 1), ':', 3);
  if (time.empty() || time[0] > 23 || time[1] > 59 || time[2] > 59)
    return std::nullopt;
  out->hour = time[0], out->minute = time[1], out->second = time[2];
  return out;
}

DateTime localTime(long long unixSeconds)
{
  const auto seconds = presentable(unixSeconds);
  std::tm tm{};
  localtime_r(&seconds, &tm);
  return fromBrokenDown(tm);
}

DateTime SystemClock::now() const
{
  if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH"))
    if (const auto seconds = number(epoch))
      return utcTime(*seconds);
  return localTime(std::time(nullptr));
}

} // namespace mrd::base
