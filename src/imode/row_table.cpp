#include "imode/row_table.h"

#include "base/format.h"
#include "base/text.h"

#include <string_view>

namespace mrd::imode {
namespace {

using generator::RowStep;
using generator::Treatment;

struct RowDefinition {
  std::size_t number;
  std::string_view html;
};

// The names in the comments and the line ends behind the links differ from row to row. "[mrd:aktivID]" is never filled.
constexpr RowDefinition kRows[] = {
    {1, "<HTML><HEAD>"},
    {2, "<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>"},
    {3, "</HEAD><BODY bgColor=[mrd:Hintergrundfarbe]><FONT color=[mrd:Textfarbe]>"},
    {4, "\r\n"},
    {11, "[0] [mrd:Überschrift]<br>"},
    {12, "<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>\r\n"},
    {15, "<!-- def15 --><br>"},
    {16, "<!-- def16 --><br>"},
    {17, "</font>"},
    {18, "<!-- def18 -->&nbsp;&gt;[mrd:Überschrift]&lt;<br>"},
    {19, "<!-- htmldef 19 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>"},
    {20, "<!-- htmldef 20 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>"},
    {21, "<!-- htmldef 21 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>\r\n"},
    {22, "<!-- def 22 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>\r\n"},
    {23, "<!-- def 23 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>\r\n"},
    {24, "<!-- def 24 [mrd:aktivID] -->\r\n"
         "&nbsp;&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>\r\n"},
    {25, "[0] <A href='[mrd:ID]' accesskey='0'>[mrd:Überschrift]</A><br>\r\n"},
};

// Row 4 is the place of the head that all pages share, row 6 that of the body; row 8 has none. The menu stands under row 15.
constexpr RowStep kSteps[] = {
    {Treatment::Head, generator::kHead},
    {Treatment::Title, generator::kTitle},
    {Treatment::Plain, 3},
    {Treatment::SharedHead, 4},
    {Treatment::Plain, 5},
    {Treatment::Body},
    {Treatment::Plain, 7},
    {Treatment::Plain, 9},
    {Treatment::Plain, 10},
    {Treatment::Plain, 13},
    {Treatment::Plain, 14},
    {Treatment::Plain, 15},
    {Treatment::HomepageEntry},
    {Treatment::Menu},
    {Treatment::LineEnd},
    {Treatment::PageTurn, generator::kPageTurn},
    {Treatment::Plain, generator::kDocumentEnd},
};

/// Nothing is said to robots, and no page opens a window of its own.
constexpr generator::HeadStyle kHead{"", base::kCrLf, "", ""};

std::string keyLine(const generator::PageTurn& turn)
{
  return base::format(
      "[1] <a href='{0}{1}' accesskey='1'>zurück</a><br>[3] <a href='{0}{2}' accesskey='3'>nächste Seite</a><br>\r\n",
      turn.basislink, turn.previous.file, turn.next.file);
}

} // namespace

RowTable htmldefs()
{
  RowTable rows;
  for (const auto& [number, html] : kRows)
    rows[number] = html;
  return rows;
}

generator::RowLayout layout()
{
  const RowTable rows = htmldefs();
  return {{rows.begin(), rows.end()}, kSteps, kHead, {"", true}, base::kCrLf, keyLine};
}

} // namespace mrd::imode
