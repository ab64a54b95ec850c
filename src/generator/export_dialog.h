#pragma once
// What the dialogs that turn a project into pages share: the project, the line that tells how far a run is, one run at a time.

#include "generator/generation_run.h"
#include "platform/dao/database.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::generator {

class ExportDialog {
public:
  virtual ~ExportDialog() = default;
  ExportDialog(const ExportDialog&) = delete;
  ExportDialog& operator=(const ExportDialog&) = delete;

  /// Path of the project.
  std::string DbName;
  /// Opens the project. False, with message 24, without a project; the dialog is then closed.
  bool Form_Load(std::string_view path);
  /// Applies the language, then as above with the project of `DbName`.
  bool Form_Load(ui::WindowControls& controls);

  /// Stops the run behind the page at hand; without a run closes the dialog.
  void cbabbrechen_Click();

  /// The line that tells how far the run is.
  std::string labelSeite;
  struct ProgressBar {
    std::size_t Value = 0, Max = 0;
    bool Visible = false;
  } ProgressBar1;
  /// A run is under way.
  bool isRunning() const { return running_; }
  ui::FormWindow window;

protected:
  explicit ExportDialog(const ExportEnvironment& environment) : environment_(environment) {}

  /// What the dialog takes from the project that was opened.
  virtual void readProject(dao::Database&) {}
  /// Enters the export directory and runs `generate`, with the standard failure handler. Nothing while a run is under way.
  RunOutcome runInto(std::string_view exportDirectory, std::initializer_list<std::string_view> below,
                     const std::function<RunOutcome()>& generate);
  /// A job that writes into this directory and shows itself in the dialog.
  RunJob job(std::string directory);
  /// The project, which the dialog has open on its own.
  dao::Database& db() { return *db_; }
  /// With a separator at its end; empty before a run.
  const std::string& exportpfad() const { return exportpfad_; }

  const ExportEnvironment environment_;

  /// False, with message 37 and the dialog closed, without that directory; those below it are made.
  bool enterExportDirectory(std::string_view exportDirectory, std::initializer_list<std::string_view> below);

private:
  void showState(std::string_view text);
  void showProgress(std::size_t value, std::size_t maximum);

  std::optional<dao::Database> db_;
  std::string exportpfad_;
  bool running_ = false, stopAsked_ = false;
};

} // namespace mrd::generator
