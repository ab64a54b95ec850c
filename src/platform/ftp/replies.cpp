#include "platform/ftp/replies.h"

#include <algorithm>

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

} // namespace

void noteCommand(std::vector<Reply>& replies, std::string_view line)
{
  line = withoutLineEnd(line);
  replies.push_back({std::string(line.starts_with("PASS ") ? "PASS" : line)});
}

bool noteAnswer(std::vector<Reply>& replies, std::string_view line)
{
  line = withoutLineEnd(line);
  if (replies.empty())
    replies.push_back({});
  auto& reply = replies.back();
  if (reply.text.size() < kLongestAnswer)
    reply.text += (reply.text.empty() ? "" : "\n") + std::string(line);
  const int code = closingCode(line);
  if (code == 0)
    return false;
  reply.lastText = line;
  if (reply.first == 0)
    reply.first = code;
  reply.last = code;
  return true;
}

} // namespace mrd::ftp
