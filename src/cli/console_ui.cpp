#include "cli/console_ui.h"

#include "base/format.h"
#include "base/text.h"

#include <iostream>
#include <string>
#include <unistd.h>

namespace mrd::cli {
namespace {

constexpr std::size_t kBarWidth = 40;

/// The answer of somebody who agrees: a repetition would go on for ever, so it is never chosen.
ui::Button agreeing(int style)
{
  switch (ui::box::buttons(style)) {
  case ui::box::kYesNo:
  case ui::box::kYesNoCancel:
    return ui::Button::Yes;
  case ui::box::kRetryCancel:
    return ui::Button::Cancel;
  case ui::box::kAbortRetryIgnore:
    return ui::Button::Ignore;
  default:
    return ui::Button::Ok;
  }
}

ui::Button refusing(int style)
{
  switch (ui::box::buttons(style)) {
  case ui::box::kYesNo:
    return ui::Button::No;
  case ui::box::kYesNoCancel:
  case ui::box::kOkCancel:
  case ui::box::kRetryCancel:
    return ui::Button::Cancel;
  case ui::box::kAbortRetryIgnore:
    return ui::Button::Abort;
  default:
    return ui::Button::Ok;
  }
}

} // namespace

ui::Button ConsoleUi::messageBox(const ui::MessageBox& message)
{
  hideProgress();
  const std::string number = message.number == 0 ? "" : base::format(" {}", message.number);
  std::cerr << base::format("message{}: {}\n", number, base::replaceAll(message.text, base::kCrLf, "\n"));
  return yes ? agreeing(message.style) : refusing(message.style);
}

std::optional<std::string> ConsoleUi::inputBox(std::string_view prompt, std::string_view title, std::string_view)
{
  hideProgress();
  const auto known = typed_.find(title);
  return known != typed_.end() ? known->second : typed_.emplace(title, typed(prompt, title)).first->second;
}

std::optional<std::string> ConsoleUi::typed(std::string_view prompt, std::string_view title)
{
  const auto question = std::string(prompt.substr(0, prompt.find(base::kCrLf))) + " ";
  if (::isatty(STDIN_FILENO) != 0 && base::containsIgnoringCase(title, "passwort")) {
    const char* const typed = ::getpass(question.c_str());
    return typed == nullptr ? std::nullopt : std::optional<std::string>(typed);
  }
  if (::isatty(STDIN_FILENO) != 0)
    std::cerr << question << std::flush;
  std::string line;
  return std::getline(std::cin, line) ? std::optional(line) : std::nullopt;
}

void ConsoleUi::warning(std::string_view text)
{
  hideProgress();
  std::cerr << base::format("warning: {}\n", text);
}

void ConsoleUi::progress(std::size_t value, std::size_t maximum)
{
  const int percent = maximum == 0 ? 100 : static_cast<int>(100 * value / maximum);
  if (quiet || percent == barPercent_ || ::isatty(STDERR_FILENO) == 0)
    return;
  barPercent_ = percent;
  barShown_ = true;
  const std::size_t filled = kBarWidth * static_cast<std::size_t>(percent) / 100;
  std::cerr << base::format("\r[{:=<{}}{: <{}}] {:3}%", "", filled, "", kBarWidth - filled, percent) << std::flush;
}

void ConsoleUi::hideProgress()
{
  if (barShown_)
    std::cerr << "\r\x1b[K" << std::flush;
  barShown_ = false;
  barPercent_ = -1;
}

} // namespace mrd::cli
