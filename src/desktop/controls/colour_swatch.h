#pragma once

#include <QAbstractButton>
#include <QColor>

namespace mrd::desktop {

/// A patch of colour that can be clicked; a frame marks the one that was chosen last.
class ColourSwatch : public QAbstractButton {
public:
  explicit ColourSwatch(QWidget* parent = nullptr);

  void setColour(const QColor& colour);
  QColor colour() const { return colour_; }
  void setFramed(bool framed);
  bool isFramed() const { return framed_; }

  QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QColor colour_ = Qt::black;
  bool framed_ = false;
};

} // namespace mrd::desktop
