#include "cli/commands.h"
#include "cli/session.h"
#include "frame/paths/paths.h"
#include "pictures/file_names.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mrd::cli {

void addPath(CLI::App& app, Session& session)
{
  auto* const path = app.add_subcommand("path", "The two path routines, for scripts")->require_subcommand(1);
  const auto text = std::make_shared<std::string>();

  auto* const split = path->add_subcommand("split", "Directory, name and extension, a line each");
  split->add_option("TEXT", *text)->required();
  split->callback([&session, text] {
    session.run([&] {
      const auto parts = paths::teile_dateipfad(*text);
      for (const auto& piece : {parts.verzeichnis, parts.name, parts.erweiterung})
        printLine(piece);
      return ExitStatus::Done;
    });
  });

  auto* const clean = path->add_subcommand("clean", "A file name as it can stand on the web");
  clean->add_option("TEXT", *text)->required();
  clean->callback([&session, text] {
    session.run([&] {
      printLine(pictures::bereinige_dateiname(*text));
      return ExitStatus::Done;
    });
  });
}

} // namespace mrd::cli
