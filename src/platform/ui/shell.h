#pragma once

#include <string_view>

namespace mrd::ui {

/// Opens files with the program that the user's desktop has for them.
class Shell {
public:
  virtual ~Shell() = default;
  /// `path` in the system's form.
  virtual void open(std::string_view path) = 0;
};

} // namespace mrd::ui
