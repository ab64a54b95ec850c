#include "platform/ftp/replies.h"

#include <algorithm>
#include <array>

namespace mrd::ftp {
namespace {

/// A greeting without end must not fill the memory.
constexpr std::size_t kLongestAnswer = 64 * 1024;

std::string_view withoutLineEnd(std::string_view line)
{
  while (line.ends_with('\n') || line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

/// The number of an answer's last line; 0 for another line.
int closingCode(std::string_view line)
{
  const bool hasCode =
      line.size() >= 3 && std::all_of(line.begin(), line.begin() + 3, [](char c) { return c >= '0' && c <= '9'; });
  if (!hasCode || (line.size() > 3 && line[3] != ' '))
    return 0;
  return (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
}

/// What is said until the server knows who is there; the greeting is an answer to nothing.
bool belongsToLogin(const Reply& reply)
{
  constexpr std::array<std::string_view, 6> kWords{"AUTH", "USER", "PASS", "ACCT", "PBSZ", "PROT"};
  const std::string_view word = std::string_view(reply.command).substr(0, reply.command.find(' '));
  return word.empty() || std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

} // namespace

void Talk::command(std::string_view line)
{
  line = withoutLineEnd(line);
  replies_.push_back({std::string(line.starts_with("PASS ") ? "PASS" : line)});
  stateChanged_(State::Requesting);
  stateChanged_(State::RequestSent);
}

void Talk::answer(std::string_view line)
{
  line = withoutLineEnd(line);
  if (replies_.empty()) {
    stateChanged_(State::Connected);
    replies_.push_back({});
  }
  auto& reply = replies_.back();
  if (reply.text.size() < kLongestAnswer)
    reply.text += (reply.text.empty() ? "" : "\n") + std::string(line);
  const int code = closingCode(line);
  if (code == 0)
    return;
  reply.lastText = line;
  if (reply.first == 0)
    reply.first = code;
  reply.last = code;
  stateChanged_(State::ReceivingResponse);
  stateChanged_(State::ResponseReceived);
}

bool Talk::hasCommand() const
{
  return std::any_of(replies_.begin(), replies_.end(), [](const Reply& reply) { return !reply.command.empty(); });
}

bool Talk::isBehindLogin() const { return !std::all_of(replies_.begin(), replies_.end(), belongsToLogin); }

bool Talk::isStoring() const
{
  constexpr int kFirstSuccess = 200;
  return !replies_.empty() && replies_.back().command.starts_with("STOR ") && replies_.back().last < kFirstSuccess;
}

} // namespace mrd::ftp
