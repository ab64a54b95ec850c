#include "cli/commands.h"
#include "cli/session.h"
#include "mainform/project_frame.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mrd::cli {

void addNew(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("new", "Makes a project from the empty template");
  const auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file)->required();
  command->callback([&session, file] {
    session.run([&] {
      mainform::ProjectFrame mainform(session.program());
      return mainform.createProject(Session::path(*file)) ? ExitStatus::Done : ExitStatus::Failed;
    });
  });
}

} // namespace mrd::cli
