#pragma once
// The dialog that turns a project into a site: its values and its procedures, without a screen.

#include "generator/generation_run.h"
#include "platform/dao/database.h"

#include <optional>
#include <string>

namespace mrd::generator {

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
  /// Put before every file name in template layouts.
  std::string tbNamenszusatz;
  /// The line that tells how far the run is.
  std::string labelSeite;

private:
  RunOutcome generate();
  bool enterExportDirectory();
  void showState(std::string_view text);

  ExportEnvironment environment_;
  std::optional<dao::Database> db_;
  std::string DbName_, head_, exportpfad_, startdatei_;
};

} // namespace mrd::generator
