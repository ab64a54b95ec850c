#pragma once
// A main window without a screen over a program directory of its own, with what opening a project asked of it written down.

#include "mainform/project_frame.h"
#include "support/test_program.h"

#include <filesystem>
#include <string>
#include <vector>

namespace mrd::mainform {

/// A program directory as it was built, and its user.
struct Surroundings {
  Surroundings()
  {
    support::makeLanguageDatabase(directory.file("language.mdb"));
    std::filesystem::copy_file(std::filesystem::path(MRD_PROGRAM_DIR) / "mrdleer.mdb", directory.native() / "mrdleer.mdb");
  }

  std::string iniValue(std::string_view section, std::string_view key) const
  {
    return paths::LeseIni(section, key, files().iniFile());
  }
  paths::ProgramFiles files() const { return paths::ProgramFiles(directory.path()); }

  support::TemporaryDirectory directory;
  support::ScriptedUi ui;
  base::SystemClock clock;
};

struct OpenWindow : Surroundings {
  OpenWindow() { program.startLanguage(); }

  ProjectHooks hooks()
  {
    return {[this] {
              calls.emplace_back("ZeigeStruktur");
              schemaVersion = storedVersion();
              if (failure)
                throw base::Error(*failure);
            },
            [this] { calls.emplace_back("LoadPage"); },
            [this] { calls.emplace_back("opseitentyp_Click"); },
            [this] { calls.emplace_back("Unload"); },
            [this] { calls.emplace_back("emptyEditor"); },
            [this] { calls.emplace_back("farbenaktualisieren"); }};
  }

  std::string storedVersion()
  {
    return window.db().openRecordset("SELECT Wert FROM Einstellungen WHERE Einstellung = 'dbVersion'").value("Wert").text();
  }

  /// The routine under test; true when access was denied.
  bool open(std::string_view path)
  {
    bool Abgebrochen = false;
    window.DialogOpenChangeNewDB(path, Abgebrochen);
    return Abgebrochen;
  }

  std::vector<std::string> calls;
  /// Version of the schema when the tree was filled.
  std::string schemaVersion;
  /// What filling the tree fails with.
  std::optional<base::Error> failure;
  Program program{files(), clock, ui};
  ProjectFrame window{program, hooks()};
};

} // namespace mrd::mainform
