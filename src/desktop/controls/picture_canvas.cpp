#include "desktop/controls/picture_canvas.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

namespace mrd::desktop {

void PictureCanvas::setPicture(const std::optional<image::Image>& picture, QSize size)
{
  picture_ = picture;
  setFixedSize(picture ? size : QSize(0, 0));
  update();
}

void PictureCanvas::paintEvent(QPaintEvent* event)
{
  if (!picture_)
    return;
  constexpr int kBytesPerPixel = 3;
  // The picture's own memory: a second copy of a large one in another form would cost more than drawing from this.
  const QImage pixels(picture_->bytes().data(), picture_->width(), picture_->height(), kBytesPerPixel * picture_->width(),
                      QImage::Format_RGB888);
  QPainter painter(this);
  const bool isAsLarge = pixels.size() == size();
  if (isAsLarge)
    return painter.drawImage(event->rect(), pixels, event->rect());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(rect(), pixels);
}

} // namespace mrd::desktop
