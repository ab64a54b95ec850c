#pragma once
// Text into a tree, by the HTML5 parsing rules.

#include "platform/html/tree.h"

#include <string_view>

namespace mrd::html {

/// A whole document. Every text is one.
void readDocument(Tree& tree, std::string_view html);

/// The nodes of a text in the context of an element, as children of a node that is in no tree.
Node* readFragment(Tree& tree, const Node& context, std::string_view html);

/// A new empty HTML element as the last child.
Node* appendElement(Tree& tree, Node& parent, std::string_view name);

} // namespace mrd::html
