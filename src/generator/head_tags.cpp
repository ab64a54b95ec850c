#include "generator/head_tags.h"

#include "base/format.h"
#include "base/product.h"

#include <array>

namespace mrd::generator {
namespace {

using base::format;

/// Names of the meta tags that the fields `tbmeta` feed, in their order.
constexpr std::array<std::string_view, 3> kMetaNames{"description", "author", "keywords"};

} // namespace

std::string metaTags(const HeadStyle& style, const settings::Fields& fields, const base::DateTime& now)
{
  std::string text;
  for (std::size_t i = 0; i < kMetaNames.size(); ++i)
    if (!fields.tbmeta[i].empty())
      text += format("<meta name='{}' content='{}'>\r\n", kMetaNames[i], fields.tbmeta[i]);
  text += format("<meta name='date' content='{:04}-{:02}-{:02}'>\r\n", now.year, now.month, now.day);
  if (!style.imageToolbarAttribute.empty())
    text += format("<meta name='revisit' content='After 20 days'>\r\n"
                   "<meta name='expires' content='NEVER'>\r\n"
                   "<meta {}='imagetoolbar' content='no'>\r\n"
                   "<meta name='robots' content='INDEX,FOLLOW'>",
                   style.imageToolbarAttribute);
  text += style.beforeGenerator;
  return text + format("<meta name='generator' content='{} Version {}'>\r\n", base::kHomeAddress, base::kVersion);
}

std::string popupScript(const HeadStyle& style)
{
  return format(
      "<script language=JavaScript>\r\n"
      "function popupfenster({0}, bu)\r\n"
      "     {{\r\n"
      "    if (bu == null) {{ bu = \"\";}};\r\n"
      "        bu = bu.replace(/ /g,\"%20\");\r\n"
      "        {1} = {0}.replace(/ /g,\"%20\");\r\n"
      "        f1 = open('popupbild.htm?src=' + {0} + '&bu=' + bu,'fenster1','width=320,height=350,screenx=-0,screeny=-100,"
      "scrollbars=Yes,resizable=Yes,left=10,top=10');\r\n"
      "        f1.focus();\r\n"
      "     }}\r\n"
      "</script>",
      style.popupParameter, style.popupVariable);
}

} // namespace mrd::generator
