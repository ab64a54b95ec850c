#pragma once
// The pixels of a picture. For the sources of this folder only.

#include "platform/image/image.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace mrd::image {

inline constexpr int kBands = 3;

/// Memory that the library may have given.
struct Free {
  void operator()(void* memory) const;
};
using Pixels = std::unique_ptr<std::uint8_t, Free>;

inline std::size_t byteCount(int width, int height)
{
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBands;
}

/// Throws InvalidPicture for a side below 1 and for more pixels than `most`.
void checkSize(Size size, long long most);
/// As many as a picture in memory can have: more than most cameras take, and three bytes each still leave room for a copy.
inline constexpr long long kMostPixels = 70'000'000;

/// Black pixels.
Pixels newPixels(int width, int height);

struct Image::State {
  State(int w, int h) : width(w), height(h), pixels(newPixels(w, h)) {}
  State(int w, int h, Pixels p, std::vector<Colour> colours = {})
      : width(w), height(h), pixels(std::move(p)), palette(std::move(colours))
  {
  }

  std::uint8_t* at(int x, int y) const { return pixels.get() + byteCount(width, y) + byteCount(x, 1); }

  int width, height;
  Pixels pixels;
  std::vector<Colour> palette;
};

} // namespace mrd::image
