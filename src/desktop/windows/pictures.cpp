#include "desktop/windows/pictures.h"

#include "desktop/looks/icons.h"

#include <QAbstractButton>
#include <QAction>
#include <QWidget>

namespace mrd::desktop {

void showPictures(QWidget& window)
{
  for (QAction* const action : window.findChildren<QAction*>())
    if (const QString picture = action->property("picture").toString(); !picture.isEmpty())
      action->setIcon(icon(picture));
  for (auto* const button : window.findChildren<QAbstractButton*>())
    if (const QString picture = button->property("picture").toString(); !picture.isEmpty())
      button->setIcon(icon(picture));
  // The style's own picture for what has no room is black in every palette.
  for (const char* const extension : {"qt_toolbar_ext_button", "qt_menubar_ext_button"})
    for (auto* const button : window.findChildren<QAbstractButton*>(extension))
      button->setIcon(icon("more"));
}

} // namespace mrd::desktop
