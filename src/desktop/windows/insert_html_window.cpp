#include "desktop/windows/insert_html_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/insert_html_window.ui.h"

namespace mrd::desktop {
InsertHtmlWindow::InsertHtmlWindow(editor::InsertHTMLDlg& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::InsertHTMLDlg>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "InsertHTMLDlg");
  form_.window.unload = [this] { accept(); };
  form_.Form_Load(controls);
  ui_->HTMLText->setSource(form_.HTMLText);
  connect(ui_->HTMLText, &SourceText::textChanged, this, [this] { form_.HTMLText = ui_->HTMLText->source(); });
  connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { form_.cmdOK_Click(); });
  connect(ui_->CmdCancel, &QPushButton::clicked, this, [this] { form_.CmdCancel_Click(); });
  ui_->HTMLText->setFocus();
}

InsertHtmlWindow::~InsertHtmlWindow() { form_.window = {}; }

} // namespace mrd::desktop
