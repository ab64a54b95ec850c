"""The page-turn strip of template layouts: the neighbours of a page and the links to them."""

# Its beginning, and its links with address and heading, in words and in symbols.
OPENING = ("<div ID='mrdnav' STYLE='position:%s;'><table border=0 cellpadding=0 cellspacing=0><tr><td%s>"
           "<layer ID='nsmrdnav' STYLE='position:absolute;'> ")
WORDS = {
    "previous": " <a style='color:[mrd:Menüaktivfarbe]' href='%s'><-- %s</a> | ",
    "homepage": " <a  style='color:[mrd:Menüaktivfarbe]' href='%s'>%s</a> | ",
    "top": "<a  style='color:[mrd:Menüaktivfarbe]'  href='#oben'>hoch</a> | ",
    "parent": " <a  style='color:[mrd:Menüaktivfarbe]' href='%s'>%s</a> | ",
    "next": " <a  style='color:[mrd:Menüaktivfarbe]' href='%s'>%s --></a> ",
}
SYMBOLS = {
    "previous": " <a href='%s'><img src='pix/nav_links.gif' align='bottom' alt='%s' border=0></a> ",
    "homepage": " <a href='%s'><img src='pix/nav_home.gif'  align='bottom' alt='%s' border=0></a> ",
    "top": " <a href='#oben'><img src='pix/nav_top.gif'  align='bottom' alt='auf dieser Seite nach oben' border=0></a> ",
    "parent": " <a href='%s'><img src='pix/nav_oben.gif'  align='bottom' alt='%s' border=0></a> ",
    "next": " <a href='%s'><img src='pix/nav_rechts.gif' alt='%s' border=0></a> ",
}


class LinkInfo:
    """A target of the page-turn strip."""

    def __init__(self, ident="", heading="", file="", base=""):
        self.id, self.heading, self.file_, self.base = ident, heading, file, base

    @property
    def file(self):
        if not self.file_:
            self.file_ = "*.htm"
        if not self.file_.startswith("http:/"):
            self.file_ = self.file_.lower()
        return self.file_

    @property
    def href(self):
        return self.base + self.file.replace("*", "index" if self.id in ("00", "") else self.id)

    def take(self, row, base):
        self.id, self.heading, self.file_, self.base = row.id, row.heading, row.pattern, base

    def clear(self):
        """The base stays."""
        self.id = self.heading = self.file_ = ""


class NavInfo:
    """The neighbours of a page, in the order of the identifiers, and the strip that links them."""

    def __init__(self, homepage=None):
        self.homepage = homepage or LinkInfo()
        self.previous, self.next, self.parent, self.kept = LinkInfo(), LinkInfo(), LinkInfo(), "00"

    def set_page(self, pages, ident, base):
        """`ident` is "index" for the homepage."""
        self.kept, ident = ident, "00" if ident == "index" else ident
        shown = [p for p in pages if p.type is not None and p.type != 3]
        self.fill(self.next, [p for p in shown if p.id > ident][:1], base)
        self.fill(self.previous, [p for p in shown if p.id < ident][-1:], base)
        if ident == "00":
            self.parent.clear()
        elif len(ident) < 4:
            home = self.homepage
            self.parent.id, self.parent.heading, self.parent.file_, self.parent.base = home.id, home.heading, home.file, base
        else:
            self.fill(self.parent, [p for p in shown if p.id == ident[:-2]][:1], base)

    @staticmethod
    def fill(link, rows, base):
        link.take(rows[0], base) if rows else link.clear()

    def strip(self, kind):
        if kind == 4:
            return ""
        place, colour = ("relative" if kind in (1, 3) else "absolute"), (" bgColor='[mrd:Tabellenfarbe]'" if kind in (0, 1) else "")
        return OPENING % (place, colour) + self.links(WORDS if kind in (0, 1) else SYMBOLS) + "</layer></td></tr></table></div>        "

    def links(self, texts):
        home, out = self.homepage.href, ""
        if self.previous.href != home:
            out += texts["previous"] % (self.previous.href, self.previous.heading)
        if self.kept != "index":
            out += texts["homepage"] % (home, self.homepage.heading)
        out += texts["top"]
        if self.parent.href not in (home, self.previous.href):
            out += texts["parent"] % (self.parent.href, self.parent.heading)
        if self.next.href != home and not (texts is SYMBOLS and self.next.href == ".htm"):
            out += texts["next"] % (self.next.href, self.next.heading)
        return out
