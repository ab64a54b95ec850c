#pragma once

#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "platform/ui/shell.h"

#include <string>
#include <string_view>

namespace mrd::mainform {

/// The help page of what the user looks at, and how it is opened.
class Help {
public:
  Help(const paths::ProgramFiles& program, messages::Language& language, ui::Shell& shell)
      : program_(program), language_(language), shell_(shell)
  {
  }

  /// Name of the help file of the current tab or of the tree.
  std::string page;

  /// Opens the help page in the user's language; `name` is that of the window that asks. Also on F1. Message 45 without help.
  void HilfeAnzeigen(std::string_view name);

private:
  const paths::ProgramFiles& program_;
  messages::Language& language_;
  ui::Shell& shell_;
};

} // namespace mrd::mainform
