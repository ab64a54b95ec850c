#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mrd::pictures {

/// All files below a directory by their names, for finding what a user copied along from another machine. Paths are in the
/// system's form.
class PictureFolder {
public:
  /// Nothing to be found.
  PictureFolder() = default;
  /// Links to other directories are not followed; what cannot be read is passed over.
  explicit PictureFolder(std::string_view directory);

  /// The file that bears the last name of `oldPath`, whatever its case. Of several the one that shares most directories with the
  /// old path, counted from its end; of those the first in the order of their paths.
  std::optional<std::string> find(std::string_view oldPath) const;

private:
  /// By name in lower case.
  std::unordered_map<std::string, std::vector<std::string>> files_;
};

} // namespace mrd::pictures
