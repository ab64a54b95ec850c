#include "base/format.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/session.h"
#include "mainform/project_frame.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace mrd::cli {
namespace {

void printPages(dao::Database& db, bool json)
{
  std::vector<std::string> elements;
  for (auto pages = db.openSnapshot("select id, Überschrift, [seitentyp-id] from Seite ORDER BY ID"); !pages.eof();
       pages.moveNext()) {
    const std::string id = pages.value("id").text();
    const std::string heading = pages.value("Überschrift").text();
    const dao::Value type = pages.value("seitentyp-id");
    const std::int64_t shownType = type.isNull() ? 1 : type.integer();
    if (json)
      elements.push_back(jsonObject({{"id", id}, {"type", shownType}, {"heading", heading}}));
    else
      printLine(base::format("{}\t{}\t{}", id, shownType, heading));
  }
  if (json)
    printLine(jsonArray(elements));
}

} // namespace

void addPages(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("pages", "The tree in reading order: id TAB type TAB heading");
  const auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file)->required();
  command->callback([&session, file] {
    session.run([&] {
      mainform::ProjectFrame mainform(session.program());
      if (!mainform.openProject(Session::path(*file), mainform::Purpose::Reading))
        return ExitStatus::Failed;
      printPages(mainform.db(), session.json);
      return ExitStatus::Done;
    });
  });
}

} // namespace mrd::cli
