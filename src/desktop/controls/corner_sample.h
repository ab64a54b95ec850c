#pragma once

#include "platform/image/image.h"

#include <QColor>
#include <QWidget>

namespace mrd::desktop {

/// The lower right one of the site's rounded corners, as it will look.
class CornerSample : public QWidget {
public:
  explicit CornerSample(QWidget* parent = nullptr);

  /// The corner as it is drawn for the site, and the colour of what lies beside it.
  void setCorner(const image::Image& corner, const QColor& outside);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  image::Image corner_;
  QColor outside_ = Qt::white;
};

} // namespace mrd::desktop
