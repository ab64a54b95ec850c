#pragma once
// The document as a tree of nodes that lie in one arena.

#include "platform/html/arena.h"
#include "platform/html/tags.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace mrd::html {

enum class NodeKind : std::uint8_t { Document, Doctype, Element, Text, Comment };
enum class Namespace : std::uint8_t { Html, Svg, MathMl };

/// Names and values lie in the tree's arena; line ends in values are LF.
struct Attribute {
  std::string_view name;
  std::string_view value;
  Attribute* next = nullptr;
};

struct Node {
  NodeKind kind = NodeKind::Element;
  Namespace space = Namespace::Html;
  TagTraits traits = 0;
  /// The parser's number for the name of an element.
  std::uint16_t tag = 0;
  /// Name of an element or doctype, else the text. Line ends are LF.
  std::string_view text;
  Attribute* attributes = nullptr;
  Node* parent = nullptr;
  Node* previous = nullptr;
  Node* next = nullptr;
  Node* firstChild = nullptr;
  Node* lastChild = nullptr;

  bool isElement() const { return kind == NodeKind::Element; }
  bool has(TagTraits some) const { return (traits & some) != 0; }
};

/// The tree of one document and what is remembered about it.
struct Tree {
  Arena arena;
  Node* document = nullptr;
  /// Without a modern doctype some rules are those of old pages: a table may stand in a paragraph.
  bool isQuirks = true;
  /// Reference of the first `base` that has one, looked up once until the tree changes.
  mutable std::optional<std::string_view> baseReference;
};

/// Links `child`, which is in no tree, as the last child.
void append(Node& parent, Node& child);
/// Links `child`, which is in no tree, before `sibling`.
void insertBefore(Node& sibling, Node& child);
/// Takes the node with all that is below it out of the tree.
void unlink(Node& node);

/// The node behind `node` in document order within `top`; null at the end.
Node* following(Node* node, const Node* top);
/// The same without what is below `node`.
Node* followingSkippingChildren(Node* node, const Node* top);

/// Calls `visit` for each element below `top`, in document order.
template <class Visit>
void forEachElement(Node* top, Visit visit)
{
  for (Node* node = following(top, top); node != nullptr; node = following(node, top))
    if (node->isElement())
      visit(*node);
}

/// The first element below `top` that `matches`; null when there is none.
template <class Matches>
Node* firstElement(Node* top, Matches matches)
{
  for (Node* node = following(top, top); node != nullptr; node = following(node, top))
    if (node->isElement() && matches(*node))
      return node;
  return nullptr;
}

/// Null when the element lacks it; names are compared without case.
Attribute* findAttribute(const Node& element, std::string_view name);

} // namespace mrd::html
