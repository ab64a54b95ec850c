#pragma once
// Where an installed program finds what was installed with it. Paths are native ones.
//
// In the build tree, and where the program directory is carried along on a stick, all lies in one directory; an installation
// spreads it over the directories that its system has for programs, helpers and data.

#include <filesystem>
#include <string_view>

namespace mrd::files {

/// The directory of the program that runs.
std::filesystem::path executableDirectory();

/// A program that is started by others of the house: the one beside them, else the one of the installation, which need not be
/// there.
std::filesystem::path helperProgram(std::string_view name);

/// What the installation brings of a program directory; not there for a program that was not installed.
std::filesystem::path installedResources();

} // namespace mrd::files
