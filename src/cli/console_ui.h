#pragma once

#include "platform/ui/ui.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::cli {

/// The user of a command line: messages and questions go to standard error, questions are answered by an option or refused.
class ConsoleUi : public ui::Ui {
public:
  /// Answers questions with Yes or OK.
  bool yes = false;
  /// No progress bar.
  bool quiet = false;

  ui::Button messageBox(const ui::MessageBox& message) override;
  /// A line of standard input; from a terminal a password is read unseen. What is asked for again in one command was typed
  /// already.
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title, std::string_view proposal) override;
  std::optional<std::string> openFileDialog(const ui::FileDialog&) override { return std::nullopt; }
  std::optional<std::string> saveFileDialog(const ui::FileDialog&) override { return std::nullopt; }
  std::optional<std::string> folderDialog(std::string_view) override { return std::nullopt; }
  std::optional<int> colourDialog(int) override { return std::nullopt; }
  void remark(std::string_view text) override { warning(text); }
  void warning(std::string_view text) override;
  void status(ui::StatusPlace, std::string_view) override {}
  void progress(std::size_t value, std::size_t maximum) override;
  void hideProgress() override;
  void pointer(ui::Pointer) override {}
  bool pumpEvents() override { return false; }
  void hideSplash() override {}

private:
  static std::optional<std::string> typed(std::string_view prompt, std::string_view title);

  std::map<std::string, std::optional<std::string>, std::less<>> typed_;
  bool barShown_ = false;
  int barPercent_ = -1;
};

} // namespace mrd::cli
