#include "pagetree/page_id.h"

#include "base/format.h"
#include "base/text.h"

#include <cstdlib>

namespace mrd::pagetree {

std::string keyOf(std::string_view id) { return "@" + std::string(id); }

std::string idOf(std::string_view key) { return std::string(key.starts_with('@') ? key.substr(1) : key); }

bool isRoot(std::string_view keyOrId) { return idOf(keyOrId) == kRootId; }

std::string formatNumber(int number) { return base::format("{}{:02}", number < 0 ? "-" : "", std::abs(number)); }

int numberOf(std::string_view id) { return static_cast<int>(base::numericValue(base::right(id, 2))); }

std::string parentOf(std::string_view id) { return std::string(id.substr(0, id.size() < 2 ? 0 : id.size() - 2)); }

std::string childPrefix(std::string_view id) { return isRoot(id) ? std::string() : idOf(id); }

} // namespace mrd::pagetree
