#include "desktop/editing/web_editing_surface.h"

#include "base/text.h"
#include "desktop/editing/block_format_names.h"
#include "desktop/editing/clipboard_content.h"
#include "desktop/editing/deep_nesting.h"
#include "desktop/editing/edited_page.h"
#include "platform/html/document.h"
#include "platform/ui/editing_commands.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineView>

#include <utility>

namespace mrd::desktop {
namespace {

namespace command = ui::command;

/// The copy of the text is fetched this long after the first change that it lacks.
constexpr int kCopyDelayMs = 400;
/// Statuses are asked for once for all that happens within this time.
constexpr int kDisplayDelayMs = 30;
/// A page that takes longer to load is shown when it is ready; its owner need not wait for it.
constexpr int kLoadMs = 15000;
/// A page that ends its process so often in a row is not shown any more.
constexpr int kMaxBreakdowns = 3;
constexpr int kHealthyMs = 10000;

QString text(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

std::string withCrLf(const QVariant& value) { return base::toCrLf(value.toString().toStdString()); }

std::optional<std::string> optionalText(const std::optional<QVariant>& value)
{
  return value && value->typeId() == QMetaType::QString ? std::optional(withCrLf(*value)) : std::nullopt;
}

} // namespace

/// What the surface knows of the document in the other process.
class WebEditingSurface::Document {
public:
  explicit Document(QWidget& owner);

  void load(std::string_view html);
  void setBody(std::string_view html);
  const std::string& body();
  void startIn(std::string_view directory);
  void showStyles();
  bool waitUntilLoaded();
  std::optional<QVariant> ask(const QString& function, const QJsonArray& arguments = {});

  bool run(int command, const QJsonValue& argument);
  bool runWithPrompt(int command, std::string_view given);
  bool chooseFont();
  bool copy();
  bool paste();
  bool pastePicture(const ClipboardPicture& picture);
  std::string value(int command) const;

  ui::SurfaceEvents events;
  ui::SurfacePrompts prompts;
  std::string language = "GER";
  std::string background, foreground, rules;
  bool borders = false, details = false;
  bool busy = true;
  QVariantMap display;
  QWebEngineView view;

private:
  void connectNotes();
  void openPage();
  void startLoading();
  void stopWaiting();
  void onReady();
  void onBreakdown();
  void sendBody();
  void noticeChange(int version);
  void takeBody(const QVariant& answer);
  void takeLoaded(const QVariant& answer);
  void fetchBody();
  void fetchDisplay();

  QWebEngineProfile profile_;
  SiteFiles files_;
  SiteRequests requests_;
  ScriptNotes notes_;
  std::unique_ptr<EditedPage> page_;
  QTimer copyTimer_, displayTimer_, loadTimer_;

  std::string directory_;
  /// The text as it was last known, and the number that the script gave to this state.
  std::string body_;
  int version_ = 0;
  /// The owner knows of the changes behind `version_`.
  bool announced_ = false;
  /// The empty document is there.
  bool ready_ = false;
  /// What is not answered yet of an older load is of no interest.
  int loads_ = 0;
  bool restoring_ = false;
  int breakdowns_ = 0;
  QElapsedTimer sinceBreakdown_;
};

WebEditingSurface::Document::Document(QWidget& owner) : view(&owner)
{
  profile_.installUrlSchemeHandler("mirandel", &files_);
  profile_.setUrlRequestInterceptor(&requests_);
  profile_.setSpellCheckEnabled(false);
  connectNotes();
  for (QTimer* const timer : {&copyTimer_, &displayTimer_, &loadTimer_})
    timer->setSingleShot(true);
  QObject::connect(&copyTimer_, &QTimer::timeout, &view, [this] { fetchBody(); });
  QObject::connect(&displayTimer_, &QTimer::timeout, &view, [this] { fetchDisplay(); });
  QObject::connect(&loadTimer_, &QTimer::timeout, &view, [this] { stopWaiting(); });
  view.setContextMenuPolicy(Qt::PreventContextMenu);
  openPage();
  startLoading();
}

/// A process that is busy for good is left behind with its page.
void WebEditingSurface::Document::openPage()
{
  auto page = std::make_unique<EditedPage>(profile_, notes_, nullptr);
  page->onReady = [this] { onReady(); };
  page->onBreakdown = [this] { onBreakdown(); };
  view.setPage(page.get());
  page_ = std::move(page);
  ready_ = false;
  page_->start(directory_);
}

void WebEditingSurface::Document::connectNotes()
{
  notes_.onChanged = [this](int version) { noticeChange(version); };
  notes_.onDisplay = [this] {
    if (!displayTimer_.isActive())
      displayTimer_.start(kDisplayDelayMs);
  };
  notes_.onPastePicture = [this] {
    if (const auto picture = clipboardContent().picture)
      pastePicture(*picture);
  };
  notes_.onContextMenu = [this](int x, int y, const QVariantMap& state) {
    display = state;
    events.showContextMenu(x, y);
  };
}

// --- loading

void WebEditingSurface::Document::startIn(std::string_view directory)
{
  if (directory == directory_)
    return;
  if (ready_ && !busy)
    body();
  directory_ = directory;
  requests_.setDirectory(directory);
  ready_ = false;
  startLoading();
  page_->start(directory_);
}

void WebEditingSurface::Document::startLoading()
{
  busy = true;
  loadTimer_.start(kLoadMs);
}

void WebEditingSurface::Document::load(std::string_view html)
{
  body_ = base::toCrLf(withBoundedDepth(html));
  startLoading();
  if (breakdowns_ > kMaxBreakdowns || page_->isStuck()) {
    breakdowns_ = 0;
    openPage();
  } else if (ready_) {
    sendBody();
  }
}

/// The page is worked on and will be shown. Until then its text is the one that was to be loaded.
void WebEditingSurface::Document::stopWaiting()
{
  if (!std::exchange(busy, false))
    return;
  page_->setStuck();
  events.documentComplete();
}

void WebEditingSurface::Document::onReady()
{
  ready_ = true;
  showStyles();
  sendBody();
}

void WebEditingSurface::Document::showStyles()
{
  if (!ready_)
    return;
  page_->tell("setColours", {text(background), text(foreground)});
  page_->tell("setRules", {text(rules)});
  page_->tell("setMarks", {borders, details});
}

void WebEditingSurface::Document::sendBody()
{
  page_->tell("load", {text(body_)}, [this, load = ++loads_](const QVariant& answer) {
    if (load == loads_)
      takeLoaded(answer);
  });
}

void WebEditingSurface::Document::takeLoaded(const QVariant& answer)
{
  const auto state = answer.toMap();
  if (!state.contains("body"))
    return;
  body_ = withCrLf(state["body"]);
  version_ = state["version"].toInt();
  announced_ = false;
  loadTimer_.stop();
  const bool wasBusy = std::exchange(busy, false);
  const bool restored = std::exchange(restoring_, false);
  if (wasBusy)
    events.documentComplete();
  if (restored)
    events.restored();
}

bool WebEditingSurface::Document::waitUntilLoaded()
{
  if (busy)
    page_->waitUntil([this] { return !busy || breakdowns_ > kMaxBreakdowns; }, kLoadMs);
  return !busy && ready_;
}

void WebEditingSurface::Document::setBody(std::string_view html)
{
  // A document that is not there yet is loaded with this text right away.
  if (busy)
    return load(html);
  body_ = base::toCrLf(withBoundedDepth(html));
  page_->tell("setBody", {text(body_)}, [this, load = ++loads_](const QVariant& answer) {
    if (load == loads_)
      takeLoaded(answer);
  });
}

// --- the copy of the text

void WebEditingSurface::Document::noticeChange(int version)
{
  // A note that was overtaken by an answer tells nothing new.
  if (busy || version <= version_)
    return;
  if (!copyTimer_.isActive())
    copyTimer_.start(kCopyDelayMs);
  if (!std::exchange(announced_, true))
    events.changed();
}

void WebEditingSurface::Document::takeBody(const QVariant& answer)
{
  const auto state = answer.toMap();
  if (!state.contains("body") || state["version"].toInt() <= version_)
    return;
  body_ = withCrLf(state["body"]);
  version_ = state["version"].toInt();
  if (!std::exchange(announced_, false))
    events.changed();
}

void WebEditingSurface::Document::fetchBody()
{
  if (ready_ && !busy)
    page_->tell("read", {version_}, [this, load = loads_](const QVariant& answer) {
      if (load == loads_)
        takeBody(answer);
    });
}

const std::string& WebEditingSurface::Document::body()
{
  if (!waitUntilLoaded())
    return body_;
  const int load = loads_;
  const auto answer = page_->ask("read", {version_});
  if (answer && load == loads_)
    takeBody(*answer);
  return body_;
}

// --- breakdown

void WebEditingSurface::Document::onBreakdown()
{
  const bool wasHealthy = !sinceBreakdown_.isValid() || sinceBreakdown_.elapsed() > kHealthyMs;
  breakdowns_ = wasHealthy ? 1 : breakdowns_ + 1;
  sinceBreakdown_.start();
  ready_ = false;
  restoring_ = true;
  ++loads_;
  startLoading();
  if (breakdowns_ <= kMaxBreakdowns)
    page_->start(directory_);
}

// --- commands

std::optional<QVariant> WebEditingSurface::Document::ask(const QString& function, const QJsonArray& arguments)
{
  return waitUntilLoaded() ? page_->ask(function, arguments) : std::nullopt;
}

void WebEditingSurface::Document::fetchDisplay()
{
  if (ready_ && !busy)
    page_->tell("display", {}, [this](const QVariant& answer) {
      display = answer.toMap();
      events.displayChanged();
    });
}

std::string WebEditingSurface::Document::value(int command) const
{
  return display["values"].toMap()[QString::number(command)].toString().toStdString();
}

bool WebEditingSurface::Document::run(int command, const QJsonValue& argument)
{
  const auto answer = ask("exec", {command, argument});
  if (!answer)
    return false;
  const auto result = answer->toMap();
  display = result["display"].toMap();
  return result["done"].toBool();
}

bool WebEditingSurface::Document::chooseFont()
{
  const auto font = prompts.font({value(command::kGetFontName), value(command::kGetFontSize)});
  if (!font)
    return false;
  const bool hasName = !font->name.empty() && run(command::kSetFontName, text(font->name));
  const bool hasSize = !font->size.empty() && run(command::kSetFontSize, text(font->size));
  return hasName || hasSize;
}

/// Commands that ask nothing run as they are.
bool WebEditingSurface::Document::runWithPrompt(int command, std::string_view given)
{
  std::optional<std::string> argument(given);
  if (command == command::kHyperlink)
    argument = prompts.link(value(command));
  else if (command == command::kPicture)
    argument = prompts.picture(value(command));
  else if (command == command::kFindText)
    argument = prompts.searchText(value(command));
  return argument && run(command, text(*argument));
}

bool WebEditingSurface::Document::copy()
{
  const auto content = ask("copySelection");
  if (!content || content->toMap().isEmpty())
    return false;
  setClipboardContent(content->toMap()["html"].toString(), content->toMap()["text"].toString());
  return true;
}

bool WebEditingSurface::Document::paste()
{
  const auto content = clipboardContent();
  if (content.picture)
    return pastePicture(*content.picture);
  if (content.html.isEmpty() && content.text.isEmpty())
    return false;
  return ask("paste", {text(withBoundedDepth(content.html.toStdString())), content.text}).value_or(false).toBool();
}

bool WebEditingSurface::Document::pastePicture(const ClipboardPicture& picture)
{
  const auto reference = events.storePicture({picture.bytes.constData(), static_cast<std::size_t>(picture.bytes.size())},
                                             {picture.mimeType.constData(), static_cast<std::size_t>(picture.mimeType.size())});
  return reference && ask("insertPicture", {text(*reference)}).value_or(false).toBool();
}

// --- the surface

void WebEditingSurface::prepareEngine() { registerSiteScheme(); }

WebEditingSurface::WebEditingSurface(QWidget* parent) : QWidget(parent), document_(std::make_unique<Document>(*this))
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
  return document_->ask("pasteHtml", {text(withBoundedDepth(html))}).value_or(false).toBool();
}

std::optional<std::string> WebEditingSurface::textAroundCursor(std::string_view elementId) const
{
  return optionalText(document_->ask("textAroundCursor", {text(elementId)}));
}

std::optional<std::string> WebEditingSurface::textOfElement(std::string_view elementId) const
{
  if (const auto answer = document_->ask("textOfElement", {text(elementId)}))
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
    return prompt == ui::Prompt::Ask ? document_->runWithPrompt(command, argument) : document_->run(command, text(argument));
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
                          {"tableAttributes", text(table.tableAttributes)},
                          {"cellAttributes", text(table.cellAttributes)},
                          {"caption", text(table.caption)}};
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
