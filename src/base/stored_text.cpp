#include "base/stored_text.h"

#include "base/text.h"

#include <algorithm>
#include <limits>

namespace mrd::base {

bool yesNo(std::string_view text)
{
  const auto word = lower(trim(text));
  return word == "true" || word == "wahr" || numericValue(word) != 0;
}

int wholeNumber(std::string_view text)
{
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<double>(numericValue(text), Limits::min(), Limits::max()));
}

} // namespace mrd::base
