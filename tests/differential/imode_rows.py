"""The fragments of a page for telephones."""

END = "\r\n"

ROWS = {
    1: "<HTML><HEAD>",
    2: "<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>",
    3: "</HEAD><BODY bgColor=[mrd:Hintergrundfarbe]><FONT color=[mrd:Textfarbe]>",
    11: "[0] [mrd:Überschrift]<br>",
    12: "<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>" + END,
    15: "<!-- def15 --><br>",
    16: "<!-- def16 --><br>",
    17: "</font>",
    18: "<!-- def18 -->&nbsp;&gt;[mrd:Überschrift]&lt;<br>",
    19: "<!-- htmldef 19 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>",
    20: "<!-- htmldef 20 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>",
    21: "<!-- htmldef 21 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>" + END,
    22: "<!-- def 22 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>" + END,
    23: "<!-- def 23 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>" + END,
    24: "<!-- def 24 [mrd:aktivID] -->" + END + "&nbsp;&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>" + END,
    25: "[0] <A href='[mrd:ID]' accesskey='0'>[mrd:Überschrift]</A><br>" + END,
}


def row(number):
    return ROWS.get(number, "")
