#include "desktop/windows/bild_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bild_window.ui.h"
#include "desktop/windows/bound_fields.h"

namespace mrd::desktop {
BildWindow::BildWindow(editor::FrmBild& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FrmBild>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FrmBild");
  form_.window.unload = [this] { accept(); };
  for (const auto& alignment : editor::FrmBild::alignments())
    ui_->ComboAusrichtung->addItem(shown(alignment));
  form_.window.refresh = [this] { refresh(); };
  form_.Form_Load(controls);
  bindText(*ui_->tbbild, form_.tbbild);
  bindText(*ui_->tbalt, form_.tbalt);
  bindText(*ui_->tbbreite, form_.tbbreite, [this] { form_.tbbreite_Change(); });
  bindText(*ui_->tbhöhe, form_.tbhöhe, [this] { form_.tbhöhe_Change(); });
  bindText(*ui_->tbrahmen, form_.tbrahmen);
  ui_->CheckSeitenverhältnis->setChecked(form_.CheckSeitenverhältnis);
  connect(ui_->CheckSeitenverhältnis, &QCheckBox::toggled, this, [this](bool on) { form_.CheckSeitenverhältnis = on; });
  connect(ui_->ComboAusrichtung, &QComboBox::activated, this, [this](int index) { form_.ComboAusrichtung = index; });
  connect(ui_->cbbild, &QPushButton::clicked, this, [this] { form_.cbbild_Click(); });
  connect(ui_->cboriginal, &QPushButton::clicked, this, [this] { form_.cboriginal_Click(); });
  connect(ui_->cbok, &QPushButton::clicked, this, [this] { form_.cbok_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
}

BildWindow::~BildWindow() { form_.window = {}; }

void BildWindow::refresh()
{
  showText(*ui_->tbbild, form_.tbbild);
  showText(*ui_->tbbreite, form_.tbbreite);
  showText(*ui_->tbhöhe, form_.tbhöhe);
  ui_->ComboAusrichtung->setCurrentIndex(form_.ComboAusrichtung);
}

} // namespace mrd::desktop
