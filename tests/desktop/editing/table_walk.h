#pragma once
// A table as a browser lays it out, walked without the code under test, by the rules for forming a table at
// https://html.spec.whatwg.org/multipage/tables.html.

#include "platform/html/document.h"

#include <string>
#include <vector>

namespace mrd::desktop {

struct WalkedTable {
  /// Places that two cells share, and places inside of the table that none has.
  int overlaps = 0, holes = 0;
  /// Places that lie in front of a cell of their row and that none has.
  int innerHoles = 0;
  int rows = 0, columns = 0;
};

WalkedTable walk(const html::Element& table);
/// All tables of a page, nested ones too, in document order.
std::vector<WalkedTable> walkAll(const std::string& html);

} // namespace mrd::desktop
