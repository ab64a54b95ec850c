#pragma once

#include "editor/insert_html.h"

#include <QDialog>

#include <memory>

namespace Ui {
class InsertHTMLDlg;
}

namespace mrd::desktop {

/// The dialog that puts HTML text into the page.
class InsertHtmlWindow : public QDialog {
public:
  explicit InsertHtmlWindow(editor::InsertHTMLDlg& form, QWidget* parent = nullptr);
  ~InsertHtmlWindow() override;

private:
  editor::InsertHTMLDlg& form_;
  std::unique_ptr<Ui::InsertHTMLDlg> ui_;
};

} // namespace mrd::desktop
