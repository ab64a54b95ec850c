#pragma once
// An XML file as a tree of elements.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::xml {

struct Element {
  std::string name;
  std::map<std::string, std::string, std::less<>> attributes;
  /// Child elements in their order.
  std::vector<Element> children;
  /// The text in front of the first child, and the text behind the element up to its next sibling, with CR LF line ends.
  std::string text, tail;
  /// Something stands in it: an element, text that is not blank, a comment.
  bool hasChildNodes = false;

  std::string_view attribute(std::string_view attributeName) const;
  /// All text of the element and of those in it, as it stands.
  std::string textContent() const;
};

/// The document element of a file (Unicode, Latin-1 or Windows-1252); nothing for a file that is missing, larger than 64 MB, not
/// well-formed, or nested more than kMaxDepth deep. Entities of its own are not expanded. `path` in the system's form.
std::optional<Element> loadXml(std::string_view path);

/// Elements may stand this deep in each other.
inline constexpr int kMaxDepth = 500;

} // namespace mrd::xml
