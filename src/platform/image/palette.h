#pragma once
// Colour tables of picture files, which the picture library resolves and forgets. For the sources of this folder only.

#include "platform/image/image.h"

#include <string_view>
#include <vector>

namespace mrd::image {

/// Colour table of the first picture in the bytes of a GIF, PNG, BMP or PCX file of at most 8 bits a pixel; empty for any other
/// bytes, and where the table is cut off.
std::vector<Colour> readPalette(std::string_view bytes);

} // namespace mrd::image
