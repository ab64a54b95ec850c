#pragma once
// What the writer and the readers of text must know about an HTML element by its name.

#include <cstdint>
#include <string_view>

namespace mrd::html {

using TagTraits = std::uint16_t;

/// No content and no end tag.
inline constexpr TagTraits kVoid = 1 << 0;
/// Its text is written as it is.
inline constexpr TagTraits kRawText = 1 << 1;
/// Begins and ends a line of text.
inline constexpr TagTraits kBlock = 1 << 2;
/// Text inside is not shown.
inline constexpr TagTraits kHidden = 1 << 3;
/// White space inside is shown as it is.
inline constexpr TagTraits kPreformatted = 1 << 4;
inline constexpr TagTraits kLineBreak = 1 << 5;
inline constexpr TagTraits kTableCell = 1 << 6;
inline constexpr TagTraits kImage = 1 << 7;
/// A link when it has a `href`.
inline constexpr TagTraits kLink = 1 << 8;
inline constexpr TagTraits kBase = 1 << 9;
inline constexpr TagTraits kHtml = 1 << 10;
inline constexpr TagTraits kHead = 1 << 11;
/// `body` or `frameset`.
inline constexpr TagTraits kBody = 1 << 12;

/// Traits of the HTML element with the lower-case name; 0 for one that has none.
TagTraits traitsOf(std::string_view name);

/// The same name, ASCII case aside.
bool sameName(std::string_view a, std::string_view b);

constexpr char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr bool isHtmlSpace(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f'; }
constexpr bool isAsciiLetter(char c) { return lowerAscii(c) >= 'a' && lowerAscii(c) <= 'z'; }

} // namespace mrd::html
