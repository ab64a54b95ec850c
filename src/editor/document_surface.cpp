#include "editor/document_surface.h"

#include "base/format.h"
#include "base/text.h"

#include <algorithm>

namespace mrd::editor {

bool DocumentSurface::pasteHtml(std::string_view html)
{
  auto body = document_.body();
  body.setInnerHtml(std::string(html) + body.innerHtml());
  return true;
}

std::optional<std::string> DocumentSurface::textAroundCursor(std::string_view elementId) const
{
  const auto body = document_.body();
  return body.attribute("id") == elementId ? std::optional(body.innerText()) : std::nullopt;
}

std::optional<std::string> DocumentSurface::textOfElement(std::string_view elementId) const
{
  const auto element = document_.elementById(elementId);
  return element ? std::optional(element->innerText()) : std::nullopt;
}

void DocumentSurface::setDocumentHtml(std::string_view html)
{
  elements_.clear();
  document_ = html::Document::fromText(html);
}

int DocumentSurface::numberOf(const html::Element& element) const
{
  const auto known = std::ranges::find(elements_, element);
  if (known != elements_.end())
    return static_cast<int>(known - elements_.begin());
  elements_.push_back(element);
  return static_cast<int>(elements_.size()) - 1;
}

ui::PageElement DocumentSurface::numbered(const html::Element& element) const
{
  // The surface is the access to its own elements; who has one may change it.
  auto& access = const_cast<ui::ElementAccess&>(static_cast<const ui::ElementAccess&>(*this));
  return {access, numberOf(element)};
}

std::string DocumentSurface::tagName(int element) const { return std::string(at(element).tagName()); }

std::optional<std::string> DocumentSurface::getAttribute(int element, std::string_view name) const
{
  return at(element).attribute(base::lower(name));
}

void DocumentSurface::setAttribute(int element, std::string_view name, std::string_view value)
{
  at(element).setAttribute(base::lower(name), value);
}

void DocumentSurface::removeAttribute(int element, std::string_view name) { at(element).removeAttribute(base::lower(name)); }

void DocumentSurface::setStyle(int element, std::string_view name, std::string_view value)
{
  const std::string present = at(element).attribute("style").value_or("");
  at(element).setAttribute("style", base::format("{}{}{}: {};", present, present.empty() ? "" : " ", name, value));
}

std::string DocumentSurface::outerHTML(int element) const { return at(element).outerHtml(); }

std::optional<int> DocumentSurface::parentOf(int element) const
{
  const auto parent = at(element).parent();
  return parent ? std::optional(numberOf(*parent)) : std::nullopt;
}

std::vector<int> DocumentSurface::childrenOf(int element) const
{
  std::vector<int> all;
  for (const auto& child : at(element).children())
    all.push_back(numberOf(child));
  return all;
}

} // namespace mrd::editor
