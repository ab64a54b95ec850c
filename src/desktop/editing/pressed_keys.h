#pragma once
// How many keys the user has pressed in a view of the web engine.

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

namespace mrd::desktop {

/// Keys reach the page by a way of their own: their number tells whether all of them have arrived.
class PressedKeys : public QObject {
public:
  explicit PressedKeys(QWidget& view) : view_(view) { QCoreApplication::instance()->installEventFilter(this); }

  int count = 0;

protected:
  bool eventFilter(QObject* receiver, QEvent* event) override
  {
    // The engine puts a widget of its own into the view, and another one at each start.
    if (event->type() == QEvent::KeyPress && receiver == view_.focusProxy())
      ++count;
    return false;
  }

private:
  QWidget& view_;
};

} // namespace mrd::desktop
