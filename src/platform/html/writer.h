#pragma once
// HTML text of a tree, by the fragment serialization rules, with CR LF line ends.

#include "platform/html/tree.h"

#include <string>
#include <string_view>

namespace mrd::html {

/// A node with its tags, and the same without them: what is below it.
void appendNode(std::string& out, const Node& node);
void appendChildren(std::string& out, const Node& parent);

/// Every LF becomes CR LF; nothing else is changed.
void appendWithLineEnds(std::string& out, std::string_view text);

} // namespace mrd::html
