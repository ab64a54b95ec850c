#include "platform/html/reader.h"

#include "base/text.h"
#include "platform/html/flatten.h"
#include "platform/html/parse_run.h"

#include <gumbo.h>

#include <algorithm>
#include <array>
#include <cstring>
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

std::string_view originalName(const GumboElement& element)
{
  GumboStringPiece piece = element.original_tag;
  if (piece.data == nullptr || piece.length < 2)
    return {};
  gumbo_tag_from_original_text(&piece);
  return {piece.data, piece.length};
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

/// The children of `from` as children of `into`, with all that is below them.
void readChildren(Arena& arena, const GumboVector& from, Node& into)
{
  struct Open {
    const GumboVector* children;
    unsigned next;
    Node* into;
  };
  std::vector<Open> open{{&from, 0, &into}};
  while (!open.empty()) {
    Open& top = open.back();
    if (top.next == top.children->length) {
      open.pop_back();
      continue;
    }
    const auto& child = *static_cast<const GumboNode*>(top.children->data[top.next++]);
    Node* const node = isElement(child) ? readElement(arena, child.v.element) : readText(arena, child);
    append(*top.into, *node);
    if (isElement(child) && child.v.element.children.length != 0)
      open.push_back({&child.v.element.children, 0, open.size() < kMaxDepth ? node : top.into});
  }
}

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool isAsciiWord(const char* bytes)
{
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return (word & 0x8080808080808080U) == 0;
}

/// Looks closer only at what is not ASCII, which in most pages is little.
bool isValidUtf8(std::string_view text)
{
  for (std::size_t at = 0; at < text.size();) {
    if (at + 8 <= text.size() && isAsciiWord(text.data() + at)) {
      at += 8;
      continue;
    }
    if (isAscii(text[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < text.size() && !isAscii(text[end]))
      ++end;
    if (!base::isValidUtf8(text.substr(at, end - at)))
      return false;
    at = end;
  }
  return true;
}

/// Runs the parser over the text, and hands its output to `read`; a text that would make it run away is flattened first.
template<class Read>
void parse(std::string_view html, const std::optional<ParseContext>& context, Read read)
{
  std::string repaired;
  if (!isValidUtf8(html)) {
    repaired = base::repairUtf8(html);
    html = repaired;
  }
  std::string flattened;
  for (const auto flatten : {Flattening::None, Flattening::Balanced, Flattening::TextAndVoidTags}) {
    if (flatten != Flattening::None)
      flattened = flattenTags(html, flatten);
    const auto bounds = flatten == Flattening::TextAndVoidTags ? ParseBounds::None : ParseBounds::Watched;
    ParseRun run(flatten == Flattening::None ? html : std::string_view(flattened), context, bounds);
    if (const GumboOutput* const output = run.parse()) {
      read(*output);
      return;
    }
  }
}

std::string_view withoutByteOrderMark(std::string_view html)
{
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (html.starts_with(kByteOrderMark))
    html.remove_prefix(kByteOrderMark.size());
  return html;
}

void readDoctype(Tree& tree, const GumboDocument& document)
{
  if (!document.has_doctype)
    return;
  auto* const doctype = tree.arena.make<Node>();
  doctype->kind = NodeKind::Doctype;
  doctype->text = tree.arena.copy(document.name);
  append(*tree.document, *doctype);
}

/// A foreign element whose name means something to the parser, because HTML may stand in it.
bool isIntegrationPoint(const Node& element)
{
  constexpr std::array kPoints{GUMBO_TAG_FOREIGNOBJECT, GUMBO_TAG_DESC, GUMBO_TAG_TITLE, GUMBO_TAG_MI,            GUMBO_TAG_MO,
                               GUMBO_TAG_MN,            GUMBO_TAG_MS,   GUMBO_TAG_MTEXT, GUMBO_TAG_ANNOTATION_XML};
  return std::ranges::find(kPoints, static_cast<GumboTag>(element.tag)) != kPoints.end();
}

/// The parser fails on some texts when it is told that they are a fragment in an element called "html". The content of the
/// root is a document's, and a foreign element of that name is like any other.
std::optional<ParseContext> contextOf(const Node& element)
{
  if (element.has(kHtml))
    return std::nullopt;
  if (element.space != Namespace::Html && !isIntegrationPoint(element))
    return ParseContext{GUMBO_TAG_UNKNOWN, element.space};
  return ParseContext{element.tag, element.space};
}

} // namespace

void readDocument(Tree& tree, std::string_view html)
{
  tree.document = tree.arena.make<Node>();
  tree.document->kind = NodeKind::Document;
  parse(withoutByteOrderMark(html), std::nullopt, [&](const GumboOutput& output) {
    readDoctype(tree, output.document->v.document);
    readChildren(tree.arena, output.document->v.document.children, *tree.document);
  });
}

Node* readFragment(Tree& tree, const Node& context, std::string_view html)
{
  auto* const holder = tree.arena.make<Node>();
  parse(html, contextOf(context), [&](const GumboOutput& output) {
    readChildren(tree.arena, output.root->v.element.children, *holder);
  });
  return holder;
}

Node* appendElement(Tree& tree, Node& parent, std::string_view name)
{
  auto* const node = tree.arena.make<Node>();
  node->text = tree.arena.copy(name);
  node->tag = static_cast<std::uint16_t>(gumbo_tagn_enum(name.data(), static_cast<unsigned>(name.size())));
  node->traits = traitsOf(name);
  append(parent, *node);
  return node;
}

} // namespace mrd::html
