#pragma once
// Colour tables of picture files, which the picture library resolves and forgets. For the sources of this folder only.

#include "platform/image/image.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::image {

struct ColourTable {
  std::vector<Colour> colours;
  /// The same file with other colours: whatever reads it gets a pixel's number in the table as the pixel's red.
  std::string numbered;
};

/// Colour table of the first picture in the bytes of a GIF, PNG, BMP, PCX or TIFF file of at most 8 bits a pixel; nothing for any
/// other bytes, and where the table is cut off.
std::optional<ColourTable> readColourTable(std::string_view bytes);

} // namespace mrd::image
