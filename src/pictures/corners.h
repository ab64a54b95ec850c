#pragma once
// The four quarter circles that round off the content box of a page.

#include "frame/settings/fields.h"
#include "platform/image/image.h"

#include <array>
#include <string_view>

namespace mrd::pictures {

/// One corner picture: its file below `pix` and where the circle's box lies, in multiples of the radius and then in pixels.
struct Corner {
  std::string_view fileName;
  /// Whether the box begins one radius and one pixel before the picture's left or upper edge.
  bool boxLeftOfPicture, boxAbovePicture;
};

/// In the order in which a run writes and enters them.
inline constexpr std::array kCorners{
    Corner{"ecke-ur.jpg", true, true},
    Corner{"ecke-ol.jpg", false, false},
    Corner{"ecke-or.jpg", true, false},
    Corner{"ecke-ul.jpg", false, true},
};

/// Radius in pixels from the text of its field; 1 for 0, for what is no number and for what is too large to draw (above 2,000).
int cornerRadius(std::string_view tbradius);

/// Colour of a colour text with or without "#".
image::Colour colourOf(std::string_view text);

/// The corner in the field's colours and radius: outside `tbhintergrundaussen`, inside `Tbtabelle`.
image::Image drawCorner(const Corner& corner, const settings::Fields& fields);

} // namespace mrd::pictures
