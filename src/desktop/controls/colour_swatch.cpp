#include "desktop/controls/colour_swatch.h"

#include <QPainter>

namespace mrd::desktop {

ColourSwatch::ColourSwatch(QWidget* parent) : QAbstractButton(parent)
{
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourSwatch::setColour(const QColor& colour)
{
  colour_ = colour;
  update();
}

void ColourSwatch::setFramed(bool framed)
{
  framed_ = framed;
  update();
}

QSize ColourSwatch::sizeHint() const { return {40, 24}; }

void ColourSwatch::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  painter.setPen(QPen(palette().color(group, QPalette::Mid), 1));
  QColor fill = colour_;
  if (!isEnabled())
    fill.setAlpha(80);
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), 3, 3);
  if (!framed_ && !hasFocus())
    return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2, hasFocus() && !framed_ ? Qt::DotLine : Qt::SolidLine));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

} // namespace mrd::desktop
