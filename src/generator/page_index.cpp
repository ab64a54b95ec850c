#include "generator/page_index.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::generator {
namespace {

/// Menu level of a page from 0, nothing for one that no menu shows.
std::optional<std::size_t> menuLevel(const IndexedPage& page)
{
  if (!page.seitentyp || *page.seitentyp == static_cast<int>(Seitentyp::Blind))
    return std::nullopt;
  const std::size_t length = base::length(page.id);
  if (length < 3)
    return base::compareText(page.id, "00") > 0 && base::compareText(page.id, "99") <= 0 ? std::optional<std::size_t>(0)
                                                                                           : std::nullopt;
  return length % 2 == 0 && length / 2 <= kMenuLevels ? std::optional(length / 2 - 1) : std::nullopt;
}

} // namespace

std::string fileOfPattern(std::string_view pattern, std::string_view id)
{
  return base::replaceAll(pattern.empty() ? "*.htm" : pattern, "*", id);
}

PageIndex PageIndex::read(dao::Database& db)
{
  PageIndex index;
  for (auto pages = db.openRecordset("select id, Überschrift, [seitentyp-id], dateiname from Seite Order By ID"); !pages.eof();
       pages.moveNext()) {
    const dao::Value type = pages.value("seitentyp-id");
    IndexedPage page{pages.value("id").text(), pages.value("Überschrift").text(), pages.value("dateiname").text(),
                     type.isNull() ? std::nullopt : std::optional(static_cast<int>(type.integer()))};
    const auto level = menuLevel(page);
    (level ? index.levels_[*level] : index.outsideMenus_).push_back(std::move(page));
  }
  return index;
}

const IndexedPage* PageIndex::find(std::string_view id) const
{
  const auto isPage = [id](const IndexedPage& page) { return page.id == id; };
  if (const auto found = std::ranges::find_if(outsideMenus_, isPage); found != outsideMenus_.end())
    return &*found;
  for (const auto& pages : levels_)
    if (const auto found = std::ranges::find_if(pages, isPage); found != pages.end())
      return &*found;
  return nullptr;
}

} // namespace mrd::generator
