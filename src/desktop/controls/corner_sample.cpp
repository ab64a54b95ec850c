#include "desktop/controls/corner_sample.h"

#include "desktop/controls/shown_image.h"

#include <QPainter>

#include <algorithm>

namespace mrd::desktop {
namespace {

/// A larger radius shows only its beginning: the sample must not push the other fields aside.
constexpr int kLargestPx = 120;

} // namespace

CornerSample::CornerSample(QWidget* parent) : QWidget(parent), corner_(image::Image::create(1, 1)) {}

void CornerSample::setCorner(const image::Image& corner, const QColor& outside)
{
  corner_ = corner;
  outside_ = outside;
  const int side = std::min(corner.width(), kLargestPx) + 1;
  setFixedSize(side, side);
  update();
}

void CornerSample::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  painter.fillRect(rect(), outside_);
  painter.drawImage(0, 0, shownImage(corner_));
}

} // namespace mrd::desktop
