#pragma once

#include "desktop/windows/export_window.h"
#include "imode/imode.h"

namespace mrd::desktop {

/// The same dialog for the edition for telephones; it shows less of it.
class FrmImodeWindow : public ExportWindow {
public:
  FrmImodeWindow(imode::frmimode& form, messages::Language& language, QWidget* parent = nullptr);
};

} // namespace mrd::desktop
