#pragma once
// The dialog that writes the edition for telephones: its values and its procedures, without a screen.

#include "generator/export_dialog.h"

#include <string>

namespace mrd::imode {

class frmimode : public generator::ExportDialog {
public:
  explicit frmimode(const generator::ExportEnvironment& environment) : ExportDialog(environment) {}

  /// Writes all pages into `imode` of the export directory. Has the standard failure handler. A click while a run is under way
  /// does nothing.
  generator::RunOutcome cbHTML_Click();
  /// Shows the homepage of the last run in a telephone on the screen. Has the standard failure handler.
  void cbvorschau_Click();

private:
  std::string startdatei_;
};

} // namespace mrd::imode
