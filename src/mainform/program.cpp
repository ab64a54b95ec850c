#include "mainform/program.h"

#include "base/text.h"
#include "frame/paths/program_directory.h"
#include "platform/files/files.h"
#include "platform/files/installation.h"
#include "platform/files/path.h"
#include "platform/files/user_settings.h"

#include <filesystem>
#include <unistd.h>

namespace mrd::mainform {
namespace {

namespace fs = std::filesystem;

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
  const fs::path beside = files::executableDirectory();
  if (canServeAsProgramDirectory(beside))
    return files::systemPath(beside);
  const std::string userDirectory = files::userDataDirectory();
  paths::fillProgramDirectory(files::installedResources(), files::nativePath(userDirectory));
  return userDirectory;
}

} // namespace mrd::mainform
