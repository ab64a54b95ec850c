#include "generator/site_pages.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::generator {
namespace {

bool sortsBefore(const templates::PageRow& row, std::string_view id) { return base::compareText(row.id, id) < 0; }
bool sortsBehind(std::string_view id, const templates::PageRow& row) { return base::compareText(id, row.id) < 0; }

/// Under which id a menu shows the page; nothing for one that no menu reaches.
std::optional<std::string> menuParent(std::string_view id)
{
  const std::size_t length = base::length(id);
  if (length == 2)
    return std::string(kHomepageId);
  // "00" asks for the top level, so no page can stand below it.
  if (length < 4 || base::left(id, length - 2) == kHomepageId)
    return std::nullopt;
  return std::string(base::left(id, length - 2));
}

} // namespace

SitePages::SitePages(const PageIndex& index, dao::Database& db) : db_(db)
{
  for (const auto& page : index.pages())
    if (page.isShown())
      rows_.push_back({page.id, page.Überschrift, page.dateiname, *page.seitentyp});
  for (const auto& row : rows_)
    if (const auto parent = menuParent(row.id))
      levels_[*parent].push_back(&row);
}

const std::vector<const templates::PageRow*>& SitePages::level(std::string_view parent)
{
  const auto found = levels_.find(parent);
  return found == levels_.end() ? noRows_ : found->second;
}

const templates::PageRow* SitePages::after(std::string_view id)
{
  const auto next = std::upper_bound(rows_.begin(), rows_.end(), id, sortsBehind);
  return next == rows_.end() ? nullptr : &*next;
}

const templates::PageRow* SitePages::before(std::string_view id)
{
  const auto first = std::lower_bound(rows_.begin(), rows_.end(), id, sortsBefore);
  return first == rows_.begin() ? nullptr : &*std::prev(first);
}

const templates::PageRow* SitePages::at(std::string_view id)
{
  const auto found = std::lower_bound(rows_.begin(), rows_.end(), id, sortsBefore);
  return found != rows_.end() && base::compareText(found->id, id) == 0 ? &*found : nullptr;
}

templates::PageText SitePages::text(std::string_view id)
{
  const auto page = db_.openSnapshot("select html, script from Seite WHERE ID = ?", {dao::Value(id)});
  if (page.eof())
    return {};
  return {page.value("html").text(), page.value("script").text()};
}

} // namespace mrd::generator
