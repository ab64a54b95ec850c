#include "cli/commands.h"
#include "cli/session.h"
#include "frame/paths/paths.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mrd::cli {
namespace {

struct IniArguments {
  std::string file, section, key, value;
};

void addNames(CLI::App& command, IniArguments& arguments)
{
  command.add_option("FILE", arguments.file)->required();
  command.add_option("SECTION", arguments.section)->required();
  command.add_option("KEY", arguments.key)->required();
}

} // namespace

void addIni(CLI::App& app, Session& session)
{
  auto* const ini = app.add_subcommand("ini", "Reads and writes an INI file")->require_subcommand(1);
  const auto arguments = std::make_shared<IniArguments>();

  auto* const get = ini->add_subcommand("get", "Prints a value as the program reads it");
  addNames(*get, *arguments);
  get->callback([&session, arguments] {
    session.run([&] {
      printLine(paths::LeseIni(arguments->section, arguments->key, Session::path(arguments->file)));
      return ExitStatus::Done;
    });
  });

  auto* const set = ini->add_subcommand("set", "Writes a value");
  addNames(*set, *arguments);
  set->add_option("VALUE", arguments->value)->required();
  set->callback([&session, arguments] {
    session.run([&] {
      const std::string result =
          paths::SchreibeIni(arguments->section, arguments->key, arguments->value, Session::path(arguments->file));
      if (!result.empty())
        session.ui.messageBox({result + ": " + arguments->file, ""});
      return result.empty() ? ExitStatus::Done : ExitStatus::Failed;
    });
  });
}

} // namespace mrd::cli
