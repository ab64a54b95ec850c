#include "mainform/program.h"

#include "base/text.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/files/user_settings.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace mrd::mainform {
namespace {

namespace fs = std::filesystem;

fs::path executableDirectory()
{
  std::error_code failure;
  return fs::read_symlink("/proc/self/exe", failure).parent_path();
}

bool canServeAsProgramDirectory(const fs::path& directory)
{
  return files::fileExists(files::systemPath(directory) + std::string(kEmptyProject)) && ::access(directory.c_str(), W_OK) == 0;
}

std::string withoutClosingSeparator(std::string directory)
{
  while (directory.size() > 1 && directory.ends_with('\\'))
    directory.pop_back();
  return directory;
}

/// What a user changed or added stays; what an update brought newer replaces the old.
void fillFromInstallation(const fs::path& installed, const fs::path& target)
{
  std::error_code failure;
  fs::create_directories(target, failure);
  if (fs::is_directory(installed, failure))
    fs::copy(installed, target, fs::copy_options::recursive | fs::copy_options::update_existing, failure);
}

} // namespace

void Program::readLanguage()
{
  const std::string code = base::upper(paths::LeseIni("Language", "Lang", files.iniFile()));
  language.setSprache(code == "ENG" ? "ENG" : "GER");
}

void Program::startLanguage()
{
  readLanguage();
  language.Sprachstart();
}

std::string findProgramDirectory(std::string_view named)
{
  if (!named.empty())
    return withoutClosingSeparator(files::systemPath(fs::path(named)));
  const fs::path beside = executableDirectory();
  if (canServeAsProgramDirectory(beside))
    return files::systemPath(beside);
  const std::string userDirectory = files::userDataDirectory();
  fillFromInstallation(beside.parent_path() / "share" / "mirandel", files::nativePath(userDirectory));
  return userDirectory;
}

} // namespace mrd::mainform
