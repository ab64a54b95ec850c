#pragma once

#include "mainform/about.h"

#include <QWidget>

#include <memory>

namespace Ui {
class FrmStartbild;
}

namespace mrd::desktop {

/// The opening picture, in the middle of the screen.
class FrmStartbildWindow : public QWidget {
public:
  explicit FrmStartbildWindow(mainform::FrmStartbild& form);
  ~FrmStartbildWindow() override;

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  mainform::FrmStartbild& form_;
  std::unique_ptr<Ui::FrmStartbild> ui_;
};

} // namespace mrd::desktop
