#include "platform/ftp/user_key.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace mrd::ftp {

std::string usersKey()
{
  const char* const home = std::getenv("HOME");
  for (const std::string_view name : {"id_ed25519", "id_ecdsa", "id_rsa"}) {
    const auto file = std::filesystem::path(home == nullptr ? "" : home) / ".ssh" / name;
    std::error_code error;
    if (std::filesystem::is_regular_file(file, error))
      return file.string();
  }
  return "";
}

} // namespace mrd::ftp
