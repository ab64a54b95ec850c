#pragma once
// Text as the whole system sees it: UTF-8 in std::string, compared and lower-cased by Unicode, measured in characters.

#include <cstddef>
#include <string>
#include <string_view>

namespace mrd::base {

/// Lower case by Unicode, character by character; the number of characters stays ("Ä" becomes "ä", "ß" stays).
std::string lower(std::string_view text);
/// Upper case by Unicode, character by character ("ß" stays).
std::string upper(std::string_view text);

/// Order of the database engine's text comparison: case and trailing blanks do not count. Below, at or above 0.
int compareText(std::string_view a, std::string_view b);
/// A text that is equal for exactly those texts that compareText finds equal.
std::string comparisonKey(std::string_view text);

/// Without the blanks at both ends; tabs and line ends stay.
std::string trim(std::string_view text);

/// Every occurrence of `from` replaced in one pass from the left; what `to` brings in is not looked at again.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

bool contains(std::string_view text, std::string_view piece);
bool containsIgnoringCase(std::string_view text, std::string_view piece);

/// Length in characters.
std::size_t length(std::string_view text);
/// The first `count` characters; all of a shorter text.
std::string_view left(std::string_view text, std::size_t count);
/// The last `count` characters; all of a shorter text.
std::string_view right(std::string_view text, std::size_t count);

bool isValidUtf8(std::string_view bytes);
/// The bytes as valid UTF-8: what is no UTF-8 is replaced by U+FFFD.
std::string repairUtf8(std::string_view bytes);

/// The number at the start of a text, 0 where there is none ("25 px" is 25, "px" is 0). The decimal sign is the point; blanks,
/// tabs and line ends are passed over everywhere ("1 000" is 1000).
double numericValue(std::string_view text);

/// Every line end (CR LF, CR, LF) as CR LF.
std::string toCrLf(std::string_view text);

inline constexpr std::string_view kCrLf = "\r\n";

} // namespace mrd::base
