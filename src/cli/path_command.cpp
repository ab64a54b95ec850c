#include "cli/commands.h"
#include "cli/session.h"
#include "frame/paths/paths.h"
#include "pictures/file_names.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace mrd::cli {

std::vector<const char*> withTextAsItIs(std::span<char* const> arguments)
{
  constexpr std::array<std::string_view, 2> kHelp{"-h", "--help"};
  std::vector<const char*> out(arguments.begin(), arguments.end());
  if (out.size() < 4)
    return out;
  const auto text = out.end() - 1;
  const std::string_view group = *(text - 2), command = *(text - 1);
  const bool isPathCommand = group == "path" && (command == "split" || command == "clean");
  if (isPathCommand && **text == '-' && std::ranges::find(kHelp, *text) == kHelp.end())
    out.insert(text, "--");
  return out;
}

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
