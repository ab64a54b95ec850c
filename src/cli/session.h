#pragma once
// What every command shares: the global options, the program and the way in which a command ends.

#include "base/clock.h"
#include "cli/console_ui.h"
#include "mainform/program.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace mrd::cli {

/// Exit status of the program.
enum class ExitStatus : int { Done = 0, Failed = 1, WrongUsage = 2 };

class Session {
public:
  /// Global options, as parsed.
  std::string programDirectory, languageCode;
  bool json = false;

  ConsoleUi ui;
  ExitStatus exitStatus = ExitStatus::Done;

  /// The program, started at the first call: its directory found, its language chosen.
  mainform::Program& program();

  /// Runs a command; a failure becomes a message on standard error and the status Failed.
  void run(const std::function<ExitStatus()>& command);

  /// Writes out what is printed; output that finds no room makes the run a failure. The status to exit with.
  ExitStatus finish();

  /// The system's path of a native one as the user typed it.
  static std::string path(const std::string& native);
  /// Text of a file that the user names, from UTF-8 or Windows-1252.
  static std::string textOfFile(const std::string& native);

private:
  base::SystemClock clock_;
  std::unique_ptr<mainform::Program> program_;
};

/// A line of results on standard output.
void printLine(std::string_view line);

} // namespace mrd::cli
