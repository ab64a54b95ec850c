#include "desktop/editing/shown_surface.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>

#include <memory>
#include <optional>

namespace mrd::desktop {

bool comesTrue(const std::function<bool()>& condition, int milliseconds)
{
  QElapsedTimer clock;
  clock.start();
  while (!condition() && clock.elapsed() < milliseconds)
    letPass(2);
  return condition();
}

void letPass(int milliseconds)
{
  // A loop that sleeps only when nothing is to do: the engine comes forward by many small events.
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

ShownSurface::ShownSurface(std::string_view siteDirectory)
{
  ui::SurfaceEvents events;
  events.documentComplete = [this] { ++completed; };
  events.changed = [this] { ++changes; };
  events.displayChanged = [this] { ++displays; };
  events.restored = [this] { ++restorations; };
  setEvents(events);
  setLanguage("ENG");
  if (!siteDirectory.empty())
    setSiteDirectory(siteDirectory);
  resize(800, 600);
  show();
  comesTrue([this] { return !busy(); }, 20000);
  activateWindow();
  setFocus();
  // Keys that come before the page's process knows that it has the keyboard are lost.
  comesTrue([this] { return inDocument("document.hasFocus()").toBool(); });
}

void ShownSurface::load(std::string_view html)
{
  setDocumentHtml(html);
  comesTrue([this] { return !busy(); }, 20000);
}

std::string ShownSurface::reloaded()
{
  load(bodyInnerHtml());
  return bodyInnerHtml();
}

QWebEnginePage& ShownSurface::page() const { return *findChild<QWebEngineView*>()->page(); }

QVariant ShownSurface::inDocument(const QString& expression, quint32 world, int milliseconds) const
{
  // A page that breaks down answers when nobody waits any more.
  const auto value = std::make_shared<std::optional<QVariant>>();
  page().runJavaScript(expression, world, [value](const QVariant& answer) { *value = answer; });
  comesTrue([&] { return value->has_value(); }, milliseconds);
  return value->value_or(QVariant());
}

void ShownSurface::select(const QString& selector)
{
  inDocument(QString("getSelection().selectAllChildren(document.querySelector('%1'))").arg(selector));
}

void ShownSurface::selectText(const QString& selector, int from, int to)
{
  inDocument(QString("{ const e = document.querySelector('%1'); const t = e.firstChild || e; "
                     "getSelection().setBaseAndExtent(t, %2, t, %3); }")
                 .arg(selector)
                 .arg(from)
                 .arg(to));
}

void ShownSurface::selectElement(const QString& selector)
{
  inDocument(QString("{ const r = document.createRange(); r.selectNode(document.querySelector('%1')); "
                     "getSelection().removeAllRanges(); getSelection().addRange(r); }")
                 .arg(selector));
}

void ShownSurface::type(const QString& text)
{
  QTest::keyClicks(findChild<QWebEngineView*>()->focusProxy(), text);
  letPass(100);
}

void ShownSurface::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
  QTest::keyClick(findChild<QWebEngineView*>()->focusProxy(), key, modifiers);
  letPass(100);
}

void ShownSurface::waitForDisplay()
{
  // The first to come may have been asked for before this call, the second was asked for within it.
  for (int i = 0; i < 2; ++i) {
    const int before = displays;
    // Wakes the display also when the last selection was told already.
    inDocument("{ const s = getSelection(), { anchorNode: a, anchorOffset: b, focusNode: c, focusOffset: d } = s; "
               "if (a) { s.removeAllRanges(); s.setBaseAndExtent(a, b, c, d); } }");
    comesTrue([&] { return displays > before; });
  }
}

int ShownSurface::status(int command)
{
  waitForDisplay();
  return queryStatus(command);
}

std::string ShownSurface::value(int command)
{
  waitForDisplay();
  return commandValue(command);
}

} // namespace mrd::desktop
