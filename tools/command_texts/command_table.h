#pragma once
// The commands of `mrd` as a table, read from the parser that the program itself uses.

#include <string>
#include <vector>

namespace mrd::command_texts {

/// What a shell can offer in the place of a value.
enum class ValueKind { None, Text, File, Directory, Choice };

/// An option, or an argument without a name.
struct Parameter {
  /// "-h", "--help"; empty for an argument.
  std::vector<std::string> names;
  /// "DIR"; empty for an option without value.
  std::string value;
  ValueKind kind = ValueKind::None;
  std::vector<std::string> choices;
  /// "5 - 100", empty where any value will do.
  std::string range;
  std::string description;
  /// Names of the options that cannot be given beside this one, sorted.
  std::vector<std::string> excludes;
  bool isRequired = false, isRepeated = false;
  /// One of several of which one is required.
  bool isOneOfGroup = false;
};

struct Command {
  /// "page add"; empty for the program itself.
  std::string path;
  std::string description;
  /// Names of the commands below.
  std::vector<std::string> commands;
  /// Without the option for help, which only the program itself names; every command has it.
  std::vector<Parameter> options, arguments;

  /// "add" of "page add".
  std::string name() const { return path.substr(path.rfind(' ') + 1); }
};

/// The program first, then each command in the order in which help lists them, a group before its members.
std::vector<Command> commandTable();

/// The command with this path.
const Command& commandAt(const std::vector<Command>& table, const std::string& path);

/// The path of a command below another one.
std::string below(const Command& command, const std::string& name);

} // namespace mrd::command_texts
