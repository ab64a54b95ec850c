#pragma once
// What lies in a directory. Paths are in the system's form.

#include <string>
#include <string_view>
#include <vector>

namespace mrd::files {

struct DirectoryEntry {
  std::string name;
  bool isDirectory = false;
};

/// Files and directories, without "." and "..", sorted without regard to case; none for a directory that cannot be read. What has
/// no name in the system's form, because it is no UTF-8 or holds a backslash, is left out, and so is what is neither of both.
std::vector<DirectoryEntry> directoryEntries(std::string_view path);

/// A text that is equal for two paths exactly when they lead to the same directory.
std::string directoryIdentity(std::string_view path);

} // namespace mrd::files
