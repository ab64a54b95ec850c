#include "platform/xml/xml_document.h"

#include "base/errors.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/files.h"

#include <expat.h>
#include <pugixml.hpp>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace mrd::xml {
namespace {

constexpr unsigned kParseFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata | pugi::parse_wconv_attribute |
                                 pugi::parse_comments | pugi::parse_pi;
constexpr std::size_t kDeclarationLength = 100;

bool isTooDeep(const pugi::xml_document& document)
{
  struct DepthCheck : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node&) override { return depth() <= kMaxDepth; }
  } check;
  return !const_cast<pugi::xml_document&>(document).traverse(check);
}

bool isText(const pugi::xml_node& node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

Element convert(const pugi::xml_node& node)
{
  Element element;
  element.name = node.name();
  for (const auto& attribute : node.attributes())
    element.attributes.emplace(attribute.name(), attribute.value());
  for (const auto& child : node.children()) {
    if (isText(child)) {
      (element.children.empty() ? element.text : element.children.back().tail) += base::toCrLf(child.value());
      element.hasChildNodes |= child.type() == pugi::node_cdata || !isBlank(child.value());
    } else if (child.type() == pugi::node_element) {
      element.children.push_back(convert(child));
      element.hasChildNodes = true;
    } else {
      element.hasChildNodes = true;
    }
  }
  return element;
}

void appendText(std::string& out, const Element& element)
{
  out += element.text;
  for (const auto& child : element.children) {
    appendText(out, child);
    out += child.tail;
  }
}

/// Whether the parser decodes the bytes: it knows the encodings of Unicode by their marks or zeros, and Latin-1 by its
/// declaration.
bool isKnownToParser(std::string_view bytes)
{
  const std::string_view declaration = bytes.substr(0, std::min(bytes.find("?>"), kDeclarationLength));
  return base::contains(bytes, std::string_view("\0", 1)) || base::containsIgnoringCase(declaration, "iso-8859-1\"") ||
         base::containsIgnoringCase(declaration, "iso-8859-1'") || base::containsIgnoringCase(declaration, "latin1");
}

/// A file's text, in UTF-8 unless its encoding is one that parsers know by themselves.
struct Readable {
  std::string text;
  bool isUtf8;
};

/// What is neither is Windows-1252, as editors on Windows write it.
Readable readable(std::string bytes)
{
  if (isKnownToParser(bytes))
    return {std::move(bytes), false};
  return {base::decodeText(bytes), true};
}

/// The tree's parser reads texts that are not well-formed too, and makes of them what their author did not mean; this one is
/// strict, and gives up on entities that grow without bounds.
bool isWellFormed(const Readable& xml)
{
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(xml.isUtf8 ? "UTF-8" : nullptr), XML_ParserFree);
  return XML_Parse(parser.get(), xml.text.data(), static_cast<int>(xml.text.size()), XML_TRUE) == XML_STATUS_OK;
}

} // namespace

std::string_view Element::attribute(std::string_view attributeName) const
{
  const auto found = attributes.find(attributeName);
  return found == attributes.end() ? std::string_view() : found->second;
}

std::string Element::textContent() const
{
  std::string out;
  appendText(out, *this);
  return out;
}

std::optional<Element> loadXml(std::string_view path)
{
  constexpr std::uint64_t kLargest = 64U << 20U;
  Readable xml;
  try {
    if (files::fileSize(path) > kLargest)
      return std::nullopt;
    xml = readable(files::readFile(path));
  } catch (const base::Error&) {
    return std::nullopt;
  }
  pugi::xml_document document;
  if (!isWellFormed(xml) || !document.load_buffer(xml.text.data(), xml.text.size(), kParseFlags) || isTooDeep(document) ||
      !document.document_element())
    return std::nullopt;
  return convert(document.document_element());
}

} // namespace mrd::xml
