#pragma once

#include "desktop/looks/theme.h"

#include <functional>

class QObject;

namespace mrd::desktop {

/// What the user has chosen for his desktop: by the desktop's settings service, or else by the palette that the system came with.
/// To be asked before a palette is set.
Theme systemTheme();
/// Tells of changes as long as the owner lives.
void onSystemThemeChange(QObject& owner, std::function<void(Theme)> changed);

} // namespace mrd::desktop
