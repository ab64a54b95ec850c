#pragma once

#include "editor/font_dialog.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmSchriftart;
}

namespace mrd::desktop {

/// The dialog of typeface and size.
class SchriftartWindow : public QDialog {
public:
  explicit SchriftartWindow(editor::FrmSchriftart& form, QWidget* parent = nullptr);
  ~SchriftartWindow() override;

private:
  void showSample();

  editor::FrmSchriftart& form_;
  std::unique_ptr<Ui::FrmSchriftart> ui_;
};

} // namespace mrd::desktop
