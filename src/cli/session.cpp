#include "cli/session.h"

#include "base/errors.h"
#include "base/windows1252.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <cstdlib>
#include <iostream>

namespace mrd::cli {

mainform::Program& Session::program()
{
  if (!program_) {
    const char* const home = std::getenv("MIRANDEL_HOME");
    const std::string named = programDirectory.empty() && home != nullptr ? home : programDirectory;
    program_ = std::make_unique<mainform::Program>(paths::ProgramFiles(mainform::findProgramDirectory(named)), clock_, ui);
    program_->startLanguage();
    if (!languageCode.empty())
      program_->language.setSprache(languageCode);
  }
  return *program_;
}

void Session::run(const std::function<ExitStatus()>& command)
{
  try {
    exitStatus = command();
  } catch (const std::exception& failure) {
    ui.messageBox({failure.what(), ""});
    exitStatus = ExitStatus::Failed;
  }
}

ExitStatus Session::finish()
{
  if (!std::cout.flush()) {
    ui.messageBox({"Die Ausgabe konnte nicht geschrieben werden.", ""});
    exitStatus = ExitStatus::Failed;
  }
  return exitStatus;
}

std::string Session::path(const std::string& native) { return files::systemPath(native); }

std::string Session::textOfFile(const std::string& native) { return base::decodeText(files::readFile(path(native))); }

void printLine(std::string_view line) { std::cout << line << '\n'; }

} // namespace mrd::cli
