// Writes what is made from the command line of mrd: make_command_texts MANUAL_TEMPLATE OUT_DIRECTORY

#include "base/errors.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "tools/command_texts/writers.h"

#include <cstdio>
#include <filesystem>

namespace mrd::command_texts {

std::string replaced(std::string text, std::string_view what, std::string_view by)
{
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
  return text;
}

std::string joined(const std::vector<std::string>& words, std::string_view between)
{
  std::string text;
  for (const auto& word : words)
    text += (text.empty() ? "" : std::string(between)) + word;
  return text;
}

namespace {

void write(const std::filesystem::path& file, const std::string& text)
{
  files::writeFileAtomically(files::systemPath(file), text);
}

void writeAll(const std::filesystem::path& manualTemplate, const std::filesystem::path& directory)
{
  const auto table = commandTable();
  std::filesystem::create_directories(directory);
  write(directory / "mrd.1", manualPage(table, files::readFile(files::systemPath(manualTemplate))));
  write(directory / "mrd.bash", bashCompletion(table));
  write(directory / "_mrd", zshCompletion(table));
  write(directory / "mrd.fish", fishCompletion(table));
}

} // namespace
} // namespace mrd::command_texts

int main(int count, char** values)
{
  if (count != 3) {
    std::fputs("usage: make_command_texts MANUAL_TEMPLATE OUT_DIRECTORY\n", stderr);
    return 2;
  }
  try {
    mrd::command_texts::writeAll(values[1], values[2]);
    return 0;
  } catch (const mrd::base::Error& failure) {
    std::fprintf(stderr, "make_command_texts: %s\n", failure.what());
    return 1;
  }
}
