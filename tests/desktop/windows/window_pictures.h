#pragma once
// Pictures of windows, for people to look at and for the help.

#include "desktop/looks/theme.h"

#include <ostream>
#include <string>

class QWidget;

namespace mrd::desktop {

struct Look {
  const char* language;
  Theme theme;
};

/// "GER-light".
std::string nameOf(const Look& look);
inline void PrintTo(const Look& look, std::ostream* out) { *out << nameOf(look); }

/// Writes NAME-LOOK.png into the folder with the pictures of the build. A failure of the test where that cannot be.
void save(QWidget& window, const Look& look, const std::string& name);

} // namespace mrd::desktop
