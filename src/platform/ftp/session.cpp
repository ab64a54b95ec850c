#include "platform/ftp/session.h"

#include "platform/ftp/explanations.h"
#include "platform/ftp/ftp_session.h"
#include "platform/ftp/sftp_session.h"

namespace mrd::ftp {

SessionResult listingResult(std::string_view data, ListingForm form)
{
  const auto entries = parseListing(data, form);
  return {code::kNone, "", asLines(entries), linksOf(entries)};
}

SessionResult Session::carryOut(const Operation& operation)
{
  connection_->speak(operation.Sprache);
  switch (operation.verb) {
  case Verb::ChangeDirectory: {
    auto result = changeDirectory(operation.target);
    isAstray_ = result.code != code::kNone;
    return result;
  }
  case Verb::MakeDirectory:
    return makeDirectory(operation.target);
  case Verb::List:
    return list();
  case Verb::Put:
  case Verb::Delete:
    break;
  }
  // A file must not land in, or vanish from, the directory that the server was left in by chance.
  if (isAstray_)
    return {code::kRefused, textOf(Words::DirectoryNotReached, operation.Sprache, {operation.target})};
  return operation.verb == Verb::Put ? put(operation.file, operation.target) : remove(operation.target);
}

std::unique_ptr<Session> makeSession(const Address& address, ConnectionEvents events)
{
  if (address.protocol == Protocol::Sftp)
    return std::make_unique<SftpSession>(address, std::move(events));
  return std::make_unique<FtpSession>(address, std::move(events));
}

std::string DirectoryNames::resolve(std::string_view absolute, std::string_view login) const
{
  const auto name = absolute.substr(1);
  // Several slashes come from a directory that is written with one itself.
  if (name.starts_with('/'))
    return resolve(name, "/");
  if (login != "/" && name == reached_)
    return std::string(login) + (name.empty() ? "" : "/") + std::string(name);
  return std::string(absolute);
}

} // namespace mrd::ftp
