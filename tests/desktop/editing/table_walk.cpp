#include "desktop/editing/table_walk.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace mrd::desktop {
namespace {

constexpr int kMostColumns = 1000;

int columnsOf(const html::Element& cell)
{
  return std::clamp(std::atoi(cell.attribute("colspan").value_or("1").c_str()), 1, kMostColumns);
}

/// A cell of no rows reaches to the end of its group.
int rowsOf(const html::Element& cell, int left)
{
  const std::string span = cell.attribute("rowspan").value_or("1");
  return span == "0" ? left : std::min(std::max(std::atoi(span.c_str()), 1), left);
}

std::vector<html::Element> childrenNamed(const html::Element& parent, const std::vector<std::string>& names)
{
  std::vector<html::Element> found;
  for (const auto& child : parent.children())
    if (std::ranges::find(names, child.tagName()) != names.end())
      found.push_back(child);
  return found;
}

/// One row group; cells that reach below it are cut.
void walkGroup(const std::vector<html::Element>& rows, WalkedTable& table, std::vector<std::vector<int>>& groupRows)
{
  const int height = static_cast<int>(rows.size());
  std::map<std::pair<int, int>, int> taken;
  std::vector<int> lastOwn(rows.size(), -1);
  for (int y = 0; y < height; ++y) {
    int x = 0;
    for (const auto& cell : childrenNamed(rows[static_cast<std::size_t>(y)], {"td", "th"})) {
      while (taken[{y, x}] > 0)
        ++x;
      const int width = columnsOf(cell), down = rowsOf(cell, height - y);
      for (int dy = 0; dy < down; ++dy)
        for (int dx = 0; dx < width; ++dx)
          ++taken[{y + dy, x + dx}];
      lastOwn[static_cast<std::size_t>(y)] = x;
      x += width;
    }
  }
  for (int y = 0; y < height; ++y) {
    std::vector<int> row;
    for (const auto& [place, cells] : taken)
      if (place.first == y && cells > 0) {
        row.resize(std::max(row.size(), static_cast<std::size_t>(place.second) + 1));
        row[static_cast<std::size_t>(place.second)] = cells;
      }
    for (std::size_t x = 0; x < row.size(); ++x) {
      table.overlaps += row[x] > 1 ? 1 : 0;
      table.innerHoles += row[x] == 0 && static_cast<int>(x) < lastOwn[static_cast<std::size_t>(y)] ? 1 : 0;
    }
    groupRows.push_back(std::move(row));
  }
}

} // namespace

WalkedTable walk(const html::Element& element)
{
  WalkedTable table;
  std::vector<std::vector<int>> rows;
  for (const auto& group : childrenNamed(element, {"thead", "tbody", "tfoot"}))
    walkGroup(childrenNamed(group, {"tr"}), table, rows);
  table.rows = static_cast<int>(rows.size());
  for (const auto& row : rows)
    table.columns = std::max(table.columns, static_cast<int>(row.size()));
  for (const auto& row : rows)
    table.holes += table.columns - static_cast<int>(std::ranges::count_if(row, [](int cells) { return cells > 0; }));
  return table;
}

std::vector<WalkedTable> walkAll(const std::string& html)
{
  auto document = html::Document::fromText(html);
  std::vector<WalkedTable> all;
  for (const auto& table : document.elementsByTag("table"))
    all.push_back(walk(table));
  return all;
}

} // namespace mrd::desktop
