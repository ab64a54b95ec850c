#pragma once

#include "desktop/windows/control_labels.h"
#include "desktop/windows/mainform_parts.h"
#include "desktop/windows/page_controls.h"
#include "desktop/windows/preview_controls.h"
#include "desktop/windows/settings_controls.h"

namespace mrd::desktop {

/// The main window's controls: shows the form objects' values in them, and takes over what the user changes there.
class MainformFields {
public:
  MainformFields(Ui::Mainform& ui, mainform::Mainform& form, const QtControls& controls, QWidget& window);
  MainformFields(const MainformFields&) = delete;
  MainformFields& operator=(const MainformFields&) = delete;

  void show(mainform::Shown what);
  void showPreviewBox() { previews_.showPreviewBox(); }

private:
  void showTabs();
  void showTools();
  void showMenus();
  void showCaption();

  MainformParts parts_;
  ControlLabels labels_;
  PreviewControls previews_;
  SettingsControls settings_;
  PageControls page_;
};

} // namespace mrd::desktop
