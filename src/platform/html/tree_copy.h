#pragma once
// The parser's output as nodes of ours.

#include "platform/html/tree.h"

// The library's own name, so that its header stays out of this one.
struct GumboInternalNode;

namespace mrd::html {

/// The children of `from` as children of `into`, with all that is below them; what is nested too deep is flattened.
void copyChildren(Arena& arena, const GumboInternalNode& from, Node& into);

} // namespace mrd::html
