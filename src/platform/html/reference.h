#pragma once
// References of a document, resolved against its base.

#include <string>
#include <string_view>

namespace mrd::html {

/// See Document::resolve; `base` is not empty.
std::string resolveReference(std::string_view base, std::string_view reference);

} // namespace mrd::html
