#pragma once
// How large a picture becomes that has to fit into a limit.

#include "platform/image/image.h"

#include <algorithm>
#include <cmath>

namespace mrd::pictures {

inline bool fits(image::Size size, double longerSidePx) { return size.width <= longerSidePx && size.height <= longerSidePx; }

/// The longer side becomes the limit, the other keeps the proportion, at least a pixel of it. The limit is 1 or more.
inline image::Size fitted(image::Size size, double longerSidePx)
{
  const double ratio = std::max(size.width, size.height) / longerSidePx;
  const auto scaled = [&](int side) { return std::max(1, static_cast<int>(std::lround(side / ratio))); };
  return {scaled(size.width), scaled(size.height)};
}

} // namespace mrd::pictures
