#include "generator/row_table.h"

#include "base/text.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace mrd::generator {
namespace {

/// A row as it is meant: "¶" is a line end, {H} the link colour, {OL}, {OR}, {UL} and {UR} the corner marks.
struct ExpectedRow {
  std::size_t number;
  std::string_view text;
};

constexpr std::array kExpectedRows{
    ExpectedRow{1, "<HTML><HEAD>"},
    ExpectedRow{2, "<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>"},
    ExpectedRow{3, "<STYLE type=text/css>¶"
                   "h3,div,p,td {FONT-FAMILY: [mrd:Schriftart]; FONT-SIZE:10pt}¶"
                   "A:link {TEXT-DECORATION: none; color : #{H};}¶"
                   "A:visited {TEXT-DECORATION: none; color : #{H};}¶"
                   "A:active {TEXT-DECORATION: none; color : #{H};}¶"
                   "A:hover {TEXT-DECORATION: underline; color : #{H};}¶"
                   "</STYLE>"},
    ExpectedRow{4, "</HEAD>¶"},
    ExpectedRow{5, "<BODY bgColor=[mrd:Hintergrundfarbeaussen]>"},
    ExpectedRow{6, "<TABLE id=tabelle bgColor=[mrd:Hintergrundfarbe] cellSpacing=0 cellPadding=0 width=[mrd:Inhaltbreite"
                   "] border=0 align=center>"},
    ExpectedRow{7, " <TR valign=top> "},
    ExpectedRow{8, "<TD bgcolor=[mrd:Tabellenfarbe]>{OL}</td><TD align=left bgColor=[mrd:Tabellenfarbe] colspan=4>"
                   "<a name='oben'></a>[mrd:Kopf]</TD><TD bgColor=[mrd:Tabellenfarbe]>{OR}</td></TR>"},
    ExpectedRow{9, "<TR><td bgcolor=[mrd:Tabellenfarbe]></td><TD bgColor=[mrd:Tabellenfarbe] vAlign=top>"},
    ExpectedRow{10, "<TABLE cellPadding=0 cellSpacing=0 width='[mrd:Menübreite]'>¶"},
    ExpectedRow{11, "   <tr><TD colSpan=3><FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menüaktivfarbe]>[mrd:Überschrift]"
                    "</FONT></TD>¶"
                    "   </tr>¶"},
    ExpectedRow{12, "   <TR>¶"
                    "       <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>&#149;</font></TD>¶"
                    "       <TD colSpan=2><A href='[mrd:ID]'>"
                    "<FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>¶"
                    "   </TR>"},
    ExpectedRow{13, "<tr valign=bottom><TD valign=bottom colspan=3 bgColor=[mrd:Tabellenfarbe] align=center><br><br><br><br>¶"
                    "</TD></tr>¶"
                    "</TABLE><!-- Menü Ende --></TD>"},
    ExpectedRow{14, "<td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td><!-- Inhalt -->¶"
                    "<TD vAlign=top bgColor=[mrd:Hintergrundfarbe]>"
                    "<FONT color=[mrd:Textfarbe] face='[mrd:Schriftart]' size=2>¶"},
    ExpectedRow{15, "<p align=center><br>¶"
                    "<font color=[mrd:Textfarbe] size=+2><b>[mrd:Überschrift]</b></font>¶"
                    "</p>¶"
                    "<b>[mrd:einleitenderText]</b> "},
    ExpectedRow{16, "</FONT></TD><td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td>"
                    "<td width=6 bgColor=[mrd:Tabellenfarbe]>&nbsp;</td></TR>¶"
                    "<tr><TD bgColor=[mrd:Tabellenfarbe] valign=bottom>{UL}</TD>¶"
                    "<td id=zelle bgColor=[mrd:Tabellenfarbe] colspan=4>&nbsp;¶"
                    "<div ID='mrdnav' STYLE='position:absolute;'>¶"
                    "<table bgColor=[mrd:Tabellenfarbe] border=0 cellpadding=0 cellspacing=0><tr>¶"
                    "<td><layer ID='nsmrdnav' bgColor=[mrd:Tabellenfarbe] STYLE='position:absolute;'>"},
    ExpectedRow{17, "</layer></td></tr></table></div></td>¶"
                    "<TD bgColor=[mrd:Tabellenfarbe] valign='bottom'>{UR}</TD>¶"
                    "</TR></TABLE>¶"
                    "<P></P></BODY>¶"
                    "<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>¶"
                    "<SCRIPT language='Javascript1.2'>¶"
                    "//navposition();¶"
                    "if ((document.all) || (document.layers)){¶"
                    "  setInterval('navposition()', 800);¶"
                    "}¶"
                    "</SCRIPT ></HTML>¶¶¶¶"},
    ExpectedRow{18, "<TR> ¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD> ¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2>"
                    "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>[mrd:Überschrift]</FONT></TD> ¶"
                    "</TR> "},
    ExpectedRow{19, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD>¶"
                    "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>[mrd:Übersch"
                    "rift]</FONT></A></TD>¶"
                    "</TR>"},
    ExpectedRow{20, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>&#149;</font></TD>¶"
                    "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>[mrd:Überschrift]</FONT></TD>¶"
                    "</TR>"},
    ExpectedRow{21, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' size=1>&#149;</font></TD>¶"
                    "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=1 color=[mrd:Menütextfarbe]>[mrd:Übersch"
                    "rift]</FONT></A></TD>¶"
                    "</TR>"},
    ExpectedRow{22, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] width=8>"
                    "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1>&#149;</font></TD>¶"
                    "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1>[mrd:Überschrift]</FONT></TD>¶"
                    "</TR>"},
    ExpectedRow{23, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>¶"
                    "  <TD><FONT face='[mrd:Schriftart]' size=1>"
                    "<FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]'>&#149;</font>¶"
                    "  <A href='[mrd:ID]'><font color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></font></TD>¶"
                    "</TR>"},
    ExpectedRow{24, "<!-- [mrd:aktivID] -->¶"
                    "<TR>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>¶"
                    "  <TD bgColor=[mrd:Tabellenfarbe]><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1 >"
                    "<FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]'>&#149;</font>¶"
                    "  [mrd:Überschrift]</FONT></TD>¶"
                    "</TR>"},
    ExpectedRow{25, "<tr><TD colSpan=3><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 color=[mrd:Menütextfarbe]>"
                    "[mrd:Überschrift]</FONT></A></TD>¶"
                    "</tr>¶"},
    ExpectedRow{26, "<p align=center><br>¶"
                    "[mrd:Text]<br></p>¶"},
    ExpectedRow{27, "<p align=center><br>¶"
                    "<img src='[mrd:Bild]'></p>¶"},
};

struct Corners {
  std::string_view OL, OR, UL, UR;
};
constexpr Corners kRounded{"<img alt='' src='pix/ecke-ol.jpg' hspace=0 vspace=0 align=top>",
                           "<img alt='' src='pix/ecke-or.jpg' align='right' hspace=0 vspace=0>",
                           "<img src='pix/ecke-ul.jpg' hspace=0 vspace=0>",
                           "<img src='pix/ecke-ur.jpg' align='right' hspace=0 vspace=0>"};
constexpr Corners kSquare{"&nbsp;&nbsp;", "&nbsp;&nbsp;&nbsp;", "&nbsp;", "&nbsp;&nbsp;&nbsp;"};

std::string expectedText(std::string_view row, const Corners& corners)
{
  std::string text(row);
  for (const auto& [mark, value] : std::array<std::pair<std::string_view, std::string_view>, 6>{{{"¶", "\r\n"},
                                                                                                 {"{H}", "c0ffee"},
                                                                                                 {"{OL}", corners.OL},
                                                                                                 {"{OR}", corners.OR},
                                                                                                 {"{UL}", corners.UL},
                                                                                                 {"{UR}", corners.UR}}})
    text = base::replaceAll(text, mark, value);
  return text;
}

settings::Fields someFields(bool CheckRundeEcke)
{
  settings::Fields fields;
  fields.tbHyperlink = "c0ffee";
  fields.CheckRundeEcke = CheckRundeEcke;
  return fields;
}

void expectAllRows(bool CheckRundeEcke, const Corners& corners)
{
  const auto rows = htmldefs(someFields(CheckRundeEcke));

  for (const auto& expected : kExpectedRows)
    EXPECT_EQ(rows.at(expected.number), expectedText(expected.text, corners)) << "row " << expected.number;
}

TEST(RowTable, holds_each_row_letter_for_letter_with_plain_corners) { expectAllRows(false, kSquare); }

TEST(RowTable, holds_each_row_letter_for_letter_with_corner_pictures) { expectAllRows(true, kRounded); }

TEST(RowTable, has_nothing_beyond_its_rows)
{
  const auto rows = htmldefs(someFields(true));

  ASSERT_EQ(rows.size(), 101u);
  std::set<std::size_t> filled;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (!rows[i].empty())
      filled.insert(i);
  EXPECT_EQ(filled.size(), kExpectedRows.size());
  EXPECT_EQ(*filled.begin(), 1u);
  EXPECT_EQ(*filled.rbegin(), 27u);
}

TEST(RowTable, shows_blanks_in_the_corner_cells_of_the_head_without_rounded_corners)
{
  const auto rows = htmldefs(someFields(false));

  EXPECT_TRUE(rows[kSharedHead].starts_with("<TD bgcolor=[mrd:Tabellenfarbe]>&nbsp;&nbsp;</td>"));
  EXPECT_TRUE(rows[kSharedHead].ends_with("<TD bgColor=[mrd:Tabellenfarbe]>&nbsp;&nbsp;&nbsp;</td></TR>"));
  for (const auto& row : rows)
    EXPECT_FALSE(base::contains(row, "ecke-"));
}

TEST(RowTable, puts_one_sign_before_a_link_colour_that_was_stored_with_it)
{
  auto fields = someFields(false);
  fields.tbHyperlink = "#00aa11";

  const auto style = htmldefs(fields)[kStyle];

  EXPECT_TRUE(base::contains(style, "color : #00aa11;"));
  EXPECT_FALSE(base::contains(style, "##"));
}

} // namespace
} // namespace mrd::generator
