#pragma once
// A command line taken apart.

#include <string>
#include <string_view>

namespace mrd::ftp {

enum class Verb { ChangeDirectory, MakeDirectory, List, Put, Delete };

struct Operation {
  Verb verb = Verb::List;
  /// A directory for cd and mkdir, a name for PUT and DELETE.
  std::string target;
  /// The local file of PUT, in the system's form of a path.
  std::string file = {};
  /// Language of what is said about it.
  std::string Sprache = "GER";
};

/// Throws base::Error (InvalidCall) for another command, for a line end or another control character in it, and for a name that
/// leads out of the directory; FileNotFound for a PUT without a local file.
Operation parseOperation(std::string_view line, std::string_view Sprache = "GER");

/// Whether a text can be a file's name in a directory: no separator, no control character, not "." or "..".
bool isFileName(std::string_view name);

} // namespace mrd::ftp
