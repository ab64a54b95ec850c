#include "mainform/pasted_picture.h"

#include "base/errors.h"
#include "base/format.h"
#include "frame/settings/export_path.h"
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

/// The bytes as a file, as long as the picture is on its way.
class FileOnTheWay {
public:
  FileOnTheWay(std::string name, std::string_view bytes) : path(std::move(name)) { files::writeFileAtomically(path, bytes); }
  ~FileOnTheWay()
  {
    try {
      files::removeFile(path);
    } catch (const base::Error&) {
      // A file that is left over is in nobody's way, and the next picture replaces it.
    }
  }
  FileOnTheWay(const FileOnTheWay&) = delete;
  FileOnTheWay& operator=(const FileOnTheWay&) = delete;

  const std::string path;
};

/// The first name of which no form is taken in `pix`.
std::string freeName(const pictures::ConversionOptions& options, const pictures::PictureTarget& target, std::string_view key,
                     std::string_view extension)
{
  for (int number = 1;; ++number) {
    const std::string name = base::format("bild_{}.{}", number, extension);
    const auto names = pictures::possibleNames(options, {target.pix, name, target.pix + name}, key);
    if (std::ranges::none_of(names, [&](const auto& one) { return files::fileExists(target.pix + one); }))
      return name;
  }
}

} // namespace

std::optional<std::string> storePastedPicture(const pictures::ConversionOptions& options, const settings::Fields& fields,
                                              std::string_view key, std::string_view bytes, std::string_view mimeType)
{
  const pictures::PictureTarget target(fields);
  const auto kind = std::ranges::find(kKinds, mimeType, &PictureKind::mimeType);
  if (kind == kKinds.end() || bytes.empty() || !files::directoryExists(target.exportPath))
    return std::nullopt;
  settings::makePictureDirectory(target.exportPath);
  const FileOnTheWay file(base::format("{}~eingefuegt.{}", target.pix, kind->extension), bytes);
  const auto picture = pictures::konvertiere_und_kopiere_bild(
      options, target, {target.pix, freeName(options, target, key, kind->extension), file.path}, key);
  if (picture.failure)
    return std::nullopt;
  return base::format("file://{}pix/{}", target.exportPath, picture.dateiname);
}

} // namespace mrd::mainform
