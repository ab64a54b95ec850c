#pragma once

#include "mainform/backup_dialog.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmSicherung;
}

namespace mrd::desktop {

/// The dialog that asks for the backup to be restored.
class SicherungWindow : public QDialog {
public:
  explicit SicherungWindow(mainform::FrmSicherung& form, QWidget* parent = nullptr);
  ~SicherungWindow() override;

private:
  void refresh();

  mainform::FrmSicherung& form_;
  std::unique_ptr<Ui::FrmSicherung> ui_;
};

} // namespace mrd::desktop
