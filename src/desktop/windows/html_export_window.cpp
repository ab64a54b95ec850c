#include "desktop/windows/html_export_window.h"

#include "desktop/seams/shown_text.h"
#include "desktop/windows/html_export_window.ui.h"

namespace mrd::desktop {

FrmHtmlExportWindow::FrmHtmlExportWindow(publish::frmHTMLExport& form, messages::Language& language, QWidget* parent)
    : ExportWindow("frmHTMLExport", form, language, parent), form_(form)
{
  load(form_);
  connect(ui_->OpAlle, &QRadioButton::clicked, this, [this] { form_.OpAlle_Click(); });
  connect(ui_->opneue, &QRadioButton::clicked, this, [this] { form_.opneue_Click(); });
  connect(ui_->tbNamenszusatz, &QLineEdit::textChanged, this,
          [this](const QString& text) { form_.tbNamenszusatz = text.toStdString(); });
}

void FrmHtmlExportWindow::refresh()
{
  (form_.OpAlle() ? ui_->OpAlle : ui_->opneue)->setChecked(true);
  if (ui_->tbNamenszusatz->text() != shown(form_.tbNamenszusatz))
    ui_->tbNamenszusatz->setText(shown(form_.tbNamenszusatz));
  ExportWindow::refresh();
}

} // namespace mrd::desktop
