#pragma once

#include <QColor>
#include <QWidget>

namespace mrd::desktop {

/// The lower right one of the site's rounded corners, as it will look.
class CornerSample : public QWidget {
public:
  explicit CornerSample(QWidget* parent = nullptr) : QWidget(parent) { setRadius(1); }

  void setRadius(int radiusPx);
  void setColours(const QColor& inside, const QColor& outside);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  int radius_ = 1;
  QColor inside_ = Qt::blue, outside_ = Qt::white;
};

} // namespace mrd::desktop
