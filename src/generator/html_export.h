#pragma once
// The dialog that turns a project into a site: its values and its procedures, without a screen.

#include "generator/export_dialog.h"

#include <string>

namespace mrd::generator {

/// The half of it that generates.
class frmHTMLExport : public ExportDialog {
public:
  explicit frmHTMLExport(const ExportEnvironment& environment) : ExportDialog(environment) {}

  /// All pages, or only new ones: the two are a pair.
  void OpAlle_Click() { choose(false); }
  void opneue_Click() { choose(true); }
  bool OpAlle() const { return !selection.opneue; }

  /// Generates: all pages, only new ones or a preview, as `selection` says. Has the standard failure handler. A click while a run
  /// is under way does nothing.
  RunOutcome cbHTML_Click();
  /// Opens the homepage of the last run; without one the export directory (message 37 where that is missing).
  void cbvorschau_Click();

  Selection selection;
  /// Put before every file name in template layouts.
  std::string tbNamenszusatz;
  /// The shared head as its editor shows it: in the colours of the frame of the built-in layout.
  struct HeadEditor {
    std::string innerHTML, bgColor, fgColor;
  } DHTMLKopf;

private:
  void readProject(dao::Database& db) override;
  void choose(bool onlyNew);
  void farbenaktualisieren();
  RunOutcome generate();

  std::string startdatei_;
};

} // namespace mrd::generator
