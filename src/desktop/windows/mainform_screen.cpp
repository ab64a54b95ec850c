#include "desktop/windows/mainform_screen.h"

#include "base/text.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/mainform_window.ui.h"
#include "platform/ui/twips.h"

#include <QApplication>
#include <QScreen>

namespace mrd::desktop {
namespace {

using ui::kTwipsPerPixel;

int pixels(int twips) { return twips / kTwipsPerPixel; }
int twips(int pixels) { return pixels * kTwipsPerPixel; }

/// Where a window may stand: a screen that is no longer there must not keep it from its user.
QPoint inSight(const QRect& wanted)
{
  // What the user takes to move it.
  constexpr int kTitleHeightPx = 30;
  const QRect title(wanted.topLeft(), QSize(wanted.width(), kTitleHeightPx));
  for (const QScreen* const screen : QGuiApplication::screens())
    if (screen->geometry().intersects(title))
      return wanted.topLeft();
  const QScreen* const first = QGuiApplication::primaryScreen();
  return first ? first->availableGeometry().topLeft() : wanted.topLeft();
}

} // namespace

MainformScreen::MainformScreen(MainformWindow& window) : window_(window), controls_(window, "Mainform") {}

void MainformScreen::setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts)
{
  controls_.setControl(control, index, texts);
  window_.fields_->showPreviewBox();
}

void MainformScreen::setText(std::string_view control, std::optional<int> index, std::string_view text)
{
  controls_.setText(control, index, text);
}

void MainformScreen::setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts)
{
  controls_.setToolbarButton(toolbar, button, texts);
}

void MainformScreen::setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts)
{
  ui::ControlTexts shown = texts;
  // The caption of the head's tab is a word of the system, the others come from the language tables already.
  if (shown.caption && window_.form_)
    shown.caption = window_.form_->program().language.shownText(*shown.caption);
  controls_.setCurrentTabTexts(control, shown);
}

void MainformScreen::setMenuChecked(std::string_view menu, bool checked)
{
  controls_.setMenuChecked(menu, checked);
  // The checked entry of the language menu is the language of the window.
  const std::string code = base::upper(menu);
  if (checked && (code == "GER" || code == "ENG"))
    window_.surface_.setLanguage(code);
}

void MainformScreen::place(const mainform::Placement& placement)
{
  // A window that fills the screen is as wide as it can be.
  if (window_.isMaximized() || window_.isFullScreen())
    return;
  const QSize size(pixels(placement.MainWidth), pixels(placement.MainHeight));
  window_.move(inSight(QRect(QPoint(pixels(placement.MainLeft), pixels(placement.MainTop)), size)));
  window_.resize(size);
  window_.placeSplitter(pixels(placement.picSplitterLeft));
}

mainform::Placement MainformScreen::placement() const
{
  const QRect frame(window_.pos(), window_.size());
  return {twips(frame.left()), twips(frame.top()), twips(frame.width()), twips(frame.height()),
          twips(window_.ui_->imgSplitter->sizes().constFirst())};
}

bool MainformScreen::isMinimised() const { return window_.isMinimized(); }

int MainformScreen::innerWidth() const { return twips(window_.width()); }

void MainformScreen::show() { window_.showFirst(); }

void MainformScreen::refresh(mainform::Shown what) { window_.fields_->show(what); }

void MainformScreen::unload() { window_.unloadWithoutQuestion(); }

void MainformScreen::unloadOtherWindows()
{
  const auto windows = QApplication::topLevelWidgets();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (*window != &window_ && (*window)->isVisible())
      (*window)->close();
}

} // namespace mrd::desktop
