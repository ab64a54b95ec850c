#pragma once
// The controls of a publishing dialog, under their names, as far as the procedures touch them.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::publish {

/// A list in which several entries can be selected.
struct ListBox {
  struct Entry {
    std::string text;
    bool isSelected = false;
  };
  std::vector<Entry> entries;

  std::size_t selectedCount() const;
};

/// The index of the first entry with the text, or -1. Throws base::Error behind the last index that the type can tell.
void itempos(const ListBox& Listbox, std::string_view Eintrag, std::int16_t& Position);

struct ProgressBar {
  std::size_t value = 0, maximum = 100;
  bool isVisible = false;
};

struct Label {
  std::string caption, toolTip, tag;
};

/// `labelSekunden`, a button shaped as a display.
struct SecondsDisplay {
  std::string caption = "0,0 Sek";
  bool isVisible = false;
};

} // namespace mrd::publish
