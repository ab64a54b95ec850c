#include "publish/run_files.h"

#include "base/format.h"
#include "publish/words.h"

#include <algorithm>
#include <array>

namespace mrd::publish {
namespace {

using Deed = RunFile::Deed;
using Fate = RunFile::Fate;

struct Outcome {
  Deed deed;
  Fate fate;
  Words words;
};

constexpr std::array kOutcomes{
    Outcome{Deed::Send, Fate::Waiting, Words::Waiting}, Outcome{Deed::Send, Fate::Done, Words::Sent},
    Outcome{Deed::Send, Fate::Failed, Words::NotSent},  Outcome{Deed::Delete, Fate::Waiting, Words::Waiting},
    Outcome{Deed::Delete, Fate::Done, Words::Deleted},  Outcome{Deed::Delete, Fate::Failed, Words::NotDeleted},
};

std::string_view wordsFor(Deed deed, Fate fate, std::string_view Sprache)
{
  const auto* const outcome =
      std::find_if(kOutcomes.begin(), kOutcomes.end(), [&](const Outcome& o) { return o.deed == deed && o.fate == fate; });
  return textOf(outcome->words, Sprache);
}

} // namespace

std::string RunFile::shownName() const { return (type == project::Dateityp::Picture ? "pix/" : "") + name; }

std::string fateText(const RunFile& file, std::string_view Sprache)
{
  const std::string words(wordsFor(file.deed, file.fate, Sprache));
  return file.problem.empty() ? words : words + ": " + file.problem;
}

bool RunFiles::hasUnsent() const
{
  return std::any_of(files_.begin(), files_.end(), [](const RunFile& file) { return file.isUnsent(); });
}

std::string RunFiles::summary(std::string_view Sprache) const
{
  std::string text;
  for (const auto deed : {Deed::Send, Deed::Delete})
    for (const auto fate : {Fate::Done, Fate::Failed, Fate::Waiting}) {
      const auto count = std::count_if(files_.begin(), files_.end(),
                                       [&](const RunFile& file) { return file.deed == deed && file.fate == fate; });
      if (count > 0)
        text += base::format("{}{} {}", text.empty() ? "" : ", ", count, wordsFor(deed, fate, Sprache));
    }
  return text;
}

void RunFiles::assign(std::vector<RunFile> files)
{
  files_ = std::move(files);
  replaced();
}

void RunFiles::add(const RunFile& file)
{
  files_.push_back(file);
  replaced();
}

void RunFiles::settle(std::size_t index, Fate fate, const std::string& problem)
{
  if (index >= files_.size())
    return;
  files_[index].fate = fate;
  files_[index].problem = problem;
  changed(index);
}

} // namespace mrd::publish
