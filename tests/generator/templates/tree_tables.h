#pragma once
// What the built-in layouts hold, written down a second time.

#include <span>
#include <string_view>

namespace mrd::templates {

/// A node; children follow their parent with a depth one greater. In the fragments "¶" is CR LF.
struct ExpectedNode {
  int depth;
  std::string_view name;
  /// M: menu node, A: active for ancestors, S: children always shown.
  std::string_view flags;
  std::string_view code, codeActive;
};

std::span<const ExpectedNode> expectedTree(std::string_view layout);

} // namespace mrd::templates
