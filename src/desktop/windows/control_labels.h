#pragma once

#include "desktop/windows/mainform_parts.h"

namespace mrd::desktop {

/// What the main window's captions say of the controls beside them, also to who cannot see them.
class ControlLabels {
public:
  explicit ControlLabels(MainformParts& parts) : parts_(parts) {}

  /// To be called when captions or the states of controls have changed.
  void show();

private:
  void nameControls();

  MainformParts& parts_;
};

} // namespace mrd::desktop
