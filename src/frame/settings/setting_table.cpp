#include "frame/settings/setting_table.h"

#include "base/format.h"
#include "base/stored_text.h"
#include "base/text.h"
#include "frame/settings/export_path.h"

#include <algorithm>
#include <array>

namespace mrd::settings {
namespace {

// Forms. Each names the field that it reads and writes.

template <std::string Fields::*field>
constexpr Form text{
    [](Loading& loading, const std::string& value) { loading.fields.*field = base::trim(value); },
    [](const Fields& fields) { return fields.*field; },
};

template <std::string Fields::*field>
constexpr Form trimmedText{
    text<field>.load,
    [](const Fields& fields) { return base::trim(fields.*field); },
};

template <std::size_t index>
constexpr Form meta{
    [](Loading& loading, const std::string& value) { loading.fields.tbmeta[index] = base::trim(value); },
    [](const Fields& fields) { return base::trim(fields.tbmeta[index]); },
};

template <bool Fields::*field>
constexpr Form checkBox{
    [](Loading& loading, const std::string& value) { loading.fields.*field = base::yesNo(value); },
    [](const Fields& fields) { return std::string(fields.*field ? "True" : "False"); },
};

template <ComboBox Fields::*field>
constexpr Form entryText{
    [](Loading& loading, const std::string& value) { (loading.fields.*field).selectText(base::trim(value)); },
    [](const Fields& fields) { return (fields.*field).Text; },
};

template <ComboBox Fields::*field>
constexpr Form entryNumber{
    [](Loading& loading, const std::string& value) { (loading.fields.*field).selectIndex(base::wholeNumber(value)); },
    [](const Fields& fields) { return base::format("{}", (fields.*field).ListIndex); },
};

constexpr Form exportPath{
    [](Loading& loading, const std::string& value) {
      loading.fields.tbpfadexport = tbpfadexport_LostFocus(value, loading.program);
    },
    [](const Fields& fields) { return fields.tbpfadexport; },
};

void loadLayoutName(Loading& loading, const std::string& value)
{
  auto& box = loading.fields.ComboGrundlayout;
  box.selectText(base::trim(value));
  if (box.ListIndex >= 0)
    return;
  // The layout of a project may be gone from this machine: the first entry is what every installation has.
  box.selectIndex(0);
  loading.ui.hideSplash();
  loading.ui.messageBox({"Bitte überpüfen Sie auf der Lasche 'Layout' das Feld 'Grundlayout'!", "", ui::box::kOk});
}

constexpr Form layoutName{
    loadLayoutName,
    [](const Fields& fields) { return fields.ComboGrundlayout.Text; },
};

void loadImodeHead(Loading& loading, const std::string& value)
{
  const auto number = base::trim(value);
  if (number.size() == 1 && number >= "0" && number <= "3")
    loading.fields.Opimmodekopf = static_cast<OpImodeKopf>(number.front() - '0');
}

constexpr Form imodeHead{
    loadImodeHead,
    [](const Fields& fields) { return base::format("{}", static_cast<int>(fields.Opimmodekopf)); },
};

void loadImodeGif(Loading& loading, const std::string& value)
{
  auto& fields = loading.fields;
  fields.Lblimodegif = base::trim(value);
  fields.picImodeKopf = paths::datei_vorhanden(fields.Lblimodegif) ? fields.Lblimodegif : std::string();
}

constexpr Form imodeGif{
    loadImodeGif,
    trimmedText<&Fields::Lblimodegif>.stored,
};

template <std::size_t index>
void clearMeta(Fields& fields)
{
  fields.tbmeta[index].clear();
}

void takeMenuColour(Fields& fields) { fields.tbHyperlink = fields.tbmenü; }

// Page turning and layout came with the same version: a project without the one knows nothing of the other.
void resetLayout(Fields& fields)
{
  fields.ComboGrundlayout.selectIndex(0);
  fields.ComboBlättern.selectIndex(0);
}

void takeTitleForEmptyHead(Fields& fields)
{
  if (fields.tbimodekopftext.empty())
    fields.tbimodekopftext = fields.tbtitel;
}

constexpr std::array kSettings{
    Setting{"Exportpfad", exportPath},
    Setting{"Titel", text<&Fields::tbtitel>},
    Setting{"Textfarbe", text<&Fields::tbText>},
    Setting{"Menütextfarbe", text<&Fields::tbmenütext>},
    Setting{"Tabellenfarbe", text<&Fields::Tbtabelle>},
    Setting{"Rahmeninaktivfarbe", text<&Fields::tbRahmeninaktiv>},
    Setting{"Hintergrundfarbe", text<&Fields::tbhintergrund>},
    Setting{"Hintergrundfarbeaussen", text<&Fields::tbhintergrundaussen>},
    Setting{"Menüaktivfarbe", text<&Fields::tbmenü>},
    Setting{"BasisURL", text<&Fields::tbbasisurl>},
    Setting{"MetaDescription", meta<0>, clearMeta<0>},
    Setting{"MetaAuthor", meta<1>, clearMeta<1>},
    Setting{"MetaKeywords", meta<2>, clearMeta<2>},
    Setting{"Eckradius", text<&Fields::tbradius>},
    Setting{"rundeEcke", checkBox<&Fields::CheckRundeEcke>},
    Setting{"Schriftart", text<&Fields::tbschriftart>},
    Setting{"menübreite", entryText<&Fields::ComboMenüspalte>},
    Setting{"inhaltbreite", entryText<&Fields::ComboInhalt>},
    Setting{"grundlayout", layoutName},
    Setting{"blättern", entryNumber<&Fields::ComboBlättern>, resetLayout},
    Setting{"imodekopftyp", imodeHead},
    Setting{"imodekopftext", trimmedText<&Fields::tbimodekopftext>, nullptr, false, takeTitleForEmptyHead},
    Setting{"imodekopfgif", imodeGif, nullptr, true},
    Setting{"bildpartnerid", text<&Fields::tbBildpartnerID>, nullptr, true},
    Setting{"VorschauBreite", text<&Fields::tbVorschauBreite>},
    Setting{"VorschauAnzahl", text<&Fields::tbVorschauAnzahl>},
    Setting{"Hyperlink", text<&Fields::tbHyperlink>, takeMenuColour},
    Setting{"VorschauMitTitel", checkBox<&Fields::OptionVorschauMitTitel>},
    Setting{"VorschauMeldung", checkBox<&Fields::CheckVorschauMeldung>},
    Setting{"VorschauBilderNeu", checkBox<&Fields::CheckVorschauBilderNeu>},
    Setting{"ftpserver", text<&Fields::tbFTPServer>},
    Setting{"ftpuser", text<&Fields::tbftpuser>},
    Setting{"ftpverzeichnis", text<&Fields::tbftpverzeichnis>},
    Setting{"ftpverzeichnisimode", text<&Fields::tbftpverzeichnisimode>},
    Setting{"ftppasswort", text<&Fields::tbftppasswort>},
};

constexpr std::array kSavingOrder{
    SavedKey{"Exportpfad", true},
    SavedKey{"Titel", true},
    SavedKey{"Textfarbe", true},
    SavedKey{"Menütextfarbe", true},
    SavedKey{"Tabellenfarbe", true},
    SavedKey{"Hintergrundfarbe", true},
    SavedKey{"Menüaktivfarbe", true},
    SavedKey{"Hintergrundfarbeaussen", false},
    SavedKey{"Rahmeninaktivfarbe", false},
    SavedKey{"BasisURL", false},
    SavedKey{"MetaDescription", false},
    SavedKey{"MetaAuthor", false},
    SavedKey{"MetaKeywords", false},
    SavedKey{"rundeEcke", false},
    SavedKey{"Eckradius", false},
    SavedKey{"Schriftart", false},
    SavedKey{"ftpserver", false},
    SavedKey{"ftpverzeichnis", false},
    SavedKey{"ftpverzeichnisimode", false},
    SavedKey{"ftpuser", false},
    SavedKey{"ftppasswort", false},
    SavedKey{"inhaltbreite", false},
    SavedKey{"menübreite", false},
    SavedKey{"imodekopftyp", false},
    SavedKey{"grundlayout", false},
    SavedKey{"blättern", false},
    SavedKey{"imodekopftext", false},
    SavedKey{"imodekopfgif", false},
    SavedKey{"bildpartnerid", false},
    SavedKey{"VorschauBreite", false},
    SavedKey{"VorschauAnzahl", false},
    SavedKey{"VorschauBilderNeu", false},
    SavedKey{"VorschauMeldung", false},
    SavedKey{"VorschauMitTitel", false},
    SavedKey{"Hyperlink", false},
};
static_assert(kSavingOrder.size() == kSettings.size());

} // namespace

std::span<const Setting> settingTable() { return kSettings; }

const Setting* findSetting(std::string_view key)
{
  const auto* found = std::find_if(kSettings.begin(), kSettings.end(),
                                   [&](const auto& setting) { return base::compareText(setting.key, key) == 0; });
  return found == kSettings.end() ? nullptr : found;
}

std::span<const SavedKey> savingOrder() { return kSavingOrder; }

} // namespace mrd::settings
