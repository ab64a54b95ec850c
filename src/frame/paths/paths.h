#pragma once
// The system's own rules about paths and its INI file.

#include <string>
#include <string_view>

namespace mrd::paths {

/// The pieces of a path: the directory with its separator, the name without extension, the extension without dot.
struct PathParts {
  std::string verzeichnis;
  std::string name;
  std::string erweiterung;
};

/// The path parser of the whole program.
PathParts teile_dateipfad(std::string_view pfad);

/// The one test for the presence of a file in the whole program; a directory is no file.
bool datei_vorhanden(std::string_view pfad);

/// "nio" for a missing key, "Fehler" for a value of one or two characters, else the value as it stands.
std::string LeseIni(std::string_view section, std::string_view key, std::string_view datei);
/// Writes one key; "" on success, "Fehler" when the file cannot be written.
std::string SchreibeIni(std::string_view section, std::string_view key, std::string_view wert, std::string_view datei);

/// Where the program finds what belongs to it.
class ProgramFiles {
public:
  /// `directory` in the system's form, without a separator at its end.
  ProgramFiles(std::string directory, std::string programName = "mirandel");

  const std::string& directory() const { return directory_; }
  /// Program directory + `name`, which begins with a backslash ("\mrdleer.mdb").
  std::string file(std::string_view name) const { return directory_ + std::string(name); }
  /// The INI file: program directory, backslash, program name, ".INI"; one file for both programs.
  std::string iniFile() const;

private:
  std::string directory_;
  std::string programName_;
};

} // namespace mrd::paths
