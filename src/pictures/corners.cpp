#include "pictures/corners.h"

#include "base/text.h"

#include <charconv>

namespace mrd::pictures {
namespace {

constexpr int kLargestRadius = 2000;

} // namespace

int cornerRadius(std::string_view tbradius)
{
  const double radius = base::numericValue(tbradius);
  return radius >= 1 && radius <= kLargestRadius ? static_cast<int>(radius) : 1;
}

image::Colour colourOf(std::string_view text)
{
  const std::string number = settings::html_zu_farbe(text);
  constexpr std::string_view kHexadecimal = "&H";
  unsigned value = 0;
  std::from_chars(number.data() + kHexadecimal.size(), number.data() + number.size(), value, 16);
  // Colour numbers count blue, green, red from the front.
  return {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> 8 & 0xFF),
          static_cast<std::uint8_t>(value >> 16 & 0xFF)};
}

image::Image drawCorner(const Corner& corner, const settings::Fields& fields)
{
  const int radius = cornerRadius(fields.tbradius);
  const int outside = -radius - 1;
  auto picture = image::Image::create(radius, radius);
  picture.fill(colourOf(fields.tbhintergrundaussen));
  picture.fillEllipse({corner.boxLeftOfPicture ? outside : 0, corner.boxAbovePicture ? outside : 0, 2 * radius, 2 * radius},
                      colourOf(fields.Tbtabelle));
  return picture;
}

} // namespace mrd::pictures
