#pragma once

#include <QToolButton>
#include <QWidget>

#include <functional>

namespace mrd::desktop {

/// Two small arrows that count the number in a field beside them up and down.
class UpDown : public QWidget {
public:
  explicit UpDown(QWidget* parent = nullptr);

  /// What a click does: +1 or -1.
  void setStep(std::function<void(int)> step) { step_ = std::move(step); }
  /// Names for those who hear the window instead of seeing it.
  void setNames(const QString& up, const QString& down);

private:
  QToolButton* addArrow(Qt::ArrowType arrow, int by);

  std::function<void(int)> step_ = [](int) {};
  QToolButton* up_;
  QToolButton* down_;
};

} // namespace mrd::desktop
