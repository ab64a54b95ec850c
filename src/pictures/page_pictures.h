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

/// Text of a file name or a field in a page. No quote or angle bracket in it becomes markup; "&" stays as it is in all pages, and
/// so does an apostrophe.
std::string inPage(std::string_view text);

} // namespace mrd::pictures
