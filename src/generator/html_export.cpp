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

bool frmHTMLExport::Form_Load(std::string_view DbName)
{
  if (DbName.empty()) {
    environment_.language.GetMsg(kMessageNoProject);
    return false;
  }
  DbName_ = DbName;
  db_ = dao::Database::open(DbName);
  head_ = inEditor(settings::StoredSettings(*db_).value("KopfHTML").value_or(std::string(kDefaultHead)));
  return true;
}

RunOutcome frmHTMLExport::cbHTML_Click()
{
  RunOutcome outcome;
  failures::withStandardHandler(environment_.language, "cbHTML_Click", [&] {
    if (enterExportDirectory())
      outcome = generate();
  });
  return outcome;
}

RunOutcome frmHTMLExport::generate()
{
  const RunJob job{environment_, *db_,      DbName_,        head_,
                   exportpfad_,  selection, tbNamenszusatz, [this](std::string_view text) { showState(text); }};
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
    return false;
  }
  files::makeDirectory(exportpfad_ + "pix");
  return true;
}

void frmHTMLExport::cbvorschau_Click() { environment_.shell.open(exportpfad_ + startdatei_); }

void frmHTMLExport::showState(std::string_view text)
{
  labelSeite = text;
  environment_.language.ui().status(ui::StatusPlace::Run, text);
}

} // namespace mrd::generator
