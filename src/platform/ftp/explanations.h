#pragma once
// What a client says of itself, in the user's language.

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::ftp {

enum class Words {
  HostNotFound,
  CannotConnect,
  TimedOut,
  LoginDenied,
  NotTrusted,
  NoEncryption,
  Cancelled,
  ConnectionLost,
  TooLong,
  SizeUnknown,
  CutOff,
  DirectoryNotReached,
  FileUnreadable,
  FileMissing,
  InvalidCommand,
  InvalidAddress,
  StillExecuting,
};

/// The text in a language ("GER" or "ENG") with the values in the places of "{}".
std::string textOf(Words words, std::string_view Sprache, std::initializer_list<std::string> values = {});

/// What a user reads of a failure about which the server itself said nothing; none for a number without words.
std::optional<Words> wordsFor(int code);

} // namespace mrd::ftp
