#pragma once

#include "desktop/windows/mainform_parts.h"

#include <QObject>

namespace mrd::desktop {

/// The main window's controls of the page that is open: its source, its file name, its script, its type.
class PageControls : public QObject {
public:
  explicit PageControls(MainformParts& parts);

  void show();

private:
  MainformParts& parts_;
};

} // namespace mrd::desktop
