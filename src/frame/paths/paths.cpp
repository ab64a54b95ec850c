#include "frame/paths/paths.h"

#include "base/errors.h"
#include "base/text.h"
#include "platform/files/files.h"
#include "platform/files/ini_file.h"

namespace mrd::paths {
namespace {

/// Characters of the buffer into which values are read, the closing zero included.
constexpr std::size_t kIniBuffer = 1024;
constexpr std::size_t kLongestExtension = 4;

/// A long extension loses its end: only what stands up to its first blank is kept, nothing where there is none. The blank stays,
/// so that a listing line with trailing columns is told apart by it.
std::string_view shortenedExtension(std::string_view extension)
{
  if (base::length(extension) <= kLongestExtension)
    return extension;
  const auto blank = extension.find(' ');
  return blank == std::string_view::npos ? std::string_view{} : extension.substr(0, blank + 1);
}

} // namespace

PathParts teile_dateipfad(std::string_view pfad)
{
  PathParts parts;
  const auto stop = pfad.find_last_of(".\\");
  if (stop != std::string_view::npos && pfad[stop] == '.') {
    parts.erweiterung = shortenedExtension(pfad.substr(stop + 1));
    pfad = pfad.substr(0, stop);
  }
  const auto separator = pfad.rfind('\\');
  if (separator == std::string_view::npos) {
    parts.verzeichnis = pfad;
  } else {
    parts.verzeichnis = pfad.substr(0, separator + 1);
    parts.name = pfad.substr(separator + 1);
  }
  if (parts.name.empty())
    std::swap(parts.name, parts.verzeichnis);
  return parts;
}

bool datei_vorhanden(std::string_view pfad) { return files::fileExists(pfad); }

std::string LeseIni(std::string_view section, std::string_view key, std::string_view datei)
{
  const auto value = files::IniFile(datei).value(section, key);
  if (!value)
    return "nio";
  const auto length = base::length(*value);
  if (length == 1 || length == 2)
    return "Fehler";
  return std::string(base::left(*value, kIniBuffer - 1));
}

std::string SchreibeIni(std::string_view section, std::string_view key, std::string_view wert, std::string_view datei)
{
  try {
    files::IniFile(datei).setValue(section, key, wert);
    return "";
  } catch (const base::Error&) {
    return "Fehler"; // the callers know no other way to hear of it
  }
}

ProgramFiles::ProgramFiles(std::string directory, std::string programName)
    : directory_(std::move(directory)), programName_(std::move(programName))
{
}

std::string ProgramFiles::iniFile() const { return directory_ + "\\" + programName_ + ".INI"; }

} // namespace mrd::paths
