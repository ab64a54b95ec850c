#include "platform/html/reader.h"

#include "base/text.h"
#include "platform/html/flatten.h"
#include "platform/html/parse_run.h"
#include "platform/html/tree_copy.h"

#include <gumbo.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace mrd::html {
namespace {

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
template <class Read>
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

/// Elements whose content is not read like that of a body.
bool isFlowContainer(const Node& element)
{
  constexpr std::array<std::string_view, 21> kOthers{"caption",  "colgroup",  "frameset", "head",   "html",  "iframe", "noembed",
                                                     "noframes", "plaintext", "script",   "select", "style", "table",  "tbody",
                                                     "template", "textarea",  "tfoot",    "thead",  "title", "tr",     "xmp"};
  return element.space == Namespace::Html && std::ranges::find(kOthers, element.text) == kOthers.end();
}

const GumboNode* bodyOf(const GumboOutput& output)
{
  const GumboVector& children = output.root->v.element.children;
  for (unsigned i = 0; i < children.length; ++i) {
    const auto* const child = static_cast<const GumboNode*>(children.data[i]);
    if (child->type == GUMBO_NODE_ELEMENT && child->v.element.tag == GUMBO_TAG_BODY)
      return child;
  }
  return output.root;
}

struct Passage {
  std::size_t at, length;
};

/// The end tag of a body or of a document in the text that the parser has read, the last one of those that it minded.
std::optional<Passage> documentEnd(const GumboOutput& output)
{
  for (const GumboNode* const node : {bodyOf(output), static_cast<const GumboNode*>(output.root)})
    if (const auto& element = node->v.element; element.original_end_tag.length > 0)
      return Passage{element.end_pos.offset, element.original_end_tag.length};
  return std::nullopt;
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
  constexpr std::array kPoints{
      GUMBO_TAG_FOREIGNOBJECT, GUMBO_TAG_DESC,          GUMBO_TAG_TITLE, GUMBO_TAG_MI, GUMBO_TAG_MO, GUMBO_TAG_MN, GUMBO_TAG_MS,
      GUMBO_TAG_MTEXT,         GUMBO_TAG_ANNOTATION_XML};
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

/// The parser takes every fragment for one of a modern document, so in an old one the text is parsed as a body. The end tags of a
/// document, which mean nothing in a fragment, would end it: they are taken out one by one. False where there are too many.
bool readAsBody(Arena& arena, std::string_view html, Node& holder)
{
  constexpr int kMostEnds = 50;
  auto text = std::string("<body>").append(html);
  if (!isValidUtf8(text))
    text = base::repairUtf8(text);
  for (int i = 0; i < kMostEnds; ++i) {
    std::optional<Passage> end;
    parse(text, std::nullopt, [&](const GumboOutput& output) {
      end = documentEnd(output);
      if (!end)
        copyChildren(arena, *bodyOf(output), holder);
    });
    if (!end)
      return true;
    text.erase(end->at, end->length);
  }
  return false;
}

} // namespace

void readDocument(Tree& tree, std::string_view html)
{
  tree.document = tree.arena.make<Node>();
  tree.document->kind = NodeKind::Document;
  parse(withoutByteOrderMark(html), std::nullopt, [&](const GumboOutput& output) {
    tree.isQuirks = output.document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
    readDoctype(tree, output.document->v.document);
    copyChildren(tree.arena, *output.document, *tree.document);
  });
}

Node* readFragment(Tree& tree, const Node& context, std::string_view html)
{
  auto* const holder = tree.arena.make<Node>();
  if (!tree.isQuirks || !isFlowContainer(context) || !readAsBody(tree.arena, html, *holder))
    parse(html, contextOf(context), [&](const GumboOutput& output) { copyChildren(tree.arena, *output.root, *holder); });
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
