#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/window_controls.h"

#include <map>
#include <string>
#include <string_view>

namespace mrd::editor {

/// Texts of the language database for what is no control of a window: entries of the context menu, questions, states. They are
/// kept there under a window's name, those of the editor under "Editor".
class Captions : private ui::WindowControls {
public:
  /// In the language of the moment.
  explicit Captions(messages::Language& language, std::string_view window = "Editor") : window_(window)
  {
    language.Setlanguage(*this);
  }

  /// The caption with this name, or the text without a language database.
  std::string text(std::string_view caption, std::string_view otherwise) const
  {
    const auto found = texts_.find(caption);
    return found == texts_.end() ? std::string(otherwise) : found->second;
  }

private:
  std::string name() const override { return window_; }
  void setWindow(const ui::ControlTexts&) override {}
  void setControl(std::string_view control, std::optional<int>, const ui::ControlTexts& texts) override
  {
    texts_[std::string(control)] = texts.caption.value_or("");
  }
  void setText(std::string_view, std::optional<int>, std::string_view) override {}
  void setToolbarButton(std::string_view, int, const ui::ControlTexts&) override {}
  int currentTab(std::string_view) const override { return 0; }
  void setCurrentTab(std::string_view, int) override {}
  void setCurrentTabTexts(std::string_view, const ui::ControlTexts&) override {}
  void setMenuChecked(std::string_view, bool) override {}

  std::string window_;
  std::map<std::string, std::string, std::less<>> texts_;
};

} // namespace mrd::editor
