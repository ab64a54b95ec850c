"""The rows of the layout "Navigation linke Seite".

A pilcrow stands for a line end, OL OR UL UR for the corners, H for the link colour.
"""

ROWS = {
    1: '<HTML><HEAD>',
    2: '<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>',
    3: (
        '<STYLE type=text/css>¶'
        'h3,div,p,td {FONT-FAMILY: [mrd:Schriftart]; FONT-SIZE:10pt}¶'
        'A:link {TEXT-DECORATION: none; color : #H;}¶'
        'A:visited {TEXT-DECORATION: none; color : #H;}¶'
        'A:active {TEXT-DECORATION: none; color : #H;}¶'
        'A:hover {TEXT-DECORATION: underline; color : #H;}¶'
        '</STYLE>'),
    4: '</HEAD>¶',
    5: '<BODY bgColor=[mrd:Hintergrundfarbeaussen]>',
    6: (
        '<TABLE id=tabelle bgColor=[mrd:Hintergrundfarbe] cellSpacing=0 cellPadding=0 width=[mrd:Inhaltbreite] '
        'border=0 align=center>'),
    7: ' <TR valign=top> ',
    8: (
        '<TD bgcolor=[mrd:Tabellenfarbe]>OL</td><TD align=left bgColor=[mrd:Tabellenfarbe] colspan=4><a '
        "name='oben'></a>[mrd:Kopf]</TD><TD bgColor=[mrd:Tabellenfarbe]>OR</td></TR>"),
    9: '<TR><td bgcolor=[mrd:Tabellenfarbe]></td><TD bgColor=[mrd:Tabellenfarbe] vAlign=top>',
    10: "<TABLE cellPadding=0 cellSpacing=0 width='[mrd:Menübreite]'>¶",
    11: (
        "   <tr><TD colSpan=3><FONT face='[mrd:Schriftart]' size=2 "
        'color=[mrd:Menüaktivfarbe]>[mrd:Überschrift]</FONT></TD>¶'
        '   </tr>¶'),
    12: (
        '   <TR>¶'
        "       <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT face='[mrd:Schriftart]' size=2 "
        'color=[mrd:Menütextfarbe]>&#149;</font></TD>¶'
        "       <TD colSpan=2><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 "
        'color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>¶'
        '   </TR>'),
    13: (
        '<tr valign=bottom><TD valign=bottom colspan=3 bgColor=[mrd:Tabellenfarbe] align=center><br><br><br><br>¶'
        '</TD></tr>¶'
        '</TABLE><!-- Menü Ende --></TD>'),
    14: (
        '<td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td><!-- Inhalt -->¶'
        "<TD vAlign=top bgColor=[mrd:Hintergrundfarbe]><FONT color=[mrd:Textfarbe] face='[mrd:Schriftart]' "
        'size=2>¶'),
    16: (
        '</FONT></TD><td bgColor=[mrd:Hintergrundfarbe]>&nbsp;&nbsp;</td><td width=6 '
        'bgColor=[mrd:Tabellenfarbe]>&nbsp;</td></TR>¶'
        '<tr><TD bgColor=[mrd:Tabellenfarbe] valign=bottom>UL</TD>¶'
        '<td id=zelle bgColor=[mrd:Tabellenfarbe] colspan=4>&nbsp;¶'
        "<div ID='mrdnav' STYLE='position:absolute;'>¶"
        '<table bgColor=[mrd:Tabellenfarbe] border=0 cellpadding=0 cellspacing=0><tr>¶'
        "<td><layer ID='nsmrdnav' bgColor=[mrd:Tabellenfarbe] STYLE='position:absolute;'>"),
    17: (
        '</layer></td></tr></table></div></td>¶'
        "<TD bgColor=[mrd:Tabellenfarbe] valign='bottom'>UR</TD>¶"
        '</TR></TABLE>¶'
        '<P></P></BODY>¶'
        "<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>¶"
        "<SCRIPT language='Javascript1.2'>¶"
        '//navposition();¶'
        'if ((document.all) || (document.layers)){¶'
        "  setInterval('navposition()', 800);¶"
        '}¶'
        '</SCRIPT ></HTML>¶'
        '¶'
        '¶'
        '¶'),
    18: (
        '<TR> ¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' "
        'size=2>&#149;</font></TD> ¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' "
        'size=2>[mrd:Überschrift]</FONT></TD> ¶'
        '</TR> '),
    19: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' "
        'size=2>&#149;</font></TD>¶'
        "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 "
        'color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>¶'
        '</TR>'),
    20: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe]>&nbsp;</TD>¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' "
        'size=2>&#149;</font></TD>¶'
        "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=2>[mrd:Überschrift]</FONT></TD>¶"
        '</TR>'),
    21: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT color=[mrd:Menütextfarbe] face='[mrd:Schriftart]' "
        'size=1>&#149;</font></TD>¶'
        "  <TD><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=1 "
        'color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>¶'
        '</TR>'),
    22: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe]><font size=1>&nbsp;</font></TD>¶'
        "  <TD bgColor=[mrd:Tabellenfarbe] width=8><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' "
        'size=1>&#149;</font></TD>¶'
        "  <TD><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1>[mrd:Überschrift]</FONT></TD>¶"
        '</TR>'),
    23: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>¶'
        "  <TD><FONT face='[mrd:Schriftart]' size=1><FONT color=[mrd:Menütextfarbe] "
        "face='[mrd:Schriftart]'>&#149;</font>¶"
        "  <A href='[mrd:ID]'><font color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></font></TD>¶"
        '</TR>'),
    24: (
        '<!-- [mrd:aktivID] -->¶'
        '<TR>¶'
        '  <TD bgColor=[mrd:Tabellenfarbe] colSpan=2><font size=1>&nbsp;</font></TD>¶'
        "  <TD bgColor=[mrd:Tabellenfarbe]><FONT color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]' size=1 ><FONT "
        "color=[mrd:Menüaktivfarbe] face='[mrd:Schriftart]'>&#149;</font>¶"
        '  [mrd:Überschrift]</FONT></TD>¶'
        '</TR>'),
    25: (
        "<tr><TD colSpan=3><A href='[mrd:ID]'><FONT face='[mrd:Schriftart]' size=2 "
        'color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A></TD>¶'
        '</tr>¶'),
}

# Corner pictures where the option "runde Ecke" is on, blanks where it is off.
CORNERS = {
    "OL": ("<img alt='' src='pix/ecke-ol.jpg' hspace=0 vspace=0 align=top>", "&nbsp;&nbsp;"),
    "OR": ("<img alt='' src='pix/ecke-or.jpg' align='right' hspace=0 vspace=0>", "&nbsp;&nbsp;&nbsp;"),
    "UL": ("<img src='pix/ecke-ul.jpg' hspace=0 vspace=0>", "&nbsp;"),
    "UR": ("<img src='pix/ecke-ur.jpg' align='right' hspace=0 vspace=0>", "&nbsp;&nbsp;&nbsp;"),
}

POPUP_BLOCK = (
    '<script language=JavaScript>',
    'function popupfenster(src, bu)',
    '     {',
    '    if (bu == null) { bu = "";};',
    '        bu = bu.replace(/ /g,"%20");',
    '        srcu = src.replace(/ /g,"%20");',
    "        f1 = open('popupbild.htm?src=' + src + '&bu=' + bu,'fenster1',"
    "'width=320,height=350,screenx=-0,screeny=-100,scrollbars=Yes,resizable=Yes,left=10,top=10');",
    '        f1.focus();',
    '     }',
    '</script>',
)


def row_table(round_corners, link_colour):
    """The rows with their line ends, corners and link colour in place."""
    table = {}
    for number, text in ROWS.items():
        text = text.replace("¶", "\r\n")
        if number == 3:
            text = text.replace("color : #H;", "color : %s;" % link_colour)
        for mark, (picture, blanks) in CORNERS.items():
            text = text.replace(">%s</" % mark, ">%s</" % (picture if round_corners else blanks))
        table[number] = text
    return table
