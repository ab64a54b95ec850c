#pragma once
// The servers that the user has said yes to.

#include "platform/files/user_settings.h"
#include "platform/ftp/client.h"
#include "platform/ui/ui.h"

namespace mrd::publish {

/// Asks about a server whose identity nothing proves, and remembers the answer for its host.
class RememberedServers {
public:
  RememberedServers(files::UserSettings& settings, ui::Ui& ui) : settings_(settings), ui_(ui) {}

  bool trusts(const ftp::ServerIdentity& identity);

private:
  files::UserSettings& settings_;
  ui::Ui& ui_;
};

} // namespace mrd::publish
