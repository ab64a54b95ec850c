#pragma once
// The servers that the user has said yes to.

#include "frame/messages/messages.h"
#include "platform/files/user_settings.h"
#include "platform/ftp/client.h"

namespace mrd::publish {

/// What is done about a server that is another one than the last time.
enum class OnChange {
  Ask,
  /// For a user who is not there to answer: his general yes is not meant for this.
  Refuse,
};

/// Asks about a server whose identity nothing proves, and remembers the answer for its host.
class RememberedServers {
public:
  RememberedServers(files::UserSettings& settings, messages::Language& language, OnChange onChange)
      : settings_(settings), language_(language), onChange_(onChange)
  {
  }

  /// Whether there is an answer for this server (host, colon, port).
  bool isKnown(const std::string& server) const;
  bool trusts(const ftp::ServerIdentity& identity);

private:
  files::UserSettings& settings_;
  messages::Language& language_;
  OnChange onChange_;
};

} // namespace mrd::publish
