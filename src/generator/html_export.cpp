#include "generator/html_export.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/export_path.h"
#include "frame/settings/stored_settings.h"
#include "generator/built_in_run.h"
#include "generator/template_run.h"
#include "platform/files/files.h"
#include "platform/html/document.h"

namespace mrd::generator {
namespace {

constexpr std::string_view kDefaultHead = "<font face='[mrd:Schriftart]'><div align=center>made with Mirandel</div></font>";
constexpr int kMessageNoProject = 24;
constexpr int kMessageNoExportDirectory = 37;

/// The head as its editor holds it.
std::string inEditor(std::string_view html)
{
  auto editor = html::Document::fromText("");
  editor.body().setInnerHtml(html);
  return editor.body().innerHtml();
}

} // namespace

frmHTMLExport::frmHTMLExport(const ExportEnvironment& environment) : environment_(environment) {}

bool frmHTMLExport::Form_Load(ui::WindowControls& controls)
{
  environment_.language.Setlanguage(controls);
  return Form_Load(DbName);
}

bool frmHTMLExport::Form_Load(std::string_view path)
{
  DbName = path;
  if (DbName.empty()) {
    environment_.language.GetMsg(kMessageNoProject);
    window.unload();
    return false;
  }
  db_ = dao::Database::open(DbName);
  DHTMLKopf.innerHTML = inEditor(settings::StoredSettings(*db_).value("KopfHTML").value_or(std::string(kDefaultHead)));
  farbenaktualisieren();
  return true;
}

void frmHTMLExport::farbenaktualisieren()
{
  DHTMLKopf.bgColor = settings::cssColour(environment_.fields.Tbtabelle);
  DHTMLKopf.fgColor = settings::cssColour(environment_.fields.tbmenütext);
  window.refresh();
}

void frmHTMLExport::choose(bool onlyNew)
{
  selection.opneue = onlyNew;
  window.refresh();
}

RunOutcome frmHTMLExport::cbHTML_Click()
{
  RunOutcome outcome;
  if (running_)
    return outcome;
  running_ = true;
  stopAsked_ = false;
  failures::withStandardHandler(environment_.language, "cbHTML_Click", [&] {
    if (enterExportDirectory())
      outcome = generate();
  });
  running_ = false;
  ProgressBar1 = {};
  window.refresh();
  if (selection.isPreview())
    window.unload();
  return outcome;
}

void frmHTMLExport::cbabbrechen_Click()
{
  if (running_)
    stopAsked_ = true;
  else
    window.unload();
}

RunOutcome frmHTMLExport::generate()
{
  const RunJob job{environment_,
                   *db_,
                   DbName,
                   DHTMLKopf.innerHTML,
                   exportpfad_,
                   selection,
                   tbNamenszusatz,
                   [this](std::string_view text) { showState(text); },
                   [this](std::size_t value, std::size_t maximum) { showProgress(value, maximum); },
                   [this] { return stopAsked_; }};
  const bool isBuiltIn = environment_.fields.ComboGrundlayout.ListIndex == 0;
  const RunOutcome outcome = isBuiltIn ? BuiltInRun(job).run() : TemplateRun(job).run();
  startdatei_ = outcome.startdatei;
  return outcome;
}

bool frmHTMLExport::enterExportDirectory()
{
  const auto& tbpfadexport = environment_.fields.tbpfadexport;
  exportpfad_ = settings::withClosingSeparator(tbpfadexport);
  // A blank text names no directory: with its separator it would be the root of all.
  if (base::trim(tbpfadexport).empty() || !files::directoryExists(exportpfad_)) {
    environment_.language.GetMsg(kMessageNoExportDirectory);
    window.unload();
    return false;
  }
  files::makeDirectory(exportpfad_ + "pix");
  return true;
}

void frmHTMLExport::cbvorschau_Click()
{
  // Before the first run of the dialog there is no homepage yet that it knows of, but a directory.
  if (!exportpfad_.empty() || enterExportDirectory())
    environment_.shell.open(exportpfad_ + startdatei_);
}

void frmHTMLExport::showState(std::string_view text)
{
  labelSeite = text;
  environment_.language.ui().status(ui::StatusPlace::Run, text);
  window.refresh();
}

void frmHTMLExport::showProgress(std::size_t value, std::size_t maximum)
{
  ProgressBar1 = {value, maximum, true};
  window.refresh();
}

} // namespace mrd::generator
