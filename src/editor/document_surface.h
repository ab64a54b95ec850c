#pragma once

#include "platform/html/document.h"
#include "platform/ui/editing_commands.h"
#include "platform/ui/editing_surface.h"

namespace mrd::editor {

/// An editing surface without a screen, over the HTML parser: for the command line and for tests. Its cursor stands at the start
/// of the body.
class DocumentSurface : public ui::EditingSurface {
public:
  DocumentSurface() : document_(html::Document::fromText("")) {}

  void setEvents(ui::SurfaceEvents) override {}
  void setPrompts(ui::SurfacePrompts) override {}
  void setSiteDirectory(std::string_view) override {}

  void setDocumentHtml(std::string_view html) override { document_ = html::Document::fromText(html); }
  void newDocument() override { setDocumentHtml(""); }
  bool busy() const override { return false; }
  std::string bodyInnerHtml() const override { return document_.body().innerHtml(); }
  void setBodyInnerHtml(std::string_view html) override { document_.body().setInnerHtml(html); }
  void setDocumentColours(std::string_view, std::string_view) override {}
  void setStyleRules(std::string_view) override {}

  void clearSelection() override {}
  ui::SelectionType selectionType() const override { return ui::SelectionType::None; }
  std::string selectedText() const override { return {}; }
  bool pasteHtml(std::string_view html) override;
  std::optional<std::string> textAroundCursor(std::string_view elementId) const override;
  std::optional<std::string> textOfElement(std::string_view elementId) const override;

  /// Commands work on what a user selects, and here is none.
  bool execCommand(int, ui::Prompt, std::string_view) override { return false; }
  int queryStatus(int) const override { return ui::command::kNotSupported; }
  std::string commandValue(int) const override { return {}; }
  std::vector<std::string> blockFormatNames() const override { return {}; }
  bool insertTable(const ui::NewTable&) override { return false; }

  bool showBorders() const override { return false; }
  void setShowBorders(bool) override {}
  bool showDetails() const override { return false; }
  void setShowDetails(bool) override {}
  void setFocus() override {}

private:
  mutable html::Document document_;
};

} // namespace mrd::editor
