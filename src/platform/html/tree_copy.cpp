#include "platform/html/tree_copy.h"

#include "platform/html/parse_run.h"

#include <gumbo.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace mrd::html {
namespace {

/// Deeper elements become siblings. Browsers draw the line at the same depth.
constexpr std::size_t kMaxDepth = 512;

struct KnownTag {
  std::string_view name;
  TagTraits traits;
};

const std::array<KnownTag, GUMBO_TAG_UNKNOWN>& knownTags()
{
  static const auto tags = [] {
    std::array<KnownTag, GUMBO_TAG_UNKNOWN> known;
    for (std::size_t tag = 0; tag < known.size(); ++tag) {
      known[tag].name = gumbo_normalized_tagname(static_cast<GumboTag>(tag));
      known[tag].traits = traitsOf(known[tag].name);
    }
    return known;
  }();
  return tags;
}

Namespace namespaceOf(const GumboElement& element)
{
  switch (element.tag_namespace) {
  case GUMBO_NAMESPACE_SVG:
    return Namespace::Svg;
  case GUMBO_NAMESPACE_MATHML:
    return Namespace::MathMl;
  default:
    return Namespace::Html;
  }
}

/// The name as it is written in the tag. (The library's own function for it ends names at more characters than its parser.)
std::string_view originalName(const GumboElement& element)
{
  std::string_view tag(element.original_tag.data, element.original_tag.length);
  tag.remove_prefix(std::min(tag.find_first_not_of("</"), tag.size()));
  return tag.substr(0, tag.find_first_of(" \t\n\r\f/>"));
}

/// A name that the parser does not know, in lower case; characters that no name may hold become U+FFFD.
std::string_view copyUnknownName(Arena& arena, std::string_view original)
{
  std::string name;
  for (const char c : original)
    if (c == '\0')
      name += "\xEF\xBF\xBD";
    else
      name += lowerAscii(c);
  return arena.copy(name);
}

std::string_view elementName(Arena& arena, const GumboElement& element)
{
  if (element.tag_namespace == GUMBO_NAMESPACE_SVG) {
    const std::string_view original = originalName(element);
    const GumboStringPiece piece{original.data(), original.size()};
    if (const char* const corrected = original.empty() ? nullptr : gumbo_normalize_svg_tagname(&piece))
      return corrected;
  }
  if (element.tag < GUMBO_TAG_UNKNOWN)
    return knownTags()[element.tag].name;
  return copyUnknownName(arena, originalName(element));
}

std::string_view attributeName(Arena& arena, const GumboAttribute& attribute)
{
  const std::string_view name = attribute.name;
  switch (attribute.attr_namespace) {
  case GUMBO_ATTR_NAMESPACE_XLINK:
    return arena.copy("xlink:" + std::string(name));
  case GUMBO_ATTR_NAMESPACE_XML:
    return arena.copy("xml:" + std::string(name));
  case GUMBO_ATTR_NAMESPACE_XMLNS:
    return name == "xmlns" ? "xmlns" : arena.copy("xmlns:" + std::string(name));
  default:
    return arena.copy(name);
  }
}

void readAttributes(Arena& arena, Node& node, const GumboVector& attributes)
{
  Attribute** end = &node.attributes;
  for (unsigned i = 0; i < attributes.length; ++i) {
    const auto& from = *static_cast<const GumboAttribute*>(attributes.data[i]);
    auto* const attribute = arena.make<Attribute>();
    attribute->name = attributeName(arena, from);
    attribute->value = arena.copy(from.value);
    *end = attribute;
    end = &attribute->next;
  }
}

Node* readElement(Arena& arena, const GumboElement& element)
{
  auto* const node = arena.make<Node>();
  node->space = namespaceOf(element);
  node->tag = static_cast<std::uint16_t>(element.tag);
  node->text = elementName(arena, element);
  if (node->space == Namespace::Html)
    node->traits = element.tag < GUMBO_TAG_UNKNOWN ? knownTags()[element.tag].traits : traitsOf(node->text);
  readAttributes(arena, *node, element.attributes);
  return node;
}

Node* readText(Arena& arena, const GumboNode& from)
{
  auto* const node = arena.make<Node>();
  node->kind = from.type == GUMBO_NODE_COMMENT ? NodeKind::Comment : NodeKind::Text;
  node->text = arena.copy(from.v.text.text);
  return node;
}

bool isElement(const GumboNode& node) { return node.type == GUMBO_NODE_ELEMENT || node.type == GUMBO_NODE_TEMPLATE; }

const GumboVector& childrenOf(const GumboNode& node)
{
  return node.type == GUMBO_NODE_DOCUMENT ? node.v.document.children : node.v.element.children;
}

/// Text as the parser decodes it; empty when it is none.
std::string decoded(std::string_view original)
{
  if (original.find_first_of(std::string_view("&<\r\0", 4)) == std::string_view::npos)
    return std::string(original);
  ParseRun run(original, ParseContext{GUMBO_TAG_DIV, Namespace::Html}, ParseBounds::Watched);
  const GumboOutput* const output = run.parse();
  if (output == nullptr)
    return {};
  std::string text;
  const GumboVector& children = childrenOf(*output->root);
  for (unsigned i = 0; i < children.length; ++i)
    if (const auto& child = *static_cast<const GumboNode*>(children.data[i]); !isElement(child))
      text += child.v.text.text;
  return text;
}

std::size_t findFormEnd(std::string_view text)
{
  for (auto at = text.find("</"); at != std::string_view::npos; at = text.find("</", at + 2))
    if (sameName(text.substr(at + 2, 4), "form"))
      return at;
  return std::string_view::npos;
}

/// Whether the last tag before `at` is the end tag of a form; `begin` stands before it in the same text.
bool followsFormEnd(const char* begin, const char* at)
{
  const std::string_view before(begin, static_cast<std::size_t>(at - begin));
  const auto tag = before.rfind('<');
  return tag != std::string_view::npos && sameName(before.substr(tag, 6), "</form");
}

/// The parser adds the last text of a form behind the form. Its original text then holds the end tag.
void giveBackTextOfForm(Arena& arena, const GumboElement& form, const GumboText& from, Node& text)
{
  const std::string_view original(from.original_text.data, from.original_text.length);
  const std::size_t end = findFormEnd(original);
  const char* const begin = form.original_tag.data;
  if (end == std::string_view::npos || begin == nullptr || begin >= original.data() || followsFormEnd(begin, original.data()))
    return;
  const std::string inForm = decoded(original.substr(0, end));
  if (inForm.empty() || !text.text.starts_with(inForm))
    return;
  auto* const last = arena.make<Node>();
  last->kind = NodeKind::Text;
  last->text = text.text.substr(0, inForm.size());
  append(*text.previous, *last);
  text.text.remove_prefix(inForm.size());
  if (text.text.empty())
    unlink(text);
}

bool isText(const GumboNode& node) { return node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_WHITESPACE; }

bool isForm(const GumboNode& node) { return node.type == GUMBO_NODE_ELEMENT && node.v.element.tag == GUMBO_TAG_FORM; }

} // namespace

void copyChildren(Arena& arena, const GumboNode& from, Node& into)
{
  struct Open {
    const GumboVector* children;
    unsigned next;
    Node* into;
  };
  std::vector<Open> open{{&childrenOf(from), 0, &into}};
  while (!open.empty()) {
    Open& top = open.back();
    if (top.next == top.children->length) {
      open.pop_back();
      continue;
    }
    const auto& child = *static_cast<const GumboNode*>(top.children->data[top.next]);
    const auto* const previous = top.next == 0 ? nullptr : static_cast<const GumboNode*>(top.children->data[top.next - 1]);
    ++top.next;
    Node* const node = isElement(child) ? readElement(arena, child.v.element) : readText(arena, child);
    append(*top.into, *node);
    if (previous != nullptr && isForm(*previous) && isText(child) && node->previous->tag == GUMBO_TAG_FORM)
      giveBackTextOfForm(arena, previous->v.element, child.v.text, *node);
    if (isElement(child) && child.v.element.children.length != 0)
      open.push_back({&child.v.element.children, 0, open.size() < kMaxDepth ? node : top.into});
  }
}

} // namespace mrd::html
