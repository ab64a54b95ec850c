#include "cli/commands.h"
#include "cli/session.h"
#include "mainform/old_projects.h"
#include "mainform/project_frame.h"
#include "platform/files/files.h"

#include <CLI/CLI.hpp>

#include <limits>
#include <memory>
#include <optional>
#include <string>

namespace mrd::cli {
namespace {

constexpr int kMessageNoExportDirectory = 37, kMessageNoDirectory = 113;

struct ImportArguments {
  std::string jetFile;
  std::optional<std::string> file, exportDirectory, pictures;
};

std::optional<std::string> path(const std::optional<std::string>& native)
{
  return native ? std::optional(Session::path(*native)) : std::nullopt;
}

/// Told before anything is done.
bool areDirectoriesThere(Session& session, const ImportArguments& arguments)
{
  auto& language = session.program().language;
  if (arguments.exportDirectory && !files::directoryExists(Session::path(*arguments.exportDirectory))) {
    language.GetMsg(kMessageNoExportDirectory);
    return false;
  }
  if (arguments.pictures && !files::directoryExists(Session::path(*arguments.pictures))) {
    language.GetMsg(kMessageNoDirectory, *arguments.pictures, "R");
    return false;
  }
  return true;
}

/// Without either option the project is what the old file was, to the letter.
void turnReferences(mainform::ProjectFrame& mainform, const ImportArguments& arguments)
{
  mainform::OldProjects old(mainform.program());
  const auto exportPath = old.useExportPath(mainform.db(), path(arguments.exportDirectory));
  const auto folder =
      arguments.pictures ? pictures::PictureFolder(Session::path(*arguments.pictures)) : pictures::PictureFolder();
  old.turnReferences(mainform.db(), exportPath, folder, std::numeric_limits<std::size_t>::max());
}

ExitStatus import(Session& session, const ImportArguments& arguments)
{
  mainform::ProjectFrame mainform(session.program());
  if (!areDirectoriesThere(session, arguments) || !mainform.importProject(Session::path(arguments.jetFile), path(arguments.file)))
    return ExitStatus::Failed;
  if (arguments.exportDirectory || arguments.pictures)
    turnReferences(mainform, arguments);
  return ExitStatus::Done;
}

} // namespace

void addImport(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("import", "Makes a project from a database of an earlier version");
  const auto arguments = std::make_shared<ImportArguments>();
  command->add_option("JETFILE", arguments->jetFile, "The old database")->required();
  command->add_option("FILE", arguments->file,
                      "The new project; without it the old database is replaced and kept as NAME.jet.mdb");
  command->add_option("--export", arguments->exportDirectory, "The project's export directory on this machine")->type_name("DIR");
  command->add_option("--pictures", arguments->pictures, "Where pictures of the old machine lie now")->type_name("DIR");
  command->callback([&session, arguments] { session.run([&] { return import(session, *arguments); }); });
}

} // namespace mrd::cli
