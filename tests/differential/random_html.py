"""Page texts as people, editors and accidents make them."""
import html
import re
from urllib.parse import quote

TEXTS = (
    "Unser Haus am Meer", "Größe & Maß", "5 < 6 > 4", "&auml;&ouml;&nbsp;&copy; &#9829; &#x20AC; &#149; &unbekannt; &amp;lt;",
    "„Anführung“ – Gedanke…", "Herz ♥ und 漢字, 😀", "Zeile\r\nZeile\nZeile", "  viele   Blanks  ", "\ttab",
    "[mrd:Textfarbe] [mrd:ID]",
    "src='pix/bild.gif' src=\"pix/bild.gif\"", "ÄÖÜ äöü ß €", "50 % & mehr&nbsp;", "'einfach' \"doppelt\"", "\u00a0\u00a0", "",
    "]]>",
)
PIECES = (
    "<h3 align=center style=\"font-size:16pt;\" id=\"ueberschrift\">%s</h3>", "<H3 ID=ueberschrift>%s</h3>",
    "<P align=center>%s", "<p>%s</p>",
    "<div align=center>%s</div>", "<DIV>%s", "%s<br>", "<br/>%s<BR clear=all>", "<b>%s<i></b>kursiv</i>",
    "<font face=Arial size=2 color=#ff0000>%s</font>",
    "<FONT COLOR=red>%s<p>Absatz</FONT>", "<ul><li>%s<li>zwei<ul><li>drei</ul></ul>", "<ol start=3><li>%s</li></ol></li>",
    "<dl><dt>%s<dd>d<dt>e</dl>",
    "<table border=1><tr><td>%s<td>b<tr><th>c</table>",
    "<TABLE WIDTH=100%% cellPadding=0><TBODY><TR><TD noWrap>%s</TD></TR></TBODY></TABLE>",
    "<table>%s<tr><td>im Foster</td></tr></table>", "<table><caption>%s<tr><td><table><td>innen</table></table>",
    "<table><colgroup><col width=10><col></colgroup><thead><tr><th>%s</thead><tfoot></tfoot></table>", "<tr><td>%s</td></tr>",
    "<script>var a = '<b>' + \"%s\" && 1 < 2;</script>",
    "<script language=JavaScript>\r\n<!--\r\ndocument.write('x');\r\n//-->\r\n</script>%s",
    "<style type=text/css>p > a { color: red }\n</style>%s", "<!-- %s -->", "<!-- Kommentar -->%s", "<?php echo 1 ?>%s",
    "<![CDATA[x]]>%s",
    "<pre>\n\nerste%s\n  x</pre>", "<select><option>%s<option selected>b</select>",
    "<form action=x.php method=post>%s<input type=text disabled value='a\"b'></form>",
    "<a name=oben>%s</a>", "<a href='0102.htm'>%s", "<a href=#oben>%s</a>", "<center>%s</center>", "<blockquote>%s",
    "<hr noshade size=1>%s", "<nobr>%s<nobr>x",
    "<marquee>%s</marquee>", "<iframe src='x.htm'>%s</iframe>", "<noscript><p>%s</p></noscript>",
    "<object><param name=a value=b>%s</object>", "<xmp><b>%s</b></xmp>",
    "<div title=\"a &amp; b &lt; c > d &quot;e&quot; 'f'\" class=x\tid=y>%s</div>", "<div a=1 A=2 b='' c>%s</div>",
    "</p>%s</div></b>", "<body bgcolor=red>%s", "</body>%s</html>",
    "<span style='font-family:[mrd:Schriftart]'>%s</span>",
    "<svg viewBox='0 0 1 1'><a xlink:href='x'><circle r=1 /></a></svg>%s", "<math><mi>x</mi></math>%s",
    "<map name=m><area shape=rect coords='0,0,1,1' href='0101.htm'></map>%s", "<label for=a>%s</label><button>b</button>",
    "<br>\r\n\r\n%s\r\n", "<a href=x><a href=y>%s</a></a>",
    "<tt><big><small>%s</big></tt>", "<p id='a&b=c'>%s", "<td>%s", "<embed src=a.mid>%s", "<ruby>a<rt>%s</ruby>",
    "<frameset><frame src=x.htm></frameset>", "<title>%s</title>",
    "popup: %s", "picturetransfer %s", "&lt;script&gt;%s", "< %s", "<3", "&", "<3 %s", "<b><b><b><b>%s</p>",
    "<p><table>%s</table>",
)
SOUP_TAGS = ("p div b i font a table tr td th tbody ul ol dl h3 h1 span center nobr select option form br hr blockquote em"
             " strong u tt small address fieldset legend label caption colgroup col thead tfoot big code s strike"
             " noscript").split()
LINE_END_AT_START = re.compile(r"(<pre\b[^>]*>)[\r\n]+", re.I)
QUOTES = ('"', "'", "")


class HtmlMaker:
    """Draws page texts; `references` draws the values of src and href."""

    def __init__(self, rng, references):
        self.rng, self.references = rng, references

    def body(self):
        rng = self.rng
        parts = []
        for _ in range(rng.choice((0, 1, 2, 3, 5, 8, 13))):
            kind = rng.random()
            if kind < 0.30:
                parts.append(self.image())
            elif kind < 0.50:
                parts.append(self.link())
            elif kind < 0.93:
                piece = rng.choice(PIECES)
                inner = self.body_part() if rng.random() < 0.25 else rng.choice(TEXTS)
                parts.append(piece % inner if "%s" in piece else piece)
            else:
                parts.append(self.soup())
            parts.append(rng.choice(("", "", "", "\r\n", "\n", " ")))
        text = "".join(parts)
        # html5lib takes a line end for text that stands first in a pre inside a table.
        return LINE_END_AT_START.sub(r"\1", text) if "<table" in text.lower() else text

    def body_part(self):
        return self.rng.choice((self.image, self.link, self.soup))()

    def attribute(self, name, value):
        rng = self.rng
        mark = rng.choice(QUOTES)
        if not mark and (not value or any(c in value for c in " \t\r\n\"'=<>`") or value.endswith("/")):
            mark = '"'
        if mark == "'" and "'" in value and rng.random() < 0.9:
            mark = '"'
        if mark == '"':
            value = value.replace('"', "&quot;")
        if mark == "'":
            value = value.replace("'", "&#39;")
        if rng.random() < 0.5:
            value = value.replace("&", "&amp;").replace("&amp;quot;", "&quot;").replace("&amp;#39;", "&#39;")
        if rng.random() < 0.1:
            value = "".join("&#%d;" % ord(c) if ord(c) > 126 else c for c in value)
        return "%s=%s%s%s" % (name.upper() if rng.random() < 0.2 else name, mark, value, mark)

    def image(self):
        rng = self.rng
        attributes = [self.attribute("src", self.references.image())] if rng.random() < 0.98 else []
        attributes += rng.sample(["alt='Bild'", "border=0", "width=100", "hspace = 3", "align=left", "alt=\"a & b\"",
                                  "style='x:y'"], rng.randrange(3))
        rng.shuffle(attributes)
        tag = rng.choice(("img", "img", "IMG", "Img"))
        return "<%s %s%s" % (tag, " ".join(attributes), rng.choice((">", ">", " />")))

    def link(self):
        rng = self.rng
        attributes = [self.attribute("href", self.references.link())]
        attributes += rng.sample(["target=_blank", "title='x'", "class=l", "onclick=\"return false;\""], rng.randrange(2))
        inner = self.image() if rng.random() < 0.4 else rng.choice(TEXTS)
        if rng.random() < 0.1:
            return "<area %s>" % " ".join(attributes)
        return "<%s %s>%s%s" % (rng.choice("aaA"), " ".join(attributes), inner, rng.choice(("</a>", "</a>", "</A>", "")))

    def soup(self):
        rng = self.rng
        out = []
        for _ in range(rng.randrange(2, 11)):
            tag = rng.choice(SOUP_TAGS)
            if rng.random() < 0.15:
                tag = tag.upper()
            kind = rng.random()
            if kind < 0.5:
                out.append("<%s%s>" % (tag, rng.choice(("", "", " align=center", " id=x"))))
            elif kind < 0.8:
                out.append("</%s>" % tag)
            elif kind < 0.9:
                out.append(rng.choice(("x", " ", "\n", "y z")))
            else:
                out.append(self.image())
        return "".join(out)

    def head_script(self):
        """What the field for the page's head holds."""
        rng = self.rng
        return rng.choice((
            None, None, None, None, "", "", "<script>\nvar a = 1 < 2;\n</script>",
            "<style>p { color: red }</style>\r\n<meta name='x' content='y'>",
            "<!-- nur ein Kommentar äöü ♥ -->", "Text im Kopf", "<link rel=stylesheet href=\"x.css\">", "<script>offen",
            "<p>Absatz im Kopf</p>",
            "<base href='http://www.example.org/'>", "<title>zweiter", "</head>Text", "<body onload='x()'>",
            "<noscript><p>x</p></noscript>",
            "<img src='pix/kopf.gif'>", "[mrd:Titel] [mrd:Textfarbe]", "<script src='pix/skript.js'></script>\n\n", " \r\n ",
        ))


class References:
    """Values of src and href in every form that pages hold. `pictures` are native paths, there or not."""

    def __init__(self, rng, pictures, export):
        self.rng, self.pictures, self.export = rng, pictures, export

    def local(self, path):
        rng = self.rng
        back = path.replace("/", "\\")
        encoded = quote(path)
        spaced = path.replace("%", "%25").replace(" ", "%20")
        if "%" in path or "#" in path:
            return "file://" + encoded
        return rng.choice(("file://" + path, "file://" + encoded, "file://" + spaced, "file://" + back, "file:\\\\" + back,
                           path, back, encoded,
                           "file://" + path))

    def absolute(self):
        rng = self.rng
        path = rng.choice(self.pictures)
        if rng.random() < 0.15:
            folder, name = path.rsplit("/", 1)
            path = folder + "/" + rng.choice((name.upper(), name.lower(), name.title()))
        return path

    def relative(self):
        name = self.rng.choice(("bild.gif", "Foto.JPG", "haus.jpg", "weg.jpg", "Öffnung.jpg", "a%20b.jpg", "a b.jpg"))
        return self.rng.choice(("pix/", "pix/", "pix/", "PIX/", "pix\\", "", "../fotos/", "./pix/", "pix/../pix/")) + name

    def image(self):
        rng = self.rng
        kind = rng.random()
        if kind < 0.55:
            return self.local(self.absolute())
        if kind < 0.75:
            return self.relative()
        return rng.choice((
            "file:///C:/Bilder/Urlaub%20Meer.JPG", "file://C:\\Bilder\\x.jpg", "C:\\Bilder\\y.jpg", "C:/Bilder/z.Gif",
            "http://www.example.org/bild.jpg",
            "https://www.example.org/bild.jpg", "data:image/gif;base64,R0lGODlhAQABAAAAACH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==",
            "", "cid:teil1",
            "blob:abc", "file:///nirgends/fehlt.jpg", "file:///nirgends/fehlt.backup", "file:///nirgends/ohne",
            "http://www.example.org/",
        ))

    def link(self):
        rng = self.rng
        kind = rng.random()
        if kind < 0.35:
            return self.local(self.absolute())
        if kind < 0.50:
            return self.relative()
        if kind < 0.75:
            call = rng.choice(("javascript:popupfenster('%s','%s')", "javascript:popupfenster('%s','%s');",
                               "javascript:picturetransfer('%s','%s')",
                               "javascript:picturetransfer('%s', 'bestellen %s')", "JavaScript:popupfenster('%s','%s')"))
            return call % (self.local(self.absolute()), rng.choice(("Text", "Größe", "", "a///b", "Haus %20 x", "jpg",
                                                                    "x" * 200)))
        return rng.choice((
            "http://www.example.org/", "http://www.example.org/bild.jpg", "http://www.example.org/Fotos/Gro%20ss.JPG",
            "https://www.example.org/b.jpg",
            "mailto:foto@example.org?subject=jpg", "0102.htm", "#oben", "index.htm", "jpg-tipps.htm",
            "javascript:popupfenster('pix/x.jpg','y')",
            "javascript:history.back()", "ftp://ftp.example.org/x.jpg", "file:///nirgends/fehlt.jpg",
            "file:///nirgends/handbuch.pdf",
            "file:///C:/Bilder/Haus.JPG", "javascript:popupfenster('file:///C:/Bilder/Haus.JPG','x')",
            "file:///nirgends/o'neil.jpg",
            "file:///" + "tief/" * 60 + "foto.jpg", "javascript:popupfenster('file:///" + "tief/" * 47 + "foto.jpg','Ende')", "",
            "file:///nirgends/" + "l" * 228 + ".jpg",
            "javascript:popupfenster('file://\\nirgends\\" + "ä" * 215 + ".jpg','" + "ß" * 40 + "')",
        ))


def heading(rng):
    return rng.choice((
        None, "", "- - -", "Start", "Größe & Maß", "\"Zitat\" & 'noch eins'", "<b>fett</b>", "5 < 6", "[mrd:Textfarbe]",
        "[mrd:ID]", "[mrd:Überschrift]",
        "[mrd:Titel] - [mrd:Überschrift]", "♥ und 漢字", "Ä Ö Ü ß €", "Urlaub 2003", "Homepage", "  Blanks  ",
        "[mrd:[mrd:Titel]Titel]", "x" * 255,
        html.escape("<Entitäten & mehr>"), "[mrd:Menüaktivfarbe][mrd:Inhaltbreite][mrd:Kopf]",
    ))
