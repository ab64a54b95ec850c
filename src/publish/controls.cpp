#include "publish/controls.h"

#include <algorithm>

namespace mrd::publish {

std::size_t ListBox::selectedCount() const
{
  return static_cast<std::size_t>(std::count_if(entries.begin(), entries.end(), [](const Entry& e) { return e.isSelected; }));
}

void itempos(const ListBox& Listbox, std::string_view Eintrag, std::int16_t& Position)
{
  Position = -1;
  for (std::size_t i = 0; i < Listbox.entries.size() && Position < 0; ++i)
    if (Listbox.entries[i].text == Eintrag)
      Position = static_cast<std::int16_t>(i);
}

} // namespace mrd::publish
