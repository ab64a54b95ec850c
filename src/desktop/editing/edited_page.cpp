#include "desktop/editing/edited_page.h"

#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QPointer>
#include <QTimer>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <memory>

namespace mrd::desktop {
namespace {

Q_LOGGING_CATEGORY(editing, "mirandel.editing")

constexpr auto kWorld = QWebEngineScript::ApplicationWorld;
// Long, because what comes back is what is saved; other work may keep the machine busy.
constexpr int kAnswerMs = 10000;
constexpr int kAnswerOfStuckMs = 300;

QString resourceText(const QString& path)
{
  QFile file(path);
  const bool isThere = file.open(QIODevice::ReadOnly);
  Q_ASSERT(isThere);
  return isThere ? QString::fromUtf8(file.readAll()) : QString();
}

void switchOffScripts(QWebEngineSettings& settings)
{
  // Holds for the page's own world; the one in which the editing script lives goes on.
  settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
  settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
  settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
  settings.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
  settings.setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
  settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
  settings.setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
  settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

} // namespace

EditedPage::EditedPage(QWebEngineProfile& profile, ScriptNotes& notes, QObject* parent) : QWebEnginePage(&profile, parent)
{
  switchOffScripts(*settings());
  channel_.registerObject("desktop", &notes);
  setWebChannel(&channel_, kWorld);
  installScript();
  connect(this, &QWebEnginePage::loadFinished, this, [this](bool succeeded) {
    if (succeeded)
      checkScript();
  });
  connect(this, &QWebEnginePage::renderProcessTerminated, this, [this](RenderProcessTerminationStatus status) {
    if (status != NormalTerminationStatus)
      breakDown();
  });
}

void EditedPage::installScript()
{
  QWebEngineScript script;
  script.setName("editor");
  script.setWorldId(kWorld);
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  script.setRunsOnSubFrames(false);
  script.setSourceCode(resourceText(":/qtwebchannel/qwebchannel.js") + resourceText(":/editor/tables.js") +
                       resourceText(":/editor/search.js") + resourceText(":/editor/overlay.js") +
                       resourceText(":/editor/editor.js"));
  scripts().insert(script);
}

/// A process that follows one which broke down may show the document and know nothing of the script.
void EditedPage::checkScript()
{
  runJavaScript("typeof editor", kWorld, [this](const QVariant& type) {
    // What has no type at all is the answer of a page that is being destroyed.
    if (type.toString() == "object")
      onReady();
    else if (type.isValid() && !brokenDown_)
      breakDown();
  });
}

void EditedPage::breakDown()
{
  brokenDown_ = true;
  // Not from within the engine's own handling of the end; and a copy, because the page may be destroyed by it.
  QTimer::singleShot(0, this, [tellOwner = onBreakdown] { tellOwner(); });
}

void EditedPage::start()
{
  brokenDown_ = false;
  stuck_ = false;
  load(documentUrl());
}

void EditedPage::tell(const QString& function, const QJsonArray& arguments, Answer answer)
{
  QJsonArray all = arguments;
  all.prepend(function);
  const QString call = "editor.call(..." + QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact)) + ")";
  runJavaScript(call, kWorld, std::move(answer));
}

std::optional<QVariant> EditedPage::ask(const QString& function, const QJsonArray& arguments)
{
  // Shared, because an answer may come when nobody waits for it any more.
  const auto answer = std::make_shared<std::optional<QVariant>>();
  tell(function, arguments, [answer](const QVariant& value) { *answer = value; });
  waitUntil([&] { return answer->has_value() || brokenDown_; }, stuck_ ? kAnswerOfStuckMs : kAnswerMs);
  stuck_ = !answer->has_value() && !brokenDown_;
  if (!answer->has_value())
    qCWarning(editing) << "no answer from" << function;
  return *answer;
}

void EditedPage::waitUntil(const std::function<bool()>& isOver, int milliseconds)
{
  const QPointer<EditedPage> alive(this);
  // It also wakes the loop, which sleeps while nothing happens.
  QTimer alarm;
  alarm.setSingleShot(true);
  alarm.start(milliseconds);
  QEventLoop loop;
  while (alive && !isOver() && alarm.isActive())
    loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

bool EditedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame)
{
  return isMainFrame && isDocumentUrl(url);
}

void EditedPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                          const QString& source)
{
  // What the walls around the page keep out is written here too, and of interest to nobody.
  if (level == ErrorMessageLevel && source.contains("editor"))
    qCWarning(editing) << message << "line" << line;
  else
    qCDebug(editing) << message << source << line;
}

} // namespace mrd::desktop
