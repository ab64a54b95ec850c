#pragma once

#include "platform/ui/clipboard.h"

namespace mrd::desktop {

/// The clipboard of this desktop.
class QtClipboard : public ui::Clipboard {
public:
  void clear() override;
  void setText(std::string_view text) override;
};

} // namespace mrd::desktop
