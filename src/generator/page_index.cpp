#include "generator/page_index.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::generator {
namespace {

/// Menu level of a page from 0, nothing for one that no menu shows.
std::optional<std::size_t> menuLevel(const IndexedPage& page)
{
  if (!page.isShown())
    return std::nullopt;
  const std::size_t length = base::length(page.id);
  if (length < 3)
    return base::compareText(page.id, "00") > 0 && base::compareText(page.id, "99") <= 0 ? std::optional<std::size_t>(0)
                                                                                         : std::nullopt;
  return length % 2 == 0 && length / 2 <= kMenuLevels ? std::optional(length / 2 - 1) : std::nullopt;
}

} // namespace

PageIndex::PageIndex(dao::Database& db)
{
  auto rows = db.openSnapshot("select id, Überschrift, [seitentyp-id], dateiname from Seite Order By ID");
  const std::size_t id = rows.column("id"), heading = rows.column("Überschrift"), type = rows.column("seitentyp-id"),
                    file = rows.column("dateiname");
  for (; !rows.eof(); rows.moveNext()) {
    const auto seitentyp = rows.isNull(type) ? std::nullopt : std::optional(static_cast<int>(rows.value(type).integer()));
    pages_.push_back({std::string(rows.text(id)), std::string(rows.text(heading)), std::string(rows.text(file)), seitentyp});
  }
  for (const auto& page : pages_)
    if (const auto level = menuLevel(page))
      levels_[*level].push_back(&page);
}

const IndexedPage* PageIndex::find(std::string_view id) const
{
  const auto found = std::ranges::find_if(pages_, [id](const IndexedPage& page) { return page.id == id; });
  return found == pages_.end() ? nullptr : &*found;
}

} // namespace mrd::generator
