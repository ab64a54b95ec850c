#pragma once

#include <QSyntaxHighlighter>

#include <functional>

class QPalette;

namespace mrd::desktop {

/// Colours of HTML. Only lines near those in sight get theirs: a text of megabytes is shown at once.
class HtmlColours : public QSyntaxHighlighter {
public:
  explicit HtmlColours(QTextDocument& document);

  /// The colours that stand out on the palette's background.
  void setPalette(const QPalette& palette);
  /// These lines are in sight now.
  void show(int firstBlock, int lastBlock);

protected:
  void highlightBlock(const QString& text) override;

private:
  int first_ = 0, last_ = 0;
  bool dark_ = false;
};

} // namespace mrd::desktop
