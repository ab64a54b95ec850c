#include "mainform/old_projects.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/project/jet_conversion.h"
#include "frame/settings/export_path.h"
#include "frame/settings/stored_settings.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <algorithm>
#include <vector>

namespace mrd::mainform {
namespace {

constexpr int kMessageConverted = 105, kMessageNotConverted = 106, kMessageInUse = 107, kMessageNotTakenOver = 110,
              kMessageNotFound = 111, kMessageLeftOut = 112;
constexpr std::string_view kExportPath = "Exportpfad";
constexpr std::string_view kAskExportPath = "Exportverzeichnis des Projekts auf diesem Rechner";
constexpr std::string_view kAskPictures = "Ordner mit den Bildern des Projekts";
/// What a message box can show.
constexpr std::size_t kLinesOfBox = 25;

std::string nativeText(std::string_view path) { return files::nativePath(path).string(); }

std::string asList(const std::vector<std::string>& lines, std::size_t most)
{
  std::string out;
  for (std::size_t i = 0; i < std::min(lines.size(), most); ++i)
    out.append(lines[i]).append(base::kCrLf);
  if (lines.size() > most)
    out += base::format("... (+ {})", lines.size() - most);
  return out;
}

} // namespace

bool OldProjects::convertInPlace(std::string_view path)
{
  const ui::WaitPointer wait(program_.ui);
  try {
    const auto done = project::convertInPlace(path, program_.jetReading);
    if (!done)
      return true;
    program_.language.GetMsg(kMessageConverted, nativeText(done->oldFile), "R");
    tellLeftOut(done->leftOut);
    return true;
  } catch (const base::Error& error) {
    return tellFailure(path, error);
  }
}

bool OldProjects::convertTo(std::string_view jetFile, std::string_view target)
{
  const ui::WaitPointer wait(program_.ui);
  try {
    tellLeftOut(project::convertTo(jetFile, target, program_.jetReading).leftOut);
    return true;
  } catch (const base::Error& error) {
    return tellFailure(jetFile, error);
  }
}

bool OldProjects::tellFailure(std::string_view path, const base::Error& error)
{
  if (error.kind() == base::ErrorNumber::AccessDenied)
    throw;
  program_.ui.hideSplash();
  if (error.kind() == base::ErrorNumber::DatabaseLocked)
    program_.language.GetMsg(kMessageInUse);
  else
    program_.language.GetMsg(kMessageNotConverted, base::format("{}\r\n{}", nativeText(path), error.description()), "R");
  return false;
}

void OldProjects::tellLeftOut(const std::vector<std::string>& leftOut)
{
  if (!leftOut.empty())
    program_.language.GetMsg(kMessageLeftOut, asList(leftOut, kLinesOfBox), "R");
}

std::string OldProjects::useExportPath(dao::Database& db, const std::optional<std::string>& directory)
{
  settings::StoredSettings stored(db);
  if (directory)
    stored.set(kExportPath, settings::withClosingSeparator(*directory));
  return settings::tbpfadexport_LostFocus(stored.value(kExportPath).value_or(""), program_.files);
}

void OldProjects::askForPictures(dao::Database& db)
{
  ui::Ui& ui = program_.ui;
  const auto stored = base::trim(settings::StoredSettings(db).value(kExportPath).value_or(""));
  std::optional<std::string> directory;
  if (stored.empty() || !files::directoryExists(settings::withClosingSeparator(stored)))
    directory = ui.folderDialog(kAskExportPath);
  const auto exportPath = useExportPath(db, directory);
  std::optional<std::string> folder;
  if (pictures::needPictureFolder(db, exportPath))
    folder = ui.folderDialog(kAskPictures);
  turnReferences(db, exportPath, folder ? pictures::PictureFolder(*folder) : pictures::PictureFolder(), kLinesOfBox);
}

pictures::TurnedReferences OldProjects::turnReferences(dao::Database& db, std::string_view exportPath,
                                                       const pictures::PictureFolder& folder, std::size_t mostLines)
{
  const ui::WaitPointer wait(program_.ui);
  auto turned = pictures::turnOldReferences(db, exportPath, folder);
  if (!turned.failed.empty())
    program_.language.GetMsg(kMessageNotTakenOver, asList(turned.failed, mostLines), "R");
  std::vector<std::string> lines;
  for (const auto& [place, reference] : turned.missing)
    lines.push_back(base::format("{}: {}", place, reference));
  if (!lines.empty())
    program_.language.GetMsg(kMessageNotFound, asList(lines, mostLines), "R");
  return turned;
}

} // namespace mrd::mainform
