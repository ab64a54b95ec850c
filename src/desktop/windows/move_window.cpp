#include "desktop/windows/move_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/move_window.ui.h"

#include <array>

namespace mrd::desktop {

FrmMoveWindow::FrmMoveWindow(pagetree::frmMove1& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmMove1>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "frmMove1");
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] { accept(); };
  form_.Form_Load(controls);
  refresh();
  const std::array<QRadioButton*, 3> options{ui_->optMove_0, ui_->optMove_1, ui_->optMove_2};
  for (std::size_t i = 0; i < options.size(); ++i)
    connect(options[i], &QRadioButton::clicked, this, [this, i] { form_.optMove_Click(static_cast<pagetree::MoveOption>(i)); });
  connect(ui_->btnMove, &QPushButton::clicked, this, [this] { form_.btnMove_Click(); });
  connect(ui_->btnCancel, &QPushButton::clicked, this, [this] { form_.btnCancel_Click(); });
}

FrmMoveWindow::~FrmMoveWindow() { form_.window = {}; }

void FrmMoveWindow::reject() { form_.btnCancel_Click(); }

void FrmMoveWindow::refresh()
{
  ui_->lblMove_0->setText(shown(form_.lblMove[0].caption));
  ui_->lblMove_1->setText(shown(form_.lblMove[1].caption));
  const std::array<QRadioButton*, 3> options{ui_->optMove_0, ui_->optMove_1, ui_->optMove_2};
  if (const int chosen = form_.optMove(); chosen >= 0 && chosen < static_cast<int>(options.size()))
    options[static_cast<std::size_t>(chosen)]->setChecked(true);
}

} // namespace mrd::desktop
