#include "generator/templates/page_list.h"

#include "base/text.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace mrd::templates {

PageList::PageList(std::initializer_list<PageRow> rows) : rows_(rows) { std::ranges::sort(rows_, {}, &PageRow::id); }

const std::vector<const PageRow*>& PageList::level(std::string_view parent)
{
  const auto [found, isNew] = levels_.try_emplace(std::string(parent));
  const auto prefix = parent == "00" ? std::string_view() : parent;
  for (const auto& row : rows_)
    if (isNew && row.seitentyp != kBlindPage && row.id.starts_with(prefix) && row.id.size() == prefix.size() + 2)
      found->second.push_back(&row);
  return found->second;
}

const PageRow* PageList::after(std::string_view id)
{
  const auto row = std::ranges::find_if(rows_, [&](const auto& page) { return page.id > id && page.seitentyp != kBlindPage; });
  return row == rows_.end() ? nullptr : &*row;
}

const PageRow* PageList::before(std::string_view id)
{
  const PageRow* found = nullptr;
  for (const auto& row : rows_)
    if (row.id < id && row.seitentyp != kBlindPage)
      found = &row;
  return found;
}

const PageRow* PageList::at(std::string_view id)
{
  const auto row = std::ranges::find(rows_, id, &PageRow::id);
  return row == rows_.end() || row->seitentyp == kBlindPage ? nullptr : &*row;
}

PageText PageList::text(std::string_view) { return {html, {}}; }

const PageRow& PageList::find(std::string_view id) const
{
  const auto row = std::ranges::find(rows_, id, &PageRow::id);
  if (row == rows_.end())
    throw std::out_of_range(std::string(id));
  return *row;
}

Template& addNode(Template& parent, std::string_view flags, std::string_view Code, std::string_view CodeActive,
                  std::string_view TemplateName)
{
  auto& node = parent.Children.AddNew(flags.find('M') != flags.npos, Code, CodeActive, TemplateName);
  node.isActiveMenuitem = flags.find('A') != flags.npos;
  node.isShowChildren = flags.find('S') != flags.npos;
  return node;
}

std::string Rendering::of(Template& node, std::string_view id, std::string_view html, std::string_view script)
{
  const TemplateSite site{pages, tbbasisurl, [this](const std::string& text, std::string_view basislink) {
                            pictureTexts.push_back(text);
                            pictureLinks.emplace_back(basislink);
                            return text;
                          }};
  const auto& row = pages.find(id);
  const TemplatePage page{row.id, row.Überschrift, std::string(html), row.seitentyp, row.dateiname, std::string(script)};
  return node.getHtmlZeile(page, "00", page.seitentyp, site);
}

std::vector<std::string> Rendering::lines(std::string_view id, std::string_view html, std::string_view script)
{
  std::vector<std::string> out;
  std::istringstream text(base::replaceAll(of(root, id, html, script), "\r\n", "\n"));
  for (std::string line; std::getline(text, line);)
    if (!line.empty())
      out.push_back(line);
  return out;
}

} // namespace mrd::templates
