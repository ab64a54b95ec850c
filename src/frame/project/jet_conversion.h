#pragma once
// From a database of earlier versions (Jet) to a project of today. Whatever stops the program, there is the old file as it was,
// or the finished project and the old file under another name.

#include "platform/dao/jet_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::project {

struct Conversion {
  /// Where the old file lies now.
  std::string oldFile;
  /// What was damaged and is not there, in words for the user.
  std::vector<std::string> leftOut;
};

/// Puts a project in the place of an old database; the old file is kept beside it as `<name>.jet.mdb`. Throws base::Error:
/// NotADatabase with words for the user, DatabaseLocked while another program of ours is at it, AccessDenied for a file that
/// cannot be written, and what writing files throws. Nothing when another program has done it meanwhile.
std::optional<Conversion> convertInPlace(std::string_view path, const dao::JetReading& reading);

/// Makes a project of its own from an old database, which is only read. Throws as above, and PathFileAccess where `target`
/// exists.
Conversion convertTo(std::string_view jetFile, std::string_view target, const dao::JetReading& reading);

} // namespace mrd::project
