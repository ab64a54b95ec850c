#include "generator/export_dialog.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/export_path.h"
#include "platform/files/files.h"

namespace mrd::generator {
namespace {

constexpr int kMessageNoProject = 24;
constexpr int kMessageNoExportDirectory = 37;

} // namespace

bool ExportDialog::Form_Load(ui::WindowControls& controls)
{
  environment_.language.Setlanguage(controls);
  return Form_Load(DbName);
}

bool ExportDialog::Form_Load(std::string_view path)
{
  DbName = path;
  if (DbName.empty()) {
    environment_.language.GetMsg(kMessageNoProject);
    window.unload();
    return false;
  }
  db_ = dao::Database::open(DbName);
  readProject(*db_);
  return true;
}

RunOutcome ExportDialog::runInto(std::string_view exportDirectory, std::initializer_list<std::string_view> below,
                                 const std::function<RunOutcome()>& generate)
{
  RunOutcome outcome;
  if (running_)
    return outcome;
  running_ = true;
  stopAsked_ = false;
  failures::withStandardHandler(environment_.language, "cbHTML_Click", [&] {
    if (enterExportDirectory(exportDirectory, below))
      outcome = generate();
  });
  running_ = false;
  ProgressBar1 = {};
  window.refresh();
  environment_.language.ui().tellWarnings();
  return outcome;
}

bool ExportDialog::enterExportDirectory(std::string_view exportDirectory, std::initializer_list<std::string_view> below)
{
  exportpfad_ = settings::withClosingSeparator(exportDirectory);
  // A blank text names no directory: with its separator it would be the root of all.
  if (base::trim(exportDirectory).empty() || !files::directoryExists(exportpfad_)) {
    environment_.language.GetMsg(kMessageNoExportDirectory);
    window.unload();
    return false;
  }
  for (const auto directory : below)
    files::makeDirectory(exportpfad_ + std::string(directory));
  return true;
}

RunJob ExportDialog::job(std::string directory)
{
  return {.environment = environment_,
          .db = *db_,
          .DbName = DbName,
          .exportpfad = std::move(directory),
          .showState = [this](std::string_view text) { showState(text); },
          .showProgress = [this](std::size_t value, std::size_t maximum) { showProgress(value, maximum); },
          .stopAsked = [this] { return stopAsked_; }};
}

void ExportDialog::cbabbrechen_Click()
{
  if (running_)
    stopAsked_ = true;
  else
    window.unload();
}

void ExportDialog::showState(std::string_view text)
{
  labelSeite = text;
  environment_.language.ui().status(ui::StatusPlace::Run, text);
  window.refresh();
}

void ExportDialog::showProgress(std::size_t value, std::size_t maximum)
{
  ProgressBar1 = {value, maximum, true};
  window.refresh();
}

} // namespace mrd::generator
