#pragma once
// Runs in template layouts.

#include "generator/site_run.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// The pictures that template layouts show, in the order in which they are brought.
inline const std::vector<std::string> kLayoutPictures{"mrdbanner.gif",  "pixel.gif",    "nav_home.gif", "nav_links.gif",
                                                      "nav_rechts.gif", "nav_oben.gif", "nav_top.gif"};

/// A site in "Navigation in Laschen oben" without a page-turn strip. The program directory holds all that such a run brings, and
/// the stylesheet's master.
class TemplateSite : public SiteRun {
public:
  explicit TemplateSite(std::initializer_list<support::Page> pages);

  /// Chooses a layout of the user's own: all the rest of it follows `<root name='Eigenes'>`.
  void useLayout(std::string_view content);
  /// A layout that shows a fragment around nothing else.
  void useFragment(std::string_view code)
  {
    useLayout("<template><code><![CDATA[" + std::string(code) + "]]></code></template>");
  }
  /// Chooses a file by an entry of the layout box that need not be there.
  void useLayoutFile(std::string_view file, std::string_view bytes);

  /// What the file of a page shows, line by line, without the empty lines.
  std::vector<std::string> shown(const std::string& file) const;
};

} // namespace mrd::generator
