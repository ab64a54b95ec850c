#include "desktop/windows/file_scan_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/file_scan_window.ui.h"
#include "desktop/windows/pictures.h"
#include "frame/failures/failures.h"
#include "platform/files/path.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QTimer>
#include <QToolTip>

#include <array>
#include <functional>
#include <utility>

namespace mrd::desktop {
namespace {

using Form = pictures::FrmFileScan;
using Window = Ui::FrmFileScan;

struct CheckControl {
  QCheckBox* Window::*widget;
  bool Form::*field;
  void (Form::*click)() = nullptr;
};
const std::array kChecks{
    CheckControl{&Window::CheckSubDir, &Form::CheckSubDir},
    CheckControl{&Window::CheckAlle, &Form::CheckAlle},
    CheckControl{&Window::CheckBilder, &Form::CheckBilder},
    CheckControl{&Window::Checkfrei, &Form::Checkfrei},
    CheckControl{&Window::Checknurneue, &Form::Checknurneue},
    CheckControl{&Window::CheckBitmap, &Form::CheckBitmap, &Form::CheckBitmap_Click},
    CheckControl{&Window::CheckRahmen, &Form::CheckRahmen},
    CheckControl{&Window::CheckSchatten, &Form::CheckSchatten},
    CheckControl{&Window::CheckOriginalbilder, &Form::CheckOriginalbilder, &Form::CheckOriginalbilder_Click},
    CheckControl{&Window::CheckPopupfenster, &Form::CheckPopupfenster, &Form::CheckPopupfenster_Click},
    CheckControl{&Window::CheckBildpartner, &Form::CheckBildpartner, &Form::CheckBildpartner_Click},
};

struct NameControl {
  QRadioButton* Window::*widget;
  bool Form::*field;
};
const std::array kNames{
    NameControl{&Window::opumbenennen, &Form::opumbenennen},
    NameControl{&Window::opbeibehalten, &Form::opbeibehalten},
    NameControl{&Window::opüberschreiben, &Form::opüberschreiben},
};

struct Button {
  QAbstractButton* (*widget)(const Window&);
  const char* procedure;
  void (Form::*click)();
};
const std::array kButtons{
    Button{[](const Window& w) -> QAbstractButton* { return w.cbshare; }, "cbshare_Click", &Form::cbshare_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.Command1; }, "Command1_Click", &Form::Command1_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cballemarkieren; }, "cballemarkieren_Click",
           &Form::cballemarkieren_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbmarkierungweg; }, "cbmarkierungweg_Click",
           &Form::cbmarkierungweg_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbauswahlrüber; }, "cbauswahlrüber_Click",
           &Form::cbauswahlrüber_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbhinein; }, "cbhinein_Click", &Form::cbauswahlrüber_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbzurück; }, "cbzurück_Click", &Form::cbzurück_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbrotieren; }, "cbrotieren_Click", &Form::cbrotieren_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbhilfe; }, "cbhilfe_Click", &Form::cbhilfe_Click},
    Button{[](const Window& w) -> QAbstractButton* { return w.cbschließen; }, "cbschließen_Click", &Form::cbschließen_Click},
};

constexpr int kShowMilliseconds = 50;
/// Room for six or seven pictures in each list.
constexpr QSize kFirstSize(1020, 760);

void showLine(QLineEdit& widget, const QString& text)
{
  if (widget.text() != text)
    widget.setText(text);
}

} // namespace

FrmFileScanWindow::FrmFileScanWindow(Form& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), form_(form), language_(language), ui_(std::make_unique<Ui::FrmFileScan>()),
      thumbnails_(kThumbnailSize, [this] {
        found_->picturesChanged();
        chosen_->picturesChanged();
      })
{
  ui_->setupUi(this);
  showPictures(*this);
  QtControls controls(*this, "FrmFileScan");
  language_.Setlanguage(controls);
  // Captions are written with the sign for a letter; this one names no field.
  ui_->LabelHinweis->setText(ui_->LabelHinweis->text().replace("&&", "&"));
  resize(kFirstSize);
  found_ = std::make_unique<FileList>(form_, language_, form_.List1, thumbnails_, *ui_->List1);
  chosen_ = std::make_unique<FileList>(form_, language_, form_.Listpix, thumbnails_, *ui_->Listpix);
  form_.window.refresh = [this] { form_.isScanning() ? refreshDuringScan() : refresh(); };
  form_.window.unload = [this] { hide(); };
  form_.window.focusInsert = [this] { ui_->cbeinfügen->setFocus(); };
  connectDirectory();
  connectLists();
  connectOptions();
  connectConversion();
  connectButtons();
  nameControls();
  refresh();
}

FrmFileScanWindow::~FrmFileScanWindow() { form_.window = {}; }

template <class Body>
void FrmFileScanWindow::act(std::string_view procedure, Body&& body)
{
  if (showing_)
    return;
  failures::withStandardHandler(language_, procedure, std::forward<Body>(body));
  if (form_.isBusy())
    return;
  showCounts();
  showOptions();
  showStates();
}

void FrmFileScanWindow::connectDirectory()
{
  connect(ui_->tbshare, &QLineEdit::textEdited, this, [this](const QString& text) { form_.tbshare = typedPath(text); });
  connect(ui_->tbshare, &QLineEdit::returnPressed, this, [this] { act("Command1_Click", [this] { form_.Command1_Click(); }); });
}

void FrmFileScanWindow::connectLists()
{
  FileListView::Events found;
  found.clicked = [this](int row) { act("List1_Click", [this, row] { form_.List1_Click(static_cast<std::size_t>(row)); }); };
  found.moved = [this] { act("List1_KeyDown", [this] { form_.cbauswahlrüber_Click(); }); };
  ui_->List1->setEvents(std::move(found), Qt::Key_Space);
  FileListView::Events chosen;
  chosen.clicked = [this](int row) { act("Listpix_Click", [this, row] { form_.Listpix_Click(static_cast<std::size_t>(row)); }); };
  chosen.moved = [this] { act("Listpix_KeyDown", [this] { form_.cbzurück_Click(); }); };
  chosen.filesDropped = [this](const QStringList& files) {
    std::vector<std::string> paths;
    for (const QString& file : files)
      paths.push_back(files::systemPath(file.toStdString()));
    act("Listpix_OLEDragDrop", [&] { form_.dropFiles(paths); });
  };
  chosen.textDropped = [this](const QString& text) {
    // Where lines end with one sign, the last of them begins no further line.
    QStringList lines = (text.contains('\r') || !text.endsWith('\n') ? text : text.chopped(1)).split('\n');
    for (QString& line : lines)
      line = shown(typedPath(line.remove('\r')));
    act("Listpix_OLEDragDrop", [&] { form_.dropText(lines.join("\r\n").toStdString()); });
  };
  ui_->Listpix->setEvents(std::move(chosen), Qt::Key_Delete);
}

void FrmFileScanWindow::connectOptions()
{
  for (const auto& check : kChecks)
    connect(ui_.get()->*check.widget, &QCheckBox::clicked, this, [this, &check](bool checked) {
      form_.*check.field = checked;
      act("Check_Click", [this, &check] {
        if (check.click)
          std::invoke(check.click, form_);
      });
    });
  for (const auto& [widget, field] : kNames)
    connect(ui_.get()->*widget, &QRadioButton::clicked, this, [this, field = field] {
      for (const auto& name : kNames)
        form_.*name.field = name.field == field;
    });
  connect(ui_->Opdieseseite, &QRadioButton::clicked, this,
          [this] { act("Opdieseseite_Click", [this] { form_.Opdieseseite_Click(); }); });
  connect(ui_->OpjedesBildeineSeite, &QRadioButton::clicked, this,
          [this] { act("OpjedesBildeineSeite_Click", [this] { form_.OpjedesBildeineSeite_Click(); }); });
  connect(ui_->tbext, &QLineEdit::textEdited, this, [this](const QString& text) { form_.tbext = text.toStdString(); });
  connect(ui_->tbtabspalten, &QLineEdit::textEdited, this, [this](const QString& text) {
    form_.tbtabspalten = text.toStdString();
    act("tbtabspalten_Change", [this] { form_.tbtabspalten_Change(); });
  });
  ui_->UpDowntabspalten->setStep([this](int by) {
    form_.tbtabspalten = QString::number(std::max(0, ui_->tbtabspalten->text().toInt() + by)).toStdString();
    act("tbtabspalten_Change", [this] { form_.tbtabspalten_Change(); });
  });
}

void FrmFileScanWindow::connectConversion()
{
  connect(ui_->opkonvertieren, &QRadioButton::clicked, this, [this] {
    form_.opkonvertieren = true;
    showStates();
  });
  connect(ui_->opnichtkonvertieren, &QRadioButton::clicked, this,
          [this] { act("opnichtkonvertieren_Click", [this] { form_.opnichtkonvertieren_Click(); }); });
  connect(ui_->tbpixel, &QLineEdit::textEdited, this, [this](const QString& text) { form_.tbpixel = text.toStdString(); });
  ui_->tbpixel->installEventFilter(this);
  connect(ui_->Slider1, &QSlider::valueChanged, this, [this](int value) {
    if (showing_)
      return;
    form_.Slider1 = value;
    form_.Slider1_Scroll();
    showSliderTip();
    QToolTip::showText(ui_->Slider1->mapToGlobal(QPoint(ui_->Slider1->width() / 2, 0)), ui_->Slider1->toolTip(), ui_->Slider1);
  });
}

void FrmFileScanWindow::connectButtons()
{
  for (const auto& button : kButtons)
    connect(button.widget(*ui_), &QAbstractButton::clicked, this,
            [this, &button] { act(button.procedure, [this, &button] { std::invoke(button.click, form_); }); });
  for (auto* const button : {ui_->cballemarkieren, ui_->cbmarkierungweg})
    connect(button, &QPushButton::clicked, this, [this] { found_->select(); });
  connect(ui_->cbrotieren, &QPushButton::clicked, this, [this] {
    thumbnails_.forget(form_.pathOf({form_.rotateEntry}));
    refresh();
  });
  connect(ui_->cbeinfügen, &QPushButton::clicked, this,
          [this] { act("cbeinfügen_Click", [this] { form_.cbeinfügen_Click(); }); });
}

bool FrmFileScanWindow::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == ui_->tbpixel && event->type() == QEvent::FocusOut) {
    const auto reason = dynamic_cast<QFocusEvent&>(*event).reason();
    const bool isLeft = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                        reason == Qt::ShortcutFocusReason;
    // A box that is up already says it, or something else that matters more.
    if (isLeft)
      QTimer::singleShot(0, this, [this] {
        if (isVisible() && !QApplication::activeModalWidget())
          act("tbpixel_LostFocus", [this] { form_.tbpixel_LostFocus(); });
      });
  }
  return QDialog::eventFilter(watched, event);
}

void FrmFileScanWindow::changeEvent(QEvent* event)
{
  QDialog::changeEvent(event);
  // The small pictures of the program itself are in the colours of the palette.
  if (event->type() == QEvent::PaletteChange && found_ && chosen_)
    for (auto* const list : {found_.get(), chosen_.get()})
      list->paletteChanged();
}

void FrmFileScanWindow::reject() { form_.cbschließen_Click(); }

void FrmFileScanWindow::closeEvent(QCloseEvent* event)
{
  if (form_.isLoaded())
    form_.cbschließen_Click();
  event->setAccepted(!form_.isLoaded());
}

void FrmFileScanWindow::refresh()
{
  found_->refresh();
  chosen_->refresh();
  showCounts();
  showOptions();
  showStates();
}

void FrmFileScanWindow::refreshDuringScan()
{
  ui_->Command1->setText(shown(language_.shownText(form_.Command1)));
  if (sinceShown_.isValid() && sinceShown_.elapsed() < kShowMilliseconds)
    return;
  sinceShown_.start();
  found_->grow();
  showCounts();
  showStates();
}

void FrmFileScanWindow::showCounts()
{
  ui_->Command1->setText(shown(language_.shownText(form_.Command1)));
  ui_->labelanz->setText(shown(form_.labelanz));
  ui_->LabelNeu->setText(shown(form_.LabelNeu));
  ui_->Labelalt->setText(shown(form_.Labelalt));
  ui_->lblpixanz->setText(shown(form_.lblpixanz));
}

void FrmFileScanWindow::showOptions()
{
  showing_ = true;
  for (const auto& [widget, field, click] : kChecks)
    (ui_.get()->*widget)->setChecked(form_.*field);
  for (const auto& [widget, field] : kNames)
    if (form_.*field)
      (ui_.get()->*widget)->setChecked(true);
  (form_.opkonvertieren ? ui_->opkonvertieren : ui_->opnichtkonvertieren)->setChecked(true);
  (form_.Opdieseseite ? ui_->Opdieseseite : ui_->OpjedesBildeineSeite)->setChecked(true);
  showLine(*ui_->tbshare, shownPath(form_.tbshare));
  showLine(*ui_->tbext, shown(form_.tbext));
  showLine(*ui_->tbtabspalten, shown(form_.tbtabspalten));
  showLine(*ui_->tbpixel, shown(form_.tbpixel));
  ui_->Slider1->setValue(form_.Slider1);
  showSliderTip();
  showing_ = false;
}

void FrmFileScanWindow::showStates()
{
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{ui_->Labeltabspalten, ui_->tbtabspalten, ui_->UpDowntabspalten, ui_->CheckRahmen})
    widget->setEnabled(form_.tableEnabled);
  ui_->CheckBildpartner->setEnabled(form_.bildpartnerEnabled);
  ui_->CheckPopupfenster->setEnabled(form_.popupEnabled);
  for (QWidget* const widget : std::initializer_list<QWidget*>{ui_->cbshare, ui_->tbshare, ui_->cbeinfügen, ui_->cbrotieren})
    widget->setEnabled(!form_.isScanning());
}

void FrmFileScanWindow::showSliderTip() { ui_->Slider1->setToolTip(shown(language_.shownText(form_.sliderToolTip))); }

void FrmFileScanWindow::nameControls()
{
  const auto plain = [](QString caption) { return caption.remove('&').remove(':'); };
  ui_->tbext->setAccessibleName(plain(ui_->Checkfrei->text()));
  ui_->cbauswahlrüber->setAccessibleName(ui_->cbauswahlrüber->toolTip());
  ui_->cbzurück->setAccessibleName(ui_->cbzurück->toolTip());
  const QString columns = plain(ui_->Labeltabspalten->text());
  ui_->UpDowntabspalten->setNames(columns + " +1", columns + " -1");
}

} // namespace mrd::desktop
