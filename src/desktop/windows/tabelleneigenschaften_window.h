#pragma once

#include "editor/table_properties.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmTabelleneigenschaften;
}

namespace mrd::desktop {

/// The dialog of a table, its row and its cell.
class TabelleneigenschaftenWindow : public QDialog {
public:
  explicit TabelleneigenschaftenWindow(editor::FrmTabelleneigenschaften& form, QWidget* parent = nullptr);
  ~TabelleneigenschaftenWindow() override;

private:
  void bind();
  void refresh();

  editor::FrmTabelleneigenschaften& form_;
  std::unique_ptr<Ui::FrmTabelleneigenschaften> ui_;
};

} // namespace mrd::desktop
