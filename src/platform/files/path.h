#pragma once
// The one form of path that the system works on, and its border to the native file system.
//
// Separator is the backslash everywhere: `C:\fotos\x.jpg` on Windows, `\home\anna\fotos\x.jpg` elsewhere. Text is UTF-8.

#include <filesystem>
#include <string>
#include <string_view>

namespace mrd::files {

/// Native path of `path`, whatever the case of its letters: where the file system distinguishes case, each component is taken
/// exactly if it exists, else by a directory listing; a component that nothing matches is taken as written. A slash separates
/// too. A path with a drive letter names nothing on systems without drives: `C:\x` becomes `/C:/x`, never a file below the
/// current directory.
std::filesystem::path nativePath(std::string_view path);

/// Path in the system's form of a native one; a relative native path is made absolute first, `.` and `..` are resolved.
std::string systemPath(const std::filesystem::path& native);

/// Path in the system's form of a local reference: `file:///C:/x`, `file://C:\x`, `file:///home/x`, `file://\home\x`,
/// `file:\\\home\x` or a plain path, percent escapes decoded, the root kept and never doubled. A relative reference stays
/// relative, `file://pix/x.jpg` too: pages name directories of the site so. The whole reference belongs here, prefix and all:
/// whoever shortens `///` first has lost the root. Escapes are UTF-8, or Windows-1252 where that fails; a percent sign that is
/// none stays.
std::string pathFromReference(std::string_view reference);

/// Whether the reference has a scheme (two or more characters before a colon) other than `file:` and `http:`; such a reference
/// is never copied, entered or rewritten. A `javascript:` reference with a `file:` in it counts as local.
bool isForeignReference(std::string_view reference);

} // namespace mrd::files
