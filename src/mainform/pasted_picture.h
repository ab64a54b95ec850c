#pragma once

#include "frame/settings/fields.h"
#include "pictures/conversion.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

/// Brings a picture that was pasted into a page into `pix` of the export path, on the way of all pictures; `key` is the page's.
/// The reference under which the page shows it, or nothing for what is no picture. Throws base::Error.
std::optional<std::string> storePastedPicture(const pictures::ConversionOptions& options, const settings::Fields& fields,
                                              std::string_view key, std::string_view bytes, std::string_view mimeType);

} // namespace mrd::mainform
