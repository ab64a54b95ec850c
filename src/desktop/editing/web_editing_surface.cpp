#include "desktop/editing/web_editing_surface.h"

#include "desktop/editing/block_format_names.h"
#include "desktop/editing/deep_nesting.h"
#include "desktop/editing/edited_document.h"
#include "platform/html/document.h"
#include "platform/ui/editing_commands.h"

#include <QJsonObject>
#include <QVBoxLayout>

#include <utility>

namespace mrd::desktop {
namespace {

namespace command = ui::command;

std::optional<std::string> optionalText(const std::optional<QVariant>& value)
{
  return value && value->typeId() == QMetaType::QString ? std::optional(systemText(*value)) : std::nullopt;
}

} // namespace

void WebEditingSurface::prepareEngine() { registerSiteScheme(); }

WebEditingSurface::WebEditingSurface(QWidget* parent) : QWidget(parent), document_(std::make_unique<EditedDocument>(*this))
{
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&document_->view);
  setFocusProxy(&document_->view);
}

WebEditingSurface::~WebEditingSurface() = default;

void WebEditingSurface::setLanguage(std::string_view language) { document_->language = language; }
void WebEditingSurface::setEvents(ui::SurfaceEvents events) { document_->events = std::move(events); }
void WebEditingSurface::setPrompts(ui::SurfacePrompts prompts) { document_->prompts = std::move(prompts); }
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

bool WebEditingSurface::execCommand(int command, ui::Prompt prompt, std::string_view argument)
{
  switch (command) {
  case command::kCopy:
    return document_->copy();
  case command::kCut:
    return document_->copy() && document_->run(command, {});
  case command::kPaste:
    return document_->paste();
  case command::kFont:
    return prompt == ui::Prompt::Ask && document_->chooseFont();
  case command::kInsertTable:
    return insertTable({});
  case command::kSetBlockFormat: {
    const auto index = blockFormatIndex(argument);
    return index && document_->run(command, *index);
  }
  default:
    return prompt == ui::Prompt::Ask ? document_->runWithPrompt(command, argument) : document_->run(command, qtText(argument));
  }
}

int WebEditingSurface::queryStatus(int command) const
{
  return document_->display["status"].toMap().value(QString::number(command), command::kNotSupported).toInt();
}

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

void WebEditingSurface::setFocus() { document_->view.setFocus(); }

} // namespace mrd::desktop
