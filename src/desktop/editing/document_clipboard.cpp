#include "desktop/editing/document_clipboard.h"

#include "desktop/editing/deep_nesting.h"
#include "desktop/editing/edited_document.h"

#include <QTimer>

namespace mrd::desktop {
namespace {

/// Whether the owner is still at work is asked this often.
constexpr int kAtWorkMs = 50;

} // namespace

DocumentClipboard::DocumentClipboard(EditedDocument& document) : document_(document)
{
  document_.onPastePicture = [this] {
    if (const auto picture = clipboardContent().picture)
      whenFree([=, this] { pastePicture(*picture); }, document_.documents());
  };
  document_.onPasteHtml = [this](const QString& html, const QString& text) {
    whenFree([=, this] { pasteHtml(html, text); }, document_.documents());
  };
}

bool DocumentClipboard::copy()
{
  const auto content = document_.ask("copySelection");
  if (!content || content->toMap().isEmpty())
    return false;
  setClipboardContent(content->toMap()["html"].toString(), content->toMap()["text"].toString());
  return true;
}

bool DocumentClipboard::paste()
{
  const auto content = clipboardContent();
  if (content.picture)
    return pastePicture(*content.picture);
  return (!content.html.isEmpty() || !content.text.isEmpty()) && pasteHtml(content.html, content.text);
}

bool DocumentClipboard::pasteHtml(const QString& html, const QString& text)
{
  return document_.ask("paste", {qtText(withBoundedDepth(html.toStdString())), text}).value_or(false).toBool();
}

bool DocumentClipboard::pasteText()
{
  const QString text = clipboardContent().text;
  return !text.isEmpty() && document_.ask("pasteText", {text}).value_or(false).toBool();
}

/// The user's key may have come right before a save, and that must not cost him what he pasted.
void DocumentClipboard::whenFree(const std::function<void()>& paste, int document)
{
  if (document_.events.atWork())
    QTimer::singleShot(kAtWorkMs, &document_.view, [=, this] { whenFree(paste, document); });
  else if (document != document_.documents())
    document_.events.pasteLost();
  else
    paste();
}

bool DocumentClipboard::pastePicture(const ClipboardPicture& picture)
{
  const auto reference =
      document_.events.storePicture({picture.bytes.constData(), static_cast<std::size_t>(picture.bytes.size())},
                                    {picture.mimeType.constData(), static_cast<std::size_t>(picture.mimeType.size())});
  return reference && document_.ask("insertPicture", {qtText(*reference)}).value_or(false).toBool();
}

} // namespace mrd::desktop
