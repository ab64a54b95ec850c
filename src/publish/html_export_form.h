#pragma once
// The dialog that turns a project into a site and puts the site on its server.

#include "generator/html_export.h"
#include "publish/export_form.h"

namespace mrd::publish {

class frmHTMLExport : public ExportForm<generator::frmHTMLExport> {
public:
  frmHTMLExport(const generator::ExportEnvironment& environment, const PublishingEnvironment& publishingEnvironment)
      : ExportForm(kHtmlExport, environment, publishingEnvironment)
  {
  }
};

} // namespace mrd::publish
