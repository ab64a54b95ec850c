#include "imode/body.h"

#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/dao/byte_store.h"
#include "platform/files/path.h"
#include "platform/html/document.h"

#include <array>
#include <charconv>

namespace mrd::imode {
namespace {

using generator::OpenReference;

/// Stands in the document where a reference is open. No page holds its own hash.
class Mark {
public:
  explicit Mark(std::string_view html)
  {
    const std::array pieces{html};
    const auto hash = dao::contentHash(pieces);
    start_ = base::format("mrd-{:016x}{:016x}-", hash.high, hash.low);
  }

  std::string of(std::size_t number) const { return base::format("{}{}-", start_, number); }

  /// The text without the marks; `found` gets each mark's number and where it stood.
  template <class Found>
  std::string remove(std::string_view text, Found found) const
  {
    std::string out;
    out.reserve(text.size());
    for (auto at = text.find(start_); at != std::string_view::npos; at = text.find(start_)) {
      out.append(text.substr(0, at));
      text.remove_prefix(at + start_.size());
      std::size_t number = 0;
      const auto* const end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
      text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
      found(number, out.size());
    }
    return out.append(text);
  }

private:
  std::string start_;
};

/// Leaves the references of local pictures open.
std::vector<OpenReference> findebilderImode(html::Document& document, const Mark& mark)
{
  std::vector<OpenReference> open;
  for (auto& image : document.images()) {
    const std::string src = image.attribute("src").value_or("");
    if (src.empty() || files::isForeignReference(src) || base::contains(src, "http:"))
      continue;
    image.setAttribute("src", mark.of(open.size()));
    open.push_back({generator::pictureOf(files::pathFromReference(src)), base::toWindows1252(html::escapeAttribute(src))});
  }
  return open;
}

bool isSection(const html::Element& element)
{
  const auto tag = element.tagName();
  return tag == "tbody" || tag == "thead" || tag == "tfoot";
}

/// The rows of the table itself, not those of tables in its cells.
std::vector<html::Element> rowsOf(const html::Element& table)
{
  std::vector<html::Element> rows;
  for (const auto& child : table.children()) {
    if (child.tagName() == "tr")
      rows.push_back(child);
    if (isSection(child))
      for (const auto& row : child.children())
        if (row.tagName() == "tr")
          rows.push_back(row);
  }
  return rows;
}

/// Every cell on a line of its own, a blank line behind each row. Headings of a row come before its other cells.
std::string cellsAsLines(const html::Element& table)
{
  std::string text;
  for (const auto& row : rowsOf(table)) {
    for (const auto* const tag : {"th", "td"})
      for (const auto& cell : row.children())
        if (cell.tagName() == tag) {
          cell.appendInnerHtml(text);
          text += "<br>";
        }
    text.append("<br>").append(base::kCrLf);
  }
  return base::trim(text);
}

std::string centred(const html::Element& heading) { return "<div align=center>" + heading.innerHtml() + "<br></div>"; }

bool liesInSame(const html::Element& element)
{
  for (auto above = element.parent(); above; above = above->parent())
    if (above->tagName() == element.tagName())
      return true;
  return false;
}

/// Every element with the tag becomes `text` of it, those around others first: these are then elements of the text.
template <class Text>
void replaceAll(html::Document& document, std::string_view tag, Text text)
{
  for (auto elements = document.elementsByTag(tag); !elements.empty(); elements = document.elementsByTag(tag)) {
    std::erase_if(elements, liesInSame);
    for (auto& element : elements)
      element.setOuterHtml(text(element));
  }
}

} // namespace

generator::RewrittenBody rewriteBody(const generator::BodySource& source)
{
  auto document = html::Document::fromText(source.html);
  const Mark mark(source.html);
  generator::RewrittenBody body;
  body.open = findebilderImode(document, mark);
  replaceAll(document, "table", cellsAsLines);
  replaceAll(document, "h3", centred);
  body.bytes = mark.remove(base::toWindows1252(document.body().innerHtml()),
                           [&](std::size_t number, std::size_t at) { body.open.at(number).at = at; });
  return body;
}

} // namespace mrd::imode
