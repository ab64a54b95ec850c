#pragma once

#include <string>
#include <string_view>

namespace mrd::desktop {

/// The text as it is; or, where it nests elements so deeply that the web engine would work on it for minutes, without the tags
/// that go too far. All text that is shown stays.
std::string withBoundedDepth(std::string_view html);

} // namespace mrd::desktop
