#pragma once
// What the groups of the main window's controls have in common.

#include "mainform/mainform.h"

class QWidget;

namespace Ui {
class Mainform;
}

namespace mrd::desktop {

class QtControls;

struct MainformParts {
  Ui::Mainform& ui;
  mainform::Mainform& form;
  const QtControls& controls;
  QWidget& window;

  messages::Language& language() const { return form.program().language; }

  /// Above 0 while values are shown: changes of the controls are then not the user's.
  int showing = 0;
};

/// For the length of a scope, values are shown.
class Showing {
public:
  explicit Showing(MainformParts& parts) : parts_(parts) { ++parts_.showing; }
  ~Showing() { --parts_.showing; }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

private:
  MainformParts& parts_;
};

} // namespace mrd::desktop
