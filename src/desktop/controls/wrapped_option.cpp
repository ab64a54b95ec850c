#include "desktop/controls/wrapped_option.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace mrd::desktop {
namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;
/// A line that is good to read is about this long, in average characters.
constexpr int kLineCharacters = 60, kShortestLineCharacters = 24;
constexpr int kAnyHeight = 10000;

} // namespace

WrappedOption::WrappedOption(QWidget* parent) : QRadioButton(parent)
{
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum, QSizePolicy::RadioButton);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

int WrappedOption::textLeft() const
{
  return style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, this) +
         style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, this);
}

QSize WrappedOption::textSize(int width) const
{
  return fontMetrics().boundingRect(QRect(0, 0, std::max(1, width), kAnyHeight), kTextFlags, text()).size();
}

int WrappedOption::heightForWidth(int width) const
{
  const int indicator = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, this);
  return std::max(indicator, textSize(width - textLeft()).height()) + 4;
}

QSize WrappedOption::sizeHint() const
{
  const int width = textLeft() + std::min(textSize(kAnyHeight).width(), kLineCharacters * fontMetrics().averageCharWidth()) + 4;
  return {width, heightForWidth(width)};
}

QSize WrappedOption::minimumSizeHint() const
{
  const int width =
      textLeft() + std::min(textSize(kAnyHeight).width(), kShortestLineCharacters * fontMetrics().averageCharWidth()) + 4;
  return {width, fontMetrics().height()};
}

void WrappedOption::paintEvent(QPaintEvent*)
{
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const int indicator = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, this);
  const int lineTop = 2;
  QStyleOptionButton mark = option;
  mark.rect = QRect(0, lineTop + (fontMetrics().height() - indicator) / 2, indicator, indicator);
  painter.drawPrimitive(QStyle::PE_IndicatorRadioButton, mark);

  const QRect lines(textLeft(), lineTop, width() - textLeft(), height() - lineTop);
  int flags = kTextFlags;
  if (!style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this))
    flags |= Qt::TextHideMnemonic;
  style()->drawItemText(&painter, lines, flags, palette(), isEnabled(), text(), QPalette::WindowText);
  if (!hasFocus() || !(option.state & QStyle::State_KeyboardFocusChange))
    return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  focus.rect = lines;
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

} // namespace mrd::desktop
