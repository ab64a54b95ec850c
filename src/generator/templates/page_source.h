#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::templates {

/// A page as menus and page-turn strips know it.
struct PageRow {
  std::string id, Überschrift, dateiname;
  int seitentyp = 1;
};

/// What a page holds beside what menus know of it.
struct PageText {
  std::string html, script;
};

/// The site's pages that menus show: blind pages and pages without a type are not among them.
class PageSource {
public:
  virtual ~PageSource() = default;
  /// Pages whose id is `parent` and two more characters, by id; all pages with two characters, the homepage first, for "00".
  virtual const std::vector<const PageRow*>& level(std::string_view parent) = 0;
  /// The nearest page behind, before and at an id, by the order of ids; null for none.
  virtual const PageRow* after(std::string_view id) = 0;
  virtual const PageRow* before(std::string_view id) = 0;
  virtual const PageRow* at(std::string_view id) = 0;
  /// Read when it is asked for: few layouts show the text of other pages than the current one.
  virtual PageText text(std::string_view id) = 0;
};

} // namespace mrd::templates
