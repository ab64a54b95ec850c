#pragma once

#include <string_view>

namespace mrd::project {

/// Whether the text is "00" or one to four pairs of digits, none of them "00".
bool isPageId(std::string_view text);

} // namespace mrd::project
