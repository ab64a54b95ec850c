#include "generator/row_layout.h"

#include "base/format.h"
#include "base/text.h"

namespace mrd::generator {
namespace {

using base::format;

constexpr RowStep kSteps[] = {
    {Treatment::Head, kHead},
    {Treatment::Scripts},
    {Treatment::Title, kTitle},
    {Treatment::Plain, kStyle},
    {Treatment::Plain, 4},
    {Treatment::Plain, 5},
    {Treatment::Plain, 6},
    {Treatment::Plain, 7},
    {Treatment::SharedHead, kSharedHead},
    {Treatment::Plain, 9},
    {Treatment::Plain, 10},
    {Treatment::HomepageEntry},
    {Treatment::Menu},
    {Treatment::Plain, 13},
    {Treatment::Plain, kContentStart},
    {Treatment::Body},
    {Treatment::PageTurn, kPageTurn},
    {Treatment::Plain, kDocumentEnd},
};

std::string link(std::string_view href, std::string_view text)
{
  return format("<a href='{}'><FONT color=[mrd:Menütextfarbe]>{}</font></a>", href, text);
}

std::string pageTurnLinks(const PageTurn& turn)
{
  const std::string base(turn.basislink);
  std::string line = "<font size=2 face='[mrd:Schriftart]'>";
  line += link(base + turn.previous.file, "&lt; " + turn.previous.Überschrift) + " | ";
  if (turn.parent != nullptr)
    line += link(base + turn.parent->file, turn.parent->Überschrift) + " | ";
  line += link("#oben", "oben") + " | ";
  return line + link(base + turn.next.file, turn.next.Überschrift + " &gt;") + "</font>" + std::string(base::kCrLf);
}

} // namespace

RowLayout navigationlinks(const settings::Fields& fields)
{
  const RowTable rows = htmldefs(fields);
  return {{rows.begin(), rows.end()}, kSteps, kBuiltInHead, {base::kCrLf, false}, "<br>\r\n", pageTurnLinks};
}

} // namespace mrd::generator
