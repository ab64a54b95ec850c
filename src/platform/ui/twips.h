#pragma once
// The unit of window measures that are stored: a twentieth of a point.

namespace mrd::ui {

inline constexpr int kTwipsPerPixel = 15;

} // namespace mrd::ui
