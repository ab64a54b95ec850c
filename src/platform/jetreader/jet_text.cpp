#include "platform/jetreader/jet_text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace mrd::jetreader {
namespace {

constexpr char32_t kReplacement = 0xfffd;

void append(std::string& out, char32_t c)
{
  const auto add = [&](char32_t byte) { out += static_cast<char>(byte); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xc0 | c >> 6);
    add(0x80 | (c & 0x3f));
  } else if (c < 0x10000) {
    add(0xe0 | c >> 12);
    add(0x80 | (c >> 6 & 0x3f));
    add(0x80 | (c & 0x3f));
  } else {
    add(0xf0 | c >> 18);
    add(0x80 | (c >> 12 & 0x3f));
    add(0x80 | (c >> 6 & 0x3f));
    add(0x80 | (c & 0x3f));
  }
}

/// In a packed text a zero byte switches between one and two bytes a character.
std::u16string unitsOf(std::string_view bytes)
{
  std::u16string out;
  bool packed = bytes.starts_with("\xff\xfe");
  const bool switches = packed;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  for (std::size_t i = packed ? 2 : 0; i < bytes.size();) {
    if (switches && byte(i) == 0) {
      packed = !packed;
      ++i;
    } else if (packed) {
      out += static_cast<char16_t>(byte(i++));
    } else if (i + 1 < bytes.size()) {
      out += static_cast<char16_t>(byte(i) | byte(i + 1) << 8);
      i += 2;
    } else {
      break;
    }
  }
  return out;
}

} // namespace

std::string textOfVersion4(std::string_view bytes)
{
  const auto units = unitsOf(bytes);
  std::string out;
  out.reserve(units.size());
  const auto isLow = [&](std::size_t i) { return i < units.size() && (units[i] & 0xfc00) == 0xdc00; };
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char32_t unit = units[i];
    if ((unit & 0xf800) != 0xd800)
      append(out, unit);
    else if (unit < 0xdc00 && isLow(i + 1))
      append(out, 0x10000 + ((unit & 0x3ff) << 10) + (units[++i] & 0x3ff));
    else
      append(out, kReplacement);
  }
  return out;
}

std::optional<std::string> dateOf(double days)
{
  using namespace std::chrono;
  constexpr double kFirst = -657434, kBehindLast = 2958466;
  if (!(days >= kFirst && days < kBehindLast))
    return std::nullopt;
  // The time counts forwards in days before the first one too.
  const double whole = std::trunc(days);
  constexpr auto kBeginning = sys_days(year(1899) / 12 / 30);
  const auto moment = sys_seconds(kBeginning + std::chrono::days(static_cast<int>(whole))) +
                      seconds(std::llround(std::fabs(days - whole) * 86400));
  const auto day = floor<std::chrono::days>(moment);
  const year_month_day date(day);
  if (date.year() > year(9999))
    return std::nullopt; // by rounding
  const hh_mm_ss time(moment - day);
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", int(date.year()), unsigned(date.month()),
                unsigned(date.day()), int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count()));
  return text.data();
}

} // namespace mrd::jetreader
