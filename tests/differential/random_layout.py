#!/usr/bin/env python3
"""Makes one random project with a random layout: like random_project.py, with layout files in the program directory's folder xml.

  random_layout.py SEED DIRECTORY PROGRAM_DIRECTORY          the same seed in the same directory gives the same files
"""
import json
import random
import sys
from pathlib import Path
from xml.sax.saxutils import escape

import random_project
from random_html import HtmlMaker, References
from random_project import GIF
from template_layouts import BUILT_IN_ENTRIES, layout_entries

PAGE_PLACEHOLDERS = ("[mrd:Überschrift]", "[mrd:ID]", "[mrd:Inhalt]", "[mrd:script]", "[mrd:SeitenID]", "[mrd:Dateiname]",
                     "[mrd:Kompletterlink]",
                     "[mrd:BlätternNavigation]")
SITE_PLACEHOLDERS = ("[mrd:Schriftart]", "[mrd:Hintergrundfarbe]", "[mrd:Hintergrundfarbeaussen]", "[mrd:Textfarbe]",
                     "[mrd:Menütextfarbe]",
                     "[mrd:Tabellenfarbe]", "[mrd:Menüaktivfarbe]", "[mrd:Hyperlinkfarbe]", "[mrd:Inhaltbreite]", "[mrd:Kopf]",
                     "[mrd:Tabellenfarbeinaktiv]", "[mrd:Titel]", "[mrd:Scripts]", "[mrd:GenDat]")
OTHER_PLACEHOLDERS = ("[mrd:Menübreite]", "[mrd:aktivID]", "[mrd:einleitenderText]", "[mrd:überschrift]", "[mrd: ID]",
                      "[mrd:[mrd:ID]ID]", "[mrd:ID")
PLACEHOLDERS = PAGE_PLACEHOLDERS * 3 + SITE_PLACEHOLDERS + OTHER_PLACEHOLDERS
LAYOUT_PICTURES = ("Knopf.gif", "linie.GIF", "ecke rund.gif", "Öse.gif", "bild.gif", "punkt.neu.gif")
FRAGMENTS = (
    "<a href='[mrd:ID]'>[mrd:Überschrift]</a><br>", "<li><a href=\"[mrd:ID]\">[mrd:Überschrift]</a></li>",
    "<b>[mrd:Überschrift]</b>", "<html><head>",
    "<title>[mrd:Titel]: [mrd:Überschrift]</title>", "[mrd:Scripts]</head>", "<body bgcolor='[mrd:Hintergrundfarbeaussen]'>",
    "[mrd:Kopf]", "[mrd:Inhalt]",
    "<br>[mrd:Inhalt]<br>", "[mrd:BlätternNavigation]", "<ul>", "</ul>", "&nbsp;&middot;\r\n", "Größe & Maß", "</body></html>",
    " ", "\n\n", "\t<td>",
    "<link rel=stylesheet href='mrdstyle.css'>", "<link rel=stylesheet href='[mrd:Kompletterlink]mrdstyle.css'>",
    "<img src='pix/pixel.gif'>",
    "<img src=\"Knopf.gif\">", "<img src='linie.GIF' border=0>", "<IMG SRC='ecke%20rund.gif'>", "<img src='pix/Öse.gif'>",
    "<img src='pix/bild.gif'>",
    "<img src=nackt.gif>", "<img src = 'pix/abstand.gif'>", "<img src  =  'pix/weit.gif'>", "<img src   =  'pix/weiter.gif'>",
    "<img src='xxx'>", "<img src=''>",
    "<img src=\"", "<a href='", "<a href='#oben'>hoch</a>", "<a name=oben></a>", "<a href='http://www.example.org/'>x</a>",
    "<a href=''>leer</a>",
    "<a href = '[mrd:ID]'>", "<a href=  '[mrd:ID]'>", "<a href     = '[mrd:ID]'>",
    "<script>var src='x', href = \"y.htm\";</script>", "src", "href", "src='", "Der src-Teil: 'a'",
    "<style>p { background: url(pix/a.gif) } /* src \"pix/b.gif\" */</style>", "<p>href heißt 'Verweis', src \"Quelle\"</p>",
    "♥ [mrd:GenDat]", "<!-- [mrd:aktivID] -->",
    "<img src='[mrd:Kompletterlink]pix/pixel.gif'>", "<img src='punkt.neu.gif'>", "<img src='a.backup'>",
    "<img src=\"pix/o'neil.gif\">", "„ä“ – ß",
)
INNER_NOISE = ("<!-- Notiz -->", "<?anweisung x?>", "\n    ", " ", "")
OTHER_ELEMENTS = ("<info>Text</info>", "<beschreibung/>", "<Template name='x'><code>nie</code></Template>", "<CODE>nie</CODE>",
                  "<gruppe><template><code>nie</code></template></gruppe>",
                  "<!-- Notiz -->", "<?php echo 1 ?>", "loser Text", "&amp;")
NAMES = ("", "Menü 1", "Kopf", "root", "Inhalt", "a&b", "root ", "Root", "startnav", "dummy E1 für E2")
PREFIXES = ("", "", "neu_", "x y-", "ä", "a.b.", "*", "../", "http")
STYLESHEETS = (
    "p { color: [mrd:Textfarbe]; font-family: [mrd:Schriftart] }\n",
    "a { color: [mrd:Hyperlinkfarbe] }\r\nb { width: [mrd:Inhaltbreite] }",
    "/* [mrd:Titel] [mrd:Überschrift] [mrd:Menübreite] [mrd:GenDat] */\n\n\n", "", "\n",
    "/* [mrd:Kopf] */\n/* [mrd:Scripts] */\n", "td { x: [mrd:Tabellenfarbeinaktiv] }  \n\t/* ä */",
)


def make(seed, root, program_source, layout=None):
    """Fills the empty directory `root`. `layout` is "user" or an entry of the layout box; without it one is drawn."""
    return LayoutProjectMaker(random.Random(seed), Path(root), Path(program_source), layout).make()


class LayoutHtmlMaker(HtmlMaker):
    """Page texts that meet the scan for src and href and the placeholders."""

    def body(self):
        rng, text = self.rng, super().body()
        for _ in range(rng.choice((0, 0, 1, 2, 5))):
            piece = rng.choice((rng.choice(PLACEHOLDERS), rng.choice(FRAGMENTS[16:]), self.scanned(), self.scanned()))
            at = rng.randrange(len(text) + 1)
            text = text[:at] + piece + text[at:]
        return text

    def scanned(self):
        """The two words with values, as attributes or not."""
        rng = self.rng
        word = rng.choice(("src", "src", "SRC", "href", "href", "Href", "hrefsrc", "srchref", "data-src", "xhref"))
        value = self.references.image() if rng.random() < 0.5 else self.references.link()
        mark = rng.choice("'\"\"")
        if mark == "\"":
            value = value.replace("\"", "%22")
        between = rng.choice(("=", "=", "=", " = ", " =", "= ", "", ":", "  =  ", "     =", " ist ", "\r\n=", "=\\"))
        return "%s%s%s%s%s" % (rng.choice(("<img ", "<a ", "", "var x.")), word + between, mark, value,
                               rng.choice((mark, mark, mark, mark + ">", "")))


# What stands in a layout in the place of a picture that it does not have.
NO_PICTURE = 3 * "x"


class LayoutReferences(References):
    """References of layouts too: bare names and what only the text scan meets."""

    def image(self):
        rng = self.rng
        if rng.random() < 0.25:
            return rng.choice(LAYOUT_PICTURES + (NO_PICTURE, NO_PICTURE.upper(), "nirgends.gif", "pix/Knopf.gif", "pix\\linie.GIF",
                                                 "pix/punkt.neu.gif", "KNOPF.GIF", "a/b/Knopf.gif",
                                                 "[mrd:ID]", "[mrd:Kompletterlink]pix/a.gif", " + quelle + ", "mrdnav.js",
                                                 "./knopf.gif", "/knopf.gif", "\\pix\\x.gif"))
        return super().image()


class LayoutMaker:
    """Draws the text of a layout file."""

    def __init__(self, rng):
        self.rng = rng

    def file(self):
        """Bytes of a file, and the name that it gives itself or None."""
        rng = self.rng
        name = rng.choice(("Bunt", "Mein Layout", "a & b", "Größe", "Bunt", "x<y", "Liste 2"))
        if rng.random() < 0.04:
            name = rng.choice(("", "Wort (zwei)", " vorn", "hinten ", "(x"))
        attribute = "" if rng.random() < 0.02 else " name=%s" % self.quoted(name)
        body = "<root%s%s>%s</root>" % (rng.choice(("", " version='1'")), attribute, self.content(0))
        if rng.random() < 0.05:
            body = rng.choice(("<layout>%s</layout>", "<template>%s</template>",
                               "<template><code>aussen</code>%s</template>")) % body
        text = rng.choice(("", "", "", "<!-- vorn -->\n", "<?pi x?>\n")) + body
        text += rng.choice(("", "\n", "<!-- hinten -->", "\r\n\r\n"))
        if rng.random() < 0.06:
            text = self.damaged(text)
        return self.encoded(text)

    def encoded(self, text):
        rng = self.rng
        kind = rng.random()
        if kind < 0.4:
            return b"<?xml version=\"1.0\"?>\n" + text.encode()
        if kind < 0.6:
            return b"<?xml version='1.0' encoding='UTF-8'?>" + text.encode()
        if kind < 0.7:
            return b"\xef\xbb\xbf" + text.encode()
        if kind < 0.85:
            name, codec = rng.choice((("ISO-8859-1", "latin-1"), ("windows-1252", "cp1252"), ("iso-8859-1", "latin-1")))
            return ("<?xml version=\"1.0\" encoding=\"%s\"?>\r\n" % name).encode() + text.encode(codec, "replace")
        if kind < 0.9:
            return ("\ufeff<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + text).encode("utf-16-le")
        return text.encode()

    def damaged(self, text):
        rng = self.rng
        return rng.choice((
            text[:rng.randrange(len(text) + 1)], text + "<root/>", text + "Text", text.replace("</root>", ""),
            text.replace("<root", "<root a=1", 1),
            text.replace("<root", "<root a='1' a='2'", 1), text.replace("</root>", "&nbsp;</root>"),
            text.replace("</root>", "& </root>"), "", "\x00\x01\x02",
            text.replace("</root>", "</Root>"), text.replace("</root>", "<br></root>"),
            text.replace("</root>", "<x a='<'/></root>"),
            text.replace("</root>", "]]></root>"), text.replace("</root>", "<!-- a -- b --></root>"),
        ))

    def quoted(self, value):
        value = escape(value)
        return self.rng.choice(("'%s'" % value.replace("'", "&apos;"), '"%s"' % value.replace('"', "&quot;")))

    def content(self, depth):
        """What stands in root or in a template."""
        rng, parts = self.rng, []
        if depth == 0:
            count, kinds = rng.choice((1, 3, 5, 8, 12)), ("template",) * 9 + ("code", "other")
        else:
            count, kinds = rng.choice((0, 0, 1, 2, 3)) if depth < 5 else 0, ("template",) * 9 + ("other",)
            if rng.random() < 0.93:
                parts.append(self.code("code"))
            if rng.random() < 0.7:
                parts.append(self.code("codeactive"))
        for _ in range(count):
            kind = rng.choice(kinds)
            parts.append({"template": lambda: self.template(depth + 1), "code": lambda: self.code("code"),
                          "other": lambda: rng.choice(OTHER_ELEMENTS)}[kind]())
        if rng.random() < 0.2:
            rng.shuffle(parts)
        if rng.random() < 0.03 and depth:
            parts = ["<root>%s</root>" % "".join(parts)]
        blank = rng.choice(("", "\n", "\r\n  "))
        return blank + blank.join(parts) + blank

    def template(self, depth):
        rng, attributes = self.rng, []
        if rng.random() < 0.8:
            attributes.append("name=%s" % self.quoted(rng.choice(NAMES)))
        menu = rng.random() < 0.6
        for name, likely in (("ismenuitem", 0.95 if menu else 0.02), ("isactivemenuitem", 0.5 if menu else 0.1),
                             ("showchildren", 0.35 if menu else 0.1)):
            if rng.random() < likely:
                attributes.append("%s=%s" % (name, self.quoted(rng.choice(("true", "true", "true", "TRUE", "True", "false", "1",
                                                                           "", " true", "wahr")))))
        if rng.random() < 0.05:
            attributes.append(rng.choice(("isMenuItem='true'", "ISMENUITEM='true'", "farbe='rot'", "xml:space='preserve'",
                                          "Name='root'")))
        rng.shuffle(attributes)
        opening = " ".join(["<template"] + attributes)
        if rng.random() < 0.03:
            return opening + rng.choice(("/>", "></template>", "> \n </template>", ">Text</template>",
                                         "><!-- nur --></template>", "><x/></template>"))
        return "%s>%s</template>" % (opening, self.content(depth))

    def code(self, name):
        rng = self.rng
        if rng.random() < 0.04:
            return rng.choice(("<%s/>", "<%s></%s>", "<%s> </%s>", "<%s><![CDATA[]]></%s>", "<%s><![CDATA[ ]]></%s>",
                               "<%s><!-- x --></%s>")).replace("%s", name)
        parts = []
        for _ in range(rng.choice((1, 1, 2, 3, 5))):
            text = rng.choice(FRAGMENTS) if rng.random() < 0.75 else rng.choice(PLACEHOLDERS)
            text = text.replace("\r\n", "\n")
            kind = rng.random()
            if kind < 0.55:
                parts.append("<![CDATA[%s]]>" % text.replace("]]>", ""))
            elif kind < 0.95:
                parts.append(self.as_escaped(text))
            else:
                parts.append("<fett>%s</fett>" % escape(text))
            if rng.random() < 0.2:
                parts.append(rng.choice(INNER_NOISE))
        return "<%s%s>%s</%s>" % (name, rng.choice(("", "", " art='x'")), "".join(parts), name)

    def as_escaped(self, text):
        rng, kind = self.rng, self.rng.random()
        text = escape(text) if kind < 0.5 else escape(text, {"'": "&apos;", '"': "&quot;"})
        if kind > 0.8:
            text = "".join("&#%d;" % ord(c) if ord(c) > 126 else c for c in text)
        elif kind > 0.7:
            text = "".join("&#x%X;" % ord(c) if c in "[]äöüß" else c for c in text)
        return text.replace("\n", rng.choice(("\n", "\r\n", "&#10;", "&#13;&#10;")))


class LayoutProjectMaker(random_project.ProjectMaker):
    def __init__(self, rng, root, program_source, layout):
        super().__init__(rng, root, program_source)
        self.layout, self.prefix = layout, rng.choice(PREFIXES[2:]) if rng.random() < 0.25 else ""

    def make(self):
        scenario = super().make()
        scenario.prefix = self.prefix
        return scenario

    def make_program_directory(self):
        super().make_program_directory()
        rng, target = self.rng, self.root / "programm"
        if rng.random() < 0.5:
            (target / "mrddefault.css").write_bytes(rng.choice(STYLESHEETS).encode(rng.choice(("utf-8", "utf-8", "cp1252"))))
        if rng.random() < 0.02:
            (target / "mrddefault.css").unlink(missing_ok=True)
        for name in ("pixel.gif", "nav_home.gif", "nav_top.gif", "hilfe/pix/nav_home.gif", "hilfe/pix/pixel.gif"):
            if rng.random() < 0.12:
                (target / name).unlink(missing_ok=True)
        self.make_layouts(target / "xml")

    def make_layouts(self, folder):
        rng, maker = self.rng, LayoutMaker(self.rng)
        if rng.random() < 0.1:
            for path in folder.glob("*.xml"):
                path.unlink()
        (folder / "pix").mkdir(parents=True, exist_ok=True)
        for name in rng.sample(LAYOUT_PICTURES, rng.randrange(len(LAYOUT_PICTURES) + 1)):
            (folder / "pix" / name).write_bytes(GIF + b"%d" % rng.randrange(10 ** 9))
        for name in rng.sample(("bunt.xml", "Größe.xml", "LISTE.XML", "a b.xml", "zwei (2).xml", "_layouts.xml"),
                               rng.choice((1, 2, 2, 3, 5))):
            (folder / name).write_bytes(maker.file())
        if rng.random() < 0.03:
            (folder / "ordner.xml").mkdir()
        (folder / "kein.xml.txt").write_text("<root name='nie'/>")

    def make_pictures(self):
        paths = super().make_pictures()
        (self.root / "fotos" / "Knopf.gif").write_bytes(GIF + b"foto")
        return paths + [str(self.root / "fotos" / "Knopf.gif")]

    def fill_project(self):
        self.row_layout = self.layout is None and self.rng.random() < 0.05
        if self.row_layout:
            return super().fill_project()
        references = LayoutReferences(self.rng, self.html.references.pictures, str(self.export))
        self.html = LayoutHtmlMaker(self.rng, references)
        super().fill_project()

    def page_row(self, ident):
        rng, row = self.rng, list(super().page_row(ident))
        if self.row_layout:
            return tuple(row)
        if rng.random() < 0.15:
            row[1] = rng.choice(PLACEHOLDERS + ("x [mrd:Überschrift] [mrd:BlätternNavigation]", "src='x.gif'",
                                                "href=\"[mrd:ID]\""))
        if rng.random() < 0.1:
            row[3] = rng.choice((".htm", "HTTP://WWW.example.org/A.htm", "http://www.example.org/*.HTM", "Http:/x", "INDEX.HTM",
                                 "*.HTM", "index.htm", "[mrd:ID].htm"))
        if rng.random() < 0.1:
            row[5] = rng.choice(PLACEHOLDERS + ("<script src='x.js'></script>", "<link href=\"[mrd:Kompletterlink]x.css\">",
                                                "<script src=\"file:///nirgends/x.js\"></script>"))
        return tuple(row)

    def settings(self):
        rng, own = self.rng, self.html
        # The shared head is parsed as a document, which is another test's subject.
        self.html = HtmlMaker(rng, own.references)
        rows = super().settings()
        self.html = own
        rows = [(key, value) for key, value in rows if key not in ("grundlayout", "blättern")]
        missing = rng.choice(("grundlayout", "blättern", "")) if self.row_layout else None
        if missing != "blättern":
            rows.append(("blättern", str(rng.randrange(5))))
        if missing != "grundlayout":
            rows.append(("grundlayout", "Weg (weg.xml)" if missing == "" else self.chosen_layout()))
        if rng.random() < 0.2:
            rows = [(key, rng.choice(SITE_PLACEHOLDERS) if key == "Titel" else value) for key, value in rows]
        return rows

    def chosen_layout(self):
        rng = self.rng
        entries = layout_entries(str(self.root / "programm").replace("/", "\\") + "\\")
        own = entries[len(BUILT_IN_ENTRIES):]
        kind = self.layout or rng.choice(("user",) * 6 + BUILT_IN_ENTRIES[1:])
        if kind != "user":
            return kind
        return rng.choice(own[1:] * 8 + own[:1]) if own[1:] else rng.choice(BUILT_IN_ENTRIES[1:])


def main():
    seed, root, program = int(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    root.mkdir(parents=True, exist_ok=True)
    scenario = make(seed, root, program)
    print(json.dumps({key: str(value) for key, value in vars(scenario).items()}, ensure_ascii=False, indent=1))


if __name__ == "__main__":
    main()
