#pragma once

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "platform/dao/jet_file.h"
#include "platform/ui/ui.h"

#include <string>
#include <string_view>
#include <utility>

namespace mrd::mainform {

/// The empty project in the program directory: what new projects are copies of, and what tells a program directory from others.
inline constexpr std::string_view kEmptyProject = "\\mrdleer.mdb";

/// What lasts as long as the program runs: where it lives, its clock, its user and the language spoken with him.
class Program {
public:
  Program(paths::ProgramFiles programFiles, const base::Clock& programClock, ui::Ui& programUi)
      : files(std::move(programFiles)), clock(programClock), ui(programUi), language(files, ui)
  {
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Takes the language from the INI file, "GER" when it names none of the two.
  void readLanguage();
  /// The same, and opens the language database.
  void startLanguage();

  const paths::ProgramFiles files;
  const base::Clock& clock;
  ui::Ui& ui;
  messages::Language language;
  /// Reads databases of earlier versions.
  dao::JetReading jetReading = dao::installedJetReading();
};

/// The program directory, in the system's form: `named` when it is not empty; else the executable's directory if it holds the
/// empty project and can be written; else the user's data directory, filled from the installed resources.
std::string findProgramDirectory(std::string_view named);

} // namespace mrd::mainform
