#pragma once
// What is said on the control connection.

#include <string>
#include <string_view>
#include <vector>

namespace mrd::ftp {

/// A command on the control connection with what the server said to it: first and last code (150 and 226 of a transfer), 0 where
/// no answer came, and the text of all lines.
struct Reply {
  std::string command;
  int first = 0, last = 0;
  std::string text = {}, lastText = {};

  bool isRefused() const { return last >= 400; }
};

/// A command as it was sent. A password is left out.
void noteCommand(std::vector<Reply>& replies, std::string_view line);
/// A line of an answer to the last command, or of the greeting before any. True when the answer has ended with it.
bool noteAnswer(std::vector<Reply>& replies, std::string_view line);

} // namespace mrd::ftp
