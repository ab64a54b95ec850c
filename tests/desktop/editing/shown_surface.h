#pragma once
// An editing surface on the screen, with what it told its owner, and a look into its document.

#include "desktop/editing/web_editing_surface.h"

#include <QString>
#include <QVariant>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include <functional>
#include <string>
#include <string_view>

namespace mrd::desktop {

/// Lets events run until it is so; false when that takes too long.
bool comesTrue(const std::function<bool()>& condition, int milliseconds = 5000);
/// Lets events run for a while, to see that something does not happen.
void letPass(int milliseconds);

class ShownSurface : public WebEditingSurface {
public:
  /// Shown and not busy any more; in this directory of a site.
  explicit ShownSurface(std::string_view siteDirectory = {});

  /// Loads a document and waits for it.
  void load(std::string_view html);
  /// Loads what was read.
  std::string reloaded();

  QWebEnginePage& page() const;
  /// Value of an expression in the document; none where it does not answer in time.
  QVariant inDocument(const QString& expression, quint32 world = QWebEngineScript::ApplicationWorld,
                      int milliseconds = 20000) const;
  std::string textInDocument(const QString& expression) const { return inDocument(expression).toString().toStdString(); }

  /// Selects all of what a CSS selector finds first, or a part of its first text.
  void select(const QString& selector);
  void selectText(const QString& selector, int from, int to);
  void placeCursor(const QString& selector, int offset) { selectText(selector, offset, offset); }
  /// Selects the element as a whole.
  void selectElement(const QString& selector);

  /// Keys as from the keyboard, and the time until they arrived in the document.
  void type(const QString& text);
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

  /// Waits until statuses and values are those of the present selection.
  void waitForDisplay();
  int status(int command);
  std::string value(int command);

  int completed = 0, changes = 0, displays = 0, restorations = 0;
};

} // namespace mrd::desktop
