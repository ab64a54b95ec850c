#include "desktop/editing/web_editing_surface.h"

#include "desktop/editing/block_format_names.h"
#include "desktop/editing/clipboard_content.h"
#include "desktop/editing/command_prompts.h"
#include "desktop/editing/deep_nesting.h"
#include "desktop/editing/document_clipboard.h"
#include "desktop/editing/edited_document.h"
#include "platform/html/document.h"
#include "platform/ui/editing_commands.h"

#include <QJsonObject>
#include <QMenu>
#include <QVBoxLayout>

#include <utility>

namespace mrd::desktop {
namespace {

namespace command = ui::command;

std::optional<std::string> optionalText(const std::optional<QVariant>& value)
{
  return value && value->typeId() == QMetaType::QString ? std::optional(systemText(*value)) : std::nullopt;
}

std::optional<int> optionalNumber(const std::optional<QVariant>& value)
{
  return value && value->isValid() && !value->isNull() ? std::optional(value->toInt()) : std::nullopt;
}

} // namespace

void WebEditingSurface::prepareEngine() { registerSiteScheme(); }

WebEditingSurface::WebEditingSurface(QWidget* parent)
    : QWidget(parent), document_(std::make_unique<EditedDocument>(*this)), prompts_(std::make_unique<CommandPrompts>(*document_)),
      clipboard_(std::make_unique<DocumentClipboard>(*document_))
{
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&document_->view);
  setFocusProxy(&document_->view);
}

WebEditingSurface::~WebEditingSurface() = default;

void WebEditingSurface::setLanguage(std::string_view language) { document_->language = language; }
void WebEditingSurface::setEvents(ui::SurfaceEvents events) { document_->events = std::move(events); }
void WebEditingSurface::setPrompts(ui::SurfacePrompts prompts) { prompts_->prompts = std::move(prompts); }
void WebEditingSurface::setSiteDirectory(std::string_view directory) { document_->startIn(directory); }
void WebEditingSurface::setDocumentHtml(std::string_view html) { document_->load(html); }
void WebEditingSurface::newDocument() { document_->load(""); }
bool WebEditingSurface::busy() const { return document_->busy; }
std::string WebEditingSurface::bodyInnerHtml() const { return document_->body(); }
void WebEditingSurface::setBodyInnerHtml(std::string_view html) { document_->setBody(html); }

void WebEditingSurface::setDocumentColours(std::string_view background, std::string_view text)
{
  document_->background = background;
  document_->foreground = text;
  document_->showStyles();
}

void WebEditingSurface::setStyleRules(std::string_view css)
{
  document_->rules = css;
  document_->showStyles();
}

void WebEditingSurface::clearSelection() { document_->ask("clearSelection"); }

ui::SelectionType WebEditingSurface::selectionType() const
{
  const QString type = document_->ask("selectionType").value_or("none").toString();
  if (type == "control")
    return ui::SelectionType::Control;
  return type == "text" ? ui::SelectionType::Text : ui::SelectionType::None;
}

std::string WebEditingSurface::selectedText() const { return optionalText(document_->ask("selectedText")).value_or(""); }

bool WebEditingSurface::pasteHtml(std::string_view html)
{
  return document_->ask("pasteHtml", {qtText(withBoundedDepth(html))}).value_or(false).toBool();
}

std::optional<std::string> WebEditingSurface::textAroundCursor(std::string_view elementId) const
{
  return optionalText(document_->ask("textAroundCursor", {qtText(elementId)}));
}

std::optional<std::string> WebEditingSurface::textOfElement(std::string_view elementId) const
{
  if (const auto answer = document_->ask("textOfElement", {qtText(elementId)}))
    return optionalText(answer);
  // The process does not answer. What is saved now is the copy, and its heading with it.
  auto copy = html::Document::fromText(document_->body());
  const auto element = copy.elementById(elementId);
  return element ? std::optional(element->innerText()) : std::nullopt;
}

// --- elements

std::optional<ui::PageElement> WebEditingSurface::element(const char* function) const
{
  const auto number = optionalNumber(document_->ask(function));
  // The surface is the access to its own elements; who has one may change it.
  auto& access = const_cast<ui::ElementAccess&>(static_cast<const ui::ElementAccess&>(*this));
  return number ? std::optional(ui::PageElement(access, *number)) : std::nullopt;
}

std::optional<ui::PageElement> WebEditingSurface::parentElement() const { return element("elementAround"); }
std::optional<ui::PageElement> WebEditingSurface::selectedElement() const { return element("elementSelected"); }
void WebEditingSurface::beginStep() { document_->ask("beginStep"); }
void WebEditingSurface::endStep() { document_->ask("endStep"); }

std::string WebEditingSurface::tagName(int element) const
{
  return optionalText(document_->ask("elementTag", {element})).value_or("");
}

std::optional<std::string> WebEditingSurface::getAttribute(int element, std::string_view name) const
{
  return optionalText(document_->ask("elementAttribute", {element, qtText(name)}));
}

void WebEditingSurface::setAttribute(int element, std::string_view name, std::string_view value)
{
  document_->ask("setElementAttribute", {element, qtText(name), qtText(value)});
}

void WebEditingSurface::removeAttribute(int element, std::string_view name)
{
  document_->ask("removeElementAttribute", {element, qtText(name)});
}

void WebEditingSurface::setStyle(int element, std::string_view name, std::string_view value)
{
  document_->ask("setElementStyle", {element, qtText(name), qtText(value)});
}

std::string WebEditingSurface::outerHTML(int element) const
{
  return optionalText(document_->ask("elementHtml", {element})).value_or("");
}

std::optional<int> WebEditingSurface::parentOf(int element) const
{
  return optionalNumber(document_->ask("elementParent", {element}));
}

std::vector<int> WebEditingSurface::childrenOf(int element) const
{
  std::vector<int> all;
  for (const QVariant& child : document_->ask("elementChildren", {element}).value_or(QVariantList()).toList())
    all.push_back(child.toInt());
  return all;
}

// --- commands

void WebEditingSurface::showContextMenu(int x, int y, const std::vector<ui::ContextMenuEntry>& entries)
{
  delete contextMenu_;
  contextMenu_ = new QMenu(this);
  contextMenu_->setObjectName("ContextMenu");
  contextMenu_->setAttribute(Qt::WA_DeleteOnClose);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].isSeparator) {
      contextMenu_->addSeparator();
      continue;
    }
    auto* const action = contextMenu_->addAction(qtText(entries[i].caption));
    action->setEnabled(entries[i].state >= command::kEnabled);
    // After the menu has gone: the command may open a window.
    connect(
        action, &QAction::triggered, this, [this, index = static_cast<int>(i)] { document_->events.contextMenuAction(index); },
        Qt::QueuedConnection);
  }
  contextMenu_->popup(mapToGlobal(QPoint(x, y)));
}

bool WebEditingSurface::execCommand(int command, ui::Prompt prompt, std::string_view argument)
{
  switch (command) {
  case command::kCopy:
    return clipboard_->copy();
  case command::kCut:
    return clipboard_->copy() && document_->run(command, {});
  case command::kPaste:
    return clipboard_->paste();
  case command::kPasteText:
    return clipboard_->pasteText();
  case command::kHyperlink:
    return prompt == ui::Prompt::Ask ? prompts_->run(command, argument)
                                     : !argument.empty() && document_->run(command, QJsonObject{{"href", qtText(argument)}});
  case command::kPicture:
    return prompt == ui::Prompt::Ask ? prompts_->run(command, argument)
                                     : document_->run(command, QJsonObject{{"src", qtText(argument)}});
  case command::kFont:
    return prompt == ui::Prompt::Ask && prompts_->chooseFont();
  case command::kInsertTable:
    return insertTable({});
  case command::kSetBlockFormat: {
    const auto index = blockFormatIndex(argument);
    return index && document_->run(command, *index);
  }
  default:
    return prompt == ui::Prompt::Ask ? prompts_->run(command, argument) : document_->run(command, qtText(argument));
  }
}

int WebEditingSurface::queryStatus(int command) const
{
  // The script sees the clipboard only while something is pasted.
  if ((command == command::kPaste && !clipboardHasContent()) || (command == command::kPasteText && !clipboardHasText()))
    return command::kDisabled;
  return document_->display["status"].toMap().value(QString::number(command), command::kNotSupported).toInt();
}

void WebEditingSurface::refreshStatus() { document_->takeDisplay(); }

std::string WebEditingSurface::commandValue(int command) const
{
  if (command != command::kGetBlockFormat && command != command::kSetBlockFormat)
    return document_->value(command);
  const auto names = blockFormatNames();
  const auto index = static_cast<std::size_t>(document_->display["blockFormat"].toInt());
  return queryStatus(command) >= command::kEnabled && index < names.size() ? names[index] : "";
}

std::vector<std::string> WebEditingSurface::blockFormatNames() const { return desktop::blockFormatNames(document_->language); }

bool WebEditingSurface::insertTable(const ui::NewTable& table)
{
  const QJsonObject shape{{"rows", table.rows},
                          {"columns", table.columns},
                          {"tableAttributes", qtText(table.tableAttributes)},
                          {"cellAttributes", qtText(table.cellAttributes)},
                          {"caption", qtText(table.caption)}};
  return document_->ask("insertTable", {shape}).value_or(false).toBool();
}

bool WebEditingSurface::showBorders() const { return document_->borders; }
bool WebEditingSurface::showDetails() const { return document_->details; }

void WebEditingSurface::setShowBorders(bool show)
{
  document_->borders = show;
  document_->showStyles();
}

void WebEditingSurface::setShowDetails(bool show)
{
  document_->details = show;
  document_->showStyles();
}

bool WebEditingSurface::snapToGrid() const { return document_->snaps; }

void WebEditingSurface::setSnapToGrid(bool snap)
{
  document_->snaps = snap;
  document_->showStyles();
}

void WebEditingSurface::setFocus() { document_->view.setFocus(); }

} // namespace mrd::desktop
