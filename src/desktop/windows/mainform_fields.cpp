#include "desktop/windows/mainform_fields.h"

#include "base/text.h"
#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/mainform_window.ui.h"
#include "frame/settings/fields.h"
#include "mainform/menu_table.h"
#include "mainform/site_colours.h"
#include "pictures/corners.h"

#include <QCompleter>
#include <QEvent>
#include <QFontDatabase>
#include <QSignalBlocker>

#include <array>

namespace mrd::desktop {
namespace {

using mainform::Shown;
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

constexpr std::array kPageTypes{&Window::opseitentyp_1, &Window::opseitentyp_2, &Window::opseitentyp_3, &Window::opseitentyp_4};
constexpr int kAuctionPage = 4;

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

/// Entries, choice and text of a list; a text that is no entry is shown all the same.
void showList(QComboBox& widget, const ComboBox& box)
{
  const QSignalBlocker quiet(widget);
  bool same = static_cast<std::size_t>(widget.count()) == box.entries.size();
  for (int i = 0; same && i < widget.count(); ++i)
    same = widget.itemText(i) == shown(box.entries[static_cast<std::size_t>(i)]);
  if (!same) {
    widget.clear();
    for (const auto& entry : box.entries)
      widget.addItem(shown(entry));
  }
  widget.setCurrentIndex(box.ListIndex < widget.count() ? box.ListIndex : -1);
  if (!widget.isEditable())
    widget.setPlaceholderText(shown(box.Text));
  else if (widget.currentText() != shown(box.Text))
    widget.setEditText(shown(box.Text));
}

void showLine(QLineEdit& widget, const QString& text)
{
  if (widget.text() == text)
    return;
  widget.setText(text);
  widget.setCursorPosition(0);
}

QColor screenColour(const std::string& text)
{
  const int colour = mainform::screenColour(text);
  return {colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff};
}

void colour(QWidget& widget, mainform::ColourUse use, const QColor& colour)
{
  if (auto* const swatch = dynamic_cast<ColourSwatch*>(&widget))
    return swatch->setColour(colour);
  QPalette palette = widget.palette();
  palette.setColor(use == mainform::ColourUse::Back ? QPalette::Window : QPalette::WindowText, colour);
  widget.setAutoFillBackground(widget.autoFillBackground() || use == mainform::ColourUse::Back);
  widget.setPalette(palette);
}

} // namespace

class MainformFields::Showing {
public:
  explicit Showing(MainformFields& fields) : fields_(fields) { ++fields_.showing_; }
  ~Showing() { --fields_.showing_; }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

private:
  MainformFields& fields_;
};

MainformFields::MainformFields(Ui::Mainform& ui, mainform::Mainform& form, const QtControls& controls, QWidget& window)
    : ui_(ui), form_(form), controls_(controls), window_(window)
{
  auto* const families = new QCompleter(QFontDatabase::families(), this);
  families->setCaseSensitivity(Qt::CaseInsensitive);
  ui_.tbschriftart->setCompleter(families);
  for (auto* const frame : window.findChildren<QFrame*>())
    if (const QString control = frame->property("like").toString(); !control.isEmpty())
      lookalikes_.insert(control, frame);
  ui_.FrmVorschau->installEventFilter(this);
  ui_.LEADimode->installEventFilter(this);
  connectSettings();
  connectLists();
  connectColours();
  connectPage();
}

void MainformFields::connectSettings()
{
  for (const auto& [widget, field, kind] : kLines)
    connect(ui_.*widget, &QLineEdit::textChanged, this, [this, field = field, kind = kind](const QString& text) {
      if (showing_)
        return;
      form_.settings().fields().*field = kind == Kind::Path ? typedPath(text) : text.toStdString();
      if (kind == Kind::Colour)
        form_.settings().colourField_Change();
      showRadius();
    });
  for (std::size_t i = 0; i < kMeta.size(); ++i)
    connect(ui_.*kMeta[i], &QLineEdit::textChanged, this, [this, i](const QString& text) {
      if (showing_)
        return;
      form_.settings().fields().tbmeta[i] = text.toStdString();
      form_.pages().tbmeta_Change();
    });
  for (const auto& [widget, field] : kChecks)
    connect(ui_.*widget, &QCheckBox::toggled, this, [this, field = field](bool checked) {
      if (!showing_)
        form_.settings().fields().*field = checked;
    });
  connect(ui_.CheckRundeEcke, &QCheckBox::toggled, this, [this](bool checked) {
    if (showing_)
      return;
    form_.settings().fields().CheckRundeEcke = checked;
    form_.settings().CheckRundeEcke_Click();
  });
  connect(ui_.OptionVorschauMitTitel, &QRadioButton::toggled, this, [this](bool checked) {
    if (!showing_)
      form_.settings().fields().OptionVorschauMitTitel = checked;
  });
  for (std::size_t i = 0; i < kHeadTypes.size(); ++i)
    connect(ui_.*kHeadTypes[i], &QRadioButton::clicked, this,
            [this, i] { form_.settings().fields().Opimmodekopf = static_cast<settings::OpImodeKopf>(i); });
  ui_.UpDownRadius->setStep([this](int by) {
    const int radius = static_cast<int>(base::numericValue(form_.settings().fields().tbradius)) + by;
    ui_.tbradius->setText(QString::number(std::max(0, radius)));
  });
  connect(ui_.tbpfadexport, &QLineEdit::editingFinished, this, [this] { form_.settings().tbpfadexport_LostFocus(); });
  connect(ui_.tbimodekopftext, &QLineEdit::textChanged, this, [this] { showBand(); });
  connect(ui_.cbimodegifladen, &QPushButton::clicked, this, [this] {
    form_.imodeHead().cbimodegifladen_Click();
    showHeadPicture();
  });
  connect(ui_.cbimode, &QPushButton::clicked, this, [this] { form_.cbimode_Click(); });
  connect(ui_.cbpfad, &QToolButton::clicked, this, [this] { form_.settings().cbpfad_Click(); });
  connect(ui_.cbeinstellungen, &QPushButton::clicked, this, [this] { form_.settings().cbeinstellungen_Click(); });
}

void MainformFields::connectLists()
{
  for (const auto& [widget, field] : kLists) {
    QComboBox& box = *(ui_.*widget);
    if (box.isEditable())
      connect(&box, &QComboBox::editTextChanged, this, [this, field = field](const QString& text) {
        if (showing_)
          return;
        (form_.settings().fields().*field).selectText(text.toStdString());
        if (field == &Fields::ComboInhalt)
          form_.settings().colourField_Change();
      });
    else
      connect(&box, &QComboBox::activated, this, [this, field = field](int index) {
        (form_.settings().fields().*field).selectIndex(index);
        if (field == &Fields::ComboGrundlayout)
          form_.settings().ComboGrundlayout_Click();
        showLabels();
      });
  }
  connect(ui_.FontCombo, &QComboBox::activated, this, [this](int index) { form_.tools().FontCombo_Click(index); });
  connect(ui_.FontSizeCombo, &QComboBox::activated, this, [this](int index) { form_.tools().FontSizeCombo_Click(index); });
}

void MainformFields::connectColours()
{
  for (const auto& field : mainform::colourFields()) {
    auto& swatch = dynamic_cast<ColourSwatch&>(controls_.object("Labelfarbe", field.index));
    auto& button = dynamic_cast<QToolButton&>(controls_.object("cbfarbe", field.index));
    auto& line = dynamic_cast<QLineEdit&>(controls_.object(field.control));
    const int index = field.index;
    connect(&swatch, &ColourSwatch::clicked, this, [this, index] { form_.settings().Labelfarbe_Click(index); });
    connect(&button, &QToolButton::clicked, this, [this, index] { form_.settings().cbfarbe_Click(index); });
    connect(&line, &QLineEdit::textEdited, this, [this, index] { form_.settings().farblabel(index); });
  }
}

void MainformFields::connectPage()
{
  auto& page = form_.pages();
  connect(ui_.tbdateiname, &QLineEdit::textChanged, this, [this, &page](const QString& text) {
    if (showing_)
      return;
    page.fields.tbdateiname = text.toStdString();
    page.tbdateiname_Change();
  });
  connect(ui_.tbScript, &SourceText::textChanged, this, [this, &page] {
    if (showing_)
      return;
    page.fields.tbScript = ui_.tbScript->source();
    page.tbScript_Change();
  });
  connect(ui_.tbhtml, &SourceText::textChanged, this, [this, &page] {
    if (showing_)
      return;
    page.fields.tbhtml = ui_.tbhtml->source();
    page.tbhtml_Change();
  });
  connect(ui_.TBEbayArtikelnummer, &QLineEdit::textChanged, this, [this, &page](const QString& text) {
    if (!showing_)
      page.fields.TBEbayArtikelnummer = text.toStdString();
  });
  connect(ui_.cbEbayHTMLkopieren, &QPushButton::clicked, this, [this] { form_.cbEbayHTMLkopieren_Click(); });
  connect(ui_.CbEbayMetatag, &QPushButton::clicked, this, [this] { form_.CbEbayMetatag_Click(); });
  connect(ui_.cbebaykategorien, &QPushButton::clicked, this, [this] { form_.cbebaykategorien_Click(); });
  for (std::size_t i = 0; i < kPageTypes.size(); ++i)
    connect(ui_.*kPageTypes[i], &QRadioButton::clicked, this, [this, &page, i] {
      page.fields.opseitentyp = static_cast<int>(i) + 1;
      page.opseitentyp_Click(page.fields.opseitentyp);
      ui_.FrmEbay->setVisible(page.fields.opseitentyp == kAuctionPage);
    });
}

void MainformFields::show(Shown what)
{
  const Showing showing(*this);
  switch (what) {
  case Shown::Page:
    showPage();
    return showCaption();
  case Shown::Settings:
    showSettings();
    return showColours();
  case Shown::Colours:
    return showColours();
  case Shown::Tabs:
    return showTabs();
  case Shown::Tools:
    return showTools();
  case Shown::Menus:
    return showMenus();
  case Shown::Caption:
    return showCaption();
  }
}

void MainformFields::showPage()
{
  const auto& page = form_.pages().fields;
  showLine(*ui_.tbdateiname, shown(page.tbdateiname));
  showLine(*ui_.TBEbayArtikelnummer, shown(page.TBEbayArtikelnummer));
  ui_.tbScript->setSource(page.tbScript);
  ui_.tbhtml->setSource(page.tbhtml);
  if (page.opseitentyp >= 1 && page.opseitentyp <= static_cast<int>(kPageTypes.size()))
    (ui_.*kPageTypes[static_cast<std::size_t>(page.opseitentyp - 1)])->setChecked(true);
  ui_.FrmEbay->setVisible(page.opseitentyp == kAuctionPage);
}

void MainformFields::showCaption() { window_.setWindowTitle(shown(language().shownText(form_.pages().fields.caption))); }

void MainformFields::showSettings()
{
  const Fields& fields = form_.settings().fields();
  for (const auto& [widget, field, kind] : kLines)
    showLine(*(ui_.*widget), kind == Kind::Path ? shownPath(fields.*field) : shown(fields.*field));
  for (std::size_t i = 0; i < kMeta.size(); ++i)
    showLine(*(ui_.*kMeta[i]), shown(fields.tbmeta[i]));
  for (const auto& [widget, field] : kChecks)
    (ui_.*widget)->setChecked(fields.*field);
  for (const auto& [widget, field] : kLists)
    showList(*(ui_.*widget), inLanguage(fields.*field, language()));
  ui_.CheckRundeEcke->setChecked(fields.CheckRundeEcke);
  (fields.OptionVorschauMitTitel ? ui_.OptionVorschauMitTitel : ui_.OptionVorschauOhneTitel)->setChecked(true);
  (ui_.*kHeadTypes[static_cast<std::size_t>(fields.Opimmodekopf)])->setChecked(true);
  showHeadPicture();
  showLabels();
}

void MainformFields::showColours()
{
  const Fields& fields = form_.settings().fields();
  for (const auto& [control, index, use, field] : mainform::colouredControls()) {
    const QColor shownColour = screenColour(fields.*field);
    auto& widget = dynamic_cast<QWidget&>(controls_.object(control, index));
    colour(widget, use, shownColour);
    for (auto* const lookalike : lookalikes_.values(widget.objectName()))
      colour(*lookalike, use, shownColour);
  }
  for (const auto& field : mainform::colourFields())
    dynamic_cast<ColourSwatch&>(controls_.object("Labelfarbe", field.index))
        .setFramed(field.index == form_.settings().framedSwatch);
  fitPreviews();
  showRadius();
}

void MainformFields::fitPreviews()
{
  const double share = form_.settings().previewShare();
  const int room = ui_.FrmVorschau->contentsRect().width();
  for (QFrame* const preview :
       {ui_.frmhintergrund, ui_.frmVorschauTablaschen, ui_.FrmVorschauOhneAlles, ui_.FrmVorschaubenutzerdefiniert})
    preview->setMaximumWidth(std::max(preview->minimumWidth(), static_cast<int>(room * share)));
}

bool MainformFields::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == ui_.LEADimode) {
    if (event->type() == QEvent::Show)
      showBand();
  } else if (event->type() == QEvent::Resize) {
    fitPreviews();
  }
  return QObject::eventFilter(watched, event);
}

void MainformFields::showRadius()
{
  const Fields& fields = form_.settings().fields();
  const auto sample = std::ranges::find(pictures::kCorners, "ecke-ur.jpg", &pictures::Corner::fileName);
  ui_.LEADEcke->setCorner(pictures::drawCorner(*sample, fields), screenColour(fields.tbhintergrundaussen));
  showBand();
}

/// Drawn when it is seen: its letters bring the picture library and a font, which would take half of a start.
void MainformFields::showBand()
{
  if (!ui_.LEADimode->isVisible())
    return;
  auto& head = form_.imodeHead();
  head.imodelogo();
  if (head.LEADimode)
    ui_.LEADimode->setImage(*head.LEADimode);
}

void MainformFields::showHeadPicture()
{
  const Fields& fields = form_.settings().fields();
  ui_.Lblimodegif->setText(shownPath(language().shownText(fields.Lblimodegif)));
  ui_.picImodeKopf->setPicture(shownPath(fields.picImodeKopf));
}

void MainformFields::showTabs()
{
  // The form object knows of the change already.
  const QSignalBlocker quietTree(ui_.TabTree), quietHtml(ui_.tabHtml);
  ui_.TabTree->setCurrentIndex(form_.tabs().TabTree);
  ui_.tabHtml->setCurrentIndex(form_.tabs().tabHtml);
}

void MainformFields::showTools()
{
  const auto& tools = form_.tools();
  const auto keys = mainform::EditorTools::keys();
  for (std::size_t i = 0; i < keys.size(); ++i) {
    auto& action = dynamic_cast<QAction&>(controls_.object(keys[i]));
    action.setEnabled(tools.Toolbar1[i].enabled);
    action.setChecked(tools.Toolbar1[i].pressed);
  }
  showList(*ui_.FontCombo, tools.FontCombo);
  showList(*ui_.FontSizeCombo, tools.FontSizeCombo);
  constexpr int kFormatEntries = 16;
  for (int i = 0; i < kFormatEntries; ++i) {
    auto& entry = dynamic_cast<QAction&>(controls_.object("FormatSub", i));
    const auto number = static_cast<std::size_t>(i);
    entry.setVisible(number < tools.FormatSub.size());
    if (number < tools.FormatSub.size())
      entry.setText(shown(tools.FormatSub[number]));
  }
  for (const int view : {0, 1})
    dynamic_cast<QAction&>(controls_.object("ViewSub", view)).setChecked(tools.ViewSubChecked(view));
}

void MainformFields::showMenus()
{
  constexpr std::array<std::string_view, 4> kChanging{"editsub", "FormatSub", "TableSub", "D2DSub"};
  for (const auto& entry : mainform::menuEntries()) {
    if (std::ranges::find(kChanging, entry.name) == kChanging.end() || entry.caption == "-" || !entry.index)
      continue;
    auto& action = dynamic_cast<QAction&>(controls_.object(entry.name, entry.index));
    const auto state = form_.editor().state(entry.name, *entry.index);
    action.setEnabled(state.enabled);
    action.setCheckable(state.checked || action.isCheckable());
    action.setChecked(state.checked);
  }
  ui_.mnuSeitenZurueck->setText(shown(form_.treeUndoCaption()));
  ui_.mnuSeitenZurueck->setEnabled(form_.pages().treeChange() != pagetree::TreeUndo::Change::None);
  if (!form_.editor().positionCaption().empty())
    ui_.D2DSub_0->setText(shown(form_.editor().positionCaption()));
}

void MainformFields::showLabels()
{
  // A caption is as dim as the field that it stands beside.
  for (auto* const label : window_.findChildren<QLabel*>())
    if (const QWidget* const field = label->buddy())
      label->setEnabled(field->isEnabled());
  nameControls();
}

void MainformFields::nameControls()
{
  const auto plain = [](QString caption) { return caption.remove('&').remove(':'); };
  for (const auto& field : mainform::colourFields()) {
    const auto& line = dynamic_cast<QWidget&>(controls_.object(field.control));
    for (const auto* const label : window_.findChildren<QLabel*>())
      if (label->buddy() == &line)
        for (const auto* const control : {"Labelfarbe", "cbfarbe"})
          dynamic_cast<QWidget&>(controls_.object(control, field.index)).setAccessibleName(plain(label->text()));
  }
  ui_.TreeView1->setAccessibleName(ui_.TabTree->tabText(0));
  ui_.tbhtml->setAccessibleName(ui_.tabHtml->tabText(1));
  dynamic_cast<QWidget&>(controls_.object("DHTMLEdit1")).setAccessibleName(ui_.tabHtml->tabText(0));
  ui_.tbimodekopftext->setAccessibleName(plain(ui_.Opimmodekopf_1->text()));
  ui_.UpDownRadius->setNames(plain(ui_.LabelRadius->text()) + " +1", plain(ui_.LabelRadius->text()) + " -1");
}

void MainformFields::showPreviewBox()
{
  const auto isThere = [](const QFrame* preview) { return !preview->isHidden(); };
  const std::array previews{ui_.frmhintergrund, ui_.frmVorschauTablaschen, ui_.FrmVorschauOhneAlles,
                            ui_.FrmVorschaubenutzerdefiniert};
  ui_.FrmVorschau->setVisible(std::ranges::any_of(previews, isThere));
}

} // namespace mrd::desktop
