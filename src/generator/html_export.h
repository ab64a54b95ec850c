#pragma once
// The dialog that turns a project into a site: its values and its procedures, without a screen.

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "frame/settings/fields.h"
#include "generator/run_frame.h"
#include "platform/dao/database.h"
#include "platform/ui/shell.h"

#include <cstddef>
#include <optional>
#include <string>

namespace mrd::generator {

/// What the dialog works with.
struct ExportEnvironment {
  const paths::ProgramFiles& program;
  messages::Language& language;
  settings::Fields& fields;
  const base::Clock& clock;
  ui::Shell& shell;
};

/// How a run ended.
struct RunOutcome {
  std::size_t generated = 0;
  /// Pages that were left out because their file would lie outside of the export directory.
  std::size_t refused = 0;
  /// The run went to its end.
  bool finished = false;
};

class frmHTMLExport {
public:
  explicit frmHTMLExport(const ExportEnvironment& environment);

  /// Opens the project and reads the shared head. False, with message 24, without a project.
  bool Form_Load(std::string_view DbName);

  /// Generates: all pages, only new ones or a preview, as `selection` says. Has the standard failure handler.
  RunOutcome cbHTML_Click();
  /// Opens the homepage of the last run.
  void cbvorschau_Click();

  Selection selection;
  /// The line that tells how far the run is.
  std::string labelSeite;

private:
  friend class BuiltInRun;
  bool enterExportDirectory();
  void showState(std::string_view text);

  ExportEnvironment environment_;
  std::optional<dao::Database> db_;
  std::string DbName_, head_, exportpfad_, startdatei_;
};

} // namespace mrd::generator
