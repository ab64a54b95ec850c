#include "desktop/looks/theme.h"

#include "desktop/looks/system_theme.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

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

/// What the palette alone cannot say: rounded pages of tabs, quiet tool buttons, the green of the important buttons.
constexpr auto kStyleSheet = R"(
QGroupBox { border: none; margin-top: 1.5em; padding: 0; font-weight: bold; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; padding: 0; left: -2px; }
QGroupBox > * { font-weight: normal; }
QToolBar { border: none; background: palette(window); padding: 4px 6px; spacing: 2px; }
QToolBar#Toolbar1 { background: transparent; padding: 0; }
QFrame[role="format"] { border: none; border-bottom: 1px solid palette(mid); }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 5px; padding: 4px 6px; }
QToolBar QToolButton:hover { background: palette(midlight); }
QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: palette(midlight); border-color: palette(mid); }
QToolBar QToolButton:focus { border-color: palette(highlight); }
QToolBar QToolButton#qt_toolbar_ext_button { padding: 0; border: none; }
QToolBar::separator { width: 1px; background: palette(mid); margin: 5px 5px; }
QTabWidget::pane { border: none; border-top: 1px solid palette(mid); }
QTabBar { qproperty-drawBase: 0; }
QTabBar::tab { padding: 7px 14px 6px 14px; border: none; border-bottom: 2px solid transparent; color: palette(window-text); }
QTabWidget#TabTree QTabBar::tab { padding: 7px 9px 6px 9px; }
QTabBar::tab:hover { background: palette(midlight); }
QTabBar::tab:selected { border-bottom-color: palette(highlight); font-weight: bold; }
QTabBar::tab:disabled { color: @dim@; }
QTabBar::tab:focus { background: palette(midlight); }
QTreeView { background: palette(base); padding: 6px 2px; outline: none; show-decoration-selected: 1; }
QTreeView::item { padding: 3px 4px; }
QTreeView::item:hover { background: palette(midlight); }
QTreeView::item:selected { background: palette(highlight); color: palette(highlighted-text); }
QListWidget { background: palette(base); padding: 4px 2px; outline: none; }
QListWidget::item { padding: 2px 4px; border: none; background: transparent; }
QListWidget::item:hover { background: palette(midlight); }
QListWidget::item:selected { background: palette(highlight); color: palette(highlighted-text); }
QSplitter::handle { background: palette(window); border-left: 1px solid palette(mid); }
QSplitter::handle:hover { background: palette(midlight); }
QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }
QStatusBar { border-top: 1px solid palette(mid); }
QStatusBar::item { border: none; }
QStatusBar QLabel { padding: 2px 8px; }
QFrame[role="bar"] { border: none; border-top: 1px solid palette(mid); }
QLabel[role="hint"] { color: palette(link-visited); }
QLabel[role="title"] { font-size: 15pt; font-weight: bold; }
QLabel[role="name"] { font-weight: bold; padding: 6px 10px; background: palette(midlight); border-radius: 5px; }
QPushButton { padding: 5px 14px; }
QPushButton[primary="true"] { background: palette(highlight); color: palette(highlighted-text); border: 1px solid palette(highlight);
  border-radius: 4px; padding: 5px 16px; font-weight: bold; }
QPushButton[primary="true"]:hover { border-color: palette(link); }
QPushButton[primary="true"]:pressed { background: palette(link); }
QPushButton[primary="true"]:focus { border: 1px solid palette(text); }
QPushButton[primary="true"]:disabled { background: palette(midlight); color: @dim@; border-color: palette(mid); }
QToolTip { border: none; padding: 4px 6px; background: palette(tool-tip-base); color: palette(tool-tip-text); }
)";

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
  if (application.style()->objectName().compare("fusion", Qt::CaseInsensitive) != 0)
    application.setStyle(QStyleFactory::create("Fusion"));
  application.setPalette(palette(theme));
  // Set anew, since a style sheet takes its colours from the palette when it is set.
  application.setStyleSheet({});
  application.setStyleSheet(
      QString::fromLatin1(kStyleSheet).replace("@dim@", QColor(theme == Theme::Light ? kDimLight : kDimDark).name()));
}

void followSystemTheme(QApplication& application)
{
  applyTheme(application, systemTheme());
  onSystemThemeChange(application, [&application](Theme theme) { applyTheme(application, theme); });
}

} // namespace mrd::desktop
