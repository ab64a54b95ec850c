#include "mainform/settings_tabs.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/export_path.h"
#include "frame/settings/settings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mrd::mainform {
namespace {

/// The widest content of the list.
constexpr double kWidestPx = 1200;

/// Layouts by the entry of the box: the four that are built in; all behind them are the users' own.
enum : unsigned { kLeft = 1, kTabs = 2, kBare = 4, kTable = 8, kUser = 16 };

unsigned layoutBit(int index)
{
  constexpr int kFirstUserEntry = 4;
  return index < 0 ? unsigned{kLeft} : 1U << std::min(index, kFirstUserEntry);
}

struct LayoutControl {
  std::string_view control;
  std::optional<int> index;
  /// The layouts whose output the control has a share in.
  unsigned layouts;
};

constexpr std::array kLayoutControls{
    LayoutControl{"tbRahmeninaktiv", {}, kTabs | kUser},
    LayoutControl{"Labelfarbe", 4, kTabs | kUser},
    LayoutControl{"cbfarbe", 4, kTabs | kUser},
    LayoutControl{"CheckRundeEcke", {}, kLeft | kUser},
    LayoutControl{"tbradius", {}, kLeft | kUser},
    LayoutControl{"UpDownRadius", {}, kLeft | kUser},
    LayoutControl{"LabelRadius", {}, kLeft | kUser},
    LayoutControl{"LEADEcke", {}, kLeft | kUser},
    LayoutControl{"ComboMenüspalte", {}, kLeft | kUser},
    LayoutControl{"Tbtabelle", {}, kLeft | kTabs | kUser},
    LayoutControl{"Labelfarbe", 3, kLeft | kTabs | kUser},
    LayoutControl{"cbfarbe", 3, kLeft | kTabs | kUser},
    LayoutControl{"tbhintergrund", {}, kLeft | kTabs | kUser},
    LayoutControl{"Labelfarbe", 5, kLeft | kTabs | kUser},
    LayoutControl{"cbfarbe", 5, kLeft | kTabs | kUser},
    LayoutControl{"ComboInhalt", {}, kLeft | kTabs | kTable | kUser},
};

struct LayoutPreview {
  std::string_view frame;
  unsigned layouts;
};
/// A simple table has no preview.
constexpr std::array kLayoutPreviews{
    LayoutPreview{"frmhintergrund", kLeft},
    LayoutPreview{"frmVorschauTablaschen", kTabs},
    LayoutPreview{"FrmVorschauOhneAlles", kBare},
    LayoutPreview{"FrmVorschaubenutzerdefiniert", kUser},
};

const ColourField* colourField(int index)
{
  const auto fields = colourFields();
  const auto found = std::ranges::find(fields, index, &ColourField::index);
  return found == fields.end() ? nullptr : &*found;
}

} // namespace

SettingsTabs::SettingsTabs(const Parts& parts, std::function<void()> farbenaktualisieren)
    : parts_(parts), farbenaktualisieren_(std::move(farbenaktualisieren))
{
}

bool SettingsTabs::cbeinstellungen_Click()
{
  return parts_.project.requireOpen() &&
         failures::withStandardHandler(parts_.project.program().language, "cbeinstellungen_Click",
                                       [&] { settings::cbeinstellungen_Click(parts_.project.db(), fields()); });
}

void SettingsTabs::tbpfadexport_LostFocus()
{
  failures::withStandardHandler(parts_.project.program().language, "tbpfadexport_LostFocus", [&] {
    fields().tbpfadexport = settings::tbpfadexport_LostFocus(fields().tbpfadexport, parts_.project.program().files);
    parts_.DHTMLEdit1.setSiteDirectory(fields().tbpfadexport);
  });
  parts_.screen.refresh(Shown::Settings);
}

void SettingsTabs::cbpfad_Click()
{
  const auto chosen = parts_.project.program().ui.folderDialog("Wählen Sie ein Export-Verzeichnis aus ...");
  if (!chosen)
    return;
  fields().tbpfadexport = *chosen;
  tbpfadexport_LostFocus();
}

void SettingsTabs::ComboGrundlayout_Click()
{
  const unsigned layout = layoutBit(fields().ComboGrundlayout.ListIndex);
  for (const auto& [frame, layouts] : kLayoutPreviews)
    parts_.screen.setControl(frame, std::nullopt, {{}, {}, {}, (layouts & layout) != 0});
  for (const auto& [control, index, layouts] : kLayoutControls)
    parts_.screen.setControl(control, index, {{}, {}, (layouts & layout) != 0, {}});
}

void SettingsTabs::CheckRundeEcke_Click()
{
  for (const auto* const control : {"tbradius", "UpDownRadius", "LabelRadius", "LEADEcke"})
    parts_.screen.setControl(control, std::nullopt, {{}, {}, {}, fields().CheckRundeEcke});
}

void SettingsTabs::cbfarbe_Click(int Index)
{
  const ColourField* const field = colourField(Index);
  if (!field)
    return;
  std::string& text = fields().*field->field;
  const auto chosen = parts_.project.program().ui.colourDialog(screenColour(text));
  if (!chosen)
    return;
  text = settings::farbe_zu_html(*chosen);
  parts_.screen.refresh(Shown::Settings);
  farbenaktualisieren_();
}

void SettingsTabs::Labelfarbe_Click(int Index)
{
  farblabel(Index);
  cbfarbe_Click(Index);
}

void SettingsTabs::farblabel(int Index)
{
  framedSwatch = Index;
  parts_.screen.refresh(Shown::Colours);
}

void SettingsTabs::showFields()
{
  ComboGrundlayout_Click();
  CheckRundeEcke_Click();
  parts_.DHTMLEdit1.setSiteDirectory(fields().tbpfadexport);
  parts_.screen.refresh(Shown::Settings);
}

double SettingsTabs::previewShare() const
{
  const std::string& width = parts_.project.fields().ComboInhalt.Text;
  const double number = base::numericValue(width);
  if (number <= 0)
    return 1;
  return std::min(1.0, number / (base::contains(width, "%") ? 100 : kWidestPx));
}

} // namespace mrd::mainform
