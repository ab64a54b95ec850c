#include "platform/html/tags.h"

#include <algorithm>
#include <array>

namespace mrd::html {
namespace {

struct Tag {
  std::string_view name;
  TagTraits traits;
};

// In the order of the names: they are looked up by bisection.
constexpr std::array kTags{
    Tag{"a", kLink},
    Tag{"address", kBlock},
    Tag{"area", kVoid | kLink},
    Tag{"article", kBlock},
    Tag{"aside", kBlock},
    Tag{"base", kVoid | kBase},
    Tag{"basefont", kVoid},
    Tag{"bgsound", kVoid},
    Tag{"blockquote", kBlock},
    Tag{"body", kBlock | kBody},
    Tag{"br", kVoid | kLineBreak},
    Tag{"caption", kBlock},
    Tag{"center", kBlock},
    Tag{"col", kVoid},
    Tag{"dd", kBlock},
    Tag{"details", kBlock},
    Tag{"dialog", kBlock},
    Tag{"dir", kBlock},
    Tag{"div", kBlock},
    Tag{"dl", kBlock},
    Tag{"dt", kBlock},
    Tag{"embed", kVoid},
    Tag{"fieldset", kBlock},
    Tag{"figcaption", kBlock},
    Tag{"figure", kBlock},
    Tag{"footer", kBlock},
    Tag{"form", kBlock},
    Tag{"frame", kVoid},
    Tag{"frameset", kBlock | kBody},
    Tag{"h1", kBlock},
    Tag{"h2", kBlock},
    Tag{"h3", kBlock},
    Tag{"h4", kBlock},
    Tag{"h5", kBlock},
    Tag{"h6", kBlock},
    Tag{"head", kHidden | kHead},
    Tag{"header", kBlock},
    Tag{"hgroup", kBlock},
    Tag{"hr", kVoid | kBlock},
    Tag{"html", kBlock | kHtml},
    Tag{"iframe", kRawText | kHidden},
    Tag{"img", kVoid | kImage},
    Tag{"input", kVoid},
    Tag{"keygen", kVoid},
    Tag{"legend", kBlock},
    Tag{"li", kBlock},
    Tag{"link", kVoid},
    Tag{"listing", kBlock | kPreformatted},
    Tag{"main", kBlock},
    Tag{"menu", kBlock},
    Tag{"meta", kVoid},
    Tag{"nav", kBlock},
    Tag{"noembed", kRawText | kHidden},
    Tag{"noframes", kRawText | kHidden},
    Tag{"ol", kBlock},
    Tag{"optgroup", kBlock},
    Tag{"option", kBlock},
    Tag{"p", kBlock},
    Tag{"param", kVoid},
    Tag{"plaintext", kRawText | kBlock | kPreformatted},
    Tag{"pre", kBlock | kPreformatted},
    Tag{"script", kRawText | kHidden},
    Tag{"search", kBlock},
    Tag{"section", kBlock},
    Tag{"source", kVoid},
    Tag{"style", kRawText | kHidden},
    Tag{"summary", kBlock},
    Tag{"table", kBlock},
    Tag{"tbody", kBlock},
    Tag{"td", kTableCell},
    Tag{"template", kHidden},
    Tag{"textarea", kPreformatted},
    Tag{"tfoot", kBlock},
    Tag{"th", kTableCell},
    Tag{"thead", kBlock},
    Tag{"title", kHidden},
    Tag{"tr", kBlock},
    Tag{"track", kVoid},
    Tag{"ul", kBlock},
    Tag{"wbr", kVoid},
    Tag{"xmp", kRawText | kBlock | kPreformatted},
};

static_assert(std::ranges::is_sorted(kTags, {}, &Tag::name));

} // namespace

TagTraits traitsOf(std::string_view name)
{
  const auto* const found = std::ranges::lower_bound(kTags, name, {}, &Tag::name);
  return found != kTags.end() && found->name == name ? found->traits : TagTraits{0};
}

bool sameName(std::string_view a, std::string_view b)
{
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

} // namespace mrd::html
