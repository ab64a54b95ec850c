#include "desktop/controls/source_text.h"

#include <QFontDatabase>

namespace mrd::desktop {

SourceText::SourceText(QWidget* parent) : QPlainTextEdit(parent)
{
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

/// Only now, because the system takes a tenth of a window's start to find a font, and the page is what comes up first.
void SourceText::showEvent(QShowEvent* event)
{
  if (!testAttribute(Qt::WA_SetFont))
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QPlainTextEdit::showEvent(event);
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
