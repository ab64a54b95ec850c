#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

namespace mrd::image {
class Image;
}

namespace mrd::desktop {

/// Shows a picture file at its own size, or smaller where it has no room; nothing without one.
class PicturePanel : public QWidget {
public:
  explicit PicturePanel(QWidget* parent = nullptr) : QWidget(parent) {}

  void setPicture(const QString& nativePath);
  /// Shows a picture that is no file.
  void setImage(const image::Image& picture);

  QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QString path_;
  QPixmap picture_;
};

} // namespace mrd::desktop
