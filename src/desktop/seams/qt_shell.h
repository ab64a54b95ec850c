#pragma once

#include "platform/ui/shell.h"

namespace mrd::desktop {

/// The programs of this desktop.
class QtShell : public ui::Shell {
public:
  void open(std::string_view path) override;
  std::optional<std::string> programFor(std::string_view path) override;
  void openAddress(std::string_view address) override;
  bool openSystemInformation() override;
};

} // namespace mrd::desktop
