#include "mainform/pasted_picture.h"

#include "base/format.h"
#include "platform/files/files.h"

#include <algorithm>
#include <array>

namespace mrd::mainform {
namespace {

struct PictureKind {
  std::string_view mimeType, extension;
};
/// What every browser shows.
constexpr std::array kKinds{PictureKind{"image/png", "png"}, PictureKind{"image/jpeg", "jpg"}, PictureKind{"image/gif", "gif"}};

} // namespace

std::optional<std::string> storePastedPicture(std::string_view exportPath, std::string_view id, std::string_view bytes,
                                              std::string_view mimeType)
{
  const auto kind = std::ranges::find(kKinds, mimeType, &PictureKind::mimeType);
  if (kind == kKinds.end() || bytes.empty() || !files::directoryExists(exportPath))
    return std::nullopt;
  const std::string directory = std::string(exportPath) + "pix\\";
  files::makeDirectory(directory);
  std::string name;
  for (int number = 1; name.empty() || files::fileExists(directory + name); ++number)
    name = base::format("{}_bild_{}.{}", id, number, kind->extension);
  files::writeFileAtomically(directory + name, bytes);
  return base::format("file://{}pix/{}", exportPath, name);
}

} // namespace mrd::mainform
