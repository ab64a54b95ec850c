#include "support/scripted_ui.h"

#include <gtest/gtest.h>

#include <utility>

namespace mrd::support {
namespace {

/// The next answer of a script; a dialog that the script does not know fails the test and counts as cancelled.
std::optional<std::string> nextAnswer(std::deque<std::optional<std::string>>& answers, std::string_view title)
{
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected dialog: " << title;
    return std::nullopt;
  }
  auto answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

} // namespace

ScriptedUi::~ScriptedUi()
{
  for (const auto& missing : expected_)
    ADD_FAILURE() << "expected message " << missing.number << " (" << missing.containing << ") did not come";
}

ScriptedUi& ScriptedUi::expect(int number, std::string containing, ui::Button answer)
{
  expected_.push_back({number, std::move(containing), answer});
  return *this;
}

ScriptedUi& ScriptedUi::acceptAll()
{
  acceptAll_ = true;
  return *this;
}

ScriptedUi& ScriptedUi::answerOpenDialog(std::optional<std::string> path)
{
  openAnswers_.push_back(std::move(path));
  return *this;
}

ScriptedUi& ScriptedUi::answerFolderDialog(std::optional<std::string> path)
{
  folderAnswers_.push_back(std::move(path));
  return *this;
}

ScriptedUi& ScriptedUi::answerInputBox(std::optional<std::string> text)
{
  inputAnswers_.push_back(std::move(text));
  return *this;
}

ScriptedUi& ScriptedUi::answerColourDialog(std::optional<int> colour)
{
  colourAnswers_.push_back(colour);
  return *this;
}

ui::Button ScriptedUi::messageBox(const ui::MessageBox& message)
{
  messages.push_back(message);
  if (expected_.empty()) {
    if (!acceptAll_)
      ADD_FAILURE() << "unexpected message " << message.number << ": " << message.text;
    return ui::Button::Ok;
  }
  const auto next = std::move(expected_.front());
  expected_.pop_front();
  EXPECT_EQ(message.number, next.number) << message.text;
  EXPECT_NE(message.text.find(next.containing), std::string::npos) << message.text << "\nlacks\n" << next.containing;
  return next.answer;
}

std::optional<std::string> ScriptedUi::inputBox(std::string_view, std::string_view title, std::string_view)
{
  return nextAnswer(inputAnswers_, title);
}

std::optional<std::string> ScriptedUi::openFileDialog(const ui::FileDialog& dialog)
{
  fileDialogs.push_back(dialog);
  return nextAnswer(openAnswers_, dialog.title);
}

std::optional<std::string> ScriptedUi::saveFileDialog(const ui::FileDialog& dialog) { return openFileDialog(dialog); }

std::optional<std::string> ScriptedUi::folderDialog(std::string_view title) { return nextAnswer(folderAnswers_, title); }

std::optional<int> ScriptedUi::colourDialog(int)
{
  if (colourAnswers_.empty()) {
    ADD_FAILURE() << "unexpected colour dialog";
    return std::nullopt;
  }
  const auto answer = colourAnswers_.front();
  colourAnswers_.pop_front();
  return answer;
}

void ScriptedUi::warning(std::string_view text) { warnings.emplace_back(text); }

void ScriptedUi::tellWarnings()
{
  if (!warnings.empty())
    toldWarnings.push_back(std::exchange(warnings, {}));
}

void ScriptedUi::status(ui::StatusPlace, std::string_view text) { statusTexts.emplace_back(text); }

void ScriptedUi::progress(std::size_t value, std::size_t maximum) { progressSteps.push_back({value, maximum}); }

void ScriptedUi::hideProgress() { ++progressHidden; }

void ScriptedUi::pointer(ui::Pointer shape)
{
  pointerShape = shape;
  pointerShapes.push_back(shape);
}

bool ScriptedUi::pumpEvents()
{
  ++eventPumps;
  return stopAtPump > 0 && eventPumps >= stopAtPump;
}

void ScriptedUi::hideSplash() { ++splashHidden; }

} // namespace mrd::support
