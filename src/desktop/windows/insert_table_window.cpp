#include "desktop/windows/insert_table_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/insert_table_window.ui.h"

namespace mrd::desktop {
InsertTableWindow::InsertTableWindow(editor::InsertTableDlg& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::InsertTableDlg>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "InsertTableDlg");
  form_.window.unload = [this] { accept(); };
  form_.Form_Load(controls);
  bindText(*ui_->Rows, form_.Rows);
  bindText(*ui_->Cols, form_.Cols);
  bindText(*ui_->TableAttrs, form_.TableAttrs);
  bindText(*ui_->CellAttrs, form_.CellAttrs);
  bindText(*ui_->TableCaption, form_.TableCaption);
  connect(ui_->OkCmd, &QPushButton::clicked, this, [this] { form_.OkCmd_Click(); });
  connect(ui_->CancelCmd, &QPushButton::clicked, this, [this] { form_.CancelCmd_Click(); });
  ui_->TableAttrs->setCursorPosition(0);
  ui_->Rows->selectAll();
}

InsertTableWindow::~InsertTableWindow() { form_.window = {}; }

} // namespace mrd::desktop
