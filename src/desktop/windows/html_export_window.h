#pragma once

#include "generator/html_export.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmHTMLExport;
}

namespace mrd::desktop {

class FrmHtmlExportWindow : public QDialog {
public:
  explicit FrmHtmlExportWindow(generator::frmHTMLExport& form, QWidget* parent = nullptr);
  ~FrmHtmlExportWindow() override;

  /// False when there is nothing to generate from: the user has been told, and the dialog is not to be shown.
  bool isLoaded() const { return loaded_; }
  /// While a run is under way it is stopped; the dialog closes without one.
  void reject() override;

private:
  void refresh();

  generator::frmHTMLExport& form_;
  std::unique_ptr<Ui::frmHTMLExport> ui_;
  bool loaded_ = false;
};

} // namespace mrd::desktop
