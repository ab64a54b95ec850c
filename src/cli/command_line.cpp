#include "cli/command_line.h"

#include "base/product.h"
#include "cli/commands.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

#include <string>

namespace mrd::cli {

void addCommandLine(CLI::App& app, Session& session)
{
  app.name("mrd");
  app.description("Websites from project files, without a screen.");
  app.set_version_flag("--version", std::string(base::kProductName) + " " + std::string(base::kVersion));
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
}

} // namespace mrd::cli
