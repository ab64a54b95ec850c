"""A random project of whose pictures some are too large for a telephone."""
import struct
import zlib

from random_project import ProjectMaker, WORDS

SIZES = ((1, 1), (40, 30), (120, 120), (121, 60), (119, 240), (300, 200), (640, 480), (7, 500), (2000, 3))
HEAD_TEXTS = WORDS + ("Haus & Meer", " Haus ", "")


def png(width, height, shade):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = (b"\0" + bytes([shade]) * width) * height
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


class ImodeProjectMaker(ProjectMaker):
    def picture(self, name):
        rng, kind = self.rng, self.rng.random()
        if kind < 0.15:
            return b"no picture at all %d" % rng.randrange(100)
        if kind < 0.3:
            return super().picture(name)
        return png(*rng.choice(SIZES), rng.randrange(256))

    def make_export_directory(self):
        super().make_export_directory()
        rng = self.rng
        if rng.random() < 0.5:
            pix = self.export / rng.choice(("imode", "Imode")) / "pix"
            pix.mkdir(parents=True)
            for name in rng.sample(("haus_xs.gif", "Haus.jpg", "bild.gif", "foto_xs.gif", "Urlaub 1_XS.gif", "o'neil.jpg",
                                    "logo.gif"), rng.randrange(6)):
                (pix / name).write_bytes(b"from before " + name.encode())

    def settings(self):
        rng = self.rng
        chosen = rng.choice(("", "max. 120 Pixel Breite", str(self.root / "fotos" / "fehlt.gif"), self.logo(), self.logo(), self.logo()))
        rows = [row for row in super().settings() if row[0] != "imodekopftyp"]
        rows += [("imodekopftyp", rng.choice("0123")), ("imodekopftext", rng.choice(HEAD_TEXTS)),
                 ("imodekopfgif", chosen.replace("/", "\\"))]
        rng.shuffle(rows)
        # Of rows of one key the first counts, as before.
        return [row for row in rows if row[0] != "Titel"] + [row for row in rows if row[0] == "Titel"]

    def logo(self):
        path = self.root / "fotos" / self.rng.choice(("logo.gif", "Mein Logo.GIF"))
        path.write_bytes(b"the logo")
        return str(path)


def make(seed, root, program_source):
    import random
    from pathlib import Path
    return ImodeProjectMaker(random.Random("imode %d" % seed), Path(root), Path(program_source)).make()
