#pragma once
// The numbered fragments of HTML of the layout "Navigation linke Seite".

#include "frame/settings/fields.h"

#include <array>
#include <span>
#include <string>

namespace mrd::generator {

/// The rows of a layout by their numbers.
using Rows = std::span<const std::string>;

/// Rows by what they are for, in all layouts of rows.
enum Row : std::size_t {
  kHead = 1,
  kTitle = 2,
  kStyle = 3,
  kSharedHead = 8,
  kHomepageActive = 11,
  kMenu = 12,
  kContentStart = 14,
  kBody = 15,
  kPageTurn = 16,
  kDocumentEnd = 17,
  kHomepageLink = 25,
};

/// Menu rows of a level (from 1) for other pages and for the current page.
struct MenuRows {
  std::size_t other, current;
};
inline constexpr std::array<MenuRows, 4> kMenuRows{{{12, 18}, {19, 20}, {21, 22}, {23, 24}}};

/// Rows 0 to 100; 1 to 27 are filled.
using RowTable = std::array<std::string, 101>;

/// The rows of the built-in layout, with the corner marks of the option for rounded corners and the link colour put in.
RowTable htmldefs(const settings::Fields& fields);

} // namespace mrd::generator
