#include "desktop/windows/sicherung_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/sicherung_window.ui.h"

#include <QSignalBlocker>

namespace mrd::desktop {

SicherungWindow::SicherungWindow(mainform::FrmSicherung& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FrmSicherung>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FrmSicherung");
  form_.window.unload = [this] { accept(); };
  for (const auto& backup : form_.Listsicherungen)
    ui_->Listsicherungen->addItem(shown(backup));
  form_.window.refresh = [this] { refresh(); };
  form_.Form_Load(controls);
  connect(ui_->Listsicherungen, &QListWidget::currentRowChanged, this, [this](int row) { form_.Listsicherungen_Click(row); });
  connect(ui_->Listsicherungen, &QListWidget::itemDoubleClicked, this, [this] { form_.cbzurueckholen_Click(); });
  connect(ui_->cbzurueckholen, &QPushButton::clicked, this, [this] { form_.cbzurueckholen_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
  ui_->Listsicherungen->setFocus();
}

SicherungWindow::~SicherungWindow() { form_.window = {}; }

void SicherungWindow::refresh()
{
  const QSignalBlocker quiet(ui_->Listsicherungen);
  ui_->Listsicherungen->setCurrentRow(form_.listIndex);
}

} // namespace mrd::desktop
