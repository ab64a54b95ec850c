#pragma once
// Texts about the commands of `mrd`, each from the one table.

#include "tools/command_texts/command_table.h"

#include <string>
#include <string_view>

namespace mrd::command_texts {

/// The manual page: the text of a template whose lines `@OPTIONS@` and `@COMMANDS@` are replaced, and the word `@VERSION@`.
std::string manualPage(const std::vector<Command>& table, std::string_view pageTemplate);

/// Completions; scripts that need nothing but their shell.
std::string bashCompletion(const std::vector<Command>& table);
std::string zshCompletion(const std::vector<Command>& table);
std::string fishCompletion(const std::vector<Command>& table);

// --- what the writers share

std::string replaced(std::string text, std::string_view what, std::string_view by);
std::string joined(const std::vector<std::string>& words, std::string_view between);

} // namespace mrd::command_texts
