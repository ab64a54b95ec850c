#pragma once

#include <QProxyStyle>

namespace mrd::desktop {

/// The program's shapes over Qt's Fusion: flat tabs and tool buttons, headings instead of group frames, one green button for the
/// main thing to do. What a widget is for is said by its property "role" (a label: "title", "hint", "name"; a frame: "format",
/// "bar"; a tool bar inside another frame: "plain"; narrow tabs: "narrow"; a tree with room around its items: "inset") or
/// "primary" (a button). All colours come from the palette. No style sheet, because one makes every widget three times as dear to
/// build.
class Style : public QProxyStyle {
public:
  Style();

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

} // namespace mrd::desktop
