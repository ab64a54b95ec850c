#include "generator/row_table.h"

#include "base/text.h"
#include "generator/placeholders.h"

#include <string_view>

namespace mrd::generator {
namespace {

struct RowDefinition {
  std::size_t number;
  std::string_view html;
};

// Written as browsers of all kinds have got it ever since, "</SCRIPT >" included. The comment "[mrd:aktivID]" is never filled.
// The marks %OL% to %UR% are the corners, %H% is the link colour.
constexpr RowDefinition kRows[] = {
    {1, // head
     "<HTML><HEAD>"},
    {2, // title
     "<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>"},
    {3, // frame
     "<STYLE type=text/css>\r\n"
     "h3,div,p,td {FONT-FAMILY: [mrd:Schriftart]; FONT-SIZE:10pt}\r\n"
     "A:link {TEXT-DECORATION: none; color : #%H%;}\r\n"
     "A:visited {TEXT-DECORATION: none; color : #%H%;}\r\n"
     "A:active {TEXT-DECORATION: none; color : #%H%;}\r\n"
     "A:hover {TEXT-DECORATION: underline; color : #%H%;}\r\n"
     "</STYLE>"},
    {4, // frame
     "</HEAD>\r\n"},
    {5, // frame
     "<BODY bgColor=[mrd:Hintergrundfarbeaussen]>"},
    {6, // frame
     "<TABLE id=tabelle bgColor=[mrd:Hintergrundfarbe] cellSpacing=0 cellPadding=0 width=[mrd:Inhaltbreite] border=0"
     " align=center>"},
    {7, // frame
     " <TR valign=top> "},
    {8, // shared head
     "<TD bgcolor=[mrd:Tabellenfarbe]>%OL%</td><TD align=left bgColor=[mrd:Tabellenfarbe] colspan=4><a name='oben'>"
     "</a>[mrd:Kopf]</TD><TD bgColor=[mrd:Tabellenfarbe]>%OR%</td></TR>"},
    {9, // frame
     "<TR><td bgcolor=[mrd:Tabellenfarbe]></td><TD bgColor=[mrd:Tabellenfarbe] vAlign=top>"},
    {10, // frame
     "<TABLE cellPadding=0 cellSpacing=0 width='[mrd:Menübreite]'>\r\n"},
    {11, // active Homepage entry
     "   <tr><TD colSpan=3><FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menüaktivfarbe]>[mrd:Überschrift]</FONT></TD>\r\n"
     "   </tr>\r\n"},
    {12, // menu level 1, normal
     "   <TR>\r\n"
     "       <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>&#149;</font></TD>\r\n"
     "       <TD colSpan=2><A href='[mrd:ID]'>"
     "<FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>\r\n"
     "   </TR>"},
    {13, // end of menu column
     "<tr valign=bottom><TD valign=bottom colspan=3 bgColor=[mrd:Tabellenfarbe] align=center><br><br><br><br>\r\n"
     "</TD></tr>\r\n"
     "</TABLE><!-- Menü Ende --></TD>"},
    {14, // start of content cell
     "<td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td><!-- Inhalt -->\r\n"
     "<TD vAlign=top bgColor=[mrd:Hintergrundfarbe]><FONT color=[mrd:Textfarbe] face='[mrd:Schriftart]' size=2>\r\n"},
    {15, // never written
     "<p align=center><br>\r\n"
     "<font color=[mrd:Textfarbe] size=+2><b>[mrd:Überschrift]</b></font>\r\n"
     "</p>\r\n"
     "<b>[mrd:einleitenderText]</b> "},
    {16, // page-turn start
     "</FONT></TD><td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td><td width=6 bgColor=[mrd:Tabellenfarbe]>&nbsp;</td>"
     "</TR>\r\n"
     "<tr><TD bgColor=[mrd:Tabellenfarbe] valign=bottom>%UL%</TD>\r\n"
     "<td id=zelle bgColor=[mrd:Tabellenfarbe] colspan=4>&nbsp;\r\n"
     "<div ID='mrdnav' STYLE='position:absolute;'>\r\n"
     "<table bgColor=[mrd:Tabellenfarbe] border=0 cellpadding=0 cellspacing=0><tr>\r\n"
     "<td><layer ID='nsmrdnav' bgColor=[mrd:Tabellenfarbe] STYLE='position:absolute;'>"},
    {17, // page-turn end, document end
     "</layer></td></tr></table></div></td>\r\n"
     "<TD bgColor=[mrd:Tabellenfarbe] valign='bottom'>%UR%</TD>\r\n"
     "</TR></TABLE>\r\n"
     "<P></P></BODY>\r\n"
     "<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>\r\n"
     "<SCRIPT language='Javascript1.2'>\r\n"
     "//navposition();\r\n"
     "if ((document.all) || (document.layers)){\r\n"
     "  setInterval('navposition()', 800);\r\n"
     "}\r\n"
     "</SCRIPT ></HTML>\r\n"
     "\r\n"
     "\r\n"
     "\r\n"},
    {18, // menu level 1, active
     "<TR> \r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD> \r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2>"
     "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>[mrd:Überschrift]</FONT></TD> \r\n"
     "</TR> "},
    {19, // menu level 2, normal
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD>\r\n"
     "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT>"
     "</A></TD>\r\n"
     "</TR>"},
    {20, // menu level 2, active
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD>\r\n"
     "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>[mrd:Überschrift]</FONT></TD>\r\n"
     "</TR>"},
    {21, // menu level 3, normal
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' size=1>&#149;</font></TD>\r\n"
     "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=1 color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT>"
     "</A></TD>\r\n"
     "</TR>"},
    {22, // menu level 3, active
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
     "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1>&#149;</font></TD>\r\n"
     "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1>[mrd:Überschrift]</FONT></TD>\r\n"
     "</TR>"},
    {23, // menu level 4, normal
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>\r\n"
     "  <TD><FONT face='[mrd:Schriftart]' size=1><FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]'>&#149;</font>\r\n"
     "  <A href='[mrd:ID]'><font color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></font></TD>\r\n"
     "</TR>"},
    {24, // menu level 4, active
     "<!-- [mrd:aktivID] -->\r\n"
     "<TR>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>\r\n"
     "  <TD bgColor=[mrd:Tabellenfarbe]><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1 >"
     "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]'>&#149;</font>\r\n"
     "  [mrd:Überschrift]</FONT></TD>\r\n"
     "</TR>"},
    {25, // Homepage entry as link
     "<tr><TD colSpan=3><A href='[mrd:ID]'>"
     "<FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>\r\n"
     "</tr>\r\n"},
    {26, // never written
     "<p align=center><br>\r\n"
     "[mrd:Text]<br></p>\r\n"},
    {27, // never written
     "<p align=center><br>\r\n"
     "<img src='[mrd:Bild]'></p>\r\n"},
};

struct CornerMark {
  std::string_view mark, rounded, plain;
};

constexpr CornerMark kCornerMarks[] = {
    {"%OL%", "<img alt='' src='pix/ecke-ol.jpg' hspace=0 vspace=0 align=top>", "&nbsp;&nbsp;"},
    {"%OR%", "<img alt='' src='pix/ecke-or.jpg' align='right' hspace=0 vspace=0>", "&nbsp;&nbsp;&nbsp;"},
    {"%UL%", "<img src='pix/ecke-ul.jpg' hspace=0 vspace=0>", "&nbsp;"},
    {"%UR%", "<img src='pix/ecke-ur.jpg' align='right' hspace=0 vspace=0>", "&nbsp;&nbsp;&nbsp;"},
};

} // namespace

RowTable htmldefs(const settings::Fields& fields)
{
  RowTable rows;
  for (const auto& [number, html] : kRows)
    rows[number] = html;
  for (const auto& [mark, rounded, plain] : kCornerMarks)
    for (const std::size_t row : {std::size_t{kSharedHead}, std::size_t{kPageTurn}, std::size_t{kDocumentEnd}})
      rows[row] = base::replaceAll(rows[row], mark, fields.CheckRundeEcke ? rounded : plain);
  rows[kStyle] = base::replaceAll(rows[kStyle], "%H%", colourDigits(fields.tbHyperlink));
  return rows;
}

} // namespace mrd::generator
