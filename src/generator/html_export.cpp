#include "generator/html_export.h"

#include "frame/settings/stored_settings.h"
#include "generator/built_in_run.h"
#include "generator/template_run.h"
#include "platform/html/document.h"

namespace mrd::generator {
namespace {

/// Below the export directory.
constexpr std::string_view kPictures = "pix";
constexpr std::string_view kDefaultHead = "<font face='[mrd:Schriftart]'><div align=center>made with Mirandel</div></font>";

/// The head as its editor holds it.
std::string inEditor(std::string_view html)
{
  auto editor = html::Document::fromText("");
  editor.body().setInnerHtml(html);
  return editor.body().innerHtml();
}

} // namespace

void frmHTMLExport::readProject(dao::Database& db)
{
  DHTMLKopf.innerHTML = inEditor(settings::StoredSettings(db).value("KopfHTML").value_or(std::string(kDefaultHead)));
  farbenaktualisieren();
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
  if (isRunning())
    return {};
  const RunOutcome outcome = runInto(environment_.fields.tbpfadexport, {kPictures}, [this] { return generate(); });
  if (selection.isPreview())
    window.unload();
  return outcome;
}

RunOutcome frmHTMLExport::generate()
{
  RunJob run = job(exportpfad());
  run.head = DHTMLKopf.innerHTML;
  run.selection = selection;
  run.tbNamenszusatz = tbNamenszusatz;
  const bool isBuiltIn = environment_.fields.ComboGrundlayout.ListIndex == 0;
  const RunOutcome outcome = isBuiltIn ? BuiltInRun(run).run() : TemplateRun(run).run();
  startdatei_ = outcome.startdatei;
  return outcome;
}

void frmHTMLExport::cbvorschau_Click()
{
  // Before the first run of the dialog there is no homepage yet that it knows of, but a directory.
  if (!exportpfad().empty() || enterExportDirectory(environment_.fields.tbpfadexport, {kPictures}))
    environment_.shell.open(exportpfad() + startdatei_);
}

} // namespace mrd::generator
