#pragma once

#include <string_view>

namespace mrd::ui {

/// The desktop's clipboard, as far as plain text goes.
class Clipboard {
public:
  virtual ~Clipboard() = default;
  virtual void clear() = 0;
  virtual void setText(std::string_view text) = 0;
};

} // namespace mrd::ui
