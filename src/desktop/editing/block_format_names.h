#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::desktop {

/// Names of the block formats in the order in which the script counts them; `language` is "GER" or "ENG".
std::vector<std::string> blockFormatNames(std::string_view language);
/// The place of a format in this order, whichever language its name is from.
std::optional<int> blockFormatIndex(std::string_view name);

} // namespace mrd::desktop
