#include "base/format.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/session.h"
#include "frame/paths/paths.h"
#include "frame/project/backups.h"
#include "mainform/project_frame.h"
#include "platform/files/path.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace mrd::cli {
namespace {

constexpr int kMessageNoFile = 109, kMessageNoBackups = 163;

ExitStatus listBackups(Session& session, const std::string& path)
{
  const auto backups = project::Backups(path).list();
  auto& language = session.program().language;
  if (backups.empty() && !paths::datei_vorhanden(path)) {
    language.GetMsg(kMessageNoFile, files::nativePath(path).string(), "R");
    return ExitStatus::Failed;
  }
  std::vector<std::string> elements;
  for (const auto& backup : backups) {
    const auto pages = project::Backups::pagesOf(backup);
    const auto shown = pages ? dao::Value(static_cast<std::int64_t>(*pages)) : dao::Value();
    const auto size = static_cast<std::int64_t>(backup.size);
    if (session.json)
      elements.push_back(jsonObject({{"date", backup.name}, {"pages", shown}, {"size", size}}));
    else
      printLine(base::format("{}\t{}\t{}", backup.name, pages ? shown.text() : "?", size));
  }
  if (session.json)
    printLine(jsonArray(elements));
  else if (backups.empty())
    language.GetMsg(kMessageNoBackups);
  return ExitStatus::Done;
}

/// Prints the name of the backup that leads back again.
ExitStatus restore(Session& session, const std::string& path, const std::string& name)
{
  const auto kept = mainform::ProjectFrame(session.program()).restore(path, name);
  if (!kept)
    return ExitStatus::Failed;
  if (session.json)
    printLine(jsonObject({{"kept", kept->empty() ? dao::Value() : dao::Value(*kept)}}));
  else if (!kept->empty())
    printLine(*kept);
  return ExitStatus::Done;
}

} // namespace

void addRestore(CLI::App& app, Session& session)
{
  auto* const command =
      app.add_subcommand("restore", "Lists the backups of a project, date TAB pages TAB bytes, or puts one in its "
                                    "place and prints under which date the present state is kept");
  const auto file = std::make_shared<std::string>(), date = std::make_shared<std::string>();
  command->add_option("FILE", *file)->required();
  command->add_option("DATE", *date, "The backup to restore, as it is listed");
  command->callback([&session, file, date] {
    session.run([&] {
      const auto path = Session::path(*file);
      return date->empty() ? listBackups(session, path) : restore(session, path, *date);
    });
  });
}

} // namespace mrd::cli
