#pragma once
// Settings of this user on this machine, outside all projects.

#include <string>
#include <string_view>

namespace mrd::files {

/// Text values under application, section and key in `$XDG_CONFIG_HOME/mirandel/settings.ini` (or `~/.config`).
class UserSettings {
public:
  UserSettings();
  /// A store in a file of its own, for tests and portable use; native path.
  explicit UserSettings(std::string file);

  /// Where they are kept; native path.
  const std::string& file() const { return file_; }
  std::string value(std::string_view section, std::string_view key, std::string_view fallback) const;
  void setValue(std::string_view section, std::string_view key, std::string_view value);

private:
  std::string file_;
};

/// `$XDG_DATA_HOME/mirandel` or `~/.local/share/mirandel`, in the system's form without a separator at the end.
std::string userDataDirectory();

} // namespace mrd::files
