#pragma once
// Date and time without a zone, as projects store it, and the clock that tells it.

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::base {

/// Local date and time to the second.
struct DateTime {
  int year = 1900, month = 1, day = 1, hour = 0, minute = 0, second = 0;

  auto operator<=>(const DateTime&) const = default;

  /// "YYYY-MM-DD HH:MM:SS", the form of database columns.
  std::string iso() const;
  /// "dd.mm.yyyy hh:mm:ss", the form of a date in a setting's text.
  std::string german() const;
};

/// Reads both forms above, and the ISO form with a "T"; the time may be missing (midnight) and leading zeros too ("1.1.1900").
/// A year of two digits behind points lies between 1930 and 2029. Nothing for another text or a day that the calendar lacks.
std::optional<DateTime> parseDateTime(std::string_view text);

/// Local date and time, kept within the years 100 to 9999, of seconds since 1970-01-01 00:00 UTC.
DateTime localTime(long long unixSeconds);

class Clock {
public:
  virtual ~Clock() = default;
  /// The present moment for everything that is written.
  virtual DateTime now() const = 0;
};

/// The machine's local time. The environment's SOURCE_DATE_EPOCH, when set, stands still instead and counts in UTC:
/// https://reproducible-builds.org/specs/source-date-epoch/
class SystemClock : public Clock {
public:
  DateTime now() const override;
};

} // namespace mrd::base
