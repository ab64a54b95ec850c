#include "desktop/looks/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace mrd::desktop {
namespace {

/// The colours that the drawings name: lines, and the part that stands out.
constexpr auto kLineColour = "currentColor";
constexpr auto kAccentColour = "#2e7d5b";

QByteArray drawing(const QString& name)
{
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PaletteIconEngine : public QIconEngine {
public:
  explicit PaletteIconEngine(const QByteArray& drawing) : drawing_(drawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
  {
    const QPalette palette = QGuiApplication::palette();
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const bool onSelection = mode == QIcon::Selected;
    const QColor line = palette.color(group, onSelection ? QPalette::HighlightedText : QPalette::ButtonText);
    const QColor accent = mode == QIcon::Disabled || onSelection ? line : palette.color(QPalette::Link);
    QByteArray coloured = drawing_;
    coloured.replace(kLineColour, line.name().toUtf8());
    coloured.replace(kAccentColour, accent.name().toUtf8());
    QSvgRenderer(coloured).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
  {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(*this); }

private:
  QByteArray drawing_;
};

} // namespace

QIcon icon(const char* name) { return icon(QString::fromLatin1(name)); }

QIcon icon(const QString& name)
{
  const QByteArray svg = drawing(name);
  return svg.isEmpty() ? QIcon() : QIcon(new PaletteIconEngine(svg));
}

QIcon programIcon() { return icon("mirandel"); }

} // namespace mrd::desktop
