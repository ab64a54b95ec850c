#include "desktop/controls/corner_sample.h"

#include <QPainter>

#include <algorithm>

namespace mrd::desktop {
namespace {

/// A larger radius shows only its beginning: the sample must not push the other fields aside.
constexpr int kLargestPx = 120;

} // namespace

void CornerSample::setRadius(int radiusPx)
{
  radius_ = std::max(1, radiusPx);
  const int side = std::min(radius_, kLargestPx) + 1;
  setFixedSize(side, side);
  update();
}

void CornerSample::setColours(const QColor& inside, const QColor& outside)
{
  inside_ = inside;
  outside_ = outside;
  update();
}

void CornerSample::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  painter.fillRect(rect(), outside_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(inside_);
  painter.drawEllipse(QRectF(-radius_ - 1, -radius_ - 1, 2.0 * radius_, 2.0 * radius_));
}

} // namespace mrd::desktop
