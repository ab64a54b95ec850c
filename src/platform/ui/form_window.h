#pragma once

#include <functional>

namespace mrd::ui {

/// The window that shows a form object, as far as the form object needs it. Without a window nothing happens.
struct FormWindow {
  /// Shows the values of the form object anew.
  std::function<void()> refresh = [] {};
  /// Closes the window.
  std::function<void()> unload = [] {};
};

} // namespace mrd::ui
