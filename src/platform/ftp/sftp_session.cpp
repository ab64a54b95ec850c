#include "platform/ftp/sftp_session.h"

#include "base/text.h"
#include "platform/files/files.h"
#include "platform/ftp/explanations.h"

namespace mrd::ftp {
namespace {

/// Behind the name of a file that makes room for a new one.
constexpr std::string_view kOldSuffix = ".mrd-old";

/// An argument of a command, as the library's command reader takes it.
std::string argumentOf(std::string_view path)
{
  return "\"" + base::replaceAll(base::replaceAll(path, "\\", "\\\\"), "\"", "\\\"") + "\"";
}

} // namespace

void SftpSession::backToLogin()
{
  directory_.clear();
  listed_.reset();
  isAstray_ = false;
}

std::string SftpSession::pathOf(const std::string& name) const
{
  const auto& base = directory_.empty() ? connection_->loginDirectory() : directory_;
  return base.ends_with('/') ? base + name : base + "/" + name;
}

/// Every path is from the root, so a lost connection is made again with the command that needs it.
TransferOutcome SftpSession::run(Transfer transfer)
{
  transfer.mayConnect = true;
  return connection_->run(transfer);
}

bool SftpSession::makeLogin(SessionResult& failure)
{
  if (isConnected_)
    return true;
  const auto outcome = run({TransferKind::Nothing, "/"});
  failure = {outcome.code, outcome.info};
  isConnected_ = outcome.code == code::kNone;
  return isConnected_;
}

SessionResult SftpSession::command(const std::string& line)
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  const auto outcome = run({TransferKind::Nothing, "/", {line}});
  return {outcome.code, outcome.info};
}

SessionResult SftpSession::readDirectory(const std::string& directory)
{
  const auto outcome = run({TransferKind::List, directory.ends_with('/') ? directory : directory + "/"});
  if (outcome.code == code::kConnectionLost && !outcome.lacksConnection && outcome.data.empty())
    return {code::kRefused, outcome.info};
  if (outcome.code != code::kNone)
    return {outcome.code, outcome.info};
  return listingResult(outcome.data, ListingForm::Columns);
}

SessionResult SftpSession::changeDirectory(const std::string& directory)
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  const bool isAbsolute = directory.starts_with('/');
  const auto target = isAbsolute ? names_.resolve(directory, connection_->loginDirectory()) : pathOf(directory);
  auto result = readDirectory(target);
  if (result.code != code::kNone)
    return result;
  if (directory_.empty() && !isAbsolute)
    names_.noteReached(directory);
  directory_ = target;
  listed_ = std::move(result);
  return {};
}

SessionResult SftpSession::makeDirectory(const std::string& directory)
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  listed_.reset();
  return command("mkdir " + argumentOf(directory.starts_with('/') ? directory : pathOf(directory)));
}

SessionResult SftpSession::list()
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  if (listed_) {
    auto result = std::move(*listed_);
    listed_.reset();
    return result;
  }
  return readDirectory(directory_.empty() ? connection_->loginDirectory() : directory_);
}

TransferOutcome SftpSession::send(const std::string& file, const std::string& path)
{
  const auto size = files::fileSize(file);
  Transfer upload{TransferKind::Upload, path};
  upload.file = file;
  upload.size = size;
  auto outcome = run(upload);
  if (outcome.code != code::kNone)
    return outcome;
  Transfer check{TransferKind::Size, path};
  check.size = size;
  auto answer = run(check);
  const bool isAnswer = answer.code == code::kNone || answer.code == code::kRefused || answer.code == code::kNotConfirmed;
  if (!isAnswer || (answer.code == code::kNone && answer.data.empty()))
    return answer;
  answer.code = code::kNotConfirmed;
  answer.info = textOf(Words::SizeUnknown, Sprache(), {path});
  return answer;
}

/// Most servers of this protocol rename over no other file. The old one makes room, and is back where the new one cannot come.
SessionResult SftpSession::replaced(const std::string& part, const std::string& path)
{
  const auto rename = [](const std::string& from, const std::string& to) {
    return "rename " + argumentOf(from) + " " + argumentOf(to);
  };
  if (renameReplaces_) {
    const auto result = command(rename(part, path));
    if (result.code != code::kRefused)
      return result;
    renameReplaces_ = false;
  }
  const auto old = path + std::string(kOldSuffix);
  const auto outcome = run({TransferKind::Nothing,
                            "/",
                            {"*rm " + argumentOf(old), "*" + rename(path, old), rename(part, path), "*rm " + argumentOf(old)}});
  if (outcome.code != code::kNone && outcome.code != code::kCancelled)
    run({TransferKind::Nothing, "/", {"*" + rename(old, path)}});
  return {outcome.code, outcome.info};
}

SessionResult SftpSession::put(const std::string& file, const std::string& name)
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  listed_.reset();
  const auto path = pathOf(name);
  const auto resultOf = [](const TransferOutcome& outcome) { return SessionResult{outcome.code, outcome.info}; };
  if (!usesPartFiles_)
    return resultOf(send(file, path));
  const auto part = path + std::string(kPartSuffix);
  const auto sent = send(file, part);
  auto result = resultOf(sent);
  if (result.code == code::kNone)
    result = replaced(part, path);
  if (result.code != code::kRefused && result.code != code::kNotConfirmed)
    return result;
  run({TransferKind::Nothing, "/", {"*rm " + argumentOf(part)}});
  if (result.code == code::kNotConfirmed || sent.lacksRoom)
    return result;
  result = resultOf(send(file, path));
  usesPartFiles_ = result.code != code::kNone;
  return result;
}

SessionResult SftpSession::remove(const std::string& name)
{
  SessionResult failure;
  if (!makeLogin(failure))
    return failure;
  listed_.reset();
  return command("rm " + argumentOf(pathOf(name)));
}

} // namespace mrd::ftp
