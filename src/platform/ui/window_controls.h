#pragma once
// A window as the language tables see it: controls found by name, with the few properties that a language can set.

#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// What one control shows. A property that is empty is left as it is.
struct ControlTexts {
  std::optional<std::string> caption;
  std::optional<std::string> toolTip;
  std::optional<bool> enabled;
  std::optional<bool> visible;
};

/// Every operation throws base::Error (ControlNotFound) for a control that the window lacks. `index` is the element of a control
/// array, empty for a single control. No event of a control follows from any of them.
class WindowControls {
public:
  virtual ~WindowControls() = default;
  /// The name of the window.
  virtual std::string name() const = 0;
  virtual void setWindow(const ControlTexts& texts) = 0;
  virtual void setControl(std::string_view control, std::optional<int> index, const ControlTexts& texts) = 0;
  /// The text of an input control, where a language table gives one.
  virtual void setText(std::string_view control, std::optional<int> index, std::string_view text) = 0;
  virtual void setToolbarButton(std::string_view toolbar, int button, const ControlTexts& texts) = 0;
  /// Current page of a tab control, from 0.
  virtual int currentTab(std::string_view control) const = 0;
  virtual void setCurrentTab(std::string_view control, int page) = 0;
  /// Texts of the tab control's current page.
  virtual void setCurrentTabTexts(std::string_view control, const ControlTexts& texts) = 0;
  /// The language menu is asked for by the code of the language: the case of the name does not count.
  virtual void setMenuChecked(std::string_view menu, bool checked) = 0;

  /// Texts of any page of a tab control; the current page stays.
  virtual void setTabTexts(std::string_view control, int page, const ControlTexts& texts)
  {
    const int kept = currentTab(control);
    setCurrentTab(control, page);
    setCurrentTabTexts(control, texts);
    setCurrentTab(control, kept);
  }
};

} // namespace mrd::ui
