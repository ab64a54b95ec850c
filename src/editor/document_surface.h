#pragma once

#include "platform/html/document.h"
#include "platform/ui/editing_commands.h"
#include "platform/ui/editing_surface.h"

#include <vector>

namespace mrd::editor {

/// An editing surface without a screen, over the HTML parser: for the command line and for tests. Its cursor stands at the start
/// of the body.
class DocumentSurface : public ui::EditingSurface, private ui::ElementAccess {
public:
  DocumentSurface() : document_(html::Document::fromText("")) {}

  void setEvents(ui::SurfaceEvents) override {}
  void setPrompts(ui::SurfacePrompts) override {}
  void setSiteDirectory(std::string_view) override {}

  void setDocumentHtml(std::string_view html) override;
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

  std::optional<ui::PageElement> parentElement() const override { return numbered(document_.body()); }
  std::optional<ui::PageElement> selectedElement() const override { return std::nullopt; }
  void beginStep() override {}
  void endStep() override {}
  void showContextMenu(int, int, const std::vector<ui::ContextMenuEntry>&) override {}

  /// Commands work on what a user selects, and here is none.
  bool execCommand(int, ui::Prompt, std::string_view) override { return false; }
  int queryStatus(int) const override { return ui::command::kNotSupported; }
  void refreshStatus() override {}
  std::string commandValue(int) const override { return {}; }
  std::vector<std::string> blockFormatNames() const override { return {}; }
  bool insertTable(const ui::NewTable&) override { return false; }

  bool showBorders() const override { return false; }
  void setShowBorders(bool) override {}
  bool showDetails() const override { return false; }
  void setShowDetails(bool) override {}
  bool snapToGrid() const override { return false; }
  void setSnapToGrid(bool) override {}
  void setFocus() override {}

protected:
  /// The element as who works on the surface gets it.
  ui::PageElement numbered(const html::Element& element) const;
  html::Document& document() { return document_; }

private:
  std::string tagName(int element) const override;
  std::optional<std::string> getAttribute(int element, std::string_view name) const override;
  void setAttribute(int element, std::string_view name, std::string_view value) override;
  void removeAttribute(int element, std::string_view name) override;
  void setStyle(int element, std::string_view name, std::string_view value) override;
  std::string outerHTML(int element) const override;
  std::optional<int> parentOf(int element) const override;
  std::vector<int> childrenOf(int element) const override;
  int numberOf(const html::Element& element) const;
  html::Element& at(int element) const { return elements_.at(static_cast<std::size_t>(element)); }

  mutable html::Document document_;
  mutable std::vector<html::Element> elements_;
};

} // namespace mrd::editor
