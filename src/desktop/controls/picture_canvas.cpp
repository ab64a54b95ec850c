#include "desktop/controls/picture_canvas.h"

#include "desktop/controls/shown_image.h"

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
  // The picture's own memory: a second copy of a large one in another form would cost more than drawing from this.
  const QImage pixels = shownImage(*picture_);
  QPainter painter(this);
  const bool isAsLarge = pixels.size() == size();
  if (isAsLarge)
    return painter.drawImage(event->rect(), pixels, event->rect());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(rect(), pixels);
}

} // namespace mrd::desktop
