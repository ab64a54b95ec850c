#pragma once
// The user's own program directory, where the programs are installed for all users of a machine.

#include <filesystem>

namespace mrd::paths {

/// Brings what the installation has (a directory) into the user's program directory: all of it the first time, and what has
/// changed or is missing at each later start. Native paths.
///
/// The user's work stays: the INI file, layouts and pictures of his own, and also the installation's files that he has changed,
/// beside which a newer one is laid as `NAME.neu`. Only the language database is always the installation's, because the programs
/// must find their messages. A record in the directory tells what was brought.
///
/// A file that cannot be brought is left out: who needs it says so, and the next start tries again.
void fillProgramDirectory(const std::filesystem::path& installed, const std::filesystem::path& directory);

} // namespace mrd::paths
