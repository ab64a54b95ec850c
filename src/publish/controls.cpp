#include "publish/controls.h"

#include "base/errors.h"

#include <algorithm>
#include <limits>

namespace mrd::publish {

std::size_t ListBox::selectedCount() const
{
  return static_cast<std::size_t>(std::count_if(entries.begin(), entries.end(), [](const Entry& e) { return e.isSelected; }));
}

void itempos(const ListBox& Listbox, std::string_view Eintrag, std::int16_t& Position)
{
  Position = -1;
  const auto& entries = Listbox.entries;
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.text == Eintrag; });
  if (found == entries.end())
    return;
  const auto index = found - entries.begin();
  if (index > std::numeric_limits<std::int16_t>::max())
    throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Die Liste ist zu lang.");
  Position = static_cast<std::int16_t>(index);
}

} // namespace mrd::publish
