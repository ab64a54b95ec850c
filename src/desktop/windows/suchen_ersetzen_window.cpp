#include "desktop/windows/suchen_ersetzen_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/suchen_ersetzen_window.ui.h"

namespace mrd::desktop {
SuchenErsetzenWindow::SuchenErsetzenWindow(editor::FormSuchenErsetzen& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FormSuchenErsetzen>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FormSuchenErsetzen");
  form_.window.unload = [this] { hide(); };
  form_.Form_Load(controls);
  bindText(*ui_->tbsuchen, form_.tbsuchen, [this] { form_.tbsuchen_Change(); });
  bindText(*ui_->tbersetzen, form_.tbersetzen);
  connect(ui_->cbsuchen, &QPushButton::clicked, this, [this] { form_.cbsuchen_Click(); });
  connect(ui_->cbersetzen, &QPushButton::clicked, this, [this] { form_.cbersetzen_Click(); });
  connect(ui_->cbschließen, &QPushButton::clicked, this, [this] { form_.cbschließen_Click(); });
  ui_->tbsuchen->selectAll();
}

SuchenErsetzenWindow::~SuchenErsetzenWindow() { form_.window = {}; }

void SuchenErsetzenWindow::reject() { form_.cbschließen_Click(); }

} // namespace mrd::desktop
