#pragma once
// What is said on the control connection.

#include "platform/ftp/client.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::ftp {

/// A command on the control connection with what the server said to it: first and last code (150 and 226 of a transfer), 0 where
/// no answer came, and the text of all lines.
struct Reply {
  std::string command;
  int first = 0, last = 0;
  std::string text = {}, lastText = {};

  bool isRefused() const { return last >= 400; }
  /// The server closes the connection by itself.
  bool isGoodbye() const { return last == 421; }
};

/// The talk of one transfer, as it goes on. A password is left out.
class Talk {
public:
  explicit Talk(std::function<void(State)> stateChanged) : stateChanged_(std::move(stateChanged)) {}

  /// A new transfer.
  void begin() { replies_.clear(); }
  /// A command as it was sent.
  void command(std::string_view line);
  /// A line of an answer to the last command, or of the greeting before any.
  void answer(std::string_view line);

  const std::vector<Reply>& replies() const { return replies_; }
  std::vector<Reply> take() { return std::exchange(replies_, {}); }
  /// The last command with its answer; an empty one before the greeting.
  Reply last() const { return replies_.empty() ? Reply{} : replies_.back(); }
  bool hasCommand() const;
  /// Whether anything was said that comes behind the login.
  bool isBehindLogin() const;
  /// Whether a file is on its way whose arrival the server has not told yet.
  bool isStoring() const;

private:
  std::function<void(State)> stateChanged_;
  std::vector<Reply> replies_;
};

} // namespace mrd::ftp
