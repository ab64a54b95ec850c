#pragma once

#include <QPalette>

class QApplication;

namespace mrd::desktop {

/// What the user has chosen for his desktop.
enum class Theme { Light, Dark };

/// The program's palette.
QPalette palette(Theme theme);

/// Gives the application its style and palette, now and when the system turns light or dark later.
void followSystemTheme(QApplication& application);
/// A theme whatever the system says.
void applyTheme(QApplication& application, Theme theme);

} // namespace mrd::desktop
