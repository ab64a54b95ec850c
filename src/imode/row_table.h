#pragma once
// The fragments of a page for telephones: a menu entry is a line, levels are shown by blanks, the current page by marks.

#include "generator/row_layout.h"

#include <array>
#include <string>

namespace mrd::imode {

/// Rows 0 to 500; only those are filled that a page uses, up to 25.
using RowTable = std::array<std::string, 501>;
RowTable htmldefs();

/// The content before the menu, one narrow column, and keys of the telephone for the ways to the neighbours.
generator::RowLayout layout();

} // namespace mrd::imode
