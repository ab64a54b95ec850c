#pragma once
// What a server says, as it may be shown to a user, in a window or on a terminal.

#include <string>
#include <string_view>

namespace mrd::ftp {

/// The text as UTF-8 in one line: without the password, which some servers repeat, and without characters that a terminal obeys.
std::string shownText(std::string_view text, std::string_view password);

} // namespace mrd::ftp
