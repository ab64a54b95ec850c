#pragma once
// The servers that the user has said yes to.

#include "frame/messages/messages.h"
#include "platform/files/user_settings.h"
#include "platform/ftp/client.h"

namespace mrd::publish {

/// Asks about a server whose identity nothing proves, and remembers the answer for its host.
class RememberedServers {
public:
  RememberedServers(files::UserSettings& settings, messages::Language& language) : settings_(settings), language_(language) {}

  bool trusts(const ftp::ServerIdentity& identity);

private:
  files::UserSettings& settings_;
  messages::Language& language_;
};

} // namespace mrd::publish
