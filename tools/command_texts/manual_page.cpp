#include "base/format.h"
#include "base/product.h"
#include "tools/command_texts/writers.h"

#include <algorithm>

namespace mrd::command_texts {
namespace {

/// A text that no typesetting command is hidden in; its hyphens stay those that a user types.
std::string plain(std::string_view text)
{
  std::string out = replaced(replaced(std::string(text), "\\", "\\e"), "-", "\\-");
  return out.starts_with('.') || out.starts_with('\'') ? "\\&" + out : out;
}

std::string bold(std::string_view text) { return "\\fB" + plain(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + plain(text) + "\\fR"; }

std::string valueOf(const Parameter& parameter)
{
  if (parameter.kind != ValueKind::Choice)
    return italic(parameter.value == "INT" ? "N" : parameter.value);
  std::vector<std::string> choices;
  std::ranges::transform(parameter.choices, std::back_inserter(choices), bold);
  return joined(choices, "|");
}

std::string optionText(const Parameter& option)
{
  std::vector<std::string> names;
  std::ranges::transform(option.names, std::back_inserter(names), bold);
  return joined(names, ", ") + (option.value.empty() ? "" : " " + valueOf(option));
}

/// How the command is typed. What stands in brackets can be left out.
std::string synopsis(const Command& command)
{
  std::string text = bold("mrd " + command.path);
  for (const auto& argument : command.arguments) {
    const std::string value = valueOf(argument) + (argument.isRepeated ? "..." : "");
    text += argument.isRequired ? " " + value : " [" + value + "]";
  }
  std::vector<std::string> oneOf;
  bool isMoreAllowed = false;
  for (const auto& option : command.options) {
    if (option.isRequired)
      text += " " + optionText(option);
    else if (option.isOneOfGroup)
      oneOf.push_back(optionText(option));
    else
      isMoreAllowed = true;
  }
  if (!oneOf.empty())
    text += " (" + joined(oneOf, " | ") + ")";
  return text + (isMoreAllowed ? " [" + italic("options") + "]" : "");
}

/// Some descriptions name the limits themselves.
bool namesLimits(const Parameter& parameter)
{
  return parameter.description.find(parameter.range.substr(parameter.range.rfind(' ') + 1)) != std::string::npos;
}

std::string entry(const std::string& term, const Parameter& parameter)
{
  std::string text = ".TP\n" + term + "\n" + plain(parameter.description);
  if (!parameter.range.empty() && !namesLimits(parameter))
    text += " (" + plain(parameter.range) + ")";
  return text + (parameter.excludes.empty() ? ".\n" : ".\nNot beside " + plain(joined(parameter.excludes, ", ")) + ".\n");
}

std::string optionEntries(const Command& command)
{
  std::string text;
  for (const auto& option : command.options)
    text += entry(optionText(option), option);
  return text;
}

std::string commandEntries(const std::vector<Command>& table)
{
  std::string text;
  for (const auto& command : table) {
    if (command.path.empty() || !command.commands.empty())
      continue;
    text += ".SS " + synopsis(command) + "\n" + plain(command.description) + ".\n";
    for (const auto& argument : command.arguments)
      if (!argument.description.empty())
        text += entry(valueOf(argument), argument);
    text += optionEntries(command);
  }
  return text;
}

} // namespace

std::string manualPage(const std::vector<Command>& table, std::string_view pageTemplate)
{
  std::string text = replaced(std::string(pageTemplate), "@VERSION@", base::kVersion);
  text = replaced(text, "@OPTIONS@\n", optionEntries(table.front()));
  return replaced(text, "@COMMANDS@\n", commandEntries(table));
}

} // namespace mrd::command_texts
