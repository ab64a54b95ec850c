#pragma once

#include "editor/insert_table.h"

#include <QDialog>

#include <memory>

namespace Ui {
class InsertTableDlg;
}

namespace mrd::desktop {

/// The dialog that puts a table into the page.
class InsertTableWindow : public QDialog {
public:
  explicit InsertTableWindow(editor::InsertTableDlg& form, QWidget* parent = nullptr);
  ~InsertTableWindow() override;

private:
  editor::InsertTableDlg& form_;
  std::unique_ptr<Ui::InsertTableDlg> ui_;
};

} // namespace mrd::desktop
