#pragma once
// The dialog that turns a project into a site and puts the site on its server.

#include "generator/html_export.h"
#include "platform/ui/window_controls.h"
#include "publish/publishing.h"

#include <optional>

namespace mrd::publish {

/// Both halves: what generates, and what publishes. They share the line of status and the bar, and one runs at a time.
class frmHTMLExport : public generator::frmHTMLExport {
public:
  frmHTMLExport(const generator::ExportEnvironment& environment, const PublishingEnvironment& publishing);

  /// As that of the other half; with a project there is also something to publish.
  bool Form_Load(ui::WindowControls& controls);

  generator::RunOutcome cbHTML_Click();
  /// Ends what runs, and where nothing runs closes the dialog.
  void cbabbrechen_Click();

  void cbftpverbindung_Click();
  void cbftp_Click();
  void cbftplöschen_Click();
  void cbzusätzlichftp_Click();
  void cberneut_Click();
  void labelSekunden_Click();

  /// Made by Form_Load.
  std::optional<Publishing> publishing;

private:
  void publish(void (Publishing::*click)());
  void showPublishing();

  PublishingEnvironment environment_;
};

} // namespace mrd::publish
