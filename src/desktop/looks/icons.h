#pragma once

#include <QIcon>

namespace mrd::desktop {

/// One of the program's own pictures by the name of its file. It is drawn in the colours of the palette at the time of drawing,
/// at any size: light and dark, enabled and disabled come from one drawing.
QIcon icon(const char* name);
/// The same for a name that a window's design holds.
QIcon icon(const QString& name);

/// The program's own picture, in its own colours.
QIcon programIcon();

} // namespace mrd::desktop
