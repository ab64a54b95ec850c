#pragma once

#include "desktop/windows/export_window.h"
#include "publish/html_export_form.h"

namespace mrd::desktop {

/// The dialog that generates and publishes the site.
class FrmHtmlExportWindow : public ExportWindow {
public:
  FrmHtmlExportWindow(publish::frmHTMLExport& form, messages::Language& language, QWidget* parent = nullptr);

private:
  void refresh() override;

  publish::frmHTMLExport& form_;
};

} // namespace mrd::desktop
