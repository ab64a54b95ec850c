#pragma once

#include "platform/image/image.h"

#include <QWidget>

#include <optional>

namespace mrd::desktop {

/// A picture at a given size, whatever its own; nothing without one.
class PictureCanvas : public QWidget {
public:
  explicit PictureCanvas(QWidget* parent = nullptr) : QWidget(parent) {}

  void setPicture(const std::optional<image::Image>& picture, QSize size);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  std::optional<image::Image> picture_;
};

} // namespace mrd::desktop
