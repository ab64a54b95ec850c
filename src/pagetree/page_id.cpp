#include "pagetree/page_id.h"

#include "base/format.h"
#include "base/text.h"

#include <algorithm>
#include <cstdlib>

namespace mrd::pagetree {

std::string keyOf(std::string_view id) { return "@" + std::string(id); }

std::string idOf(std::string_view key) { return std::string(key.starts_with('@') ? key.substr(1) : key); }

bool isRoot(std::string_view keyOrId) { return idOf(keyOrId) == kRootId; }

std::string formatNumber(int number) { return base::format("{}{:02}", number < 0 ? "-" : "", std::abs(number)); }

int numberOf(std::string_view id) { return static_cast<int>(base::numericValue(base::right(id, 2))); }

std::string parentOf(std::string_view id) { return std::string(id.substr(0, id.size() < 2 ? 0 : id.size() - 2)); }

std::string childPrefix(std::string_view id) { return isRoot(id) ? std::string() : idOf(id); }

bool isPageId(std::string_view text)
{
  if (text == kRootId)
    return true;
  if (text.empty() || text.size() % 2 != 0 || text.size() > kMaxIdLength)
    return false;
  for (std::size_t at = 0; at < text.size(); at += 2)
    if (text.substr(at, 2) == kRootId)
      return false;
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace mrd::pagetree
