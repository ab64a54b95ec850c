#pragma once

#include "publish/html_export_form.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmHTMLExport;
}

namespace mrd::desktop {

class PublishingView;

class FrmHtmlExportWindow : public QDialog {
public:
  explicit FrmHtmlExportWindow(publish::frmHTMLExport& form, QWidget* parent = nullptr);
  ~FrmHtmlExportWindow() override;

  /// False when there is nothing to generate from: the user has been told, and the dialog is not to be shown.
  bool isLoaded() const { return loaded_; }
  /// While a run is under way it is stopped; the dialog closes without one.
  void reject() override;

private:
  void connectGenerating();
  void connectPublishing();
  void refresh();

  publish::frmHTMLExport& form_;
  std::unique_ptr<Ui::frmHTMLExport> ui_;
  std::unique_ptr<PublishingView> view_;
  bool loaded_ = false;
};

} // namespace mrd::desktop
