#pragma once

#include "platform/image/image.h"

#include <QImage>

namespace mrd::desktop {

/// The picture's own memory as something to draw: valid as long as the picture. A copy() lives on its own.
inline QImage shownImage(const image::Image& picture)
{
  constexpr int kBytesPerPixel = 3;
  return {picture.bytes().data(), picture.width(), picture.height(), kBytesPerPixel * picture.width(), QImage::Format_RGB888};
}

} // namespace mrd::desktop
