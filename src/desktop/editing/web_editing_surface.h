#pragma once

#include "platform/ui/editing_surface.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QMenu;

namespace mrd::desktop {

class CommandPrompts;
class DocumentClipboard;
class EditedDocument;

/// The editing surface on the web engine. The document lives in a process of its own; the surface keeps a copy of its text that
/// is never older than a moment, and comes back with it when that process ends.
class WebEditingSurface : public QWidget, public ui::EditingSurface, private ui::ElementAccess {
public:
  /// To be called before the application object is made.
  static void prepareEngine();

  explicit WebEditingSurface(QWidget* parent = nullptr);
  ~WebEditingSurface() override;

  /// "GER" or "ENG": the language of the block formats' names.
  void setLanguage(std::string_view language);

  void setEvents(ui::SurfaceEvents events) override;
  void setPrompts(ui::SurfacePrompts prompts) override;
  void setSiteDirectory(std::string_view directory) override;

  void setDocumentHtml(std::string_view html) override;
  void newDocument() override;
  bool busy() const override;
  std::string bodyInnerHtml() const override;
  void setBodyInnerHtml(std::string_view html) override;
  void setDocumentColours(std::string_view background, std::string_view text) override;
  void setStyleRules(std::string_view css) override;

  void clearSelection() override;
  ui::SelectionType selectionType() const override;
  std::string selectedText() const override;
  bool pasteHtml(std::string_view html) override;
  std::optional<std::string> textAroundCursor(std::string_view elementId) const override;
  std::optional<std::string> textOfElement(std::string_view elementId) const override;

  std::optional<ui::PageElement> parentElement() const override;
  std::optional<ui::PageElement> selectedElement() const override;
  void beginStep() override;
  void endStep() override;

  void showContextMenu(int x, int y, const std::vector<ui::ContextMenuEntry>& entries) override;

  bool execCommand(int command, ui::Prompt prompt = ui::Prompt::None, std::string_view argument = {}) override;
  int queryStatus(int command) const override;
  void refreshStatus() override;
  std::string commandValue(int command) const override;
  std::vector<std::string> blockFormatNames() const override;
  bool insertTable(const ui::NewTable& table) override;

  bool showBorders() const override;
  void setShowBorders(bool show) override;
  bool showDetails() const override;
  void setShowDetails(bool show) override;
  bool snapToGrid() const override;
  void setSnapToGrid(bool snap) override;

  using QWidget::setFocus;
  void setFocus() override;

private:
  std::string tagName(int element) const override;
  std::optional<std::string> getAttribute(int element, std::string_view name) const override;
  void setAttribute(int element, std::string_view name, std::string_view value) override;
  void removeAttribute(int element, std::string_view name) override;
  void setStyle(int element, std::string_view name, std::string_view value) override;
  std::string outerHTML(int element) const override;
  std::optional<int> parentOf(int element) const override;
  std::vector<int> childrenOf(int element) const override;
  std::optional<ui::PageElement> element(const char* function) const;

  std::unique_ptr<EditedDocument> document_;
  std::unique_ptr<CommandPrompts> prompts_;
  std::unique_ptr<DocumentClipboard> clipboard_;
  QPointer<QMenu> contextMenu_;
};

} // namespace mrd::desktop
