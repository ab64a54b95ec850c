#include "desktop/controls/source_mirror.h"

#include <algorithm>

namespace mrd::desktop {
namespace {

std::size_t bytesOf(QStringView piece)
{
  std::size_t bytes = 0;
  for (const QChar letter : piece) {
    const char16_t unit = letter.unicode();
    if (unit == u'\n')
      bytes += 2;
    else if (letter.isLowSurrogate())
      continue; // counted with its first half
    else
      bytes += letter.isHighSurrogate() ? 4 : unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
  }
  return bytes;
}

std::string systemForm(QStringView text)
{
  const QByteArray utf8 = text.toUtf8();
  std::string source;
  source.reserve(static_cast<std::size_t>(utf8.size()) + static_cast<std::size_t>(utf8.size()) / 32);
  for (const char byte : utf8) {
    if (byte == '\n')
      source += '\r';
    source += byte;
  }
  return source;
}

bool hasSurrogates(QStringView piece)
{
  return std::any_of(piece.begin(), piece.end(), [](QChar letter) { return letter.isSurrogate(); });
}

} // namespace

void SourceMirror::reset(QString text)
{
  text_ = std::move(text);
  source_ = systemForm(text_);
  hasHalves_ = !text_.isValidUtf16();
  knownPosition_ = 0;
  knownByte_ = 0;
}

std::size_t SourceMirror::bytesBefore(qsizetype position)
{
  const QStringView text(text_);
  if (position < knownPosition_ / 2)
    return bytesOf(text.left(position));
  if (position >= knownPosition_)
    return knownByte_ + bytesOf(text.mid(knownPosition_, position - knownPosition_));
  return knownByte_ - bytesOf(text.mid(position, knownPosition_ - position));
}

void SourceMirror::replace(qsizetype position, qsizetype removed, QStringView added)
{
  const QStringView gone = QStringView(text_).mid(position, removed);
  const bool splitsLetter = position < text_.size() && text_[position].isLowSurrogate();
  // Halves of letters have no form of their own in UTF-8.
  if (hasHalves_ || splitsLetter || hasSurrogates(gone) || hasSurrogates(added)) {
    QString text = text_;
    text.replace(position, removed, added.toString());
    reset(std::move(text));
    return;
  }
  const std::size_t from = bytesBefore(position);
  source_.replace(from, bytesOf(gone), systemForm(added));
  text_.replace(position, removed, added.data(), added.size());
  knownPosition_ = position;
  knownByte_ = from;
}

} // namespace mrd::desktop
