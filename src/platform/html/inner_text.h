#pragma once
// The text of a part of a document as it is read.

#include "platform/html/tree.h"

#include <string>

namespace mrd::html {

/// As Element::innerText: as it would be read, with CR LF line ends.
std::string innerTextOf(const Node& element);
/// As Element::textContent: all text as it stands, with LF line ends.
std::string textContentOf(const Node& element);

} // namespace mrd::html
