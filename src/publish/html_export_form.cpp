#include "publish/html_export_form.h"

namespace mrd::publish {

frmHTMLExport::frmHTMLExport(const generator::ExportEnvironment& environment, const PublishingEnvironment& publishingEnvironment)
    : generator::frmHTMLExport(environment), environment_(publishingEnvironment)
{
}

bool frmHTMLExport::Form_Load(ui::WindowControls& controls)
{
  if (!generator::frmHTMLExport::Form_Load(controls))
    return false;
  publishing.emplace(kHtmlExport, environment_, db());
  publishing->channel.changed = [this] { showPublishing(); };
  return true;
}

void frmHTMLExport::showPublishing()
{
  const auto& channel = publishing->channel;
  labelSeite = channel.labelSeite.caption;
  ProgressBar1 = {channel.ProgressBar1.value, channel.ProgressBar1.maximum, channel.ProgressBar1.isVisible};
  window.refresh();
}

generator::RunOutcome frmHTMLExport::cbHTML_Click()
{
  // A run empties the table of files that is being sent.
  if (publishing && publishing->isRunning())
    return {};
  return generator::frmHTMLExport::cbHTML_Click();
}

void frmHTMLExport::cbabbrechen_Click()
{
  if (publishing && publishing->isRunning())
    publishing->stop();
  else
    generator::frmHTMLExport::cbabbrechen_Click();
}

void frmHTMLExport::publish(void (Publishing::*click)())
{
  if (publishing && !isRunning())
    ((*publishing).*click)();
}

void frmHTMLExport::cbftpverbindung_Click() { publish(&Publishing::cbftpverbindung_Click); }
void frmHTMLExport::cbftp_Click() { publish(&Publishing::cbftp_Click); }
void frmHTMLExport::cbftplöschen_Click() { publish(&Publishing::cbftplöschen_Click); }
void frmHTMLExport::cbzusätzlichftp_Click() { publish(&Publishing::cbzusätzlichftp_Click); }
void frmHTMLExport::cberneut_Click() { publish(&Publishing::sendFailedAgain); }
void frmHTMLExport::labelSekunden_Click() { publish(&Publishing::labelSekunden_Click); }

} // namespace mrd::publish
