#pragma once
// One file whose bytes are an input, for readers that take a path.

#include "platform/files/path.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace mrd::fuzz {

/// In a directory of its own, in memory where the machine has that; removed at the end.
class InputFile {
public:
  explicit InputFile(const std::string& name)
  {
    std::string pattern = std::filesystem::exists("/dev/shm") ? "/dev/shm/mirandel-fuzz-XXXXXX"
                                                              : (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
      throw std::runtime_error("no directory for the input");
    directory_ = pattern;
    file_ = directory_ / name;
  }
  ~InputFile()
  {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  void write(const std::uint8_t* data, std::size_t size) const
  {
    std::ofstream(file_, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  }
  /// In the system's form.
  std::string path() const { return files::systemPath(file_.string()); }
  std::string directory() const { return files::systemPath(directory_.string()); }

private:
  std::filesystem::path directory_, file_;
};

/// Ends the run at a promise that is not kept.
inline void require(bool condition)
{
  if (!condition)
    std::abort();
}

} // namespace mrd::fuzz
