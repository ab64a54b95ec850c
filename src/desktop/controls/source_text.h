#pragma once

#include <QPlainTextEdit>

#include <string>
#include <string_view>

namespace mrd::desktop {

/// A field for HTML and scripts: fixed pitch, the Tab key goes on to the next field, lines as the system keeps them.
class SourceText : public QPlainTextEdit {
public:
  explicit SourceText(QWidget* parent = nullptr);

  /// The text with CR LF line ends.
  std::string source() const;
  /// Shows another text; one that is there already stays, cursor and selection too.
  void setSource(std::string_view text);

protected:
  void showEvent(QShowEvent* event) override;
};

} // namespace mrd::desktop
