#include "platform/files/installation.h"

#include <system_error>

namespace mrd::files {

namespace fs = std::filesystem;

fs::path executableDirectory()
{
  std::error_code failure;
  return fs::read_symlink("/proc/self/exe", failure).parent_path();
}

fs::path helperProgram(std::string_view name)
{
  const fs::path directory = executableDirectory();
  std::error_code failure;
  return fs::exists(directory / name, failure) ? directory / name : (directory / MRD_HELPERS / name).lexically_normal();
}

fs::path installedResources() { return (executableDirectory() / MRD_RESOURCES).lexically_normal(); }

} // namespace mrd::files
