#pragma once
// The way between the document and the clipboard.

#include "desktop/editing/clipboard_content.h"

#include <functional>

namespace mrd::desktop {

class EditedDocument;

/// Also takes what the document's own keys and mouse paste.
class DocumentClipboard {
public:
  explicit DocumentClipboard(EditedDocument& document);
  DocumentClipboard(const DocumentClipboard&) = delete;
  DocumentClipboard& operator=(const DocumentClipboard&) = delete;

  // False where there was nothing to copy or to paste.

  bool copy();
  bool paste();
  bool pasteText();

private:
  void whenFree(const std::function<void()>& paste, int document);
  bool pasteHtml(const QString& html, const QString& text);
  bool pastePicture(const ClipboardPicture& picture);

  EditedDocument& document_;
};

} // namespace mrd::desktop
