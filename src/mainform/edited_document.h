#pragma once

#include <string>

namespace mrd::mainform {

/// What the editing surface holds: a page of the project, the head of the site, or a file outside the project.
enum class DocumentKind { Page, Head, File };

/// The one document that is in the editor.
struct EditedDocument {
  DocumentKind kind = DocumentKind::Page;
  /// Of a file: its path, empty for one without a name, and whether it was changed since it was loaded or saved.
  std::string path;
  bool isDirty = false;
  /// Counts the changes that the user made, whatever is edited.
  unsigned long changes = 0;
};

} // namespace mrd::mainform
