#include "platform/dao/value.h"

#include "base/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace mrd::dao {
namespace {

std::string numberText(double number)
{
  std::array<char, 32> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return std::string(digits.data(), result.ptr);
}

std::int64_t cutTowardsZero(double number)
{
  constexpr double kLimit = 9223372036854775808.0;
  if (std::isnan(number))
    return 0;
  if (number >= kLimit)
    return std::numeric_limits<std::int64_t>::max();
  if (number < -kLimit)
    return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(number);
}

/// Bodies of pages are long and nearly pure ASCII: eight bytes are looked at in one go.
std::size_t asciiPrefix(std::string_view bytes)
{
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::size_t at = 0;
  for (std::uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if ((word & kHighBits) != 0)
      break;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80)
    ++at;
  return at;
}

/// Whether `bytes` are UTF-8 up to their end; only the stretches that are not ASCII take the slow way.
bool isUtf8(std::string_view bytes)
{
  while (true) {
    bytes.remove_prefix(asciiPrefix(bytes));
    if (bytes.empty())
      return true;
    std::size_t high = 1;
    while (high < bytes.size() && static_cast<unsigned char>(bytes[high]) >= 0x80)
      ++high;
    if (!base::isValidUtf8(bytes.substr(0, high)))
      return false;
    bytes.remove_prefix(high);
  }
}

} // namespace

std::string Value::text() const
{
  if (const auto* text = std::get_if<std::string>(&content_))
    return *text;
  if (const auto* number = std::get_if<std::int64_t>(&content_))
    return std::to_string(*number);
  if (const auto* number = std::get_if<double>(&content_))
    return numberText(*number);
  return {};
}

std::int64_t Value::integer() const
{
  if (const auto* number = std::get_if<std::int64_t>(&content_))
    return *number;
  return cutTowardsZero(number());
}

double Value::number() const
{
  if (const auto* number = std::get_if<std::int64_t>(&content_))
    return static_cast<double>(*number);
  if (const auto* number = std::get_if<double>(&content_))
    return *number;
  if (const auto* text = std::get_if<std::string>(&content_))
    return base::numericValue(*text);
  return 0;
}

std::string storedText(std::string_view bytes) { return isUtf8(bytes) ? std::string(bytes) : base::repairUtf8(bytes); }

void assignStoredText(std::string& out, std::string_view bytes)
{
  if (isUtf8(bytes))
    out.assign(bytes);
  else
    out = base::repairUtf8(bytes);
}

} // namespace mrd::dao
