#pragma once
// Values that tables keep as text.

#include <string_view>

namespace mrd::base {

/// Yes/no by word ("True", "Wahr") or by number (any but 0), blanks around it and its case aside.
bool yesNo(std::string_view text);

/// The number at the start of a text without its fraction, 0 where there is none; one that is too large is the largest that fits.
int wholeNumber(std::string_view text);

} // namespace mrd::base
