#pragma once

#include "editor/link_dialog.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmVerweis;
}

namespace mrd::desktop {

/// The dialog of a link.
class VerweisWindow : public QDialog {
public:
  explicit VerweisWindow(editor::FrmVerweis& form, QWidget* parent = nullptr);
  ~VerweisWindow() override;

private:
  void refresh();

  editor::FrmVerweis& form_;
  std::unique_ptr<Ui::FrmVerweis> ui_;
};

} // namespace mrd::desktop
