#include "publish/remembered_servers.h"

#include <string>
#include <string_view>

namespace mrd::publish {
namespace {

constexpr std::string_view kSection = "FTPServer";
constexpr int kMessageChangedAndRefused = 180;

/// A certificate or a host key that is not known, or that is not the one of the last time.
int messageFor(bool isHostKey, bool hasChanged)
{
  constexpr int kCertificateUnknown = 116, kCertificateChanged = 117, kKeyUnknown = 118, kKeyChanged = 119;
  if (isHostKey)
    return hasChanged ? kKeyChanged : kKeyUnknown;
  return hasChanged ? kCertificateChanged : kCertificateUnknown;
}

std::string description(const ftp::ServerIdentity& identity)
{
  const auto problem = identity.problem.empty() ? "" : "\r\n(" + identity.problem + ")";
  return identity.server + problem + "\r\n\r\n" + identity.fingerprint;
}

} // namespace

bool RememberedServers::isKnown(const std::string& server) const { return !settings_.value(kSection, server, "").empty(); }

bool RememberedServers::trusts(const ftp::ServerIdentity& identity)
{
  const auto known = settings_.value(kSection, identity.server, "");
  if (known == identity.fingerprint)
    return true;
  if (!known.empty() && onChange_ == OnChange::Refuse) {
    language_.GetMsg(kMessageChangedAndRefused, description(identity) + "\r\n\r\n" + settings_.file(), "R");
    return false;
  }
  if (language_.GetMsg(messageFor(identity.isHostKey, !known.empty()), description(identity), "Z") != ui::Button::Yes)
    return false;
  settings_.setValue(kSection, identity.server, identity.fingerprint);
  return true;
}

} // namespace mrd::publish
