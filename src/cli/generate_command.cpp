#include "cli/commands.h"
#include "cli/session.h"
#include "generator/html_export.h"
#include "imode/imode.h"
#include "mainform/project_frame.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace mrd::cli {
namespace {

/// The command line opens no browser.
class NoShell : public ui::Shell {
public:
  void open(std::string_view) override {}
};

struct GenerateArguments {
  std::string file, page = "#", prefix;
  bool newOnly = false, imode = false;
  std::optional<std::string> exportDirectory;
};

/// The rules let a run go on without it; a site without a first page is seldom what its owner wants.
void warnOfMissingHomepage(mainform::ProjectFrame& mainform)
{
  if (mainform.db().openRecordset("SELECT * FROM Seite Where Seite.ID = '00' ORDER BY ID;").eof())
    mainform.program().ui.warning("In diesem Projekt fehlt die Homepage (die Seite mit der Nummer 00).");
}

struct DialogRun {
  generator::RunOutcome outcome;
  std::string closingLine;
};

DialogRun generateImode(const generator::ExportEnvironment& environment, std::string_view project)
{
  imode::ImodeExport dialog(environment);
  dialog.Form_Load(project);
  auto outcome = dialog.cbHTML_Click();
  return {std::move(outcome), dialog.labelSeite};
}

DialogRun generateSite(const generator::ExportEnvironment& environment, std::string_view project,
                       const GenerateArguments& arguments)
{
  generator::frmHTMLExport dialog(environment);
  dialog.selection = {arguments.page, arguments.newOnly};
  dialog.tbNamenszusatz = arguments.prefix;
  dialog.Form_Load(project);
  auto outcome = dialog.cbHTML_Click();
  return {std::move(outcome), dialog.labelSeite};
}

ExitStatus generate(Session& session, const GenerateArguments& arguments)
{
  mainform::ProjectFrame mainform(session.program());
  mainform.ladebenutzerlayouts();
  mainform::ExportPath exportPath;
  if (arguments.exportDirectory)
    exportPath.given = Session::path(*arguments.exportDirectory);
  if (!mainform.openProject(Session::path(arguments.file)) || !mainform.loadSettings(exportPath))
    return ExitStatus::Failed;

  warnOfMissingHomepage(mainform);
  auto& program = mainform.program();
  NoShell shell;
  const generator::ExportEnvironment environment{program.files, program.language, mainform.fields(), program.clock, shell};
  const auto [outcome, closingLine] =
      arguments.imode ? generateImode(environment, mainform.DbName()) : generateSite(environment, mainform.DbName(), arguments);
  if (outcome.finished)
    printLine(closingLine);
  return outcome.finished && outcome.refused == 0 ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace

void addGenerate(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("generate", "Writes the site of a project");
  const auto arguments = std::make_shared<GenerateArguments>();
  command->add_option("FILE", arguments->file)->required();
  auto* const newOnly =
      command->add_flag("--new-only", arguments->newOnly, "Only the homepage and what changed since the last run");
  auto* const page = command->add_option("--page", arguments->page, "One page only")->type_name("ID")->excludes(newOnly);
  command->add_option("--export", arguments->exportDirectory, "Directory in place of the project's own")->type_name("DIR");
  auto* const prefix =
      command->add_option("--prefix", arguments->prefix, "Before every file name of a template layout")->type_name("TEXT");
  command->add_flag("--imode", arguments->imode, "The edition for telephones, all pages of it")
      ->excludes(newOnly)
      ->excludes(page)
      ->excludes(prefix);
  command->callback([&session, arguments] { session.run([&] { return generate(session, *arguments); }); });
}

} // namespace mrd::cli
