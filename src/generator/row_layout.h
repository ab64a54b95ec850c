#pragma once
// A layout of numbered rows: its rows, what a page does with them, and how it looks where layouts differ.

#include "frame/settings/fields.h"
#include "generator/head_tags.h"
#include "generator/navigation_menu.h"
#include "generator/row_table.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// What a step of a page writes.
enum class Treatment {
  /// The row and the meta tags.
  Head,
  /// The page's script, and those that its body asks for.
  Scripts,
  Title,
  /// The row with its colours, and nothing of the page.
  Plain,
  /// What all pages have at their top.
  SharedHead,
  HomepageEntry,
  Menu,
  /// An empty row.
  LineEnd,
  Body,
  /// The row and the links to the neighbours.
  PageTurn,
};

struct RowStep {
  Treatment treatment;
  std::size_t row = 0;
};

/// The links to a page's neighbours, to be written with `basislink` before each file.
struct PageTurn {
  std::string_view basislink;
  const PageLink &previous, &next;
  /// None for a page that has no link to its parent.
  const PageLink* parent;
};

struct RowLayout {
  std::vector<std::string> rows;
  /// A page from its first byte to its last.
  std::span<const RowStep> steps;
  HeadStyle head;
  MenuStyle menu;
  /// Behind the comment that ends a page's body.
  std::string_view behindBody;
  /// The page-turn row behind its beginning, colours not yet put in.
  std::string (*pageTurnLinks)(const PageTurn& turn);
};

/// "Navigation linke Seite".
RowLayout navigationlinks(const settings::Fields& fields);

} // namespace mrd::generator
