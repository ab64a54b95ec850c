#pragma once

#include <string>

namespace mrd::ftp {

/// The user's own key for host logins, where there is one of the kinds that servers of today take; native path, or empty.
std::string usersKey();

} // namespace mrd::ftp
