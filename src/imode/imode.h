#pragma once
// The dialog that writes the edition for telephones and puts it on its server: its values and its procedures, without a screen.

#include "generator/export_dialog.h"
#include "publish/export_form.h"

#include <string>

namespace mrd::imode {

/// The half of it that generates.
class ImodeExport : public generator::ExportDialog {
public:
  explicit ImodeExport(const generator::ExportEnvironment& environment) : ExportDialog(environment) {}

  /// Writes all pages into `imode` of the export directory. Has the standard failure handler. A click while a run is under way
  /// does nothing.
  generator::RunOutcome cbHTML_Click();
  /// Shows the homepage of the last run in a telephone on the screen. Has the standard failure handler.
  void cbvorschau_Click();

private:
  std::string startdatei_;
};

class frmimode : public publish::ExportForm<ImodeExport> {
public:
  frmimode(const generator::ExportEnvironment& environment, const publish::PublishingEnvironment& publishingEnvironment)
      : ExportForm(publish::kImode, environment, publishingEnvironment)
  {
  }
};

} // namespace mrd::imode
