#pragma once
// A window that writes down what a language sets on it.

#include "base/errors.h"
#include "base/format.h"
#include "platform/ui/window_controls.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mrd::messages {

class RecordingWindow : public ui::WindowControls {
public:
  explicit RecordingWindow(std::string name = "Mainform") : name_(std::move(name)) {}

  /// One line a call: target, then what was set.
  std::vector<std::string> calls;
  std::set<std::string> missing;
  std::map<std::string, int> tabs;

  std::string name() const override { return name_; }
  void setWindow(const ui::ControlTexts& texts) override { record("window", texts); }
  void setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts) override
  {
    record(target(control, index), texts);
  }
  void setText(std::string_view control, std::optional<int> index, std::string_view text) override
  {
    calls.push_back(target(control, index) + " text=" + std::string(text));
  }
  void setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts) override
  {
    record(target(toolbar, button), texts);
  }
  int currentTab(std::string_view control) const override
  {
    require(control);
    return tabs.at(std::string(control));
  }
  void setCurrentTab(std::string_view control, int page) override
  {
    tabs[std::string(control)] = page;
    calls.push_back(base::format("{} page={}", control, page));
  }
  void setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts) override
  {
    record(std::string(control), texts);
  }
  void setMenuChecked(std::string_view menu, bool checked) override
  {
    calls.push_back(base::format("{} checked={}", menu, checked ? 1 : 0));
  }

private:
  void require(std::string_view control) const
  {
    if (missing.contains(std::string(control)))
      throw base::Error(base::ErrorNumber::ControlNotFound, "Element nicht gefunden");
  }

  std::string target(std::string_view control, std::optional<int> index) const
  {
    require(control);
    return index ? base::format("{}({})", control, *index) : std::string(control);
  }

  void record(std::string line, const ui::ControlTexts& texts)
  {
    if (texts.caption)
      line += " caption=" + *texts.caption;
    if (texts.toolTip)
      line += " tip=" + *texts.toolTip;
    if (texts.enabled)
      line += *texts.enabled ? " enabled" : " disabled";
    if (texts.visible)
      line += *texts.visible ? " visible" : " hidden";
    calls.push_back(line);
  }

  std::string name_;
};

} // namespace mrd::messages
