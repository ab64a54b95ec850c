#include "frame/settings/export_path.h"

#include "base/text.h"
#include "platform/files/files.h"

#include <array>

namespace mrd::settings {
namespace {

/// Files that a site needs and that the program brings, by their place in the export directory.
constexpr std::array<std::string_view, 2> kStandingFiles{"mrdnav.js", "pix\\mrdbanner.gif"};
constexpr std::string_view kHelpDirectory = "\\hilfe\\";

void copyStandingFile(std::string_view name, std::string_view exportPath, const paths::ProgramFiles& program)
{
  const auto target = std::string(exportPath).append(name);
  const auto source = program.file(kHelpDirectory).append(name);
  if (!paths::datei_vorhanden(target) && paths::datei_vorhanden(source))
    files::copyFile(source, target);
}

/// A blank text names no directory: with its separator it would be the root of all.
bool namesDirectory(std::string_view text)
{
  return !base::trim(text).empty() && files::directoryExists(withClosingSeparator(text));
}

} // namespace

std::string withClosingSeparator(std::string_view directory)
{
  // A native path that was typed or written by a script means the same directory.
  auto path = base::replaceAll(base::trim(directory), "/", "\\");
  if (!path.ends_with('\\'))
    path += '\\';
  return path;
}

void makePictureDirectory(std::string_view exportPath)
{
  // A blank field with its separator is the root of all: no site lies there.
  if (exportPath != "\\")
    files::makeDirectory(std::string(exportPath) + "pix\\");
}

void makeExportTree(std::string_view exportPath, const paths::ProgramFiles& program)
{
  makePictureDirectory(exportPath);
  for (const auto name : kStandingFiles)
    copyStandingFile(name, exportPath, program);
}

std::string tbpfadexport_LostFocus(std::string_view text, const paths::ProgramFiles& program)
{
  if (auto path = existingExportPath(text, program))
    return *path;
  const auto ownPath = program.file("\\exportpfad\\");
  if (!files::directoryExists(ownPath))
    files::makeDirectory(ownPath);
  makeExportTree(ownPath, program);
  return ownPath;
}

std::optional<std::string> existingExportPath(std::string_view text, const paths::ProgramFiles& program)
{
  if (!namesDirectory(text))
    return std::nullopt;
  auto path = withClosingSeparator(text);
  makeExportTree(path, program);
  return path;
}

} // namespace mrd::settings
