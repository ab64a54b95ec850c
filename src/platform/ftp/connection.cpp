#include "platform/ftp/connection.h"

#include "platform/modules/module.h"

#include <algorithm>

namespace mrd::ftp {

Reply TransferOutcome::reply(std::string_view command) const
{
  const auto found =
      std::find_if(replies.rbegin(), replies.rend(), [&](const Reply& r) { return r.command.starts_with(command); });
  return found == replies.rend() ? Reply{} : *found;
}

std::unique_ptr<Connection> makeConnection(const Address& address, ConnectionEvents events)
{
  static const auto make = reinterpret_cast<ConnectionFunction>(
      modules::functionOf(MRD_FTP_MODULE, kConnectionFunction, static_cast<base::ErrorNumber>(code::kCannotConnect)));
  return std::unique_ptr<Connection>(make(address, std::move(events)));
}

} // namespace mrd::ftp
