#pragma once

#include <QString>

#include <string>

namespace mrd::desktop {

/// The text of a field in two forms at once: as the field counts it, and as the system keeps it, in UTF-8 with CR LF line ends. A
/// change costs what it changes, however long the text is.
class SourceMirror {
public:
  void reset(QString text);
  void replace(qsizetype position, qsizetype removed, QStringView added);

  const QString& text() const { return text_; }
  const std::string& source() const { return source_; }

private:
  std::size_t bytesBefore(qsizetype position);

  QString text_;
  std::string source_;
  bool hasHalves_ = false;
  /// The place of the last change in both forms: the next one is near it.
  qsizetype knownPosition_ = 0;
  std::size_t knownByte_ = 0;
};

} // namespace mrd::desktop
