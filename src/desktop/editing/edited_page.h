#pragma once
// The web engine's page that shows the edited document, with the script inside it that does the work.

#include "desktop/editing/site_files.h"

#include <QJsonArray>
#include <QObject>
#include <QVariant>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineProfile>

#include <functional>
#include <optional>

class QEventLoop;

namespace mrd::desktop {

/// What the script tells on its own account.
class ScriptNotes : public QObject {
  Q_OBJECT

public:
  std::function<void(int version)> onChanged;
  std::function<void()> onDisplay;
  std::function<void()> onPastePicture;
  std::function<void(const QString& html, const QString& text)> onPasteHtml;
  std::function<void(int x, int y, const QVariantMap& display)> onContextMenu;

  Q_INVOKABLE void changed(int version) { onChanged(version); }
  Q_INVOKABLE void display() { onDisplay(); }
  Q_INVOKABLE void pastePicture() { onPastePicture(); }
  Q_INVOKABLE void pasteHtml(const QString& html, const QString& text) { onPasteHtml(html, text); }
  Q_INVOKABLE void contextMenu(int x, int y, const QVariantMap& display) { onContextMenu(x, y, display); }
};

/// Loads the empty document, goes nowhere else, and calls functions of the script.
class EditedPage : public QWebEnginePage {
public:
  using Answer = std::function<void(const QVariant&)>;

  EditedPage(QWebEngineProfile& profile, ScriptNotes& notes, QObject* parent);

  /// Runs when the empty document is there and the script is ready; again after each start.
  std::function<void()> onReady;
  /// Runs when the process that shows the page has ended by itself, or is of no use. The page may be destroyed then.
  std::function<void()> onBreakdown;

  void start();

  /// Calls a function of the script; the answer comes later. It is invalid when the page is destroyed, and never comes when its
  /// process ends.
  void tell(
      const QString& function, const QJsonArray& arguments, Answer answer = [](const QVariant&) {});
  /// Calls and waits; nothing when no answer comes in time. One who did not answer is not waited for as long again.
  std::optional<QVariant> ask(const QString& function, const QJsonArray& arguments);
  /// The page is busy with itself and does not answer.
  bool isStuck() const { return stuck_; }
  void setStuck() { stuck_ = true; }
  /// Lets events run until `isOver` or the time is up. What the user does meanwhile waits.
  void waitUntil(const std::function<bool()>& isOver, int milliseconds);

protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                const QString& source) override;

private:
  void installScript();
  void checkScript();
  void breakDown();

  QWebChannel channel_;
  bool brokenDown_ = false;
  bool stuck_ = false;
};

} // namespace mrd::desktop
