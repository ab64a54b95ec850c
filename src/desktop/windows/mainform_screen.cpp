#include "desktop/windows/mainform_screen.h"

#include "desktop/editing/web_editing_surface.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/mainform_window.ui.h"
#include "platform/ui/twips.h"

#include <QApplication>

namespace mrd::desktop {
namespace {

using ui::kTwipsPerPixel;

int pixels(int twips) { return twips / kTwipsPerPixel; }
int twips(int pixels) { return pixels * kTwipsPerPixel; }

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
  controls_.setCurrentTabTexts(control, texts);
}

void MainformScreen::setMenuChecked(std::string_view menu, bool checked)
{
  controls_.setMenuChecked(menu, checked);
  // The checked entry of the language menu is the language of the window.
  if (checked && (menu == "GER" || menu == "ENG" || menu == "eng"))
    window_.surface_.setLanguage(menu == "GER" ? "GER" : "ENG");
}

void MainformScreen::place(const mainform::Placement& placement)
{
  // A window that fills the screen is as wide as it can be.
  if (window_.isMaximized() || window_.isFullScreen())
    return;
  window_.move(pixels(placement.MainLeft), pixels(placement.MainTop));
  window_.resize(pixels(placement.MainWidth), pixels(placement.MainHeight));
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
