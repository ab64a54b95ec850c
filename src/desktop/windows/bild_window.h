#pragma once

#include "editor/picture_dialog.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmBild;
}

namespace mrd::desktop {

/// The dialog of a picture in the page.
class BildWindow : public QDialog {
public:
  explicit BildWindow(editor::FrmBild& form, QWidget* parent = nullptr);
  ~BildWindow() override;

private:
  void refresh();

  editor::FrmBild& form_;
  std::unique_ptr<Ui::FrmBild> ui_;
};

} // namespace mrd::desktop
