#pragma once
// The dialog that turns a project into a site: its values and its procedures, without a screen.

#include "generator/generation_run.h"
#include "platform/dao/database.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::generator {

class frmHTMLExport {
public:
  explicit frmHTMLExport(const ExportEnvironment& environment);

  /// Path of the project.
  std::string DbName;
  /// Opens the project and reads the shared head. False, with message 24, without a project; the dialog is then closed.
  bool Form_Load(std::string_view path);
  /// Applies the language, then as above with the project of `DbName`.
  bool Form_Load(ui::WindowControls& controls);

  /// All pages, or only new ones: the two are a pair.
  void OpAlle_Click() { choose(false); }
  void opneue_Click() { choose(true); }
  bool OpAlle() const { return !selection.opneue; }

  /// Generates: all pages, only new ones or a preview, as `selection` says. Has the standard failure handler. A click while a run
  /// is under way does nothing.
  RunOutcome cbHTML_Click();
  /// Stops the run behind the page at hand; without a run closes the dialog.
  void cbabbrechen_Click();
  /// Opens the homepage of the last run; without one the export directory (message 37 where that is missing).
  void cbvorschau_Click();

  Selection selection;
  /// Put before every file name in template layouts.
  std::string tbNamenszusatz;
  /// The line that tells how far the run is.
  std::string labelSeite;
  struct ProgressBar {
    std::size_t Value = 0, Max = 0;
    bool Visible = false;
  } ProgressBar1;
  /// The shared head as its editor shows it: in the colours of the frame of the built-in layout.
  struct HeadEditor {
    std::string innerHTML, bgColor, fgColor;
  } DHTMLKopf;
  /// A run is under way.
  bool isRunning() const { return running_; }
  ui::FormWindow window;

private:
  void choose(bool onlyNew);
  void farbenaktualisieren();
  RunOutcome generate();
  bool enterExportDirectory();
  void showState(std::string_view text);
  void showProgress(std::size_t value, std::size_t maximum);

  ExportEnvironment environment_;
  std::optional<dao::Database> db_;
  std::string exportpfad_, startdatei_;
  bool running_ = false, stopAsked_ = false;
};

} // namespace mrd::generator
