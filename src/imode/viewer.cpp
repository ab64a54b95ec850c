#include "imode/viewer.h"

#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/files.h"

namespace mrd::imode {
namespace {

/// Signs that would end the script's text, or that mean something else in an address.
constexpr std::string_view kSigns = "\"%#?";

bool standsInFiles(std::string_view character)
{
  const std::string bytes = base::toWindows1252(character);
  return bytes.size() == 1 && static_cast<unsigned char>(bytes.front()) >= ' ';
}

/// The path as an address in the script's text: a character that cannot stand there is escaped by its bytes.
std::string addressOf(std::string_view path)
{
  std::string address;
  for (std::size_t at = 0; at < path.size();) {
    const std::string_view character = base::left(path.substr(at), 1);
    if (standsInFiles(character) && !base::contains(kSigns, character))
      address += character;
    else
      for (const char byte : character)
        address += base::format("%{:02X}", static_cast<unsigned char>(byte));
    at += character.size();
  }
  return base::replaceAll(address, "\\", "/");
}

} // namespace

std::string viewerScript(std::string_view exportpfad, std::string_view startdatei)
{
  const std::string address = addressOf(std::string(exportpfad) + "imode\\" + std::string(startdatei));
  return base::format("document.getElementById(\"display\" ).src = \"{}\"; \r\n", address);
}

std::string pointViewerAt(const paths::ProgramFiles& program, std::string_view exportpfad, std::string_view startdatei)
{
  files::OutputFile script(program.file("\\imode\\viewer.js"));
  script.write(base::toWindows1252(viewerScript(exportpfad, startdatei)));
  script.close();
  return program.file("\\imode\\viewer.html");
}

} // namespace mrd::imode
