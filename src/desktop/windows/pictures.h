#pragma once

class QWidget;

namespace mrd::desktop {

/// Gives the actions and buttons of a window the pictures that its design names.
void showPictures(QWidget& window);

} // namespace mrd::desktop
