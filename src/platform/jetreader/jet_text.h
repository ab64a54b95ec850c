#pragma once
// The forms that the old engine stores texts and dates in.

#include <optional>
#include <string>
#include <string_view>

namespace mrd::jetreader {

/// UTF-8 of a text of version 4: UTF-16, or packed where two bytes FF FE come first. A lone half of a pair becomes U+FFFD.
std::string textOfVersion4(std::string_view bytes);

/// "YYYY-MM-DD HH:MM:SS" of a number of days since 1899-12-30; nothing outside the years 100 to 9999.
std::optional<std::string> dateOf(double days);

} // namespace mrd::jetreader
