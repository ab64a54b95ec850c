#include "desktop/windows/verweis_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/verweis_window.ui.h"

#include <QSignalBlocker>

namespace mrd::desktop {
VerweisWindow::VerweisWindow(editor::FrmVerweis& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FrmVerweis>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FrmVerweis");
  form_.window.unload = [this] { accept(); };
  for (const auto& page : form_.Listseiten)
    ui_->Listseiten->addItem(shown(page));
  form_.window.refresh = [this] { refresh(); };
  form_.Form_Load(controls);
  bindText(*ui_->tbadresse, form_.tbadresse, [this] { form_.tbadresse_Change(); });
  ui_->Checkneuesfenster->setChecked(form_.Checkneuesfenster);
  ui_->cbentfernen->setEnabled(form_.hasLink());
  connect(ui_->Checkneuesfenster, &QCheckBox::toggled, this, [this](bool on) { form_.Checkneuesfenster = on; });
  connect(ui_->Listseiten, &QListWidget::itemClicked, this, [this] { form_.Listseiten_Click(ui_->Listseiten->currentRow()); });
  connect(ui_->Listseiten, &QListWidget::currentRowChanged, this, [this](int row) {
    if (ui_->Listseiten->hasFocus())
      form_.Listseiten_Click(row);
  });
  connect(ui_->Listseiten, &QListWidget::itemDoubleClicked, this, [this] { form_.cbok_Click(); });
  connect(ui_->cbok, &QPushButton::clicked, this, [this] { form_.cbok_Click(); });
  connect(ui_->cbentfernen, &QPushButton::clicked, this, [this] { form_.cbentfernen_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
  ui_->tbadresse->setFocus();
}

VerweisWindow::~VerweisWindow() { form_.window = {}; }

void VerweisWindow::refresh()
{
  showText(*ui_->tbadresse, form_.tbadresse);
  const QSignalBlocker quiet(ui_->Listseiten);
  ui_->Listseiten->setCurrentRow(form_.listIndex);
}

} // namespace mrd::desktop
