#pragma once

#include <string>
#include <string_view>

namespace mrd::desktop {

/// The text as it is; or, where it nests elements so deeply that the web engine would work on it for minutes, what the parser of the
/// generator makes of it, which keeps the depth in bounds.
std::string withBoundedDepth(std::string_view html);

} // namespace mrd::desktop
