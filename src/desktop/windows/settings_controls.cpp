#include "desktop/windows/settings_controls.h"

#include "base/text.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/mainform_window.ui.h"
#include "frame/settings/fields.h"

#include <QCompleter>
#include <QFontDatabase>

#include <algorithm>
#include <array>

namespace mrd::desktop {
namespace {

using settings::ComboBox;
using settings::Fields;
using Window = Ui::Mainform;

enum class Kind {
  Plain,
  Colour, ///< the editor and the previews show it
  Path    ///< shown in this machine's form
};
struct LineField {
  QLineEdit* Window::*widget;
  std::string Fields::*field;
  Kind kind = Kind::Plain;
};
constexpr std::array kLines{
    LineField{&Window::tbpfadexport, &Fields::tbpfadexport, Kind::Path},
    LineField{&Window::tbtitel, &Fields::tbtitel},
    LineField{&Window::tbText, &Fields::tbText, Kind::Colour},
    LineField{&Window::tbmenütext, &Fields::tbmenütext, Kind::Colour},
    LineField{&Window::Tbtabelle, &Fields::Tbtabelle, Kind::Colour},
    LineField{&Window::tbRahmeninaktiv, &Fields::tbRahmeninaktiv, Kind::Colour},
    LineField{&Window::tbhintergrund, &Fields::tbhintergrund, Kind::Colour},
    LineField{&Window::tbhintergrundaussen, &Fields::tbhintergrundaussen, Kind::Colour},
    LineField{&Window::tbmenü, &Fields::tbmenü, Kind::Colour},
    LineField{&Window::tbHyperlink, &Fields::tbHyperlink, Kind::Colour},
    LineField{&Window::tbschriftart, &Fields::tbschriftart, Kind::Colour},
    LineField{&Window::tbbasisurl, &Fields::tbbasisurl},
    LineField{&Window::tbradius, &Fields::tbradius},
    LineField{&Window::tbimodekopftext, &Fields::tbimodekopftext},
    LineField{&Window::tbBildpartnerID, &Fields::tbBildpartnerID},
    LineField{&Window::tbVorschauBreite, &Fields::tbVorschauBreite},
    LineField{&Window::tbVorschauAnzahl, &Fields::tbVorschauAnzahl},
    LineField{&Window::tbFTPServer, &Fields::tbFTPServer},
    LineField{&Window::tbftpuser, &Fields::tbftpuser},
    LineField{&Window::tbftppasswort, &Fields::tbftppasswort},
    LineField{&Window::tbftpverzeichnis, &Fields::tbftpverzeichnis},
    LineField{&Window::tbftpverzeichnisimode, &Fields::tbftpverzeichnisimode},
};

constexpr std::array kMeta{&Window::tbmeta_0, &Window::tbmeta_1, &Window::tbmeta_2};

struct CheckField {
  QCheckBox* Window::*widget;
  bool Fields::*field;
};
constexpr std::array kChecks{
    CheckField{&Window::CheckVorschauMeldung, &Fields::CheckVorschauMeldung},
    CheckField{&Window::CheckVorschauBilderNeu, &Fields::CheckVorschauBilderNeu},
};

struct ListField {
  QComboBox* Window::*widget;
  ComboBox Fields::*field;
};
constexpr std::array kLists{
    ListField{&Window::ComboGrundlayout, &Fields::ComboGrundlayout},
    ListField{&Window::ComboBlättern, &Fields::ComboBlättern},
    ListField{&Window::ComboMenüspalte, &Fields::ComboMenüspalte},
    ListField{&Window::ComboInhalt, &Fields::ComboInhalt},
};

constexpr std::array kHeadTypes{&Window::Opimmodekopf_0, &Window::Opimmodekopf_1, &Window::Opimmodekopf_2,
                                &Window::Opimmodekopf_3};

/// The list in the language of the screen.
ComboBox inLanguage(ComboBox box, messages::Language& language)
{
  for (auto& entry : box.entries)
    entry = language.shownText(entry);
  box.Text = language.shownText(box.Text);
  return box;
}

} // namespace

SettingsControls::SettingsControls(MainformParts& parts, PreviewControls& previews, ControlLabels& labels)
    : parts_(parts), previews_(previews), labels_(labels)
{
  auto* const families = new QCompleter(QFontDatabase::families(), this);
  families->setCaseSensitivity(Qt::CaseInsensitive);
  parts_.ui.tbschriftart->setCompleter(families);
  connectLines();
  connectChoices();
  connectRadius();
  connectButtons();
  connectLists();
}

void SettingsControls::connectLines()
{
  for (const auto& [widget, field, kind] : kLines)
    connect(parts_.ui.*widget, &QLineEdit::textChanged, this, [this, field = field, kind = kind](const QString& text) {
      if (parts_.showing)
        return;
      parts_.form.settings().fields().*field = kind == Kind::Path ? typedPath(text) : text.toStdString();
      if (kind == Kind::Colour)
        parts_.form.settings().colourField_Change();
      previews_.showRadius();
    });
  for (std::size_t i = 0; i < kMeta.size(); ++i)
    connect(parts_.ui.*kMeta[i], &QLineEdit::textChanged, this, [this, i](const QString& text) {
      if (parts_.showing)
        return;
      parts_.form.settings().fields().tbmeta[i] = text.toStdString();
      parts_.form.pages().tbmeta_Change();
    });
  connect(parts_.ui.tbpfadexport, &QLineEdit::editingFinished, this, [this] { parts_.form.settings().tbpfadexport_LostFocus(); });
  connect(parts_.ui.tbimodekopftext, &QLineEdit::textChanged, this, [this] { previews_.showBand(); });
}

void SettingsControls::connectChoices()
{
  for (const auto& [widget, field] : kChecks)
    connect(parts_.ui.*widget, &QCheckBox::toggled, this, [this, field = field](bool checked) {
      if (!parts_.showing)
        parts_.form.settings().fields().*field = checked;
    });
  connect(parts_.ui.CheckRundeEcke, &QCheckBox::toggled, this, [this](bool checked) {
    if (parts_.showing)
      return;
    parts_.form.settings().fields().CheckRundeEcke = checked;
    parts_.form.settings().CheckRundeEcke_Click();
  });
  connect(parts_.ui.OptionVorschauMitTitel, &QRadioButton::toggled, this, [this](bool checked) {
    if (!parts_.showing)
      parts_.form.settings().fields().OptionVorschauMitTitel = checked;
  });
  for (std::size_t i = 0; i < kHeadTypes.size(); ++i)
    connect(parts_.ui.*kHeadTypes[i], &QRadioButton::clicked, this,
            [this, i] { parts_.form.settings().fields().Opimmodekopf = static_cast<settings::OpImodeKopf>(i); });
}

void SettingsControls::connectRadius()
{
  parts_.ui.UpDownRadius->setStep([this](int by) {
    const int radius = static_cast<int>(base::numericValue(parts_.form.settings().fields().tbradius)) + by;
    parts_.ui.tbradius->setText(QString::number(std::max(0, radius)));
  });
}

void SettingsControls::connectButtons()
{
  connect(parts_.ui.cbimodegifladen, &QPushButton::clicked, this, [this] {
    parts_.form.imodeHead().cbimodegifladen_Click();
    showHeadPicture();
  });
  connect(parts_.ui.cbimode, &QPushButton::clicked, this, [this] { parts_.form.cbimode_Click(); });
  connect(parts_.ui.cbpfad, &QToolButton::clicked, this, [this] { parts_.form.settings().cbpfad_Click(); });
  connect(parts_.ui.cbeinstellungen, &QPushButton::clicked, this, [this] { parts_.form.settings().cbeinstellungen_Click(); });
}

void SettingsControls::connectLists()
{
  for (const auto& [widget, field] : kLists) {
    QComboBox& box = *(parts_.ui.*widget);
    if (box.isEditable())
      connect(&box, &QComboBox::editTextChanged, this, [this, field = field](const QString& text) {
        if (parts_.showing)
          return;
        (parts_.form.settings().fields().*field).selectText(text.toStdString());
        if (field == &Fields::ComboInhalt)
          parts_.form.settings().colourField_Change();
      });
    else
      connect(&box, &QComboBox::activated, this, [this, field = field](int index) {
        (parts_.form.settings().fields().*field).selectIndex(index);
        if (field == &Fields::ComboGrundlayout)
          parts_.form.settings().ComboGrundlayout_Click();
        labels_.show();
      });
  }
}

void SettingsControls::show()
{
  const Fields& fields = parts_.form.settings().fields();
  for (const auto& [widget, field, kind] : kLines)
    showLine(*(parts_.ui.*widget), kind == Kind::Path ? shownPath(fields.*field) : shown(fields.*field));
  for (std::size_t i = 0; i < kMeta.size(); ++i)
    showLine(*(parts_.ui.*kMeta[i]), shown(fields.tbmeta[i]));
  for (const auto& [widget, field] : kChecks)
    (parts_.ui.*widget)->setChecked(fields.*field);
  for (const auto& [widget, field] : kLists)
    showList(*(parts_.ui.*widget), inLanguage(fields.*field, parts_.language()));
  parts_.ui.CheckRundeEcke->setChecked(fields.CheckRundeEcke);
  (fields.OptionVorschauMitTitel ? parts_.ui.OptionVorschauMitTitel : parts_.ui.OptionVorschauOhneTitel)->setChecked(true);
  (parts_.ui.*kHeadTypes[static_cast<std::size_t>(fields.Opimmodekopf)])->setChecked(true);
  showHeadPicture();
  labels_.show();
}

void SettingsControls::showHeadPicture()
{
  const Fields& fields = parts_.form.settings().fields();
  parts_.ui.Lblimodegif->setText(shownPath(parts_.language().shownText(fields.Lblimodegif)));
  parts_.ui.picImodeKopf->setPicture(shownPath(fields.picImodeKopf));
}

} // namespace mrd::desktop
