"""Small sites for the tests of layouts, made with the command line program.

Scripts that use this are called with the program and the program directory in front of unittest's arguments.
"""
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

MRD, PROGRAM_DIR = sys.argv[1], Path(sys.argv[2])
MODERN, GALERIE, TABS = "Modern (modern.xml)", "Galerie (galerie.xml)", "Navigation in Laschen oben"


def mrd(*arguments, program_dir=PROGRAM_DIR):
    subprocess.run([MRD, "--program-dir", program_dir, "--quiet", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


def body(heading, text="♥"):
    return f'<h3 id="ueberschrift">{heading.replace("&", "&amp;")}</h3><p>{text}</p>'


class Project:
    """A project of its own in a temporary folder. `pages` are the parents' numbers with headings, in the order in which they are added."""

    def __init__(self, test_class, pages, program_dir=PROGRAM_DIR):
        self.folder = Path(tempfile.mkdtemp(prefix="mrd-layouts-"))
        test_class.addClassCleanup(shutil.rmtree, self.folder, True)
        self.file, self.program_dir = self.folder / "p.mdb", program_dir
        self.mrd("new", self.file)
        for parent, heading in pages:
            self.add(parent, body(heading))

    def mrd(self, *arguments):
        mrd(*arguments, program_dir=self.program_dir)

    def add(self, parent, html):
        self.mrd("page", "add", self.file, "--under", parent, "--html", self._written(html))

    def set(self, id, html):
        self.mrd("page", "set", self.file, id, "--html", self._written(html))

    def settings(self, *changes):
        self.mrd("settings", self.file, *changes)

    def site(self, layout, strip=4):
        """The export directory of a run with this layout and page-turn strip."""
        export = self.folder / f"{layout.split()[0]}-{strip}"
        (export / "pix").mkdir(parents=True, exist_ok=True)
        self.settings(f"blättern={strip}", f"grundlayout={layout}")
        self.mrd("generate", self.file, "--export", export)
        return export

    def _written(self, html):
        path = self.folder / "body.html"
        path.write_text(html, encoding="utf-8")
        return path


def page(export, id):
    """A page's text as browsers read it."""
    return (export / f"{'index' if id == '00' else id}.htm").read_bytes().decode("cp1252")
