#pragma once
// The identifier of a page: two digits a level, which are at once its key, its place in the tree and its order.

#include "frame/project/page_number.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace mrd::pagetree {

inline constexpr std::string_view kRootId = "00";
inline constexpr std::size_t kMaxLevels = 4;
inline constexpr int kMaxChildren = 99;
/// Characters of the deepest id.
inline constexpr std::size_t kMaxIdLength = 2 * kMaxLevels;

/// Key of a tree node: "@" keeps it from being a number.
std::string keyOf(std::string_view id);
/// The id of a key or of an id that is given as it is.
std::string idOf(std::string_view key);
bool isRoot(std::string_view keyOrId);

/// Two digits of a child's number, "-01" for -1.
std::string formatNumber(int number);
/// The last two digits as a number.
int numberOf(std::string_view id);
/// The id without its last two digits; empty for a page of the first level.
std::string parentOf(std::string_view id);
/// What the ids of a page's children begin with: nothing for the root.
std::string childPrefix(std::string_view id);
using project::isPageId;

} // namespace mrd::pagetree
