#include "base/format.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/session.h"
#include "frame/settings/settings.h"
#include "frame/settings/stored_settings.h"
#include "mainform/project_frame.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace mrd::cli {
namespace {

constexpr int kMessageSettingMissing = 108;

void listSettings(dao::Database& db, bool json)
{
  std::vector<std::pair<std::string, dao::Value>> fields;
  for (const auto& [key, value] : settings::StoredSettings(db).rows())
    if (json)
      fields.emplace_back(key, value);
    else
      printLine(base::format("{}={}", key, value));
  if (json)
    printLine(jsonObject(fields));
}

bool isAssignment(const std::string& argument)
{
  const auto equals = argument.find('=');
  return equals != std::string::npos && equals > 0;
}

/// One argument: a key to show, or key=value to set.
ExitStatus workOn(const std::string& argument, mainform::ProjectFrame& mainform, bool json)
{
  if (isAssignment(argument)) {
    const auto equals = argument.find('=');
    settings::StoredSettings(mainform.db()).set(argument.substr(0, equals), argument.substr(equals + 1));
    return ExitStatus::Done;
  }
  const auto value = settings::settingValue(mainform.db(), argument);
  if (!value) {
    mainform.program().language.GetMsg(kMessageSettingMissing, argument, "R");
    return ExitStatus::Failed;
  }
  printLine(json ? jsonText(*value) : *value);
  return ExitStatus::Done;
}

} // namespace

void addSettings(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("settings", "Lists, shows and sets the settings of a project");
  const auto file = std::make_shared<std::string>();
  const auto arguments = std::make_shared<std::vector<std::string>>();
  command->add_option("FILE", *file)->required();
  command->add_option("KEY", *arguments, "KEY to show, KEY=VALUE to set");
  command->callback([&session, file, arguments] {
    session.run([&] {
      mainform::ProjectFrame mainform(session.program());
      const bool isForReading = std::ranges::none_of(*arguments, isAssignment);
      if (!mainform.openProject(Session::path(*file), isForReading ? mainform::Purpose::Reading : mainform::Purpose::Working))
        return ExitStatus::Failed;
      if (arguments->empty())
        listSettings(mainform.db(), session.json);
      for (const auto& argument : *arguments)
        if (workOn(argument, mainform, session.json) == ExitStatus::Failed)
          return ExitStatus::Failed;
      return ExitStatus::Done;
    });
  });
}

} // namespace mrd::cli
