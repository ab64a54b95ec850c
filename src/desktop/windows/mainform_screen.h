#pragma once

#include "desktop/seams/qt_controls.h"
#include "mainform/main_screen.h"

namespace mrd::desktop {

class MainformWindow;

/// The main window as the core drives it.
class MainformScreen : public mainform::MainScreen {
public:
  explicit MainformScreen(MainformWindow& window);

  std::string name() const override { return controls_.name(); }
  void setWindow(const ui::ControlTexts& texts) override { controls_.setWindow(texts); }
  void setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts) override;
  void setText(std::string_view control, std::optional<int> index, std::string_view text) override;
  void setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts) override;
  int currentTab(std::string_view control) const override { return controls_.currentTab(control); }
  void setCurrentTab(std::string_view control, int page) override { controls_.setCurrentTab(control, page); }
  void setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts) override;
  void setMenuChecked(std::string_view menu, bool checked) override;

  void place(const mainform::Placement& placement) override;
  mainform::Placement placement() const override;
  bool isMinimised() const override;
  int innerWidth() const override;
  void show() override;
  void refresh(mainform::Shown what) override;
  void unload() override;
  void unloadOtherWindows() override;

  const QtControls& controls() const { return controls_; }

private:
  MainformWindow& window_;
  QtControls controls_;
};

} // namespace mrd::desktop
