#pragma once
// The three built-in layouts that are template trees, as tables.

#include <span>
#include <string_view>

namespace mrd::templates {

/// Flags of a node: a menu node, active also for ancestors, children always shown.
enum TreeFlags : int { M = 1, A = 2, S = 4 };

/// One node; children follow their parent with a depth one greater.
struct TreeNode {
  int depth;
  std::string_view TemplateName;
  int flags;
  std::string_view Code, CodeActive;
};

inline constexpr std::string_view kStartnavName = "startnav";
/// Keeps the page-turn strip in view. In layouts that load no script for it browsers report an error; they always have.
inline constexpr std::string_view kStartnav = "<SCRIPT language='Javascript1.2'>\r\n"
                                              "        if ((document.all) || (document.layers)){\r\n"
                                              "          setInterval('navposition()', 500);\r\n"
                                              "        }\r\n"
                                              "        </SCRIPT >\r\n";

/// The nodes of "tabnavigation", "einfachetabelle" or "sparta"; empty for another name.
std::span<const TreeNode> builtInTree(std::string_view layoutName);

} // namespace mrd::templates
