#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// Opens things with the programs that the user's desktop has for them.
class Shell {
public:
  virtual ~Shell() = default;
  /// `path` in the system's form.
  virtual void open(std::string_view path) = 0;
  /// The program that open() would start for the file, as its user knows it; nothing where the desktop has none.
  virtual std::optional<std::string> programFor(std::string_view) { return std::nullopt; }
  /// An address with its scheme ("mailto:", "http:").
  virtual void openAddress(std::string_view) {}
  /// Starts the desktop's tool that describes the computer; false where there is none.
  virtual bool openSystemInformation() { return false; }
};

} // namespace mrd::ui
