#include "desktop/controls/up_down.h"

#include <QVBoxLayout>

namespace mrd::desktop {

UpDown::UpDown(QWidget* parent) : QWidget(parent)
{
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  up_ = addArrow(Qt::UpArrow, +1);
  down_ = addArrow(Qt::DownArrow, -1);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QToolButton* UpDown::addArrow(Qt::ArrowType arrow, int by)
{
  auto* const button = new QToolButton(this);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFixedSize(22, 14);
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, [this, by] { step_(by); });
  layout()->addWidget(button);
  return button;
}

void UpDown::setNames(const QString& up, const QString& down)
{
  up_->setAccessibleName(up);
  down_->setAccessibleName(down);
}

} // namespace mrd::desktop
