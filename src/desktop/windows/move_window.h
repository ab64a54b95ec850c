#pragma once

#include "pagetree/page_move.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmMove1;
}

namespace mrd::desktop {

/// The dialog that moves a page within the tree.
class FrmMoveWindow : public QDialog {
public:
  explicit FrmMoveWindow(pagetree::frmMove1& form, QWidget* parent = nullptr);
  ~FrmMoveWindow() override;

  /// Leaving by the Escape key or the frame is what the button for it does.
  void reject() override;

private:
  void refresh();

  pagetree::frmMove1& form_;
  std::unique_ptr<Ui::frmMove1> ui_;
};

} // namespace mrd::desktop
