#pragma once
// The directory that receives the generated site, and what must lie in it before anything is written.

#include "frame/paths/paths.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrd::settings {

/// A directory's path with the separator at its end, without blanks around it. A path that a user wrote with slashes is taken
/// into the system's form.
std::string withClosingSeparator(std::string_view directory);

/// Makes the directory `pix`, which holds all pictures of a site, below an export directory; one that is there is no failure.
/// Throws PathNotFound where the export directory itself is missing. Safe on several threads at once.
void makePictureDirectory(std::string_view exportPath);

/// Makes the directory `pix` below an export directory, and copies the standing files that are missing there and that the program
/// directory has.
void makeExportTree(std::string_view exportPath, const paths::ProgramFiles& program);

/// What the export path field shows after it loses the focus with `text` in it: the directory, or the program's own export
/// directory (made when missing) in place of one that does not exist. The export tree is made. Throws base::Error.
std::string tbpfadexport_LostFocus(std::string_view text, const paths::ProgramFiles& program);

/// The same for a directory that must exist: nothing, and nothing done, where it does not.
std::optional<std::string> existingExportPath(std::string_view text, const paths::ProgramFiles& program);

} // namespace mrd::settings
