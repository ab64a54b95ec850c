#pragma once
// The one door to the formatting library.

#include <fmt/format.h>

namespace mrd::base {
using fmt::format;
} // namespace mrd::base
