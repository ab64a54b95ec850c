#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

int main(int argc, char** argv)
{
  using namespace mrd::cli;
  Session session;
  CLI::App app;
  addCommandLine(app, session);
  try {
    const auto arguments = withTextAsItIs({argv, static_cast<std::size_t>(argc)});
    app.parse(static_cast<int>(arguments.size()), arguments.data());
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::WrongUsage);
  }
  return static_cast<int>(session.finish());
}
