#pragma once
// A program directory with the languages of the real one, and a user by script in front of it.

#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

namespace mrd::support {

/// Language start done, in German. Messages appear in `ui` with their numbers and buttons.
struct TestProgram {
  TestProgram();

  TemporaryDirectory directory;
  paths::ProgramFiles files;
  ScriptedUi ui;
  messages::Language language;
};

/// Makes a language database from the texts of the real one.
void makeLanguageDatabase(std::string_view path);

} // namespace mrd::support
