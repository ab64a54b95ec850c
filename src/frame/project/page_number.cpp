#include "frame/project/page_number.h"

#include <algorithm>

namespace mrd::project {

bool isPageId(std::string_view text)
{
  constexpr std::string_view kRoot = "00";
  constexpr std::size_t kLongest = 8;
  if (text == kRoot)
    return true;
  if (text.empty() || text.size() % 2 != 0 || text.size() > kLongest)
    return false;
  for (std::size_t at = 0; at < text.size(); at += 2)
    if (text.substr(at, 2) == kRoot)
      return false;
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace mrd::project
