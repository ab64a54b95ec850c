#pragma once

#include "desktop/windows/export_window.h"
#include "publish/html_export_form.h"

namespace mrd::desktop {

/// The dialog that generates and publishes the site.
class FrmHtmlExportWindow : public ExportWindow {
public:
  explicit FrmHtmlExportWindow(publish::frmHTMLExport& form, QWidget* parent = nullptr);

private:
  void refresh() override;

  publish::frmHTMLExport& form_;
};

} // namespace mrd::desktop
