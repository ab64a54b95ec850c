#include "desktop/editing/deep_nesting.h"

#include "base/text.h"
#include "platform/html/flatten.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>

namespace mrd::desktop {
namespace {

/// No page that somebody wrote comes near; the engine's working time grows with the square of it.
constexpr int kMaxOpenElements = 1000;

/// Never open, or ended by the next of their kind: old pages leave out the end tags of thousands.
constexpr std::array<std::string_view, 26> kNotCounted{
    "area",   "base", "basefont", "br",   "col",    "dd",       "dt", "embed", "frame", "hr", "image", "img", "input",
    "keygen", "li",   "link",     "meta", "option", "optgroup", "p",  "param", "tbody", "td", "th",    "tr",  "wbr"};

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kNameEnd = " \t\r\n\f/>";

bool isCounted(std::string_view name) { return std::ranges::find(kNotCounted, name) == kNotCounted.end(); }

/// The most elements that are open at one place, at a rough count: end tags are taken by their name, wherever they stand.
int mostOpenElements(std::string_view html)
{
  std::map<std::string, int, std::less<>> open;
  int count = 0, most = 0;
  for (auto at = html.find('<'); at != std::string_view::npos; at = html.find('<', at + 1)) {
    const bool isEnd = at + 1 < html.size() && html[at + 1] == '/';
    const auto begin = at + (isEnd ? 2 : 1);
    if (begin >= html.size() || kLetters.find(html[begin]) == std::string_view::npos)
      continue;
    const auto end = std::min(html.find_first_of(kNameEnd, begin), html.size());
    const std::string name = base::lower(html.substr(begin, std::min<std::size_t>(end - begin, 20)));
    if (!isCounted(name))
      continue;
    int& ofName = open[name];
    const int change = !isEnd ? 1 : ofName > 0 ? -1 : 0;
    ofName += change;
    count += change;
    most = std::max(most, count);
  }
  return most;
}

} // namespace

std::string withBoundedDepth(std::string_view html)
{
  if (mostOpenElements(html) <= kMaxOpenElements)
    return std::string(html);
  return html::flattenTags(html, html::Flattening::Balanced);
}

} // namespace mrd::desktop
