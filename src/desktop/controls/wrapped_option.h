#pragma once

#include <QRadioButton>

namespace mrd::desktop {

/// An option button whose caption breaks into lines: some explain in a few sentences what they stand for.
class WrappedOption : public QRadioButton {
public:
  explicit WrappedOption(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }

private:
  int textLeft() const;
  QSize textSize(int width) const;
};

} // namespace mrd::desktop
