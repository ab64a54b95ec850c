#include "tools/command_texts/command_table.h"

#include "cli/command_line.h"
#include "cli/session.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace mrd::command_texts {
namespace {

constexpr std::array<std::string_view, 5> kFiles{"FILE", "JETFILE", "PICTURE", "IN", "OUT"};
constexpr std::string_view kDirectory = "DIR", kRange = " in [";

ValueKind kindOf(const Parameter& parameter)
{
  if (parameter.value.empty())
    return ValueKind::None;
  if (!parameter.choices.empty())
    return ValueKind::Choice;
  if (parameter.value == kDirectory)
    return ValueKind::Directory;
  return std::ranges::find(kFiles, parameter.value) == kFiles.end() ? ValueKind::Text : ValueKind::File;
}

/// What a check says of itself: "{GER,ENG}", "INT in [1 - 4]".
void takeCheck(Parameter& parameter, const std::string& check)
{
  const auto range = check.find(kRange);
  if (check.starts_with('{') && check.ends_with('}')) {
    const auto choices = CLI::detail::split(check.substr(1, check.size() - 2), ',');
    parameter.choices.assign(choices.begin(), choices.end());
  } else if (range != std::string::npos) {
    parameter.range = check.substr(range + kRange.size(), check.size() - range - kRange.size() - 1);
  }
}

Parameter parameterOf(const CLI::Option& option)
{
  Parameter parameter;
  for (const auto& name : option.get_snames())
    parameter.names.push_back("-" + name);
  for (const auto& name : option.get_lnames())
    parameter.names.push_back("--" + name);
  const std::string type = option.get_type_name();
  const auto colon = type.find(':');
  if (option.get_items_expected_max() > 0) {
    parameter.value = parameter.names.empty() ? option.get_name(true) : type.substr(0, colon);
    if (colon != std::string::npos)
      takeCheck(parameter, type.substr(colon + 1));
  }
  parameter.kind = kindOf(parameter);
  parameter.description = option.get_description();
  for (const auto* const other : option.get_excludes())
    parameter.excludes.push_back("--" + other->get_lnames().front());
  std::ranges::sort(parameter.excludes);
  parameter.isRequired = option.get_required();
  parameter.isRepeated = option.get_items_expected_max() > 1;
  return parameter;
}

/// Options stand in the command itself and in groups without a name.
void takeParameters(Command& command, CLI::App& app)
{
  for (const auto* const option : app.get_options()) {
    if (option == app.get_help_ptr() && app.get_parent())
      continue;
    auto parameter = parameterOf(*option);
    parameter.isOneOfGroup = app.get_name().empty() && app.get_parent() && app.get_require_option_min() == 1;
    (parameter.names.empty() ? command.arguments : command.options).push_back(parameter);
  }
  for (auto* const group : app.get_subcommands([](CLI::App* below) { return below->get_name().empty(); }))
    takeParameters(command, *group);
}

void addCommands(std::vector<Command>& table, CLI::App& app, const std::string& path)
{
  Command command{path, app.get_description(), {}, {}, {}};
  takeParameters(command, app);
  const auto members = app.get_subcommands([](CLI::App* below) { return !below->get_name().empty(); });
  for (const auto* const member : members)
    command.commands.push_back(member->get_name());
  table.push_back(command);
  for (auto* const member : members)
    addCommands(table, *member, below(command, member->get_name()));
}

} // namespace

std::vector<Command> commandTable()
{
  cli::Session session;
  CLI::App app;
  cli::addCommandLine(app, session);
  std::vector<Command> table;
  addCommands(table, app, "");
  return table;
}

const Command& commandAt(const std::vector<Command>& table, const std::string& path)
{
  return *std::ranges::find(table, path, &Command::path);
}

std::string below(const Command& command, const std::string& name)
{
  return command.path.empty() ? name : command.path + " " + name;
}

} // namespace mrd::command_texts
