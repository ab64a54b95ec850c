#include "platform/image/image.h"

#include "base/text.h"
#include "platform/image/codec.h"
#include "platform/image/state.h"

#include <algorithm>
#include <string>

namespace mrd::image {
namespace {

/// More letters than any rectangle shows; drawing them all would take as long as the text is.
constexpr std::size_t kMostLetters = 1000;

std::uint8_t mixed(std::uint8_t ground, std::uint8_t colour, int share)
{
  constexpr int kWhole = 255;
  return static_cast<std::uint8_t>((ground * (kWhole - share) + colour * share + kWhole / 2) / kWhole);
}

} // namespace

void Image::drawText(std::string_view text, const Rectangle& bounds, int heightPx, Colour colour)
{
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos)
    return;
  const auto line = codec().textLine(base::repairUtf8(base::left(text, kMostLetters)), heightPx);
  const Size size = line.size;
  const int top = bounds.top + (bounds.height - size.height) / 2;
  auto& drawn = changeable();
  for (int y = std::max({0, bounds.top, top}); y < std::min({height(), bounds.top + bounds.height, top + size.height}); ++y)
    for (int x = std::max(0, bounds.left); x < std::min({width(), bounds.left + bounds.width, bounds.left + size.width}); ++x) {
      const int share = line.bytes.get()[static_cast<std::size_t>(y - top) * static_cast<std::size_t>(size.width) +
                                         static_cast<std::size_t>(x - bounds.left)];
      std::uint8_t* const pixel = drawn.at(x, y);
      pixel[0] = mixed(pixel[0], colour.red, share);
      pixel[1] = mixed(pixel[1], colour.green, share);
      pixel[2] = mixed(pixel[2], colour.blue, share);
    }
}

} // namespace mrd::image
