#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

/// Keeps a picture that was pasted into a page in the directory `pix` of the export path; `id` is the page's. The reference under
/// which the page shows it, or nothing for a kind of picture that no page shows. Throws base::Error.
std::optional<std::string> storePastedPicture(std::string_view exportPath, std::string_view id, std::string_view bytes,
                                              std::string_view mimeType);

} // namespace mrd::mainform
