#include "mainform/assistant.h"

#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/export_path.h"
#include "mainform/window_placement.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <array>

namespace mrd::mainform {
namespace {

constexpr int kPages = 3;
constexpr std::array<std::string_view, kPages> kFocus{"cbweiter1", "tbexportpfad", "cbschliessen"};
constexpr std::string_view kSwitch = "Assistent";
/// The section that is read. It is not the one that is written, and so the box starts empty unless a value lies there.
constexpr std::string_view kReadSection = "Settigngs";

std::string withSeparator(std::string path)
{
  if (!path.ends_with('\\'))
    path += '\\';
  return path;
}

std::string ownDirectory(const paths::ProgramFiles& program) { return program.file("\\exportpfad\\"); }

/// A blank text names no directory: with its separator it would be the root of all.
std::string namedDirectory(std::string_view text, const paths::ProgramFiles& program)
{
  return base::trim(text).empty() ? ownDirectory(program) : withSeparator(std::string(text));
}

} // namespace

void FrmAssistent::Form_Load(ui::WindowControls& controls)
{
  parts_.program.language.Setlanguage(controls);
  Form_Load();
}

void FrmAssistent::Form_Load()
{
  const auto& fields = parts_.settings.fields();
  const auto& program = parts_.program.files;
  const std::string path = namedDirectory(fields.tbpfadexport, program);
  tbexportpfad = files::directoryExists(path) ? path : ownDirectory(program);
  CheckAssistentaqnzeigen = parts_.userSettings.value(kReadSection, kSwitch, "ja") == "nein";
  tbFTPServer = fields.tbFTPServer;
  tbtitel = fields.tbtitel;
  tbbasisurl = fields.tbbasisurl;
  guideFile = program.file("\\hilfe\\kurzanleitung.htm");
  // The guide in the user's language, where there is one.
  if (const std::string english = program.file("\\help\\kurzanleitung.htm");
      parts_.program.language.Sprache() == "ENG" && paths::datei_vorhanden(english))
    guideFile = english;
  if (!paths::datei_vorhanden(guideFile)) {
    guideFile.clear();
    guideHtml = base::format("<br><br>Die Kurzanleitung aus der Online-Hilfe wurde nicht gefunden. <br><br>"
                             "Bitte schreiben Sie eine Mail an <a href=\"mailto:{0}\">{0}</a>",
                             base::kSupportMail);
  }
  TabAssistent_Click();
}

void FrmAssistent::TabAssistent_Click()
{
  cbweiter1Enabled = TabAssistent == 0;
  cbweiter2Enabled = TabAssistent == 1;
  cbschliessenEnabled = TabAssistent == kPages - 1;
  if (TabAssistent >= 0 && TabAssistent < kPages)
    focus = kFocus[static_cast<std::size_t>(TabAssistent)];
  window.refresh();
}

void FrmAssistent::showTab(int tab)
{
  TabAssistent = tab;
  TabAssistent_Click();
}

void FrmAssistent::cbweiter1_Click() { showTab(1); }

void FrmAssistent::cbweiter2_Click() { showTab(2); }

void FrmAssistent::cbpfad_Click()
{
  const auto chosen = parts_.program.ui.folderDialog("Wählen Sie ein Export-Verzeichnis aus ...");
  if (!chosen)
    return;
  tbexportpfad = withSeparator(*chosen);
  window.refresh();
}

void FrmAssistent::Label4_Click() { parts_.shell.openAddress("mailto:" + std::string(base::kSupportMail)); }

void FrmAssistent::cbschliessen_Click()
{
  failures::withStandardHandler(parts_.program.language, "cbschliessen_Click", [&] {
    const std::string path = namedDirectory(tbexportpfad, parts_.program.files);
    if (!directoryIsSettled(path))
      return;
    parts_.program.ui.pumpEvents();
    takeOver(path);
    parts_.userSettings.setValue(kSettingsSection, kSwitch, CheckAssistentaqnzeigen ? "nein" : "ja");
    parts_.settings.cbeinstellungen_Click();
    window.unload();
  });
}

bool FrmAssistent::directoryIsSettled(const std::string& path)
{
  if (files::directoryExists(path))
    return true;
  const auto answer =
      parts_.program.ui.messageBox({base::format("Das angegebene Exportverzeichnis {} existiert nicht. Soll es angelegt werden?",
                                                 files::nativePath(path).string()),
                                    std::string(base::kProductName), ui::box::kYesNoCancel + ui::box::kQuestion});
  if (answer == ui::Button::Yes) {
    files::makeDirectory(path);
    settings::makeExportTree(path, parts_.program.files);
  }
  return answer != ui::Button::Cancel;
}

void FrmAssistent::takeOver(const std::string& path)
{
  auto& fields = parts_.settings.fields();
  fields.tbpfadexport = path;
  fields.tbFTPServer = tbFTPServer;
  fields.tbtitel = tbtitel;
  fields.tbbasisurl = tbbasisurl;
  parts_.settings.showFields();
}

} // namespace mrd::mainform
