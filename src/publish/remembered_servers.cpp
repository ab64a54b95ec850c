#include "publish/remembered_servers.h"

#include "base/format.h"

#include <string>
#include <string_view>

namespace mrd::publish {
namespace {

constexpr std::string_view kSection = "FTPServer";

std::string questionText(const ftp::ServerIdentity& identity, bool hasChanged)
{
  const std::string_view proof = identity.isHostKey ? "Der Schlüssel" : "Das Zertifikat";
  const auto reason = hasChanged
                          ? base::format("{} des Servers {} hat sich geändert. Vielleicht gibt sich ein anderer für ihn aus.",
                                         proof, identity.server)
                          : base::format("{} des Servers {} ist nicht bekannt.", proof, identity.server);
  const auto problem = identity.problem.empty() ? "" : "\r\n(" + identity.problem + ")";
  return base::format("{}{}\r\n\r\nFingerabdruck:\r\n{}\r\n\r\nSoll dem Server vertraut werden?", reason, problem,
                      identity.fingerprint);
}

} // namespace

bool RememberedServers::trusts(const ftp::ServerIdentity& identity)
{
  const auto known = settings_.value(kSection, identity.server, "");
  if (known == identity.fingerprint)
    return true;
  const auto answer =
      ui_.messageBox({questionText(identity, !known.empty()), "Mirandel: FTP-Server", ui::box::kYesNo + ui::box::kExclamation});
  if (answer != ui::Button::Yes)
    return false;
  settings_.setValue(kSection, identity.server, identity.fingerprint);
  return true;
}

} // namespace mrd::publish
