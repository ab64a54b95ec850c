#include "base/product.h"
#include "cli/commands.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

#include <string>

int main(int argc, char** argv)
{
  using namespace mrd::cli;
  Session session;
  CLI::App app("Websites from project files, without a screen.", "mrd");
  app.set_version_flag("--version", std::string(mrd::base::kProductName) + " " + std::string(mrd::base::kVersion));
  app.add_option("--program-dir", session.programDirectory, "The program directory")->type_name("DIR");
  app.add_option("--lang", session.languageCode, "Language of messages")->check(CLI::IsMember({"GER", "ENG"}));
  app.add_flag("--yes", session.ui.yes, "Answer questions with yes");
  app.add_flag("--quiet", session.ui.quiet, "No progress bar");
  app.add_flag("--json", session.json, "Machine-readable results");
  app.require_subcommand(1);
  app.fallthrough();
  for (const auto add : {addNew, addPages, addPage, addSettings, addLayouts, addPictures, addGenerate, addPublish, addImport,
                         addRestore, addPath, addIni})
    add(app, session);
  try {
    const auto arguments = withTextAsItIs({argv, static_cast<std::size_t>(argc)});
    app.parse(static_cast<int>(arguments.size()), arguments.data());
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::WrongUsage);
  }
  return static_cast<int>(session.finish());
}
