#pragma once
// A directory of a test's own. tests/support builds on the library under test, so its tests bring their own.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace mrd::files {

class Scratch {
public:
  Scratch()
  {
    std::string pattern = (std::filesystem::temp_directory_path() / "mrd-files-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
      throw std::runtime_error("no temporary directory");
    root_ = pattern;
  }
  ~Scratch() { std::filesystem::remove_all(root_); }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::filesystem::path native(const std::string& relative) const { return root_ / relative; }

  /// System path of a file below, named with slashes.
  std::string path(const std::string& relative = {}) const
  {
    std::string text = relative.empty() ? root_.string() : (root_ / relative).string();
    for (char& c : text)
      c = c == '/' ? '\\' : c;
    return text;
  }

  void write(const std::string& relative, const std::string& bytes) const
  {
    std::filesystem::create_directories(native(relative).parent_path());
    std::ofstream(native(relative), std::ios::binary) << bytes;
  }

  std::string read(const std::string& relative) const
  {
    std::ifstream file(native(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// How many entries the directory itself holds, hidden ones too.
  std::size_t entries() const
  {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(root_), std::filesystem::directory_iterator()));
  }

private:
  std::filesystem::path root_;
};

} // namespace mrd::files
