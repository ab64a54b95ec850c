#pragma once
// A user who follows a script: expected messages with their answers. A message that was not expected fails the test.

#include "platform/ui/ui.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::support {

class ScriptedUi : public ui::Ui {
public:
  ~ScriptedUi() override;

  /// The next message box must have this number (0: none) and, unless empty, contain this text; it is answered with the button.
  ScriptedUi& expect(int number, std::string containing = {}, ui::Button answer = ui::Button::Ok);
  /// Answers every message; each is still recorded in `messages`.
  ScriptedUi& acceptAll();
  ScriptedUi& answerOpenDialog(std::optional<std::string> path);
  ScriptedUi& answerFolderDialog(std::optional<std::string> path);
  ScriptedUi& answerInputBox(std::optional<std::string> text);
  ScriptedUi& answerColourDialog(std::optional<int> colour);

  std::vector<ui::MessageBox> messages;
  std::vector<ui::FileDialog> fileDialogs;
  std::vector<std::string> statusTexts;
  /// What was warned of since it was told, and what was told together.
  std::vector<std::string> warnings;
  std::vector<std::vector<std::string>> toldWarnings;
  /// Value and maximum of each progress report.
  std::vector<std::pair<std::size_t, std::size_t>> progressSteps;
  int progressHidden = 0, splashHidden = 0, eventPumps = 0;
  /// From this pump of the event queue on the user asks to stop; 0: never.
  int stopAtPump = 0;
  ui::Pointer pointerShape = ui::Pointer::Default;
  /// Each shape that the pointer was given, in its order.
  std::vector<ui::Pointer> pointerShapes;

  ui::Button messageBox(const ui::MessageBox& message) override;
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title, std::string_view proposal) override;
  std::optional<std::string> openFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> saveFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> folderDialog(std::string_view title) override;
  std::optional<int> colourDialog(int colour) override;
  void warning(std::string_view text) override;
  void tellWarnings() override;
  void status(ui::StatusPlace place, std::string_view text) override;
  void progress(std::size_t value, std::size_t maximum) override;
  void hideProgress() override;
  void pointer(ui::Pointer shape) override;
  bool pumpEvents() override;
  void hideSplash() override;

private:
  struct Expectation {
    int number;
    std::string containing;
    ui::Button answer;
  };
  std::deque<Expectation> expected_;
  std::deque<std::optional<std::string>> openAnswers_, folderAnswers_, inputAnswers_;
  std::deque<std::optional<int>> colourAnswers_;
  bool acceptAll_ = false;
};

} // namespace mrd::support
