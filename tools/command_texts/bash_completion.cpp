#include "base/format.h"
#include "tools/command_texts/writers.h"

namespace mrd::command_texts {
namespace {

/// The walk over the words is the same for every command line; what is known of the commands stands in four functions that are
/// generated in front of it.
constexpr std::string_view kWalk = R"sh(
_mrd_offer()
{
  case $1 in
  file) compopt -o filenames 2> /dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$2") ;;
  directory) compopt -o filenames 2> /dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$2") ;;
  words:*) mapfile -t COMPREPLY < <(compgen -W "${1#words:}" -- "$2") ;;
  esac
}

_mrd()
{
  local current=${COMP_WORDS[COMP_CWORD]} command= arguments=0 index word value
  COMPREPLY=()
  for ((index = 1; index < COMP_CWORD; ++index)); do
    word=${COMP_WORDS[index]}
    value=$(_mrd_value "$command" "$word")
    if [[ -n $value ]]; then
      if ((++index == COMP_CWORD)); then
        _mrd_offer "$value" "$current"
        return
      fi
    elif [[ " $(_mrd_commands "$command") " == *" $word "* ]]; then
      command+=${command:+ }$word
    elif [[ $word != -* ]]; then
      ((++arguments))
    fi
  done
  if [[ $current == -* ]]; then
    _mrd_offer "words:$(_mrd_options "$command")" "$current"
    return
  fi
  value=$(_mrd_commands "$command")
  if [[ -n $value ]]; then
    _mrd_offer "words:$value" "$current"
  else
    _mrd_offer "$(_mrd_argument "$command" "$arguments")" "$current"
  fi
}

complete -F _mrd mrd
)sh";

std::string offer(const Parameter& parameter)
{
  switch (parameter.kind) {
  case ValueKind::None:
    return "";
  case ValueKind::Text:
    return "text";
  case ValueKind::File:
    return "file";
  case ValueKind::Directory:
    return "directory";
  case ValueKind::Choice:
    return "words:" + joined(parameter.choices, " ");
  }
  return "";
}

std::string caseLine(const std::string& pattern, const std::string& words)
{
  return words.empty() ? "" : base::format("  {}) echo '{}' ;;\n", pattern, words);
}

std::string function(std::string_view name, std::string_view comment, std::string_view subject, const std::string& lines)
{
  return base::format("\n# {}\n{}()\n{{\n  case {} in\n{}  esac\n}}\n", comment, name, subject, lines);
}

std::string commandLines(const std::vector<Command>& table)
{
  std::string lines;
  for (const auto& command : table)
    lines += caseLine("'" + command.path + "'", joined(command.commands, " "));
  return lines;
}

std::string names(const Command& command)
{
  std::string words;
  for (const auto& option : command.options)
    words += (words.empty() ? "" : " ") + joined(option.names, " ");
  return words;
}

/// The program's own options can stand anywhere.
std::string optionLines(const std::vector<Command>& table)
{
  std::string lines;
  for (const auto& command : table)
    if (!command.path.empty() && !command.options.empty())
      lines += caseLine("'" + command.path + "'", names(command) + " " + names(table.front()));
  return lines + caseLine("*", names(table.front()));
}

std::string valueLines(const std::vector<Command>& table)
{
  std::string lines;
  for (const auto& command : table)
    for (const auto& option : command.options)
      for (const auto& name : option.names)
        lines += caseLine(command.path.empty() ? "*' " + name + "'" : "'" + command.path + " " + name + "'", offer(option));
  return lines;
}

std::string argumentLines(const std::vector<Command>& table)
{
  std::string lines;
  for (const auto& command : table) {
    std::size_t place = 0;
    for (const auto& argument : command.arguments) {
      const std::string pattern = base::format("'{} {}'", command.path, place++);
      lines += caseLine(argument.isRepeated ? base::format("'{} '*", command.path) : pattern, offer(argument));
    }
  }
  return lines;
}

} // namespace

std::string bashCompletion(const std::vector<Command>& table)
{
  return "# Completion of mrd for bash. Generated from the program's own command line.\n" +
         function("_mrd_commands", "Commands below a command.", "$1", commandLines(table)) +
         function("_mrd_options", "Options of a command.", "$1", optionLines(table)) +
         function("_mrd_value", "What follows an option of a command; nothing for one without value.", "\"$1 $2\"",
                  valueLines(table)) +
         function("_mrd_argument", "What stands at a place behind a command, counted from 0.", "\"$1 $2\"",
                  argumentLines(table)) +
         std::string(kWalk);
}

} // namespace mrd::command_texts
