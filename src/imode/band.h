#pragma once
// The head picture of the edition for telephones: a band with a text.

#include "frame/settings/fields.h"
#include "platform/image/image.h"

namespace mrd::imode {

/// 120 by 20 pixels in the colour of `Tbtabelle`, the text of `tbimodekopftext` on it in the colour of `tbmenütext`, cut off one
/// pixel inside the edges.
image::Image drawBand(const settings::Fields& fields);

} // namespace mrd::imode
