#pragma once
// Placeholders of the built-in layout: `[mrd:...]` in a row's text, replaced by the site's colours and by a page's values.

#include "frame/settings/fields.h"

#include <string>
#include <string_view>

namespace mrd::generator {

/// Colour text without the "#" that it may have been stored with.
std::string_view colourDigits(std::string_view colour);

/// The six colours and the font, in their order. Reads the fields at each call.
std::string farbzuweisung(std::string_view text, const settings::Fields& fields);

/// A menu row for one page: heading and link target put in, then the colours. Without the line end of a print.
std::string menüzeile(std::string_view row, std::string_view Überschrift, std::string_view id, const settings::Fields& fields);

/// The references to `pix` in both kinds of quotes put below the base address; the text as it is without one.
std::string mitbasis(std::string_view text, std::string_view basislink);

} // namespace mrd::generator
