#include "desktop/controls/source_text.h"

#include <QFontDatabase>

namespace mrd::desktop {

SourceText::SourceText(QWidget* parent) : QPlainTextEdit(parent)
{
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

std::string SourceText::source() const
{
  QString text = toPlainText();
  text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
  return text.toStdString();
}

void SourceText::setSource(std::string_view text)
{
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  shown.remove(QLatin1Char('\r'));
  if (shown != toPlainText())
    setPlainText(shown);
}

} // namespace mrd::desktop
