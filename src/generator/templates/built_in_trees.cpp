#include "generator/templates/built_in_trees.h"

namespace mrd::templates {
namespace {

// "<hmtl>" and "</hmtl>" are what these layouts have always begun and ended with.
// clang-format off
constexpr TreeNode kTabnavigation[] = {
    {1, "head", 0,
     "<html>\r\n"
     "<head>\r\n"
     "<title>[mrd:Titel]: [mrd:Überschrift]</title>\r\n"
     "<link rel='STYLESHEET' type='text/css' href='mrdstyle.css'>\r\n",
     ""},
    {1, "scripts", 0, "[mrd:Scripts]", ""},
    {1, "body", 0, "</head><body bgcolor='[mrd:Hintergrundfarbeaussen]'><a name='oben'></a>", ""},
    {1, "1. Zeile Kopf", 0,
     "<table align=center id=tabelle border=0 cellpadding=0 cellspacing=0 width='[mrd:Inhaltbreite]'>\r\n"
     "<tr valign=top><td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>"
     "<td width='90%' bgcolor='[mrd:Tabellenfarbeinaktiv]'>[mrd:Kopf]</td>"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td><td bgcolor='[mrd:Tabellenfarbeinaktiv]' width='1'>"
     "<img src='pix/pixel.gif' border=0 height='1' width=1></td><td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td></tr>",
     ""},
    {1, "2. Zeile Navigation", 0,
     "<tr valign=top><td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>"
     "<td class=tdeckeo bgcolor='[mrd:Tabellenfarbeinaktiv]'></td> <td bgcolor='[mrd:Tabellenfarbeinaktiv]'>",
     ""},
    {1, "Tabellenreiter - Ebene 1 - Zeile", 0,
     "<table width='100%' border=0 cellpadding=0 cellspacing=0><tr bgcolor='[mrd:Tabellenfarbeinaktiv]' height=1>",
     ""},
    {2, "Laschenoberteil Ebene1", M | A,
     "<td class=tab1or></td><td class=tab1om ><img src='pix/pixel.gif' border=0 height='1'></td> <td class=tab1or>"
     "<img src='pix/pixel.gif' border=0 height='1' width=2></td>",
     "<td class=tab1or></td><td class=tab1omaktiv><img src='pix/pixel.gif' border=0 height='1'></td><td class=tab1or>"
     "<img src='pix/pixel.gif' border=0 height='1' width=2></td>"},
    {2, "Zwischenlaschenkopf und -beschriftung E1", 0, "</tr>  <tr bgcolor='[mrd:Tabellenfarbeinaktiv]'>", ""},
    {2, "Laschenbeschriftung Ebene1", M | A,
     "<td class=tab1L><img src='pix/pixel.gif' border=0 width=1 height='1'></td><td class=tab1>"
     "<a style='color:[mrd:Menütextfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></td><td class=tab1r>"
     "<img src='pix/pixel.gif' border=0 width=1 height='1'></td>",
     "<td width=1 class=tab1L><img src='pix/pixel.gif' border=0 width=1 height='1'></td><td class=tab1aktiv>"
     "<a style='color:[mrd:Menüaktivfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></td><td width=1 class=tab1r>"
     "<img src='pix/pixel.gif' border=0 width=1 height='1'></td>"},
    {2, "Abschluss Ebene 1", 0,
     "</tr>        </table></td><td class=tdeckeo bgcolor='[mrd:Tabellenfarbeinaktiv]'>"
     "<img src='pix/pixel.gif' border=0 height='1' width='1'></td><td bgcolor='[mrd:Tabellenfarbeinaktiv]' width=1>"
     "<img src='pix/pixel.gif' border=0 height='1' width='1'></td>"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td></tr>",
     ""},
    {1, "Beginn Ebene 2", 0,
     "<tr valign=top>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td class=tdl bgcolor='[mrd:Tabellenfarbe]'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbe]'>\r\n"
     "<table width=100% border=0 cellspacing=0 cellpadding=0 >\r\n"
     "<!-- Zwischenreihe kein Template -->\r\n"
     "<tr><td colspan=21 bgcolor='[mrd:Tabellenfarbe]'><img src='pix/pixel.gif' border=0 width=1 height='4'></td></tr>\r\n"
     "<tr bgcolor=[mrd:Tabellenfarbe]>",
     ""},
    {2, "dummy E1 für E2", M, "", ""},
    {3, "E2 Tabs-oben", M | A,
     "<td class=tdl></td>\r\n"
     "<td class=tab1om><img src='pix/pixel.gif' border=0 height='1'></td>\r\n"
     "<td class=tab1or><img src='pix/pixel.gif' border=0 height='1' width=2></td>",
     "<td class=tab1oraktiv></td>\r\n"
     "<td class=tab1omaktiv><img src='pix/pixel.gif' border=0 height='1'></td>\r\n"
     "<td class=tab1oraktiv><img src='pix/pixel.gif' border=0 height='1' width=2></td>"},
    {3, "E2 zwischen oben und Beschriftung", 0, "</tr><tr bgcolor=[mrd:Tabellenfarbe] >", ""},
    {3, "E2 Tabs-Beschriftung", M | A,
     "<td width=1 class=tab1L><img src='pix/pixel.gif' border=0 width=1 height='1'></td>\r\n"
     "<td class=tab1><a style='color:[mrd:Menütextfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></td>\r\n"
     "<td width=1 class=tab1r><img src='pix/pixel.gif' border=0 width=1 height='1'></td>",
     "<td width=1 class=tab1L><img src='pix/pixel.gif' border=0 width=1 height='1'></td>\r\n"
     "<td class=tab1aktiv><a style='color:[mrd:Menüaktivfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></td>\r\n"
     "<td width=1 class=tab1r><img src='pix/pixel.gif' border=0 width=1 height='1'></td>"},
    {2, "E2 Ende", 0,
     "</tr><tr><td colspan=21 bgcolor='[mrd:Tabellenfarbe]'><img src='pix/pixel.gif' border=0 width=1 height='4'>"
     "</td></tr></table>",
     ""},
    {2, "dummy E1 für E3", M, "", ""},
    {3, "dummy E2 für E3", M, "", ""},
    {4, "Tabelle für E3", 0,
     "<table width=100% border=0 cellpadding=0 cellspacing=0>\r\n"
     "<tr valign=top><td bgcolor=[mrd:Tabellenfarbe] align=center>",
     ""},
    {4, "E3", M | A,
     "<span class=nav3><a style='color:[mrd:Menütextfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></span>",
     "<span class=nav3aktiv><a style='color:[mrd:Menüaktivfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></span>"},
    {4, "Zeilenabschluß E3", 0, "</td></tr>", ""},
    {2, "dummy E1 für E4", M, "", ""},
    {3, "dummy E2 für E4", M, "", ""},
    {4, "dummy E3 für E4", M, "", ""},
    {5, "Zeilenanfang E4", 0, "<tr valign=top><td bgcolor='[mrd:Tabellenfarbe]' align=center>", ""},
    {5, "E4", M | A,
     "<span class=nav4><a style='color:[mrd:Menütextfarbe]' href='[mrd:ID]'>[mrd:Überschrift]</a></span>",
     "<span class=nav4aktiv style='color:[mrd:Menüaktivfarbe]'>[mrd:Überschrift]</span>"},
    {5, "ZeilenEnde E4", 0, "</td></tr>", ""},
    {4, "Tabellenende für E3 und E4", 0, "</table>", ""},
    {2, "Abschluß Navigationen", 0,
     "</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbe]'><!--4--><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td class=tdro width=1><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td></tr>",
     ""},
    {1, "Inhalt", 0,
     "<tr valign=top>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td class=tdl bgcolor='[mrd:Tabellenfarbe]'></td>\r\n"
     "<td bgcolor='[mrd:Hintergrundfarbe]' style='padding: 20'>\r\n"
     "<br>[mrd:Inhalt]<br>\r\n"
     "</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbe]'>&nbsp;</td>\r\n"
     "<td class=tdr><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "</tr>",
     ""},
    {1, "4. Zeile gelber Rand", 0,
     "<tr valign=bottom>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>    \r\n"
     "<td class=tdl bgcolor='[mrd:Tabellenfarbe]'></td>\r\n"
     "<td id=zelle bgcolor='[mrd:Tabellenfarbe]'>&nbsp;[mrd:BlätternNavigation]&nbsp;<br><font size=1>&nbsp;</font></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbe]'>&nbsp;</td>\r\n"
     "<td class=tdr><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "</tr>",
     ""},
    {1, "5. Zeile Grauer Rand", 0,
     "<tr valign=top>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'></td>\r\n"
     "<td class=tdul><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td class=tdu ><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td class=tdu ><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td class=tdur><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'></td>\r\n"
     "</tr>",
     ""},
    {1, "6. Zeile unten", 0,
     "<tr valign=top>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'><img src='pix/pixel.gif' border=0 height='1' width='1'></td>\r\n"
     "<td bgcolor='[mrd:Tabellenfarbeinaktiv]'>&nbsp;</td>\r\n"
     "</tr></table>",
     ""},
    {1, "mrdBanner", 0, "", ""},
    {1, "startnav", 0, kStartnav, ""},
    {1, "rest", 0, "</body></html>", ""},
};

constexpr TreeNode kEinfacheTabelle[] = {
    {1, "htm1", 0, "<hmtl><body bgcolor='[mrd:Hintergrundfarbeaussen]'>", ""},
    {1, "Kopf", 0,
     "<table id=tabelle width='[mrd:Inhaltbreite]' align=center><tr><td colspan='2'>"
     "<font face='[mrd:Schriftart]'>[mrd:Kopf]</font><td></tr>",
     ""},
    {1, "Zelle für Menü", 0, "<tr valign='top'><td>", ""},
    {1, "me1", M | S,
     "<a href='[mrd:ID]'>[mrd:Überschrift]</a><br>",
     "<i><b><font face='[mrd:Schriftart]'><a href='[mrd:ID]'>[mrd:Überschrift]</a></font></b></i><br>"},
    {2, "me2", M,
     "&nbsp;&nbsp;-<a href='[mrd:ID]'>[mrd:Überschrift]</a><br>",
     "&nbsp;&nbsp;-<i><a href='[mrd:ID]'>[mrd:Überschrift]</a></i><br>"},
    {3, "me3", M,
     "&nbsp;&nbsp;&nbsp;&nbsp;-<a href='[mrd:ID]'>[mrd:Überschrift]</a><br>",
     "&nbsp;&nbsp;&nbsp;&nbsp;-<a href='[mrd:ID]'><i>[mrd:Überschrift] aktiv</i></a><br>"},
    {4, "me4", M,
     "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;-<a href='[mrd:ID]'>[mrd:Überschrift]</a><br>",
     "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;-<i>[mrd:Überschrift] aktiv</i><br>"},
    {1, "Zwischen Menü und Inhalt", 0, "</td><td>", ""},
    {1, "Inhalt", 0, "<br>[mrd:Inhalt]<br>", ""},
    {1, "htm2", 0, "</td></tr></table><br><br>", ""},
    {1, "startnav", 0, kStartnav, ""},
    {1, "mrdBanner", 0, "", ""},
};

constexpr TreeNode kSparta[] = {
    {1, "htm1", 0, "<hmtl><body bgcolor='[mrd:Hintergrundfarbeaussen]'><span id=tabelle></span>", ""},
    {1, "Kopf", 0, "<font face='[mrd:Schriftart]'>[mrd:Kopf]</font>", ""},
    {1, "tc3", 0, "<br><hr>", ""},
    {1, "me1", M | A,
     "<a href='[mrd:ID]'>[mrd:Überschrift]</a>",
     "<i><font face='[mrd:Schriftart]'><a href='[mrd:ID]'>[mrd:Überschrift]</a></font></i>"},
    {1, "Zwischen", 0, "<br><hr>", ""},
    {1, "me1-leer", M, "", ""},
    {2, "me2", M | A, "    <a href='[mrd:ID]'>[mrd:Überschrift]</a>", "    <i><a href='[mrd:ID]'>[mrd:Überschrift]</a></i>"},
    {2, "Zwischen 2 und 3", 0, "<br><hr>", ""},
    {1, "me1-leer2", M, "", ""},
    {2, "me2-leer", M, "", ""},
    {3, "me3", M | A,
     "          <a href='[mrd:ID]'>[mrd:Überschrift]</a>",
     "         <a href='[mrd:ID]'><i>[mrd:Überschrift] aktiv</i></a>"},
    {4, "me4", M, "         -<a href='[mrd:ID]'>[mrd:Überschrift]</a>-", "         -<i>[mrd:Überschrift] aktiv</i>-"},
    {3, "Zwischen2", 0, "<br><hr><br>", ""},
    {1, "Inhalt", 0, "<br>[mrd:Inhalt]<br>", ""},
    {1, "NavI", 0, "<br><br>[mrd:BlätternNavigation]<br>", ""},
    {1, "mrdBanner", 0, "", ""},
    {1, "startnav", 0, kStartnav, ""},
    {1, "htm2", 0, "</body></hmtl>", ""},
};
// clang-format on

} // namespace

std::span<const TreeNode> builtInTree(std::string_view layoutName)
{
  if (layoutName == "tabnavigation")
    return kTabnavigation;
  if (layoutName == "einfachetabelle")
    return kEinfacheTabelle;
  if (layoutName == "sparta")
    return kSparta;
  return {};
}

} // namespace mrd::templates
