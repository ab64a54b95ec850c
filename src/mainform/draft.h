#pragma once
// Unsaved work beside the project: what a crash leaves of the page that was being edited.

#include "base/clock.h"
#include "platform/files/succession.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mrd::mainform {

/// The page, or the head of the site, as it stood in the editor.
struct Draft {
  /// Key of the page; empty for the head.
  std::string key;
  std::string label;
  base::DateTime written;
  std::string html, tbhtml, dateiname, script;
  int opseitentyp = 1;
  bool sourceOnTop = false;
};

/// How many programs that have one project open at the same time keep drafts of it.
inline constexpr int kDraftFiles = 9;

/// The file beside the project that holds a draft, by its number from 1.
std::string draftFileOf(std::string_view DbName, int number = 1);

/// Keeps a draft's file to the program that works on it, for as long as that runs: others neither offer nor replace its draft.
class DraftFile {
public:
  /// Nothing where another program has the file, or the directory takes none.
  static std::unique_ptr<DraftFile> take(std::string_view path);
  /// The first file of the project that no program has and that holds no draft. Nothing where there is none.
  static std::unique_ptr<DraftFile> takeEmpty(std::string_view DbName);
  ~DraftFile();
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  const std::string& path() const { return path_; }

private:
  DraftFile(std::string_view path, std::unique_ptr<files::FileLock> lock) : path_(path), lock_(std::move(lock)) {}

  std::string path_;
  std::unique_ptr<files::FileLock> lock_;
};

/// Writes the draft in one step. Throws base::Error.
void writeDraft(std::string_view file, const Draft& draft);
/// Nothing for a file that is missing or damaged.
std::optional<Draft> readDraft(std::string_view file);
/// A missing file is no failure, and neither is one that cannot be removed.
void removeDraft(std::string_view file);

} // namespace mrd::mainform
