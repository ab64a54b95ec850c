#pragma once
// A private-profile file: sections in brackets, `key=value` lines, names without regard to case.

#include <optional>
#include <string>
#include <string_view>

namespace mrd::files {

/// UTF-8; a file that is no valid UTF-8 is read as Windows-1252. Comments, blank lines and their order survive a write.
class IniFile {
public:
  /// `path` in the system's form; a missing or unreadable file reads as empty.
  explicit IniFile(std::string_view path);

  /// The value without surrounding blanks and one pair of surrounding quotes, as the platform's profile call returns it.
  std::optional<std::string> value(std::string_view section, std::string_view key) const;

  /// Writes one key and the file at once (written beside it and renamed, so that readers never meet half a file). Throws
  /// base::Error when it cannot.
  void setValue(std::string_view section, std::string_view key, std::string_view value);

private:
  std::string path_;
};

} // namespace mrd::files
