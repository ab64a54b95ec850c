#pragma once

#include <string>
#include <string_view>

namespace mrd::ftp {

/// What a user reads of a failure about which the server itself said nothing; empty for a number without words.
std::string wordsFor(int code, std::string_view host);

} // namespace mrd::ftp
