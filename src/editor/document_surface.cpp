#include "editor/document_surface.h"

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

} // namespace mrd::editor
