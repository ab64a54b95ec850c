#include "desktop/editing/clipboard_content.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include <array>
#include <memory>

namespace mrd::desktop {
namespace {

/// Forms that browsers show. Bytes in one of them are kept as they are.
constexpr std::array kShownFormats{"image/jpeg", "image/png", "image/gif"};

QByteArray asPng(const QImage& image)
{
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

std::optional<ClipboardPicture> pictureOf(const QMimeData& data)
{
  for (const char* const format : kShownFormats)
    if (QByteArray bytes = data.data(QLatin1String(format)); !bytes.isEmpty())
      return ClipboardPicture{std::move(bytes), format};
  if (!data.hasImage())
    return std::nullopt;
  QByteArray bytes = asPng(qvariant_cast<QImage>(data.imageData()));
  return bytes.isEmpty() ? std::nullopt : std::optional(ClipboardPicture{std::move(bytes), "image/png"});
}

} // namespace

ClipboardContent clipboardContent()
{
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr)
    return {};
  ClipboardContent content{data->html(), data->text(), std::nullopt};
  if (content.text.trimmed().isEmpty())
    content.picture = pictureOf(*data);
  return content;
}

bool clipboardHasContent()
{
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && (data->hasText() || data->hasHtml() || data->hasImage());
}

bool clipboardHasText()
{
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasText();
}

void setClipboardContent(const QString& html, const QString& text)
{
  auto data = std::make_unique<QMimeData>();
  data->setHtml(html);
  data->setText(text);
  QGuiApplication::clipboard()->setMimeData(data.release());
}

} // namespace mrd::desktop
