#pragma once
// A dialog with both halves: what generates an edition of the site, and what puts it on its server.

#include "generator/export_dialog.h"
#include "platform/ui/window_controls.h"
#include "publish/publishing.h"

#include <optional>

namespace mrd::publish {

/// `Generating` is the half of a dialog that generates. Both share the line of status and the bar, and one runs at a time.
template <class Generating>
class ExportForm : public Generating {
public:
  ExportForm(const DialogKind& kind, const generator::ExportEnvironment& environment,
             const PublishingEnvironment& publishingEnvironment)
      : Generating(environment), kind_(kind), environment_(publishingEnvironment)
  {
  }

  /// As that of the other half; with a project there is also something to publish.
  bool Form_Load(ui::WindowControls& controls)
  {
    if (!Generating::Form_Load(controls))
      return false;
    publishing.emplace(kind_, environment_, Generating::db());
    publishing->channel.changed = [this] { showPublishing(); };
    return true;
  }

  generator::RunOutcome cbHTML_Click()
  {
    // A run empties the table of files that is being sent.
    if (publishing && publishing->isRunning())
      return {};
    return Generating::cbHTML_Click();
  }

  /// Ends what runs, and where nothing runs closes the dialog.
  void cbabbrechen_Click()
  {
    if (publishing && publishing->isRunning())
      publishing->stop();
    else
      Generating::cbabbrechen_Click();
  }

  void cbftpverbindung_Click() { publish(&Publishing::cbftpverbindung_Click); }
  void cbftp_Click() { publish(&Publishing::cbftp_Click); }
  void cbftplöschen_Click() { publish(&Publishing::cbftplöschen_Click); }
  void cbzusätzlichftp_Click() { publish(&Publishing::cbzusätzlichftp_Click); }
  void cberneut_Click() { publish(&Publishing::sendFailedAgain); }
  void labelSekunden_Click() { publish(&Publishing::labelSekunden_Click); }

  /// Made by Form_Load.
  std::optional<Publishing> publishing;

private:
  void publish(void (Publishing::*click)())
  {
    if (publishing && !Generating::isRunning())
      ((*publishing).*click)();
  }

  void showPublishing()
  {
    const auto& channel = publishing->channel;
    Generating::labelSeite = channel.labelSeite.caption;
    Generating::ProgressBar1 = {channel.ProgressBar1.value, channel.ProgressBar1.maximum, channel.ProgressBar1.isVisible};
    Generating::window.refresh();
  }

  const DialogKind& kind_;
  PublishingEnvironment environment_;
};

} // namespace mrd::publish
