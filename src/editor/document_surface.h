#pragma once

#include "platform/html/document.h"
#include "platform/ui/editing_surface.h"

namespace mrd::editor {

/// An editing surface without a screen, over the HTML parser: for the command line and for tests. Its cursor stands at the start
/// of the body.
class DocumentSurface : public ui::EditingSurface {
public:
  DocumentSurface() : document_(html::Document::fromText("")) {}

  void setDocumentHtml(std::string_view html) override { document_ = html::Document::fromText(html); }
  void newDocument() override { setDocumentHtml(""); }
  bool busy() const override { return false; }
  std::string bodyInnerHtml() const override { return document_.body().innerHtml(); }
  void setBodyInnerHtml(std::string_view html) override { document_.body().setInnerHtml(html); }
  void clearSelection() override {}
  std::optional<std::string> textAroundCursor(std::string_view elementId) const override;
  std::optional<std::string> textOfElement(std::string_view elementId) const override;
  void setFocus() override {}

private:
  mutable html::Document document_;
};

} // namespace mrd::editor
