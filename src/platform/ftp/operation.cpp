#include "platform/ftp/operation.h"

#include "base/errors.h"
#include "base/text.h"
#include "platform/files/files.h"
#include "platform/ftp/explanations.h"

#include <algorithm>
#include <array>
#include <optional>

namespace mrd::ftp {
namespace {

struct Word {
  std::string_view word;
  Verb verb;
};

constexpr std::array kWords{
    Word{"cd", Verb::ChangeDirectory}, Word{"mkdir", Verb::MakeDirectory}, Word{"dir", Verb::List}, Word{"put", Verb::Put},
    Word{"delete", Verb::Delete},
};

bool isControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7f; }

[[noreturn]] void refuse(std::string_view line, std::string_view Sprache)
{
  std::string shown(line);
  std::replace_if(shown.begin(), shown.end(), isControl, '?');
  throw base::Error(base::ErrorNumber::InvalidCall, textOf(Words::InvalidCommand, Sprache, {shown}));
}

/// A file without extension is named with its closing dot, which not every system's files bear.
std::optional<std::string> existingFile(std::string_view path)
{
  if (files::fileExists(path))
    return std::string(path);
  if (path.ends_with('.') && files::fileExists(path.substr(0, path.size() - 1)))
    return std::string(path.substr(0, path.size() - 1));
  return std::nullopt;
}

/// `rest` is "LOCAL FILE" NAME. The file's name may hold the very characters that end it, so the first end with a file counts.
Operation parsePut(std::string_view line, std::string_view rest, std::string_view Sprache)
{
  constexpr std::string_view kEnd = "\" ";
  if (!rest.starts_with('"'))
    refuse(line, Sprache);
  rest.remove_prefix(1);
  std::optional<std::string_view> missing;
  for (auto end = rest.find(kEnd); end != std::string_view::npos; end = rest.find(kEnd, end + 1)) {
    const auto name = rest.substr(end + kEnd.size());
    if (const auto file = existingFile(rest.substr(0, end)); file && isFileName(name))
      return {Verb::Put, std::string(name), *file, std::string(Sprache)};
    if (isFileName(name) && !missing)
      missing = rest.substr(0, end);
  }
  if (!missing)
    refuse(line, Sprache);
  throw base::Error(base::ErrorNumber::FileNotFound, textOf(Words::FileMissing, Sprache, {std::string(*missing)}));
}

} // namespace

bool isFileName(std::string_view name)
{
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos &&
         std::none_of(name.begin(), name.end(), isControl);
}

Operation parseOperation(std::string_view line, std::string_view Sprache)
{
  if (std::any_of(line.begin(), line.end(), isControl))
    refuse(line, Sprache);
  const auto blank = line.find(' ');
  const auto typed = base::lower(line.substr(0, blank));
  const auto rest = blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
  const auto* const word = std::find_if(kWords.begin(), kWords.end(), [&](const Word& known) { return known.word == typed; });
  if (word == kWords.end() || (word->verb == Verb::Delete && !isFileName(rest)))
    refuse(line, Sprache);
  if (word->verb == Verb::Put)
    return parsePut(line, rest, Sprache);
  return {word->verb, std::string(rest), "", std::string(Sprache)};
}

} // namespace mrd::ftp
