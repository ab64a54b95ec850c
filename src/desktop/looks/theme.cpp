#include "desktop/looks/theme.h"

#include "desktop/looks/style.h"
#include "desktop/looks/system_theme.h"

#include <QApplication>
#include <QToolTip>

#include <array>

namespace mrd::desktop {
namespace {

struct Colour {
  QPalette::ColorRole role;
  QRgb light, dark;
};

constexpr std::array kColours{
    Colour{QPalette::Window, 0xfff4f6f5, 0xff1f2422},
    Colour{QPalette::WindowText, 0xff1f2623, 0xffe4eae7},
    Colour{QPalette::Base, 0xffffffff, 0xff2e3532},
    Colour{QPalette::AlternateBase, 0xfff7f9f8, 0xff262c29},
    Colour{QPalette::Text, 0xff1f2623, 0xffe4eae7},
    Colour{QPalette::Button, 0xfffafbfa, 0xff343c38},
    Colour{QPalette::ButtonText, 0xff26302b, 0xffe4eae7},
    Colour{QPalette::BrightText, 0xffffffff, 0xffffffff},
    Colour{QPalette::Highlight, 0xff2e7d5b, 0xff2f8562},
    Colour{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    Colour{QPalette::Link, 0xff2e7d5b, 0xff63c498},
    Colour{QPalette::LinkVisited, 0xff66756e, 0xff93a89e},
    Colour{QPalette::ToolTipBase, 0xff26302b, 0xffe4eae7},
    Colour{QPalette::ToolTipText, 0xfff4f6f5, 0xff212624},
    Colour{QPalette::PlaceholderText, 0xff7d8983, 0xff86938c},
    Colour{QPalette::Light, 0xffffffff, 0xff3a423e},
    Colour{QPalette::Midlight, 0xffe9edeb, 0xff333a37},
    Colour{QPalette::Mid, 0xffccd4d0, 0xff434c48},
    Colour{QPalette::Dark, 0xffb2bcb7, 0xff121514},
    Colour{QPalette::Shadow, 0xff6e7873, 0xff000000},
};

constexpr QPalette::ColorRole kDimmed[] = {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Link,
                                           QPalette::HighlightedText};
constexpr QRgb kDimLight = 0xffa3ada8, kDimDark = 0xff68736e;
constexpr QRgb kUnlitLight = 0xffd5dcd8, kUnlitDark = 0xff3a423e;
constexpr QRgb kClosedLight = 0xfff0f2f1, kClosedDark = 0xff242927;

} // namespace

QPalette palette(Theme theme)
{
  const bool light = theme == Theme::Light;
  QPalette colours;
  for (const auto& colour : kColours)
    colours.setColor(colour.role, QColor(light ? colour.light : colour.dark));
  for (const auto role : kDimmed)
    colours.setColor(QPalette::Disabled, role, QColor(light ? kDimLight : kDimDark));
  colours.setColor(QPalette::Disabled, QPalette::Highlight, QColor(light ? kUnlitLight : kUnlitDark));
  colours.setColor(QPalette::Disabled, QPalette::Base, QColor(light ? kClosedLight : kClosedDark));
  return colours;
}

void applyTheme(QApplication& application, Theme theme)
{
  if (!dynamic_cast<Style*>(application.style()))
    application.setStyle(new Style);
  application.setPalette(palette(theme));
  // Tool tips have a palette of their own.
  QToolTip::setPalette(palette(theme));
}

void followSystemTheme(QApplication& application)
{
  applyTheme(application, systemTheme());
  onSystemThemeChange(application, [&application](Theme theme) { applyTheme(application, theme); });
}

} // namespace mrd::desktop
