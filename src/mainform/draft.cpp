#include "mainform/draft.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"

#include <array>
#include <charconv>
#include <map>

namespace mrd::mainform {
namespace {

/// What a draft begins and ends with: one that was cut off lacks the end.
constexpr std::string_view kStart = "Mirandel-Entwurf 1\n", kEnd = "Ende\n";

struct DraftText {
  std::string_view name;
  std::string Draft::*field;
};
constexpr std::array kTexts{
    DraftText{"key", &Draft::key},       DraftText{"label", &Draft::label},         DraftText{"html", &Draft::html},
    DraftText{"tbhtml", &Draft::tbhtml}, DraftText{"dateiname", &Draft::dateiname}, DraftText{"script", &Draft::script},
};
constexpr std::string_view kWritten = "written", kType = "opseitentyp", kSource = "sourceOnTop";

/// Programs that close at the same moment each take the lock's file away once.
constexpr int kAttempts = 10;

std::string lockFileOf(std::string_view path) { return std::string(path) + ".lock"; }

/// A name, the length of its text in bytes, and the text, which may hold anything.
std::string entry(std::string_view name, std::string_view text) { return base::format("{} {}\n{}\n", name, text.size(), text); }

std::string_view cut(std::string_view& rest, std::size_t length)
{
  const auto piece = rest.substr(0, length);
  rest.remove_prefix(piece.size());
  return piece;
}

using Entries = std::map<std::string, std::string, std::less<>>;

/// One entry from the front; false where there is none as it should be.
bool readEntry(std::string_view& rest, Entries& entries)
{
  const auto blank = rest.find(' '), lineEnd = rest.find('\n');
  if (lineEnd == std::string_view::npos || blank == std::string_view::npos || blank > lineEnd)
    return false;
  const std::string name(rest.substr(0, blank));
  const auto digits = rest.substr(blank + 1, lineEnd - blank - 1);
  std::size_t length = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
  if (failure != std::errc() || end != digits.data() + digits.size() || length >= rest.size() - lineEnd - 1)
    return false;
  cut(rest, lineEnd + 1);
  entries.insert_or_assign(name, std::string(cut(rest, length)));
  return cut(rest, 1) == "\n";
}

std::optional<Draft> draftOf(const Entries& entries)
{
  const auto text = [&](std::string_view name) {
    const auto found = entries.find(name);
    return found == entries.end() ? std::string() : found->second;
  };
  const auto written = base::parseDateTime(text(kWritten));
  if (!written)
    return std::nullopt;
  Draft draft;
  for (const auto& [name, field] : kTexts)
    draft.*field = text(name);
  draft.written = *written;
  const std::string type = text(kType);
  draft.opseitentyp = type.size() == 1 && type >= "1" && type <= "4" ? type.front() - '0' : 1;
  draft.sourceOnTop = text(kSource) == "1";
  return draft;
}

} // namespace

std::string draftFileOf(std::string_view DbName, int number)
{
  return base::format("{}.entwurf{}", DbName, number == 1 ? "" : std::to_string(number));
}

std::unique_ptr<DraftFile> DraftFile::take(std::string_view path)
{
  // A file of its own bears the lock: the draft's is another one after each writing.
  const std::string lockFile = lockFileOf(path);
  try {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      files::OutputFile(lockFile).close();
      auto lock = std::make_unique<files::FileLock>(lockFile);
      // The program that had it may just have removed it.
      if (lock->isStillNamed())
        return std::unique_ptr<DraftFile>(new DraftFile(path, std::move(lock)));
    }
  } catch (const base::Error&) {
    // Another program has it; or nothing can be written here, and then no draft either.
  }
  return nullptr;
}

std::unique_ptr<DraftFile> DraftFile::takeEmpty(std::string_view DbName)
{
  for (int number = 1; number <= kDraftFiles; ++number)
    if (auto file = take(draftFileOf(DbName, number)); file && !files::fileExists(file->path()))
      return file;
  return nullptr;
}

DraftFile::~DraftFile()
{
  // While it is locked, so that nobody locks a file that is about to lose its name.
  if (lock_->isStillNamed())
    removeDraft(lockFileOf(path_));
}

void writeDraft(std::string_view file, const Draft& draft)
{
  std::string bytes(kStart);
  for (const auto& [name, field] : kTexts)
    bytes += entry(name, draft.*field);
  bytes += entry(kWritten, draft.written.iso());
  bytes += entry(kType, std::to_string(draft.opseitentyp));
  bytes += entry(kSource, draft.sourceOnTop ? "1" : "0");
  bytes += kEnd;
  files::writeFileAtomically(file, bytes);
}

std::optional<Draft> readDraft(std::string_view file)
{
  std::string bytes;
  try {
    if (!files::fileExists(file))
      return std::nullopt;
    bytes = files::readFile(file);
  } catch (const base::Error&) {
    return std::nullopt; // what cannot be read cannot be offered
  }
  std::string_view rest = bytes;
  if (cut(rest, kStart.size()) != kStart)
    return std::nullopt;
  Entries entries;
  while (rest != kEnd)
    if (!readEntry(rest, entries))
      return std::nullopt;
  return draftOf(entries);
}

void removeDraft(std::string_view file)
{
  try {
    if (files::fileExists(file))
      files::removeFile(file);
  } catch (const base::Error&) {
    // It would be offered once more, which harms nobody.
  }
}

} // namespace mrd::mainform
