#include "platform/html/writer.h"

#include "platform/html/document.h"

#include <array>

namespace mrd::html {
namespace {

constexpr char kFirstByteOfNbsp = '\xC2';
constexpr char kSecondByteOfNbsp = '\xA0';

/// For each byte whether it may have to be written as something else.
using Stops = std::array<bool, 256>;

constexpr Stops stopsAt(std::string_view bytes)
{
  Stops stops{};
  for (const char c : bytes)
    stops[static_cast<unsigned char>(c)] = true;
  return stops;
}

constexpr Stops kStopsInText = stopsAt("&<>\n\xC2");
constexpr Stops kStopsInAttribute = stopsAt("&\"\n\xC2");
constexpr Stops kStopsInRawText = stopsAt("\n");

std::string_view writtenForm(char c)
{
  switch (c) {
  case '&':
    return "&amp;";
  case '<':
    return "&lt;";
  case '>':
    return "&gt;";
  case '"':
    return "&quot;";
  default:
    return "\r\n";
  }
}

bool isNbsp(std::string_view text, std::size_t at) { return at + 1 < text.size() && text[at + 1] == kSecondByteOfNbsp; }

/// A value that was set by the program may hold CR LF already.
bool isEndOfCrLf(std::string_view text, std::size_t at) { return text[at] == '\n' && at > 0 && text[at - 1] == '\r'; }

void appendEscaped(std::string& out, std::string_view text, const Stops& stops)
{
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!stops[static_cast<unsigned char>(text[at])])
      continue;
    const bool isTwoBytes = text[at] == kFirstByteOfNbsp;
    if (isTwoBytes ? !isNbsp(text, at) : isEndOfCrLf(text, at))
      continue;
    out.append(text, written, at - written);
    out += isTwoBytes ? std::string_view("&nbsp;") : writtenForm(text[at]);
    at += isTwoBytes ? 1 : 0;
    written = at + 1;
  }
  out.append(text, written);
}

void appendStartTag(std::string& out, const Node& element)
{
  out += '<';
  out += element.text;
  for (const Attribute* attribute = element.attributes; attribute != nullptr; attribute = attribute->next) {
    out += ' ';
    out += attribute->name;
    out += "=\"";
    appendEscaped(out, attribute->value, kStopsInAttribute);
    out += '"';
  }
  out += '>';
}

void appendOpening(std::string& out, const Node& node)
{
  switch (node.kind) {
  case NodeKind::Element:
    appendStartTag(out, node);
    break;
  case NodeKind::Text:
    appendEscaped(out, node.text, node.parent != nullptr && node.parent->has(kRawText) ? kStopsInRawText : kStopsInText);
    break;
  case NodeKind::Comment:
    out += "<!--";
    appendWithLineEnds(out, node.text);
    out += "-->";
    break;
  case NodeKind::Doctype:
    out += "<!DOCTYPE ";
    out += node.text;
    out += '>';
    break;
  case NodeKind::Document:
    break;
  }
}

void appendEndTag(std::string& out, const Node& node)
{
  if (!node.isElement() || node.has(kVoid))
    return;
  out += "</";
  out += node.text;
  out += '>';
}

bool hasWrittenChildren(const Node& node) { return node.firstChild != nullptr && !node.has(kVoid); }

} // namespace

void appendNode(std::string& out, const Node& top)
{
  // Without recursion: the nesting may be deeper than a thread's stack bears.
  for (const Node* node = &top;;) {
    appendOpening(out, *node);
    if (hasWrittenChildren(*node)) {
      node = node->firstChild;
      continue;
    }
    appendEndTag(out, *node);
    while (node != &top && node->next == nullptr) {
      node = node->parent;
      appendEndTag(out, *node);
    }
    if (node == &top)
      return;
    node = node->next;
  }
}

void appendChildren(std::string& out, const Node& parent)
{
  if (parent.has(kVoid))
    return;
  for (const Node* child = parent.firstChild; child != nullptr; child = child->next)
    appendNode(out, *child);
}

void appendWithLineEnds(std::string& out, std::string_view text) { appendEscaped(out, text, kStopsInRawText); }

std::string escapeText(std::string_view text)
{
  std::string out;
  appendEscaped(out, text, kStopsInText);
  return out;
}

std::string escapeAttribute(std::string_view text)
{
  std::string out;
  appendEscaped(out, text, kStopsInAttribute);
  return out;
}

} // namespace mrd::html
