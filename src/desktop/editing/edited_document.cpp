#include "desktop/editing/edited_document.h"

#include "base/text.h"
#include "desktop/editing/deep_nesting.h"

#include <utility>

namespace mrd::desktop {
namespace {

/// The copy of the text is fetched this long after the first change that it lacks.
constexpr int kCopyDelayMs = 400;
/// Statuses are asked for once for all that happens within this time.
constexpr int kDisplayDelayMs = 30;
/// A page that takes longer to load is shown when it is ready; its owner need not wait for it.
constexpr int kLoadMs = 15000;
/// Keys on a busy machine take no longer than this to the page.
constexpr int kKeysMs = 300;
/// A page that ends its process so often in a row is not shown any more.
constexpr int kMaxBreakdowns = 5;
constexpr int kHealthyMs = 10000;

} // namespace

QString qtText(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }
std::string systemText(const QVariant& text) { return base::toCrLf(text.toString().toStdString()); }

EditedDocument::EditedDocument(QWidget& owner) : view(&owner)
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
void EditedDocument::openPage()
{
  auto page = std::make_unique<EditedPage>(profile_, notes_, nullptr);
  page->onReady = [this] { onReady(); };
  page->onBreakdown = [this] { onBreakdown(); };
  view.setPage(page.get());
  page_ = std::move(page);
  ready_ = false;
  page_->start();
}

void EditedDocument::connectNotes()
{
  notes_.onChanged = [this](int version) { later([=, this] { noticeChange(version); }); };
  notes_.onDisplay = [this] {
    if (!displayTimer_.isActive())
      displayTimer_.start(kDisplayDelayMs);
  };
  notes_.onPastePicture = [this] { later([this] { onPastePicture(); }); };
  notes_.onPasteHtml = [this](const QString& html, const QString& text) { later([=, this] { onPasteHtml(html, text); }); };
  notes_.onContextMenu = [this](int x, int y, const QVariantMap& state) {
    later([=, this] {
      display = state;
      events.showContextMenu(x, y);
    });
  };
}

/// While the engine hands over a note or an answer, it gives no other answer. What may ask again runs after it.
void EditedDocument::later(std::function<void()> work) { QTimer::singleShot(0, &view, std::move(work)); }

// --- loading

void EditedDocument::startIn(std::string_view directory)
{
  if (directory == directory_)
    return;
  if (ready_ && !busy)
    body();
  directory_ = directory;
  requests_.setDirectory(directory);
  show();
}

void EditedDocument::startLoading()
{
  busy = true;
  loadTimer_.start(kLoadMs);
}

void EditedDocument::load(std::string_view html)
{
  ++documents_;
  body_ = base::toCrLf(withBoundedDepth(html));
  show();
}

void EditedDocument::show()
{
  startLoading();
  if (breakdowns_ > kMaxBreakdowns || page_->isStuck()) {
    breakdowns_ = 0;
    openPage();
  } else if (ready_) {
    sendBody();
  }
}

/// The page is worked on and will be shown. Until then its text is the one that was to be loaded.
void EditedDocument::stopWaiting()
{
  if (!std::exchange(busy, false))
    return;
  page_->setStuck();
  events.documentComplete();
}

void EditedDocument::onReady()
{
  ready_ = true;
  pressedKeys_.count = 0;
  showStyles();
  sendBody();
}

void EditedDocument::showStyles()
{
  if (!ready_)
    return;
  page_->tell("setColours", {qtText(background), qtText(foreground)});
  page_->tell("setRules", {qtText(rules)});
  page_->tell("setMarks", {borders, details});
  page_->tell("setSnapToGrid", {snaps});
}

void EditedDocument::sendBody()
{
  page_->tell("load", {qtText(body_), siteUrl(directory_).toString(QUrl::FullyEncoded)},
              [this, load = ++loads_](const QVariant& answer) {
                if (load == loads_)
                  takeLoaded(answer);
              });
}

void EditedDocument::takeLoaded(const QVariant& answer)
{
  const auto state = answer.toMap();
  if (!state.contains("body"))
    return;
  body_ = systemText(state["body"]);
  version_ = state["version"].toInt();
  announced_ = false;
  loadTimer_.stop();
  const bool wasBusy = std::exchange(busy, false);
  const bool restored = std::exchange(restoring_, false);
  // What was told while nobody listened is asked for now.
  displayTimer_.start(kDisplayDelayMs);
  later([=, this] {
    noticeChange(std::exchange(changeWhileBusy_, 0));
    if (wasBusy)
      events.documentComplete();
    if (restored)
      events.restored();
  });
}

bool EditedDocument::waitUntilLoaded()
{
  if (busy)
    page_->waitUntil([this] { return !busy || breakdowns_ > kMaxBreakdowns; }, kLoadMs);
  return !busy && ready_;
}

void EditedDocument::setBody(std::string_view html)
{
  // A document that is not there yet is loaded with this text right away.
  if (busy)
    return load(html);
  body_ = base::toCrLf(withBoundedDepth(html));
  page_->tell("setBody", {qtText(body_)}, [this, load = ++loads_](const QVariant& answer) {
    if (load == loads_)
      takeLoaded(answer);
  });
}

// --- the copy of the text

void EditedDocument::noticeChange(int version)
{
  if (busy) {
    changeWhileBusy_ = version;
    return;
  }
  // A note that was overtaken by an answer tells nothing new.
  if (version <= version_)
    return;
  if (!copyTimer_.isActive())
    copyTimer_.start(kCopyDelayMs);
  if (!std::exchange(announced_, true))
    events.changed();
}

void EditedDocument::takeBody(const QVariant& answer)
{
  const auto state = answer.toMap();
  if (!state.contains("body") || state["version"].toInt() <= version_)
    return;
  body_ = systemText(state["body"]);
  version_ = state["version"].toInt();
  if (!std::exchange(announced_, false))
    events.changed();
}

void EditedDocument::fetchBody()
{
  if (ready_ && !busy)
    page_->tell("read", {version_}, [this, load = loads_](const QVariant& answer) {
      later([=, this] {
        if (load == loads_)
          takeBody(answer);
      });
    });
}

/// Those that the engine kept to itself never come, and are waited for once.
void EditedDocument::waitForKeys()
{
  int arrived = 0;
  QElapsedTimer clock;
  clock.start();
  do
    arrived = page_->ask("arrivedKeys", {}).value_or(0).toInt();
  while (arrived < pressedKeys_.count && clock.elapsed() < kKeysMs);
  pressedKeys_.count = arrived;
  // The text that a key brings follows right behind it.
  page_->ask("arrivedKeys", {});
}

const std::string& EditedDocument::body()
{
  if (!waitUntilLoaded())
    return body_;
  waitForKeys();
  const int load = loads_;
  const auto answer = page_->ask("read", {version_});
  if (answer && load == loads_)
    takeBody(*answer);
  return body_;
}

// --- breakdown

void EditedDocument::onBreakdown()
{
  const bool wasHealthy = !sinceBreakdown_.isValid() || sinceBreakdown_.elapsed() > kHealthyMs;
  breakdowns_ = wasHealthy ? 1 : breakdowns_ + 1;
  sinceBreakdown_.start();
  ready_ = false;
  restoring_ = true;
  ++loads_;
  startLoading();
  if (breakdowns_ <= kMaxBreakdowns)
    openPage();
}

// --- commands

std::optional<QVariant> EditedDocument::ask(const QString& function, const QJsonArray& arguments)
{
  return waitUntilLoaded() ? page_->ask(function, arguments) : std::nullopt;
}

void EditedDocument::fetchDisplay()
{
  if (ready_ && !busy)
    page_->tell("display", {}, [this](const QVariant& answer) {
      if (!answer.isValid())
        return;
      later([=, this] {
        display = answer.toMap();
        events.displayChanged();
      });
    });
}

std::string EditedDocument::value(int command) const
{
  return display["values"].toMap()[QString::number(command)].toString().toStdString();
}

bool EditedDocument::run(int command, const QJsonValue& argument)
{
  const auto answer = ask("exec", {command, argument});
  if (!answer)
    return false;
  const auto result = answer->toMap();
  display = result["display"].toMap();
  return result["done"].toBool();
}

void EditedDocument::takeDisplay()
{
  if (const auto answer = ask("display"); answer && answer->isValid())
    display = answer->toMap();
}

} // namespace mrd::desktop
