#include "platform/files/user_settings.h"

#include "platform/files/ini_file.h"
#include "platform/files/path.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace mrd::files {
namespace {

std::filesystem::path homeDirectory()
{
  if (const char* home = std::getenv("HOME"); home && *home)
    return home;
  std::array<char, 4096> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
    return found->pw_dir;
  return "/";
}

/// A directory of the XDG Base Directory rules of freedesktop.org, version 0.8, which have relative paths ignored.
std::filesystem::path baseDirectory(const char* variable, std::string_view belowHome)
{
  if (const char* value = std::getenv(variable); value && *value == '/')
    return value;
  return homeDirectory() / belowHome;
}

} // namespace

UserSettings::UserSettings() : UserSettings((baseDirectory("XDG_CONFIG_HOME", ".config") / "mirandel" / "settings.ini").native())
{
}

UserSettings::UserSettings(std::string file) : file_(std::move(file)) {}

std::string UserSettings::value(std::string_view section, std::string_view key, std::string_view fallback) const
{
  return IniFile(systemPath(file_)).value(section, key).value_or(std::string(fallback));
}

void UserSettings::setValue(std::string_view section, std::string_view key, std::string_view value)
{
  std::error_code ignored; // Writing tells better than this what is wrong with the directory.
  std::filesystem::create_directories(std::filesystem::path(file_).parent_path(), ignored);
  IniFile(systemPath(file_)).setValue(section, key, value);
}

std::string userDataDirectory() { return systemPath(baseDirectory("XDG_DATA_HOME", ".local/share") / "mirandel"); }

} // namespace mrd::files
