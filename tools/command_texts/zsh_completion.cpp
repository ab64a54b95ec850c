#include "base/format.h"
#include "tools/command_texts/writers.h"

namespace mrd::command_texts {
namespace {

std::string quoted(std::string_view text) { return "'" + replaced(std::string(text), "'", "'\\''") + "'"; }

/// Colons and brackets have a meaning in the descriptions.
std::string plain(std::string_view text)
{
  std::string out(text);
  for (const std::string_view sign : {"\\", ":", "[", "]"})
    out = replaced(out, sign, "\\" + std::string(sign));
  return out;
}

std::string action(const Parameter& parameter)
{
  switch (parameter.kind) {
  case ValueKind::File:
    return "_files";
  case ValueKind::Directory:
    return "_files -/";
  case ValueKind::Choice:
    return "(" + joined(parameter.choices, " ") + ")";
  default:
    return " ";
  }
}

std::string value(const Parameter& parameter)
{
  return parameter.value.empty() ? "" : base::format(":{}:{}", plain(parameter.value), action(parameter));
}

std::string optionLines(const Command& command)
{
  std::string lines;
  for (const auto& option : command.options)
    for (const auto& name : option.names)
      lines += base::format("    {} \\\n", quoted(base::format("{}[{}]{}", name, plain(option.description), value(option))));
  return lines;
}

std::string functionName(const Command& command)
{
  return "_mrd" + (command.path.empty() ? "" : "_" + replaced(command.path, " ", "_"));
}

/// A command with others below it: their names, and on to the function of the one that is typed.
std::string groupBody(const std::vector<Command>& table, const Command& group)
{
  std::string names;
  for (const auto& name : group.commands)
    names += "    " + quoted(name + ":" + plain(commandAt(table, below(group, name)).description)) + "\n";
  return base::format("  local curcontext=$curcontext state line\n  local -a commands=(\n{}  )\n"
                      "  _arguments -C \\\n{}    '1:command:->command' '*::argument:->argument'\n"
                      "  case $state in\n"
                      "  command) _describe -t commands command commands ;;\n"
                      "  argument) (( $+functions[{}_$line[1]] )) && {}_$line[1] ;;\n"
                      "  esac\n",
                      names, optionLines(group), functionName(group), functionName(group));
}

std::string commandBody(const Command& command, const Command& program)
{
  std::string lines = "  _arguments \\\n" + optionLines(command);
  lines += optionLines(program);
  for (const auto& argument : command.arguments)
    lines += base::format("    {} \\\n", quoted((argument.isRepeated ? "*" : argument.isRequired ? "" : ":") + value(argument)));
  return lines + "    && return 0\n";
}

} // namespace

std::string zshCompletion(const std::vector<Command>& table)
{
  std::string text = "#compdef mrd\n# Completion of mrd for zsh. Generated from the program's own command line.\n";
  for (const auto& command : table)
    text += base::format("\n{}()\n{{\n{}}}\n", functionName(command),
                         command.commands.empty() ? commandBody(command, table.front()) : groupBody(table, command));
  return text + "\n_mrd \"$@\"\n";
}

} // namespace mrd::command_texts
