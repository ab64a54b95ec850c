#pragma once
// What lies in the clipboard, as far as a page can take it.

#include <QByteArray>
#include <QString>

#include <optional>

namespace mrd::desktop {

struct ClipboardPicture {
  QByteArray bytes;
  QByteArray mimeType;
};

struct ClipboardContent {
  QString html;
  QString text;
  /// Only where the picture is all there is: office programs add one of the text itself.
  std::optional<ClipboardPicture> picture;
};

ClipboardContent clipboardContent();
/// Whether there is something that a page can take, and whether that has a text.
bool clipboardHasContent();
bool clipboardHasText();
void setClipboardContent(const QString& html, const QString& text);

} // namespace mrd::desktop
