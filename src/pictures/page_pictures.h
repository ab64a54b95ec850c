#pragma once
// Pictures of a page as files of this machine.

#include "frame/paths/paths.h"

#include <string>
#include <string_view>

namespace mrd::pictures {

/// Directory with its separator, name and extension of the local file that a reference leads to, without "file://".
paths::PathParts localParts(std::string_view reference);

/// The whole path again.
std::string pathOf(const paths::PathParts& parts);

} // namespace mrd::pictures
