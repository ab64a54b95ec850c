#pragma once

#include "platform/ui/ui.h"

namespace mrd::ui {

/// Hides the progress that work has shown when the scope of the work is left.
class Progress {
public:
  explicit Progress(Ui& ui) : ui_(ui) {}
  ~Progress() { ui_.hideProgress(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

private:
  Ui& ui_;
};

} // namespace mrd::ui
