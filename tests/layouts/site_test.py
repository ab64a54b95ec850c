#!/usr/bin/env python3
"""Sites generated with the shipped layouts: menus are lists in lists, the current page is marked, and nothing is left unfilled.

  site_test.py MRD PROGRAM_DIRECTORY [unittest arguments]
"""
import re
import shutil
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

import sites
from sites import GALERIE, MODERN, PROGRAM_DIR, TABS
from sources import ROOT

STRIPS = range(5)
PAGES = [("00", "Über „uns“"), ("01", "Team"), ("0101", "Anna & Bo"), ("010101", "Büro"), ("0101", "Söhne"), ("00", "Fotos"), ("02", "Winter")]
IDS = ["00", "01", "0101", "010101", "01010101", "010102", "02", "0201"]


class Menu(HTMLParser):
    """Walks a page and follows its lists the way browsers do, which end an open entry where the next one or the list's end comes."""

    def __init__(self, text):
        super().__init__()
        self.open, self.faults, self.marks, self.links, self.deepest = [], [], [], [], 0
        self.in_menu = False
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "nav":
            self.in_menu = attributes.get("class") == "menu"
        if not self.in_menu:
            return
        if tag == "li":
            if self.open[-1:] == ["li"]:
                self.open.pop()
            if self.open[-1:] != ["ul"]:
                self.faults.append("an entry outside of a list")
            self.open.append("li")
        elif tag == "ul":
            self.open.append("ul")
        elif tag == "a":
            self.deepest = max(self.deepest, self.open.count("ul"))
            self.links.append(attributes["href"])
            if "aria-current" in attributes:
                self.marks.append((attributes["aria-current"], attributes["href"]))
        if tag not in ("li", "nav") and self.open[-1:] == ["ul"] and tag != "ul":
            self.faults.append(tag + " directly in a list")

    def handle_endtag(self, tag):
        if tag == "nav":
            if self.in_menu and self.open:
                self.faults.append("a list that does not end")
            self.in_menu = False
        elif tag == "ul" and self.in_menu:
            if self.open[-1:] == ["li"]:
                self.open.pop()
            if self.open[-1:] == ["ul"]:
                self.open.pop()
            else:
                self.faults.append("an end without a list")

    def handle_data(self, data):
        if self.in_menu and data.strip() and self.open[-1:] == ["ul"]:
            self.faults.append("text directly in a list: " + data.strip())


class Sites(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.project = sites.Project(cls, PAGES)
        cls.project.settings("Titel=Prüfung", "KopfHTML=<p>Kopf</p>")

    def pages(self, layout, strip=4):
        export = self.project.site(layout, strip)
        for id in IDS:
            yield id, sites.page(export, id)

    def test_menus_are_valid_lists(self):
        for layout in (MODERN, GALERIE):
            for id, text in self.pages(layout):
                with self.subTest(layout=layout, page=id):
                    self.assertEqual(Menu(text).faults, [])

    def test_modern_marks_the_current_page_and_opens_the_way_to_it(self):
        for id, text in self.pages(MODERN):
            menu = Menu(text)
            own = ("index" if id == "00" else id) + ".htm"
            self.assertEqual(menu.marks, [("page", own)])
            for length in range(2, len(id) + 1, 2):
                self.assertIn("index.htm" if id == "00" else id[:length] + ".htm", menu.links)
            self.assertNotIn("0201.htm" if id.startswith("01") else "0101.htm", menu.links)

    def test_modern_nests_as_deep_as_the_pages(self):
        depth = {id: Menu(text).deepest for id, text in self.pages(MODERN)}
        self.assertEqual([depth[id] for id in ("00", "01", "0101", "010101", "01010101", "0201")], [1, 2, 3, 4, 4, 2])

    def test_galerie_marks_the_whole_open_path(self):
        for id, text in self.pages(GALERIE):
            path = ["index.htm"] if id == "00" else [id[:length] + ".htm" for length in range(2, len(id) + 1, 2)]
            self.assertEqual(Menu(text).marks, [("true", target) for target in path])

    def test_no_placeholder_is_left_with_any_strip(self):
        for layout in (MODERN, GALERIE):
            for strip in STRIPS:
                for id, text in self.pages(layout, strip):
                    self.assertNotIn("[mrd:", text, (layout, strip, id))

    def test_the_document_begins_with_its_type(self):
        for layout in (MODERN, GALERIE):
            for _, text in self.pages(layout):
                self.assertTrue(text.startswith("<!DOCTYPE html>\r\n"))
                self.assertLess(text.index('<meta charset="windows-1252">'), 1024)

    def test_a_layouts_picture_goes_out_with_the_site(self):
        export = self.project.site(GALERIE)
        shipped = PROGRAM_DIR / "xml" / "pix" / "galerie_oben.svg"
        self.assertEqual((export / "pix" / "galerie_oben.svg").read_bytes(), shipped.read_bytes())

    def test_the_stylesheet_of_the_site_has_its_colours(self):
        sheet = (self.project.site(TABS) / "mrdstyle.css").read_bytes().decode("cp1252")
        self.assertNotIn("[mrd:", sheet)
        self.assertIn("td.tab1aktiv", sheet)
        self.assertIn("#0080FF", sheet)


class Handbook(unittest.TestCase):
    """The worked example of docs/LAYOUTS.md."""

    @classmethod
    def setUpClass(cls):
        text = (ROOT / "docs" / "LAYOUTS.md").read_text(encoding="utf-8")
        cls.layout, cls.page = (re.search(rf"<!-- {name} -->\n```\w+\n(.*?)```", text, re.S)[1] for name in ("zettel.xml", "0101.htm"))
        program_dir = Path(tempfile.mkdtemp(prefix="mrd-layouts-program-"))
        cls.addClassCleanup(shutil.rmtree, program_dir, True)
        shutil.copytree(PROGRAM_DIR, program_dir, dirs_exist_ok=True, ignore=shutil.ignore_patterns("mrd", "mirandel", "exportpfad"))
        (program_dir / "xml" / "zettel.xml").write_text(cls.layout, encoding="utf-8")
        cls.project = sites.Project(cls, [("00", "Haus"), ("01", "Küche"), ("01", "Garten"), ("00", "Preise")], program_dir)
        cls.project.set("00", sites.body("Start"))
        cls.project.set("0101", '<h3 id="ueberschrift">Küche</h3>')

    def test_comes_out_as_printed(self):
        text = sites.page(self.project.site("Zettel (zettel.xml)"), "0101")
        self.assertEqual(text.replace("\r\n", "\n").rstrip("\n"), self.page.rstrip("\n"))
        self.assertEqual(text.count("\n"), text.count("\r\n"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
