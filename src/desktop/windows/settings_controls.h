#pragma once

#include "desktop/windows/mainform_parts.h"

#include "desktop/windows/control_labels.h"
#include "desktop/windows/preview_controls.h"

#include <QObject>

namespace mrd::desktop {

/// The main window's controls of the project's settings.
class SettingsControls : public QObject {
public:
  SettingsControls(MainformParts& parts, PreviewControls& previews, ControlLabels& labels);

  void show();

private:
  void connectLines();
  void connectChoices();
  void connectLists();
  void connectRadius();
  void connectButtons();
  void showHeadPicture();

  MainformParts& parts_;
  PreviewControls& previews_;
  ControlLabels& labels_;
};

} // namespace mrd::desktop
