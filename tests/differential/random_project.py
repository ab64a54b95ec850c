#!/usr/bin/env python3
"""Makes one random project: the project file, its pictures, an export directory with a past and a program directory.

  random_project.py SEED DIRECTORY PROGRAM_DIRECTORY          the same seed in the same directory gives the same files
"""
import json
import os
import random
import shutil
import sqlite3
import sys
from datetime import datetime, timedelta
from pathlib import Path

from random_html import HtmlMaker, References, heading

JPEG = bytes.fromhex(
    "ffd8ffe000104a46494600010101004800480000ffdb004300030202020202030202020303030304060404040404080606050609080a0a090809090a0c0f0c"
    "0a0b0e0b09090d110d0e0f101011100a0c12131210130f101010ffc9000b080001000101011100ffcc000600101005ffda0008010100003f00d2cf20ffd9")
GIF = bytes.fromhex("47494638396101000100800000000000ffffff21f90401000000002c00000000010001000002024401003b")
PICTURE_NAMES = ("Urlaub 1.JPG", "haus.jpg", "Öffnung.Jpg", "a&b.jpg", "Bild.gif", "Foto.JPEG", "lang.backup", "ohne",
                 "Großer Baum.PNG", "50% mehr.jpg",
                 "o'neil.jpg", "herz ♥.jpg", "weit.x y z", "raute #1.jpg", "punkt.punkt.jpg", "ÄÖÜ.GIF", "\"zitat\".jpg",
                 "plus+plus.jpg", "a;b=c.jpg")
FOLDERS = ("fotos", "Fotos/Sommer 2003", "fotos/jpg-Sammlung", "bilder/Müller")
EXPORTS = ("export", "export", "Export", "Webseite Müller", "o'neils jpg-Seite", "web.seite")
PATTERNS = ("*.htm", "*.htm", "*.htm", "*.htm", None, "", "*.html", "a*b*.html", "start.htm", "x.php", "*.php", "y.asp",
            "http://www.example.org/",
            "http://www.example.org/x.php", "HTTP://www.example.org", "https://www.example.org/a.htm", "Größe*.htm",
            "herz♥*.htm", "../*.htm", "unter/*.htm",
            "..\\x*.htm", "C:x*.htm", "*.xhtml", "ohne*", "Gross*.HTM", "a b*.htm", "x'y*.htm", "..", "a&b*.htm", "*.htm.txt",
            "seite.*.htm")
COLOURS = ("000000", "ff0000", "#0080FF", "ffffff", "#abcdef", "ABCDEF", "", "#", "red")
COLOUR_KEYS = ("Textfarbe", "Menütextfarbe", "Tabellenfarbe", "Rahmeninaktivfarbe", "Hintergrundfarbe",
               "Hintergrundfarbeaussen", "Menüaktivfarbe")
BASES = ("", "http://www.example.org/", "http://www.example.org", "www.example.org", "HTTP://WWW.EXAMPLE.ORG",
         "https://x.example/a", " www.example.org/ ")
WORDS = ("", "Unsere Seite", "Müller & Söhne", "\"Zitat\" 'x'", "[mrd:Textfarbe]", "[mrd:Überschrift]", "<b>x</b>", "♥",
         " mit Blanks ")
HEADS = ("<h1>Kopf</h1>", "<font face='[mrd:Schriftart]'>Kopf</font>", "", "Text &amp; <B>fett", "<table><tr><td>x",
         "\r\n<p>Absatz\r\n</p>")


class Scenario:
    """What a run of this project is given beside the mode."""

    def __init__(self, root, project, program, export, given_export, page, now):
        self.root, self.project, self.program, self.export = root, project, program, export
        self.given_export, self.page, self.now = given_export, page, now


def make(seed, root, program_source):
    """Fills the empty directory `root`."""
    return ProjectMaker(random.Random(seed), Path(root), Path(program_source)).make()


class ProjectMaker:
    def __init__(self, rng, root, program_source):
        self.rng, self.root, self.program_source = rng, root, program_source
        self.now = 1041379200 + rng.randrange(20 * 365 * 86400)
        self.export = root / rng.choice(EXPORTS)

    def make(self):
        rng = self.rng
        self.make_program_directory()
        pictures = self.make_pictures()
        self.make_export_directory()
        references = References(rng, pictures, str(self.export))
        self.html = HtmlMaker(rng, references)
        self.fill_project()
        page = rng.choice(self.ids + ["00"]) if rng.random() < 0.93 else "77"
        given = rng.choice((str(self.export), str(self.export) + "/", None))
        if given is not None and rng.random() < 0.04:
            given = str(self.root / "gibt es nicht")
        return Scenario(self.root, self.root / "projekt.mdb", self.root / "programm", self.export, given, page, self.now)

    def make_program_directory(self):
        target, rng = self.root / "programm", self.rng
        for source in sorted(self.program_source.rglob("*")):
            place = target / source.relative_to(self.program_source)
            if source.is_dir():
                place.mkdir(parents=True, exist_ok=True)
            elif source.name not in ("mrd", "mirandel") and source.suffix.lower() != ".ini":
                place.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(source, place)
        shutil.rmtree(target / "exportpfad", ignore_errors=True)
        # Two copies of one name differ, so that it shows which one a run took.
        for name in ("mrdnav.js", "mrdbanner.gif"):
            with open(target / name, "ab") as file:
                file.write(b"\n// the one at the top\n")
        for name in ("mrdshop.js", "cookiefunctions.js"):
            (target / name).write_bytes(b"// " + name.encode()) if rng.random() < 0.5 else (target / name).unlink(missing_ok=True)
        for name in ("popupbild.htm", "picturetransfer.js", "mrdbanner.gif", "mrdnav.js", "hilfe/mrdnav.js",
                     "hilfe/pix/mrdbanner.gif"):
            if rng.random() < 0.12:
                (target / name).unlink(missing_ok=True)

    def picture(self, name):
        data = GIF if name.lower().endswith("gif") else JPEG
        return data + b"%d" % self.rng.randrange(10 ** 9)

    def make_pictures(self):
        paths = []
        for folder in FOLDERS:
            (self.root / folder).mkdir(parents=True, exist_ok=True)
            for name in self.rng.sample(PICTURE_NAMES, 8):
                path = self.root / folder / name
                path.write_bytes(self.picture(name))
                paths.append(str(path))
        paths.append(str(self.root / "fotos" / "fehlt.jpg"))
        paths.append(str(self.root / "weg" / "fehlt auch.gif"))
        return paths

    def make_export_directory(self):
        rng = self.rng
        self.export.mkdir()
        if rng.random() < 0.7:
            (self.export / "pix").mkdir()
            for name in rng.sample(("bild.gif", "Foto.JPG", "haus.jpg", "urlaub 1.jpg", "öffnung.jpg", "a b.jpg",
                                    "mrdbanner.gif", "ecke-ol.jpg"),
                                   rng.randrange(6)):
                (self.export / "pix" / name).write_bytes(self.picture(name))
        for name in ("mrdnav.js", "mrdshop.js", "popupbild.htm", "picturetransfer.js", "index.htm", "01.htm", "haus.jpg",
                     "alt.htm", "01.txt", "02.HTM"):
            if rng.random() < 0.15:
                (self.export / name).write_bytes(b"from before " + name.encode())

    def tree(self):
        rng, ids = self.rng, []
        def grow(parent, width):
            numbers = [n for n in range(1, width + 1) if rng.random() < 0.85]
            if rng.random() < 0.06:
                numbers.append(99)
            for number in numbers:
                ident = "%s%02d" % (parent, number)
                ids.append(ident)
                if len(ident) < 8 and rng.random() < 0.45:
                    grow(ident, rng.randrange(1, 4))
        grow("", rng.choice((0, 1, 2, 4, 7)))
        return ids

    def moment(self):
        return datetime.utcfromtimestamp(self.now) - timedelta(seconds=self.rng.randrange(400 * 86400))

    def fill_project(self):
        rng = self.rng
        db = sqlite3.connect(self.root / "projekt.mdb")
        db.executescript("""
            CREATE TABLE "Seite" ("id" TEXT, "Überschrift" TEXT, "html" TEXT, "dateiname" TEXT, "seitentyp-id" INTEGER,
                "script" TEXT, "changingdate" TEXT, "expanded" INTEGER);
            CREATE TABLE "Einstellungen" ("Einstellung" TEXT, "Wert" TEXT);
            CREATE TABLE "Dateien" ("pfad" TEXT, "dateiname" TEXT, "erweiterung" TEXT, "dateityp-id" INTEGER,
                "übertragen" INTEGER, "dateidatum" TEXT, "pfadLokal" TEXT);
            CREATE TABLE "Artikel" ("Artikel_deutsch" TEXT, "Artikel_englisch" TEXT, "Preis_Euro" REAL, "Preis_Dollar" REAL,
                "Artikelnummer" INTEGER PRIMARY KEY AUTOINCREMENT);
        """)
        self.ids = self.tree()
        rows = [self.page_row("00")] + [self.page_row(ident) for ident in self.ids]
        rng.shuffle(rows)
        if rng.random() < 0.01:
            rows = []
        db.executemany("INSERT INTO Seite VALUES (?,?,?,?,?,?,?,?)", rows)
        db.executemany("INSERT INTO Einstellungen VALUES (?,?)", self.settings())
        db.executemany('INSERT INTO Dateien VALUES (?,?,?,?,?,?,?)', self.register_rows())
        db.commit()
        db.close()

    def page_row(self, ident):
        rng = self.rng
        if ident == "00":
            pattern = rng.choice(("*.htm", "*.htm", "", None, "start.htm", "*.html", "a*b.htm", "index.php", "*.HTM"))
            if rng.random() < 0.04:
                pattern = rng.choice(("../start.htm", "http://www.example.org/"))
        else:
            pattern = rng.choice(PATTERNS) if rng.random() < 0.5 else "*.htm"
        kind = rng.choice((1, 1, 1, 1, 1, 1, 2, 3, 4, None))
        body = None if rng.random() < 0.04 else self.html.body()
        changed = None if rng.random() < 0.1 else rng.choice((self.moment(), self.moment().replace(hour=0, minute=0, second=0)))
        return (ident, heading(rng), body, pattern, kind, self.html.head_script(),
                changed and changed.strftime("%Y-%m-%d %H:%M:%S"), rng.randrange(2))

    def settings(self):
        rng = self.rng
        rows = {key: rng.choice(COLOURS) for key in COLOUR_KEYS}
        rows.update({
            "Titel": rng.choice(WORDS), "BasisURL": rng.choice(BASES), "MetaDescription": rng.choice(WORDS),
            "MetaAuthor": rng.choice(WORDS),
            "MetaKeywords": rng.choice(WORDS), "Eckradius": rng.choice(("25", "0", "abc", "7", "")),
            "rundeEcke": rng.choice(("True", "False", "Wahr", "Falsch", "1", "0", "-1")),
            "Schriftart": rng.choice(("Arial", "Times New Roman", "'Größe'", "[mrd:Textfarbe]", "")),
            "menübreite": rng.choice(("auto", "140 px", "100 px", "77")),
            "inhaltbreite": rng.choice(("90%", "600 px", "50%", "12")),
            "Hyperlink": rng.choice(COLOURS), "grundlayout": "Navigation linke Seite", "blättern": str(rng.randrange(5)),
            "KopfHTML": rng.choice(HEADS) if rng.random() < 0.5 else self.html.body(), "imodekopftyp": "3",
        })
        for key in ("Hyperlink", "KopfHTML", "MetaDescription", "blättern", "Schriftart", "menübreite", "rundeEcke",
                    "Tabellenfarbe", "BasisURL", "grundlayout"):
            if rng.random() < 0.1:
                del rows[key]
        if "grundlayout" in rows and rng.random() < 0.03:
            rows["grundlayout"] = "Weg (weg.xml)"
        self.add_last_run(rows)
        rows["LastActivePage"], rows["dbVersion"] = "00", "5"
        self.add_export_path(rows)
        rows = list(rows.items())
        rng.shuffle(rows)
        if rng.random() < 0.1:
            rows.append(("Titel", "zweite Zeile zählt nicht") if "Titel" in dict(rows) else ("Titel", ""))
        return rows

    def add_last_run(self, rows):
        kind, moment = self.rng.random(), self.moment()
        if kind < 0.5:
            rows["lastgendate"] = moment.strftime("%d.%m.%Y %H:%M:%S")
        elif kind < 0.7:
            rows["lastgendate"] = moment.strftime("%Y-%m-%d %H:%M:%S")

    def add_export_path(self, rows):
        rng = self.rng
        own = str(self.export).replace("/", "\\")
        kind = rng.random()
        if kind < 0.8:
            rows["Exportpfad"] = rng.choice((own, own + "\\", "  %s\\ " % own, str(self.export), str(self.export) + "/"))
        elif kind < 0.93:
            rows["Exportpfad"] = rng.choice(("c:\\programme\\Mirandel\\exportpfad\\", "\\nirgends\\site\\"))

    def register_rows(self):
        rng = self.rng
        folder = (str(self.export) + "/").replace("/", "\\").lower()
        choices = [(folder, "01", "htm", 1), (folder, "alt", "htm", 1), (folder + "pix\\", "haus", "jpg", 2),
                   (folder + "pix\\", "bild", "gif", 5),
                   (folder, "index", "htm", 4), ("/htdocs/", "index", "htm", 4), ("/htdocs/pix/", "haus", "jpg", 5)]
        return [row + (rng.randrange(2), "2003-05-05 10:00:00", None) for row in rng.sample(choices, rng.randrange(len(choices)))]


def main():
    seed, root, program = int(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    root.mkdir(parents=True, exist_ok=True)
    scenario = make(seed, root, program)
    print(json.dumps({key: str(value) for key, value in vars(scenario).items()}, ensure_ascii=False, indent=1))


if __name__ == "__main__":
    main()
