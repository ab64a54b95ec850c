#include "desktop/windows/about_window.h"

#include "desktop/looks/icons.h"
#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/about_window.ui.h"

namespace mrd::desktop {

FrmAboutWindow::FrmAboutWindow(mainform::frmAbout& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmAbout>())
{
  ui_->setupUi(this);
  ui_->picIcon->setPixmap(programIcon().pixmap(ui_->picIcon->minimumSize(), devicePixelRatioF()));
  QtControls controls(*this, "frmAbout");
  form_.window.unload = [this] { accept(); };
  form_.Form_Load(controls);
  setWindowTitle(shown(language.shownText(form_.caption)));
  ui_->lblVersion->setText(shown(form_.lblVersion));
  connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { form_.cmdOK_Click(); });
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, [this] { form_.cmdSysInfo_Click(); });
}

FrmAboutWindow::~FrmAboutWindow() { form_.window = {}; }

} // namespace mrd::desktop
