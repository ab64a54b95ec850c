#pragma once
// Plain operations on files. Paths are in the system's form (path.h). Failures are base::Error with the platform's number.

#include "base/clock.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace mrd::files {

/// Whether a file (no directory) is there.
bool fileExists(std::string_view path);
bool directoryExists(std::string_view path);
/// Makes one directory; one that is there already is no failure. Throws PathNotFound or PathFileAccess.
void makeDirectory(std::string_view path);
/// Names of the files (no directories) in a directory, sorted; empty for a directory that cannot be read.
std::vector<std::string> fileNames(std::string_view directory);

/// Bytes copied, an older target replaced; the target appears complete or not at all. Throws FileNotFound, PathNotFound,
/// PathFileAccess or DiskFull.
void copyFile(std::string_view source, std::string_view target);
/// Throws FileNotFound.
void removeFile(std::string_view path);
/// Local time of the last change of the content. Throws FileNotFound.
base::DateTime modificationTime(std::string_view path);

/// Length in bytes. Throws FileNotFound or PathFileAccess (also for a directory, and where the file is closed to the user).
std::uintmax_t fileSize(std::string_view path);

/// All bytes of a file. Throws FileNotFound or PathFileAccess (also for a directory).
std::string readFile(std::string_view path);
/// Replaces a file's content in one step: written beside it, synced, renamed. Throws as copyFile.
void writeFileAtomically(std::string_view path, std::string_view bytes);

/// A file opened for output, an older content gone at once. Closes in the destructor; close() reports what went wrong.
class OutputFile {
public:
  /// Throws PathNotFound, PathFileAccess or DiskFull.
  explicit OutputFile(std::string_view path);
  ~OutputFile();
  OutputFile(OutputFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}
  OutputFile& operator=(OutputFile&&) = delete;

  /// Throws DiskFull or PathFileAccess.
  void write(std::string_view bytes);
  void close();

private:
  friend class OutputDirectory;
  struct Native {
    std::filesystem::path path;
  };
  explicit OutputFile(const Native& native);

  int descriptor_;
  std::string path_;
};

/// A directory that many new files are written into. It reads the names in it once, where a single OutputFile reads them all to
/// find that none is its own in another case: thousands of files take time by their number, not by its square.
class OutputDirectory {
public:
  /// A directory that cannot be read counts as empty; opening a file in it then tells.
  explicit OutputDirectory(std::string_view path);

  /// Opens a file of the directory for output, whatever the case of its name on disk. `name` holds no separator.
  /// Throws as OutputFile.
  OutputFile open(std::string_view name);

private:
  std::filesystem::path directory_;
  std::unordered_map<std::string, std::string> nameOnDisk_; // by lower-case name
};

} // namespace mrd::files
