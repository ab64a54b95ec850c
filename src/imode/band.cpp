#include "imode/band.h"

#include "pictures/corners.h"

namespace mrd::imode {
namespace {

constexpr int kWidth = 120, kHeight = 20, kMargin = 1;
constexpr int kLetterHeight = 13;

} // namespace

image::Image drawBand(const settings::Fields& fields)
{
  auto band = image::Image::create(kWidth, kHeight);
  band.fill(pictures::colourOf(fields.Tbtabelle));
  band.drawText(fields.tbimodekopftext, {kMargin, kMargin, kWidth - 2 * kMargin, kHeight - 2 * kMargin}, kLetterHeight,
                pictures::colourOf(fields.tbmenütext));
  return band;
}

} // namespace mrd::imode
