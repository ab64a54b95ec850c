#include "generator/navigation_menu.h"

#include "base/format.h"
#include "base/stored_text.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "frame/paths/page_file.h"
#include "generator/placeholders.h"

#include <algorithm>

namespace mrd::generator {

/// What one print carries along.
struct NavigationMenu::Walk {
  std::string& out;
  std::string_view currentId;
  MenuNeighbours neighbours;

  /// A row of another page is passed: it may be a neighbour.
  void pass(const IndexedPage& first, const IndexedPage& last)
  {
    if (!neighbours.seen)
      neighbours.previous = &last;
    else if (neighbours.next == nullptr)
      neighbours.next = &first;
  }
};

NavigationMenu::NavigationMenu(const PageIndex& index, Rows rows, const MenuStyle& style, const settings::Fields& fields,
                               std::string basislink)
    : index_(index), rows_(rows), style_(style), fields_(fields), basislink_(std::move(basislink))
{
  for (std::size_t level = 0; level < kMenuLevels; ++level) {
    auto& [bytes, starts] = rendered_[level];
    starts.push_back(0);
    for (const IndexedPage* const page : index_.level(level)) {
      bytes += renderedRow(kMenuRows[level].other, *page);
      starts.push_back(bytes.size());
    }
  }
}

std::string NavigationMenu::renderedRow(std::size_t row, const IndexedPage& page) const
{
  const std::string target = basislink_ + paths::fileOfPattern(page.dateiname, page.id);
  return base::toWindows1252(menüzeile(rows_[row], page.Überschrift, target, fields_).append(style_.rowEnd));
}

MenuNeighbours NavigationMenu::print(std::string& out, std::string_view currentId) const
{
  Walk walk{out, currentId, {}};
  for (const IndexedPage* const page : index_.level(0))
    if (page->id == "01")
      walk.neighbours.first = page;
  printLevel(walk, 0, {0, index_.level(0).size()});
  return walk.neighbours;
}

NavigationMenu::Range NavigationMenu::childRange(std::size_t level, std::string_view parentId) const
{
  // The upper bound has at least as many digits as the parent; behind "99" it has one more, sorts before all children, and so
  // pages below "99" are listed nowhere.
  const std::string upper = base::format("{:0{}}", static_cast<long long>(base::wholeNumber(parentId)) + 1, 2 * level);
  const auto& pages = index_.level(level);
  const auto above = [](std::string_view bound, const IndexedPage* page) { return base::compareText(bound, page->id) < 0; };
  const auto below = [](const IndexedPage* page, std::string_view bound) { return base::compareText(page->id, bound) < 0; };
  const auto first = std::upper_bound(pages.begin(), pages.end(), parentId, above);
  const auto last = std::lower_bound(first, pages.end(), std::string_view(upper), below);
  return {static_cast<std::size_t>(first - pages.begin()), static_cast<std::size_t>(last - pages.begin())};
}

void NavigationMenu::printLevel(Walk& walk, std::size_t level, Range range) const
{
  const auto& pages = index_.level(level);
  std::size_t printed = range.first;
  for (std::size_t at = range.first; at < range.last; ++at) {
    const IndexedPage& page = *pages[at];
    if (!walk.currentId.starts_with(page.id))
      continue;
    const bool isCurrent = page.id == walk.currentId;
    const bool isMarked = isCurrent || style_.marksAncestors;
    printOthers(walk, level, {printed, isMarked ? at : at + 1});
    if (isMarked)
      walk.out += renderedRow(kMenuRows[level].current, page);
    if (isCurrent)
      walk.neighbours.seen = true;
    else if (isMarked)
      walk.pass(page, page);
    printed = at + 1;
    if (level + 1 < kMenuLevels)
      printLevel(walk, level + 1, childRange(level + 1, page.id));
  }
  printOthers(walk, level, {printed, range.last});
}

void NavigationMenu::printOthers(Walk& walk, std::size_t level, Range range) const
{
  if (range.first == range.last)
    return;
  const auto& [bytes, starts] = rendered_[level];
  walk.out.append(bytes, starts[range.first], starts[range.last] - starts[range.first]);
  walk.pass(*index_.level(level)[range.first], *index_.level(level)[range.last - 1]);
}

} // namespace mrd::generator
