#include "base/windows1252.h"

#include "base/format.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace mrd::base {
namespace {

/// Characters of the bytes 0x80 to 0x9F; all other bytes stand for themselves.
constexpr std::array<std::uint16_t, 32> kHighControls{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Code point of the two- to four-byte sequence at the start of `text`; 0 bytes for a broken one.
struct Decoded {
  std::uint32_t codepoint;
  std::size_t bytes;
};

Decoded decode(std::string_view text)
{
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  if (bytes == 0 || text.size() < bytes)
    return {0, 0};
  std::uint32_t codepoint = lead & (0xFFU >> (bytes + 1));
  for (std::size_t i = 1; i < bytes; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80)
      return {0, 0};
    codepoint = codepoint << 6 | (byte & 0x3FU);
  }
  // Longer than need be, half of a pair or beyond the last character: no UTF-8, whatever the bits say.
  constexpr std::array<std::uint32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  if (codepoint < kSmallest[bytes] || (codepoint >= 0xD800 && codepoint <= 0xDFFF) || codepoint > 0x10FFFF)
    return {0, 0};
  return {codepoint, bytes};
}

void appendCodepoint(std::string& out, std::uint32_t codepoint)
{
  if (codepoint < 0x80 || (codepoint >= 0xA0 && codepoint <= 0xFF)) {
    out += static_cast<char>(codepoint);
    return;
  }
  const auto* const known = std::find(kHighControls.begin(), kHighControls.end(), codepoint);
  if (known != kHighControls.end())
    out += static_cast<char>(0x80 + (known - kHighControls.begin()));
  else
    out += format("&#{};", codepoint);
}

} // namespace

void appendWindows1252(std::string& out, std::string_view utf8)
{
  while (!utf8.empty()) {
    const auto* const firstHigh = std::find_if(utf8.begin(), utf8.end(), [](char c) { return static_cast<signed char>(c) < 0; });
    const auto plain = static_cast<std::size_t>(firstHigh - utf8.begin());
    out.append(utf8.substr(0, plain));
    utf8.remove_prefix(plain);
    if (utf8.empty())
      return;
    const auto [codepoint, bytes] = decode(utf8);
    // A byte that is no UTF-8 goes out as it is: it came in as a byte of this very encoding.
    if (bytes == 0)
      out += utf8[0];
    else
      appendCodepoint(out, codepoint);
    utf8.remove_prefix(std::max<std::size_t>(bytes, 1));
  }
}

std::string toWindows1252(std::string_view utf8)
{
  std::string out;
  out.reserve(utf8.size());
  appendWindows1252(out, utf8);
  return out;
}

std::string fromWindows1252(std::string_view bytes)
{
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const std::uint32_t codepoint = byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80] : byte;
    if (codepoint < 0x80) {
      out += static_cast<char>(codepoint);
    } else if (codepoint < 0x800) {
      out += static_cast<char>(0xC0 | codepoint >> 6);
      out += static_cast<char>(0x80 | (codepoint & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | codepoint >> 12);
      out += static_cast<char>(0x80 | (codepoint >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (codepoint & 0x3F));
    }
  }
  return out;
}

std::string decodeText(std::string_view bytes)
{
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark))
    bytes.remove_prefix(kByteOrderMark.size());
  return isValidUtf8(bytes) ? std::string(bytes) : fromWindows1252(bytes);
}

} // namespace mrd::base
