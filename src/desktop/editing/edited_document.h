#pragma once
// The document in the other process, as the surface knows it.

#include "desktop/editing/edited_page.h"
#include "desktop/editing/pressed_keys.h"
#include "desktop/editing/site_files.h"
#include "platform/ui/editing_surface.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::desktop {

QString qtText(std::string_view utf8);
/// With the line ends of the system.
std::string systemText(const QVariant& text);

/// Keeps a copy of its text, the statuses of its commands and what it is shown with, and starts it anew when its process ends.
class EditedDocument {
public:
  explicit EditedDocument(QWidget& owner);
  /// The page first: it gives its last answers to what is still whole.
  ~EditedDocument() { page_.reset(); }
  EditedDocument(const EditedDocument&) = delete;
  EditedDocument& operator=(const EditedDocument&) = delete;

  /// A whole document's text; busy until it is there.
  void load(std::string_view html);
  /// In the document that is there, where it can be undone.
  void setBody(std::string_view html);
  /// Waits for loads and for keys that are under way. The copy, when the process does not answer.
  const std::string& body();
  /// Directory of the site in the system's form. Shows the document anew where it is another one.
  void startIn(std::string_view directory);
  /// To be called when colours, rules, borders, details or snaps have changed.
  void showStyles();
  /// False when the document has not come in time.
  bool waitUntilLoaded();
  /// Calls a function of the editing script and waits for its answer; nothing when none comes.
  std::optional<QVariant> ask(const QString& function, const QJsonArray& arguments = {});

  /// Runs a command of `ui::command`; false when it could not be run.
  bool run(int command, const QJsonValue& argument);
  /// Takes the present statuses and values of all commands.
  void takeDisplay();
  /// A command's value as it was taken last.
  std::string value(int command) const;
  /// How many documents were loaded: another number, another document.
  int documents() const { return documents_; }

  ui::SurfaceEvents events;
  /// Keys or mouse paste the picture of the clipboard, or this HTML, or where a page cannot take that, this text.
  std::function<void()> onPastePicture = [] {};
  std::function<void(const QString& html, const QString& text)> onPasteHtml = [](const QString&, const QString&) {};
  std::string language = "GER";
  std::string background, foreground, rules;
  bool borders = false, details = false, snaps = false;
  bool busy = true;
  QVariantMap display;
  QWebEngineView view;

private:
  void connectNotes();
  void later(std::function<void()> work);
  void openPage();
  void show();
  void startLoading();
  void stopWaiting();
  void onReady();
  void onBreakdown();
  void sendBody();
  void noticeChange(int version);
  void waitForKeys();
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
  PressedKeys pressedKeys_{view};

  std::string directory_;
  /// The text as it was last known, and the number that the script gave to this state.
  std::string body_;
  int version_ = 0;
  /// Number of a change that was told while a load was under way; 0 for none.
  int changeWhileBusy_ = 0;
  /// The owner knows of the changes behind `version_`.
  bool announced_ = false;
  /// The empty document is there.
  bool ready_ = false;
  /// What is not answered yet of an older load is of no interest.
  int loads_ = 0;
  int documents_ = 0;
  bool restoring_ = false;
  int breakdowns_ = 0;
  QElapsedTimer sinceBreakdown_;
};

} // namespace mrd::desktop
