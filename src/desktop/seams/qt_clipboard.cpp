#include "desktop/seams/qt_clipboard.h"

#include "desktop/seams/shown_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace mrd::desktop {

void QtClipboard::clear() { QGuiApplication::clipboard()->clear(); }

void QtClipboard::setText(std::string_view text) { QGuiApplication::clipboard()->setText(shown(text)); }

} // namespace mrd::desktop
