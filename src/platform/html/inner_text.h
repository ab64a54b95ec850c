#pragma once
// The text of a part of a document as it is read.

#include "platform/html/tree.h"

#include <string>

namespace mrd::html {

std::string innerTextOf(const Node& element);
std::string textContentOf(const Node& element);

} // namespace mrd::html
