#include "base/text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace mrd::base {
namespace {

constexpr utf8proc_int32_t kReplacementCharacter = 0xFFFD;

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// The character at the start of `text` and its length in bytes; a broken byte counts as one replacement character.
struct Character {
  utf8proc_int32_t codepoint;
  std::size_t bytes;
  bool valid;
};

Character firstCharacter(std::string_view text)
{
  utf8proc_int32_t codepoint = 0;
  const auto bytes = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                      static_cast<utf8proc_ssize_t>(text.size()), &codepoint);
  if (bytes < 1)
    return {kReplacementCharacter, 1, false};
  return {codepoint, static_cast<std::size_t>(bytes), true};
}

void appendCharacter(std::string& out, utf8proc_int32_t codepoint)
{
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto count = utf8proc_encode_char(codepoint, bytes.data());
  out.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
}

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

template <class AsciiCase, class UnicodeCase>
std::string mapCase(std::string_view text, AsciiCase ascii, UnicodeCase unicode)
{
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (isAscii(text[at])) {
      out += ascii(text[at++]);
      continue;
    }
    const auto character = firstCharacter(text.substr(at));
    if (character.valid)
      appendCharacter(out, unicode(character.codepoint));
    else
      out += text[at];
    at += character.bytes;
  }
  return out;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
  const auto last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

} // namespace

std::string lower(std::string_view text) { return mapCase(text, lowerAscii, utf8proc_tolower); }

std::string upper(std::string_view text)
{
  // The capital sharp s is young and known to few fonts; nobody who asks for capitals expects it.
  constexpr utf8proc_int32_t kSharpS = 0xDF;
  return mapCase(text, upperAscii, [](utf8proc_int32_t c) { return c == kSharpS ? c : utf8proc_toupper(c); });
}

int compareText(std::string_view a, std::string_view b)
{
  a = withoutTrailingBlanks(a);
  b = withoutTrailingBlanks(b);
  while (!a.empty() && !b.empty()) {
    const auto x = firstCharacter(a);
    const auto y = firstCharacter(b);
    const auto difference = utf8proc_tolower(x.codepoint) - utf8proc_tolower(y.codepoint);
    if (difference != 0)
      return difference < 0 ? -1 : 1;
    a.remove_prefix(x.bytes);
    b.remove_prefix(y.bytes);
  }
  return static_cast<int>(b.empty()) - static_cast<int>(a.empty());
}

std::string comparisonKey(std::string_view text)
{
  text = withoutTrailingBlanks(text);
  return isValidUtf8(text) ? lower(text) : lower(repairUtf8(text));
}

std::string trim(std::string_view text)
{
  text = withoutTrailingBlanks(text);
  const auto first = text.find_first_not_of(' ');
  return std::string(first == std::string_view::npos ? std::string_view() : text.substr(first));
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to)
{
  std::string out;
  if (from.empty())
    return std::string(text);
  out.reserve(text.size() + to.size());
  for (;;) {
    const auto at = text.find(from);
    if (at == std::string_view::npos)
      return out.append(text);
    out.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
}

bool contains(std::string_view text, std::string_view piece) { return text.find(piece) != std::string_view::npos; }

bool containsIgnoringCase(std::string_view text, std::string_view piece) { return contains(lower(text), lower(piece)); }

std::size_t length(std::string_view text)
{
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

std::string_view left(std::string_view text, std::size_t count)
{
  std::size_t at = 0;
  while (at < text.size() && count-- > 0)
    do
      ++at;
    while (at < text.size() && isContinuation(text[at]));
  return text.substr(0, at);
}

std::string_view right(std::string_view text, std::size_t count)
{
  std::size_t at = text.size();
  while (at > 0 && count-- > 0)
    do
      --at;
    while (at > 0 && isContinuation(text[at]));
  return text.substr(at);
}

bool isValidUtf8(std::string_view bytes)
{
  while (!bytes.empty()) {
    if (isAscii(bytes.front())) {
      bytes.remove_prefix(1);
      continue;
    }
    const auto character = firstCharacter(bytes);
    if (!character.valid)
      return false;
    bytes.remove_prefix(character.bytes);
  }
  return true;
}

std::string repairUtf8(std::string_view bytes)
{
  std::string out;
  out.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto character = firstCharacter(bytes);
    appendCharacter(out, character.codepoint);
    bytes.remove_prefix(character.bytes);
  }
  return out;
}

double numericValue(std::string_view text)
{
  std::string digits(text);
  std::erase_if(digits, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  const char* first = digits.data();
  const char* last = first + digits.size();
  if (digits.starts_with('+') && !digits.starts_with("+-"))
    ++first;
  double value = 0;
  const auto result = std::from_chars(first, last, value);
  // "inf" and "nan" are words here, not numbers.
  const bool isNumber = result.ec == std::errc() && value - value == 0;
  // The sum turns a negative zero into zero.
  return isNumber ? value + 0.0 : 0;
}

std::string toCrLf(std::string_view text)
{
  std::string out;
  out.reserve(text.size() + text.size() / 16);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' || text[at] == '\n') {
      out += kCrLf;
      if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n')
        ++at;
    } else {
      out += text[at];
    }
  }
  return out;
}

} // namespace mrd::base
