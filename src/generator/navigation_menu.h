#pragma once
// The menu of a layout of rows: the path to the current page is open, all else is closed.

#include "frame/settings/fields.h"
#include "generator/page_index.h"
#include "generator/row_table.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// A page that a link leads to.
struct PageLink {
  std::string id, Überschrift, file;
};

/// Neighbours of the current page in its menu. Pointers lead into the page index; null where the menu has none.
struct MenuNeighbours {
  const IndexedPage* previous = nullptr;
  const IndexedPage* next = nullptr;
  /// Row "01" of the top level.
  const IndexedPage* first = nullptr;
  /// Whether the menu has a row for the current page.
  bool seen = false;
};

/// How a layout writes the rows of its menu.
struct MenuStyle {
  /// Behind each row.
  std::string_view rowEnd;
  /// The pages above the current one stand in its form too, without a link.
  bool marksAncestors;
};

/// Prints menus for one base address. Rows of pages that are not the current one look the same on every page, so each level is
/// rendered once, in output bytes, and a page's menu is put together from runs of it.
class NavigationMenu {
public:
  NavigationMenu(const PageIndex& index, Rows rows, const MenuStyle& style, const settings::Fields& fields,
                 std::string basislink);

  /// Appends the menu of page `currentId` to `out` (Windows-1252).
  MenuNeighbours print(std::string& out, std::string_view currentId) const;

private:
  struct Walk;
  /// Rows [first, last) of a level.
  struct Range {
    std::size_t first, last;
  };

  Range childRange(std::size_t level, std::string_view parentId) const;
  void printLevel(Walk& walk, std::size_t level, Range range) const;
  void printOthers(Walk& walk, std::size_t level, Range range) const;
  std::string renderedRow(std::size_t row, const IndexedPage& page) const;

  const PageIndex& index_;
  Rows rows_;
  MenuStyle style_;
  const settings::Fields& fields_;
  std::string basislink_;
  /// All rows of a level in the form for other pages, and where each one ends.
  struct RenderedLevel {
    std::string bytes;
    std::vector<std::size_t> starts;
  };
  std::array<RenderedLevel, kMenuLevels> rendered_;
};

} // namespace mrd::generator
