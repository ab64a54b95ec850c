#pragma once
// Unsaved work beside the project: what a crash leaves of the page that was being edited.

#include "base/clock.h"

#include <optional>
#include <string>
#include <string_view>

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

/// The file beside the project that holds a draft.
std::string draftFileOf(std::string_view DbName);

/// Writes the draft in one step. Throws base::Error.
void writeDraft(std::string_view file, const Draft& draft);
/// Nothing for a file that is missing or damaged.
std::optional<Draft> readDraft(std::string_view file);
/// A missing file is no failure, and neither is one that cannot be removed.
void removeDraft(std::string_view file);

} // namespace mrd::mainform
