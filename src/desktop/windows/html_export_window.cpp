#include "desktop/windows/html_export_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/html_export_window.ui.h"
#include "desktop/windows/publishing_view.h"

namespace mrd::desktop {

FrmHtmlExportWindow::FrmHtmlExportWindow(publish::frmHTMLExport& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmHTMLExport>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "frmHTMLExport");
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] { accept(); };
  loaded_ = form_.Form_Load(controls);
  if (form_.publishing) {
    view_ = std::make_unique<PublishingView>(*this, *form_.publishing);
    connectPublishing();
  }
  connectGenerating();
  refresh();
}

FrmHtmlExportWindow::~FrmHtmlExportWindow() { form_.window = {}; }

void FrmHtmlExportWindow::connectGenerating()
{
  connect(ui_->OpAlle, &QRadioButton::clicked, this, [this] { form_.OpAlle_Click(); });
  connect(ui_->opneue, &QRadioButton::clicked, this, [this] { form_.opneue_Click(); });
  connect(ui_->tbNamenszusatz, &QLineEdit::textChanged, this,
          [this](const QString& text) { form_.tbNamenszusatz = text.toStdString(); });
  connect(ui_->cbHTML, &QPushButton::clicked, this, [this] {
    form_.cbHTML_Click();
    refresh();
  });
  connect(ui_->cbvorschau, &QPushButton::clicked, this, [this] { form_.cbvorschau_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
}

void FrmHtmlExportWindow::connectPublishing()
{
  connect(ui_->cbftpverbindung, &QPushButton::clicked, this, [this] { form_.cbftpverbindung_Click(); });
  connect(ui_->cbftp, &QPushButton::clicked, this, [this] { form_.cbftp_Click(); });
  connect(ui_->cbftplöschen, &QPushButton::clicked, this, [this] { form_.cbftplöschen_Click(); });
  connect(ui_->cbzusätzlichftp, &QPushButton::clicked, this, [this] { form_.cbzusätzlichftp_Click(); });
  connect(ui_->cberneut, &QPushButton::clicked, this, [this] { form_.cberneut_Click(); });
  connect(ui_->labelSekunden, &QPushButton::clicked, this, [this] { form_.labelSekunden_Click(); });
}

void FrmHtmlExportWindow::reject() { form_.cbabbrechen_Click(); }

void FrmHtmlExportWindow::refresh()
{
  (form_.OpAlle() ? ui_->OpAlle : ui_->opneue)->setChecked(true);
  if (ui_->tbNamenszusatz->text() != shown(form_.tbNamenszusatz))
    ui_->tbNamenszusatz->setText(shown(form_.tbNamenszusatz));
  ui_->labelSeite->setText(shown(form_.labelSeite));
  const auto& progress = form_.ProgressBar1;
  ui_->ProgressBar1->setVisible(progress.Visible);
  ui_->ProgressBar1->setMaximum(static_cast<int>(progress.Max));
  ui_->ProgressBar1->setValue(static_cast<int>(progress.Value));
  if (view_)
    view_->refresh();
}

} // namespace mrd::desktop
