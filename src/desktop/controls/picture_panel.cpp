#include "desktop/controls/picture_panel.h"

#include "desktop/controls/shown_image.h"

#include <QImageReader>
#include <QPainter>

namespace mrd::desktop {
namespace {

/// No head of a telephone page is larger; what is, is read no larger than this.
constexpr QSize kLargest(240, 120);

} // namespace

void PicturePanel::setPicture(const QString& nativePath)
{
  if (nativePath == path_)
    return;
  path_ = nativePath;
  picture_ = {};
  if (!nativePath.isEmpty()) {
    QImageReader reader(nativePath);
    const QSize size = reader.size();
    if (size.width() > kLargest.width() || size.height() > kLargest.height())
      reader.setScaledSize(size.scaled(kLargest, Qt::KeepAspectRatio));
    picture_ = QPixmap::fromImageReader(&reader);
  }
  updateGeometry();
  update();
}

void PicturePanel::setImage(const image::Image& picture)
{
  path_.clear();
  picture_ = QPixmap::fromImage(shownImage(picture));
  updateGeometry();
  update();
}

QSize PicturePanel::sizeHint() const { return picture_.size(); }

void PicturePanel::paintEvent(QPaintEvent*)
{
  if (!picture_.isNull())
    QPainter(this).drawPixmap(0, 0, picture_);
}

} // namespace mrd::desktop
