#include "desktop/looks/style.h"

#include <QAbstractItemView>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

namespace mrd::desktop {
namespace {

// Pixels.
constexpr int kCorner = 5, kButtonCorner = 4, kBoxCorner = 3;
constexpr int kTabMark = 2;
constexpr QSize kToolButtonRoom{14, 10}, kButtonRoom{30, 12}, kPrimaryRoom{34, 12}, kItemRoom{0, 6};
constexpr int kTabRoomAcross = 28, kNarrowTabRoomAcross = 18, kTabRoomDown = 15;
constexpr int kToolBarMargin = 4, kToolBarSpacing = 2, kSeparatorWidth = 11, kSeparatorMargin = 5;
constexpr int kItemMargin = 3, kInset = 5, kToolTipMargin = 5;
constexpr QMargins kNameMargins{10, 6, 10, 6};
constexpr int kTitlePoints = 15;

bool hasRole(const QWidget* widget, const char* role) { return widget && widget->property("role").toByteArray() == role; }
bool isPrimary(const QWidget* widget) { return widget && widget->property("primary").toBool(); }
bool isInToolBar(const QWidget* widget)
{
  return qobject_cast<const QToolButton*>(widget) && qobject_cast<const QToolBar*>(widget->parentWidget());
}
bool isListed(const QWidget* widget)
{
  return qobject_cast<const QTreeView*>(widget) || qobject_cast<const QListWidget*>(widget);
}
bool isNarrow(const QWidget* tabBar) { return tabBar && hasRole(tabBar->parentWidget(), "narrow"); }

QFont bold(QFont font)
{
  font.setBold(true);
  return font;
}

/// How much more room a text takes in bold letters.
int boldExtra(const QFont& font, const QString& text)
{
  const auto width = [&](const QFont& shown) { return QFontMetrics(shown).size(Qt::TextShowMnemonic, text).width(); };
  return std::max(0, width(bold(font)) - width(font));
}

QFont fontOf(const QWidget* widget) { return widget ? widget->font() : QFont(); }

/// A group's heading stands above what it names.
int headingHeight(const QStyleOption& option) { return option.fontMetrics.height() * 3 / 2; }

void drawRounded(QPainter& painter, const QRect& rectangle, int corner, const QColor& border, const QColor& inside)
{
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(border);
  painter.setBrush(inside);
  painter.drawRoundedRect(QRectF(rectangle).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
  painter.restore();
}

void drawToolButton(const QStyleOption& option, QPainter& painter)
{
  const bool held = option.state & (QStyle::State_Sunken | QStyle::State_On);
  const QPalette& colours = option.palette;
  drawRounded(painter, option.rect, kCorner, held ? colours.mid().color() : colours.midlight().color(),
              colours.midlight().color());
}

void drawPrimaryButton(const QStyleOption& option, QPainter& painter)
{
  const QPalette& colours = option.palette;
  if (!(option.state & QStyle::State_Enabled))
    return drawRounded(painter, option.rect, kButtonCorner, colours.mid().color(), colours.midlight().color());
  const bool held = option.state & QStyle::State_Sunken;
  const QColor inside = held ? colours.link().color() : colours.highlight().color();
  const QColor border = option.state & QStyle::State_HasFocus    ? colours.text().color()
                        : option.state & QStyle::State_MouseOver ? colours.link().color()
                                                                 : inside;
  drawRounded(painter, option.rect, kButtonCorner, border, inside);
}

/// The frame of what is chosen or not, in a colour that is seen on light and dark ground alike.
void drawChoiceFrame(const QStyleOption& option, QPainter& painter, int corner, bool chosen)
{
  const QPalette& colours = option.palette;
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool held = option.state & QStyle::State_Sunken;
  const QColor border = !enabled                                                            ? colours.mid().color()
                        : option.state & (QStyle::State_HasFocus | QStyle::State_MouseOver) ? colours.link().color()
                        : chosen                                                            ? colours.highlight().color()
                                                                                            : colours.placeholderText().color();
  drawRounded(painter, option.rect, corner, border,
              chosen ? colours.highlight().color() : (held ? colours.midlight() : colours.base()).color());
}

void drawTick(const QStyleOption& option, QPainter& painter)
{
  const QRectF box(option.rect);
  const auto at = [&](double x, double y) { return QPointF(box.left() + x * box.width(), box.top() + y * box.height()); };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(option.palette.highlightedText(), box.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({at(0.25, 0.53), at(0.43, 0.71), at(0.76, 0.31)}));
  painter.restore();
}

/// What is chosen in part gets a bar.
void drawCheckBox(const QStyleOption& option, QPainter& painter)
{
  const bool partly = option.state & QStyle::State_NoChange, on = option.state & QStyle::State_On;
  drawChoiceFrame(option, painter, kBoxCorner, on || partly);
  if (on)
    return drawTick(option, painter);
  const int edge = option.rect.width() / 4, middle = option.rect.height() / 2 - 1;
  if (partly)
    painter.fillRect(option.rect.adjusted(edge, middle, -edge, -middle), option.palette.highlightedText());
}

void drawRadioButton(const QStyleOption& option, QPainter& painter)
{
  const bool on = option.state & QStyle::State_On;
  drawChoiceFrame(option, painter, option.rect.width(), on);
  const int edge = option.rect.width() / 3;
  const QColor inside = option.palette.highlightedText().color();
  if (on)
    drawRounded(painter, option.rect.adjusted(edge, edge, -edge, -edge), option.rect.width(), inside, inside);
}

void drawSeparator(const QStyleOption& option, QPainter& painter)
{
  const QRect& all = option.rect;
  const QRect line = option.state & QStyle::State_Horizontal
                         ? QRect(all.center().x(), all.top() + kSeparatorMargin, 1, all.height() - 2 * kSeparatorMargin)
                         : QRect(all.left() + kSeparatorMargin, all.center().y(), all.width() - 2 * kSeparatorMargin, 1);
  painter.fillRect(line, option.palette.mid());
}

void drawItemBackground(const QStyleOptionViewItem& option, QPainter& painter)
{
  if (option.backgroundBrush.style() != Qt::NoBrush)
    painter.fillRect(option.rect, option.backgroundBrush);
  if (option.state & QStyle::State_Selected)
    painter.fillRect(option.rect, option.palette.highlight());
  else if (option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled)
    painter.fillRect(option.rect, option.palette.midlight());
}

void drawTab(const QStyleOptionTab& option, QPainter& painter)
{
  const bool selected = option.state & QStyle::State_Selected, over = option.state & QStyle::State_MouseOver;
  if (option.state & QStyle::State_HasFocus || (over && option.state & QStyle::State_Enabled))
    painter.fillRect(option.rect, option.palette.midlight());
  if (selected)
    painter.fillRect(QRect(option.rect.left(), option.rect.bottom() - kTabMark + 1, option.rect.width(), kTabMark),
                     option.palette.highlight());
}

void drawHandle(const QStyleOption& option, QPainter& painter)
{
  const bool over = option.state & QStyle::State_MouseOver;
  painter.fillRect(option.rect, over ? option.palette.midlight() : option.palette.window());
  painter.fillRect(QRect(option.rect.topLeft(), QSize(1, option.rect.height())), option.palette.mid());
}

void drawLineAtTop(const QStyleOption& option, QPainter& painter)
{
  painter.fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 1)), option.palette.mid());
}

/// True for a frame that has a look of its own.
bool drawFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget)
{
  if (hasRole(widget, "bar"))
    drawLineAtTop(option, painter);
  else if (hasRole(widget, "format"))
    painter.fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)), option.palette.mid());
  else if (hasRole(widget, "name"))
    // With the margins, which the option's rectangle leaves out.
    drawRounded(painter, widget->rect(), kCorner, option.palette.midlight().color(), option.palette.midlight().color());
  else if (hasRole(widget, "inset"))
    painter.fillRect(option.rect, option.palette.base());
  else
    return false;
  return true;
}

void dressLabel(QLabel& label)
{
  const auto role = label.property("role").toByteArray();
  if (role == "hint")
    label.setForegroundRole(QPalette::LinkVisited);
  if (role == "name")
    label.setContentsMargins(kNameMargins);
  if (role == "name" || role == "title")
    label.setFont(bold(label.font()));
  if (role == "title") {
    QFont font = label.font();
    font.setPointSize(kTitlePoints);
    label.setFont(font);
  }
}

} // namespace

Style::Style() : QProxyStyle(QStringLiteral("fusion")) {}

void Style::polish(QWidget* widget)
{
  QProxyStyle::polish(widget);
  if (auto* const label = qobject_cast<QLabel*>(widget))
    dressLabel(*label);
  else if (auto* const view = qobject_cast<QAbstractItemView*>(widget); view && isListed(view))
    view->viewport()->setAttribute(Qt::WA_Hover);
  else if (qobject_cast<QTabBar*>(widget))
    widget->setAttribute(Qt::WA_Hover);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
  switch (metric) {
  case PM_ToolBarItemMargin:
    return hasRole(widget, "plain") ? 0 : kToolBarMargin;
  case PM_ToolBarFrameWidth:
    return 0;
  case PM_ToolBarItemSpacing:
    return kToolBarSpacing;
  case PM_ToolBarSeparatorExtent:
    return kSeparatorWidth;
  case PM_TabBarTabHSpace:
    return isNarrow(widget) ? kNarrowTabRoomAcross : kTabRoomAcross;
  case PM_TabBarTabVSpace:
    return kTabRoomDown;
  case PM_TabBarTabShiftHorizontal:
  case PM_TabBarTabShiftVertical:
  case PM_TabBarBaseOverlap:
  case PM_TabBarTabOverlap:
    return 0;
  case PM_ToolTipLabelFrameWidth:
    return kToolTipMargin;
  case PM_FocusFrameHMargin:
    return isListed(widget) ? kItemMargin : QProxyStyle::pixelMetric(metric, option, widget);
  case PM_DefaultFrameWidth:
    return hasRole(widget, "inset") ? kInset : QProxyStyle::pixelMetric(metric, option, widget);
  default:
    return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const
{
  if (hint == SH_ItemView_ShowDecorationSelected && isListed(widget))
    return 1;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents, const QWidget* widget) const
{
  if (type == CT_ToolButton && isInToolBar(widget))
    return contents + kToolButtonRoom;
  if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option); type == CT_PushButton && button)
    return contents + (isPrimary(widget) ? kPrimaryRoom + QSize(boldExtra(fontOf(widget), button->text), 0) : kButtonRoom);
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  // With room for bold letters in each, so that no tab moves when another is chosen.
  if (const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option); type == CT_TabBarTab && tab)
    return size + QSize(boldExtra(fontOf(widget), tab->text), 0);
  if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option); type == CT_GroupBox && group)
    return contents + QSize(boldExtra(fontOf(widget), group->text), headingHeight(*group));
  return type == CT_ItemViewItem && isListed(widget) ? size + kItemRoom : size;
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const
{
  const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  if (control != CC_GroupBox || !group)
    return QProxyStyle::subControlRect(control, option, part, widget);
  if (part == SC_GroupBoxLabel)
    return {group->rect.topLeft(), QFontMetrics(bold(fontOf(widget))).size(Qt::TextShowMnemonic, group->text)};
  return group->rect.adjusted(0, group->text.isEmpty() ? 0 : headingHeight(*group), 0, 0);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
  switch (element) {
  case PE_PanelButtonTool:
    return isInToolBar(widget) ? drawToolButton(*option, *painter) : QProxyStyle::drawPrimitive(element, option, painter, widget);
  case PE_PanelButtonCommand:
    return isPrimary(widget) ? drawPrimaryButton(*option, *painter)
                             : QProxyStyle::drawPrimitive(element, option, painter, widget);
  case PE_FrameFocusRect:
    if (isInToolBar(widget))
      return drawRounded(*painter, widget->rect(), kCorner, option->palette.highlight().color(), Qt::transparent);
    // Selected items, tabs and the green button show by themselves where the keyboard is.
    if (isListed(widget) || isPrimary(widget) || qobject_cast<const QTabBar*>(widget))
      return;
    break;
  case PE_IndicatorCheckBox:
  case PE_IndicatorItemViewItemCheck:
    return drawCheckBox(*option, *painter);
  case PE_IndicatorRadioButton:
    return drawRadioButton(*option, *painter);
  case PE_IndicatorToolBarSeparator:
    return drawSeparator(*option, *painter);
  case PE_PanelItemViewItem:
  case PE_PanelItemViewRow:
    if (const auto* const item = qstyleoption_cast<const QStyleOptionViewItem*>(option); item && isListed(widget))
      return drawItemBackground(*item, *painter);
    break;
  case PE_PanelStatusBar:
    return drawLineAtTop(*option, *painter);
  case PE_PanelTipLabel:
    return painter->fillRect(option->rect, option->palette.toolTipBase());
  case PE_FrameTabBarBase:
  case PE_FrameStatusBarItem:
  case PE_FrameGroupBox:
  case PE_PanelToolBar:
    return;
  default:
    break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
  if (element == CE_ToolBar || (element == CE_ShapedFrame && drawFrame(*option, *painter, widget)))
    return;
  if (element == CE_Splitter)
    return drawHandle(*option, *painter);
  if (const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option); element == CE_TabBarTabShape && tab)
    return drawTab(*tab, *painter);
  const bool bolder =
      (element == CE_TabBarTabLabel && option->state & State_Selected) || (element == CE_PushButtonLabel && isPrimary(widget));
  if (!bolder)
    return QProxyStyle::drawControl(element, option, painter, widget);
  painter->save();
  painter->setFont(bold(painter->font()));
  if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
    QStyleOptionButton shown = *button;
    shown.palette.setBrush(QPalette::Active, QPalette::ButtonText, button->palette.highlightedText());
    shown.palette.setBrush(QPalette::Inactive, QPalette::ButtonText, button->palette.highlightedText());
    QProxyStyle::drawControl(element, &shown, painter, widget);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
  painter->restore();
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const
{
  if (control != CC_GroupBox)
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  painter->save();
  painter->setFont(bold(painter->font()));
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  painter->restore();
}

} // namespace mrd::desktop
