#pragma once
// The pixels of a picture. For the sources of this folder only.

#include "platform/image/codec.h"
#include "platform/image/palette.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace mrd::image {

inline std::size_t byteCount(int width, int height)
{
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBands;
}

/// Black pixels.
Pixels newPixels(int width, int height);

struct Image::State {
  State(int w, int h) : width(w), height(h), pixels(newPixels(w, h)) {}
  explicit State(Raster raster) : width(raster.size.width), height(raster.size.height), pixels(std::move(raster.pixels)) {}

  std::uint8_t* at(int x, int y) const { return pixels.get() + byteCount(width, y) + byteCount(x, 1); }

  /// Gives the picture its numbers and the table with the colours that its pixels have. Nothing of both where two pixels with one
  /// number look different: then the table does not tell how the picture looks.
  void take(ColourTable table);

  int width, height;
  Pixels pixels;
  std::vector<Colour> palette;
  std::vector<std::uint8_t> numbers;
};

} // namespace mrd::image
