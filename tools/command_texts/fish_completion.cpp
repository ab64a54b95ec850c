#include "base/format.h"
#include "tools/command_texts/writers.h"

namespace mrd::command_texts {
namespace {

constexpr std::string_view kSeen = "__fish_seen_subcommand_from ";

std::string quoted(std::string_view text) { return "'" + replaced(replaced(std::string(text), "\\", "\\\\"), "'", "\\'") + "'"; }

/// The condition that the command has been typed, each of its words.
std::string isTyped(const Command& command)
{
  return std::string(kSeen) + replaced(command.path, " ", "; and " + std::string(kSeen));
}

/// The condition that a member of the group comes next.
std::string isNext(const Command& group)
{
  const std::string none = "not " + std::string(kSeen) + joined(group.commands, " ");
  return group.path.empty() ? none : isTyped(group) + "; and " + none;
}

std::string optionWords(const Parameter& option)
{
  std::string words;
  for (const auto& name : option.names)
    words += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  switch (option.kind) {
  case ValueKind::None:
    break;
  case ValueKind::Text:
    words += " -x";
    break;
  case ValueKind::File:
    words += " -r -F";
    break;
  case ValueKind::Directory:
    words += " -x -a '(__fish_complete_directories)'";
    break;
  case ValueKind::Choice:
    words += " -x -a " + quoted(joined(option.choices, " "));
    break;
  }
  return words + " -d " + quoted(option.description);
}

bool takesFiles(const Command& command)
{
  for (const auto& argument : command.arguments)
    if (argument.kind == ValueKind::File)
      return true;
  return false;
}

} // namespace

std::string fishCompletion(const std::vector<Command>& table)
{
  std::string text = "# Completion of mrd for fish. Generated from the program's own command line.\n\ncomplete -c mrd -f\n";
  for (const auto& option : table.front().options)
    text += "complete -c mrd" + optionWords(option) + "\n";
  for (const auto& command : table) {
    for (const auto& name : command.commands)
      text += base::format("complete -c mrd -n {} -a {} -d {}\n", quoted(isNext(command)), name,
                           quoted(commandAt(table, below(command, name)).description));
    if (command.path.empty())
      continue;
    for (const auto& option : command.options)
      text += base::format("complete -c mrd -n {}{}\n", quoted(isTyped(command)), optionWords(option));
    if (takesFiles(command))
      text += base::format("complete -c mrd -n {} -F\n", quoted(isTyped(command)));
  }
  return text;
}

} // namespace mrd::command_texts
