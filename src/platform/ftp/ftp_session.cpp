#include "platform/ftp/ftp_session.h"

#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/files.h"
#include "platform/ftp/explanations.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace mrd::ftp {
namespace {

SessionResult resultOf(const TransferOutcome& outcome) { return {outcome.code, outcome.info}; }

std::optional<std::uintmax_t> numberBehind(std::string_view text, std::size_t at)
{
  std::uintmax_t number = 0;
  const auto digits = text.substr(std::min(at, text.size()));
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end != digits.data() ? std::optional(number) : std::nullopt;
}

/// "213 4711"
std::optional<std::uintmax_t> sizeIn(const Reply& reply)
{
  return reply.last == 213 ? numberBehind(reply.text, 4) : std::nullopt;
}

/// "250- Type=file;Size=4711; name"
std::optional<std::uintmax_t> sizeInFacts(const Reply& reply)
{
  const auto text = base::lower(reply.text);
  const auto at = text.find("size=");
  return reply.isRefused() || at == std::string::npos ? std::nullopt : numberBehind(text, at + 5);
}

/// Whether a server does not take a file for its name, before any byte: under the name that is its own it may. What is refused
/// for another reason, as for want of room, would be so there too, and the old file were lost.
bool refusesName(const Reply& reply)
{
  constexpr std::array kRefusals{501, 550, 553};
  return std::find(kRefusals.begin(), kRefusals.end(), reply.first) != kRefusals.end();
}

} // namespace

std::string FtpSession::encoded(std::string_view text) const
{
  return namesAreWindows1252_ ? base::toWindows1252(text) : std::string(text);
}

void FtpSession::backToLogin()
{
  isAtLogin_ = way_.empty();
  way_.clear();
  isAstray_ = false;
}

void FtpSession::readFeatures(const std::string& text)
{
  const auto features = base::lower(text);
  listsFacts_ = base::contains(features, "\n mlst") || base::contains(features, "\n mlsd");
}

/// Logs in and goes where the lost connection was.
TransferOutcome FtpSession::connect()
{
  Transfer login{TransferKind::Nothing, "", {"*FEAT"}};
  login.mayConnect = true;
  auto outcome = connection_->run(login);
  isConnected_ = outcome.code == code::kNone;
  if (!isConnected_)
    return outcome;
  isAtLogin_ = true;
  const auto features = outcome.reply("FEAT").text;
  readFeatures(features);
  Transfer preparation;
  if (base::contains(base::lower(features), "utf8"))
    preparation.before.push_back("*OPTS UTF8 ON");
  for (const auto& directory : way_)
    preparation.before.push_back("CWD " + encoded(directory));
  if (preparation.before.empty())
    return outcome;
  outcome = connection_->run(preparation);
  // Where the way is not open any more nothing is done in another directory.
  isConnected_ = outcome.code == code::kNone;
  return outcome;
}

TransferOutcome FtpSession::run(Transfer transfer)
{
  constexpr int kAttempts = 2;
  TransferOutcome outcome;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (!isConnected_) {
      outcome = connect();
      if (outcome.code != code::kNone)
        return outcome;
    }
    if (!isAtLogin_ && way_.empty()) {
      transfer.before.insert(transfer.before.begin(), "CWD " + connection_->loginDirectory());
      isAtLogin_ = true;
    }
    outcome = connection_->run(transfer);
    const bool nothingDone = outcome.lacksConnection || (outcome.code == code::kConnectionLost && outcome.replies.size() <= 1 &&
                                                         (outcome.reply("").last == 0 || outcome.reply("").isGoodbye()));
    if (!nothingDone)
      break;
    isConnected_ = false;
  }
  if (outcome.code == code::kNone || outcome.code == code::kRefused)
    return outcome;
  isConnected_ = isConnected_ && outcome.code != code::kConnectionLost;
  return outcome;
}

/// One command whose refusal leaves the connection as it is.
TransferOutcome FtpSession::command(const std::string& line)
{
  auto outcome = run({TransferKind::Nothing, "", {"*" + encoded(line)}});
  if (outcome.code == code::kNone && !outcome.replies.empty() && outcome.replies.back().isRefused()) {
    outcome.code = code::kRefused;
    outcome.info = outcome.words;
  }
  return outcome;
}

SessionResult FtpSession::simple(const std::string& line) { return resultOf(command(line)); }

SessionResult FtpSession::changeDirectory(const std::string& directory)
{
  // Without a name nothing is left: the server stays where it is, and the connection is proved.
  if (directory.empty()) {
    if (way_.empty())
      names_.noteReached("");
    return isConnected_ && isAtLogin_ ? simple("PWD") : resultOf(run({}));
  }
  // Where "/" leads is known once there is a connection.
  if (!isConnected_)
    if (const auto outcome = connect(); outcome.code != code::kNone)
      return resultOf(outcome);
  const bool isAbsolute = directory.starts_with('/');
  const auto target = isAbsolute ? names_.resolve(directory, connection_->loginDirectory()) : directory;
  auto result = simple("CWD " + target);
  if (result.code != code::kNone)
    return result;
  if (way_.empty() && !isAbsolute)
    names_.noteReached(directory);
  if (isAbsolute)
    way_.clear();
  way_.push_back(target);
  isAtLogin_ = false;
  return result;
}

SessionResult FtpSession::makeDirectory(const std::string& directory) { return simple("MKD " + directory); }

SessionResult FtpSession::list()
{
  // How a server lists is known once there is a connection.
  if (!isConnected_)
    if (const auto outcome = connect(); outcome.code != code::kNone)
      return resultOf(outcome);
  Transfer transfer{TransferKind::List};
  if (listsFacts_)
    transfer.listCommand = "MLSD";
  auto outcome = run(transfer);
  if (outcome.code == code::kRefused && listsFacts_) {
    listsFacts_ = false;
    return list();
  }
  if (outcome.code != code::kNone)
    return resultOf(outcome);
  namesAreWindows1252_ = namesAreWindows1252_ || !base::isValidUtf8(outcome.data);
  return listingResult(outcome.data, listsFacts_ ? ListingForm::Facts : ListingForm::Columns);
}

void FtpSession::confirm(Sent& sent, const std::string& remoteName, std::uintmax_t size)
{
  auto onServer = sizeIn(sent.outcome.reply("SIZE"));
  if (!onServer) {
    const auto facts = command("MLST " + remoteName);
    if (facts.code != code::kNone && facts.code != code::kRefused) {
      sent.result = resultOf(facts);
      return;
    }
    onServer = sizeInFacts(facts.reply("MLST"));
  }
  if (onServer == size) {
    sent.arrival = Arrival::Whole;
    return;
  }
  sent.arrival = onServer ? Arrival::CutOff : Arrival::Unknown;
  sent.result = {code::kNotConfirmed,
                 onServer ? textOf(Words::CutOff, Sprache(), {remoteName, std::to_string(*onServer), std::to_string(size)})
                          : textOf(Words::SizeUnknown, Sprache(), {remoteName})};
}

FtpSession::Sent FtpSession::send(const std::string& file, const std::string& remoteName)
{
  const auto size = files::fileSize(file);
  Transfer transfer{TransferKind::Upload, encoded(remoteName), {}, {"*SIZE " + encoded(remoteName)}};
  transfer.file = file;
  transfer.size = size;
  Sent sent;
  sent.outcome = run(transfer);
  sent.result = resultOf(sent.outcome);
  if (sent.result.code == code::kNone)
    confirm(sent, remoteName, size);
  return sent;
}

TransferOutcome FtpSession::rename(const std::string& from, const std::string& to)
{
  auto outcome = run({TransferKind::Nothing, "", {"*RNFR " + encoded(from), "*RNTO " + encoded(to)}});
  const auto reply = outcome.reply("RNTO");
  if (outcome.code == code::kNone && reply.isRefused()) {
    outcome.code = code::kRefused;
    outcome.info = outcome.words;
  }
  return outcome;
}

SessionResult FtpSession::putDirectly(const std::string& file, const std::string& name)
{
  auto result = send(file, name).result;
  // From here on no further file asks for what this server does not allow.
  usesPartFiles_ = usesPartFiles_ && result.code != code::kNone;
  return result;
}

SessionResult FtpSession::put(const std::string& file, const std::string& name)
{
  if (!usesPartFiles_)
    return putDirectly(file, name);
  const auto part = name + std::string(kPartSuffix);
  const auto sent = send(file, part);
  if (sent.outcome.code == code::kRefused && refusesName(sent.outcome.reply("STOR")))
    return putDirectly(file, name);
  if (sent.arrival == Arrival::CutOff) {
    if (sent.result.code != code::kCancelled)
      command("DELE " + part);
    return sent.result;
  }
  const auto renamed = rename(part, name);
  if (renamed.code == code::kNone)
    return sent.result;
  if (renamed.code != code::kRefused)
    return resultOf(renamed);
  command("DELE " + part);
  return renamed.lacksRoom ? resultOf(renamed) : putDirectly(file, name);
}

SessionResult FtpSession::remove(const std::string& name) { return simple("DELE " + name); }

} // namespace mrd::ftp
