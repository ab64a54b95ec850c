#pragma once

#include <string>

namespace mrd::base {

/// A number as text: a blank stands in the place of the sign.
inline std::string numberText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

} // namespace mrd::base
