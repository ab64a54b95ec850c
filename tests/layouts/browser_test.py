#!/usr/bin/env python3
"""The shipped layouts in a real browser: narrow windows, the keyboard, the dark scheme, printing.

  browser_test.py MRD PROGRAM_DIRECTORY [unittest arguments]
"""
import sys
import unittest
from pathlib import Path

import sites
from sites import GALERIE, MODERN, PROGRAM_DIR, TABS

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "web"))
from browser import Browser  # noqa: E402

KEYS = {"Tab": (9, {}), "Enter": (13, {"text": "\r"}), "Escape": (27, {}), "Space": (32, {"text": " "})}
PAGES = [("00", "Das Haus"), ("01", "Die Küche"), ("01", "Der Garten"), ("00", "Donaudampfschifffahrtsgesellschaft und mehr"), ("00", "Kontakt")]
THUMBNAIL = ("<td><a href=\"javascript:popupfenster('file://{0}','Zum Haus')\"><img border=0 alt=Haus src=\"file://{0}\"></a></td>")


class InBrowser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        picture = PROGRAM_DIR / "nav_home.gif"
        cls.project = sites.Project(cls, PAGES)
        cls.project.add("00", '<h3 id="ueberschrift">Bilder</h3><table border=0 align=center><tr>' + 3 * THUMBNAIL.format(picture) + "</tr></table>"
                        '<table bgcolor="#ffffcc"><tr><td id="coloured">hell</td></tr></table>')
        wide = cls.project.folder / "wide.svg"
        wide.write_text('<svg xmlns="http://www.w3.org/2000/svg" width="900" height="300"><rect width="900" height="300" fill="navy"/></svg>')
        cls.project.set("0101", f'<h3 id="ueberschrift">Die Küche</h3><p align="center"><img src="file://{wide}"><br>Herd</p>'
                        f'<table border=1><tr><td>Tisch</td><td><img src="file://{wide}"></td></tr></table>')
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

    def open(self, layout, id, width, height=800, strip=4):
        page = self.browser.open((self.project.site(layout, strip) / f"{id}.htm").as_uri(), width, height)
        self.addCleanup(page.close)
        return page

    @staticmethod
    def press(page, key):
        code, text = KEYS[key]
        for kind in ("keyDown", "keyUp"):
            page.command("Input.dispatchKeyEvent", type=kind, key=" " if key == "Space" else key, code=key, windowsVirtualKeyCode=code, **text)
            text = {}
        page.settle()

    def tab_to(self, page, selector):
        for _ in range(30):
            self.press(page, "Tab")
            if page.ask(f"document.activeElement.matches({selector!r})"):
                return
        self.fail("not reached by the keyboard: " + selector)

    @staticmethod
    def is_shown(page, selector):
        return page.ask(f"document.querySelector({selector!r}).checkVisibility()")

    def test_narrow_windows_need_no_scrolling_sideways(self):
        for layout in (MODERN, GALERIE, TABS):
            for strip in range(4):
                page = self.open(layout, "0101", 390, strip=strip)
                self.assertLessEqual(page.ask("document.documentElement.scrollWidth"), 390, (layout, strip))

    def test_no_script_fails(self):
        for layout in (MODERN, GALERIE, TABS):
            for strip in range(5):
                self.assertEqual(self.open(layout, "04", 1280, strip=strip).errors(), [], (layout, strip))

    def test_the_first_stop_of_the_keyboard_leads_to_the_content(self):
        for layout in (MODERN, GALERIE):
            page = self.open(layout, "0101", 1280)
            self.press(page, "Tab")
            self.assertGreaterEqual(page.ask("document.activeElement.getBoundingClientRect().top"), 0)
            self.press(page, "Enter")
            self.assertEqual(page.ask("document.activeElement.localName"), "main")

    def test_moderns_menu_opens_and_closes_by_the_keyboard_where_it_is_narrow(self):
        page = self.open(MODERN, "0101", 390)
        self.assertFalse(self.is_shown(page, ".menu ul"))
        self.tab_to(page, "#mrd-menu")
        self.press(page, "Space")
        self.assertTrue(self.is_shown(page, ".menu ul ul [aria-current]"))
        self.press(page, "Tab")
        self.assertEqual(page.ask("document.activeElement.textContent"), page.ask("document.querySelector('.menu a').textContent"))
        self.tab_to(page, "[aria-current]")
        page.ask("document.getElementById('mrd-menu').focus()")
        self.press(page, "Space")
        self.assertFalse(self.is_shown(page, ".menu ul"))

    def test_moderns_menu_is_open_where_there_is_room(self):
        page = self.open(MODERN, "0101", 1280)
        self.assertTrue(self.is_shown(page, ".menu ul ul [aria-current]"))
        self.assertFalse(self.is_shown(page, "label[for=mrd-menu]"))

    def test_an_entry_without_children_shows_no_list(self):
        for layout in (MODERN, GALERIE):
            page = self.open(layout, "03", 1280)
            self.assertEqual(page.ask("[...document.querySelectorAll('.menu ul')].filter(list => list.checkVisibility()).length"), 1)

    def test_a_picture_opens_and_closes_by_the_keyboard(self):
        for layout in (MODERN, GALERIE):
            page = self.open(layout, "04", 1280)
            self.tab_to(page, "td a")
            self.press(page, "Enter")
            self.assertTrue(page.ask("document.getElementById('mrd-box').open"))
            self.assertEqual(page.ask("document.querySelector('#mrd-box figcaption').textContent"), "Zum Haus")
            self.assertTrue(page.ask("document.querySelector('#mrd-box img').src.endsWith('/pix/nav_home.gif')"))
            self.press(page, "Escape")
            self.assertFalse(page.ask("document.getElementById('mrd-box').open"))
            self.assertTrue(page.ask("document.activeElement.matches('td a')"))

    def test_galerie_lays_thumbnails_in_a_grid_and_leaves_other_tables_alone(self):
        page = self.open(GALERIE, "04", 1280)
        self.assertEqual(page.ask("[...document.querySelectorAll('.content tbody')].map(body => getComputedStyle(body).display)"),
                         ["grid", "table-row-group"])

    def test_modern_is_dark_where_that_is_wished_and_keeps_coloured_cells_legible(self):
        page = self.open(MODERN, "04", 1280)
        light = page.ask("getComputedStyle(document.body).backgroundColor")
        page.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])
        page.settle()
        self.assertNotEqual(page.ask("getComputedStyle(document.body).backgroundColor"), light)
        self.assertEqual(page.ask("getComputedStyle(document.getElementById('coloured')).color"), "rgb(31, 38, 44)")

    def test_print_has_the_content_without_menu_and_strip(self):
        for layout in (MODERN, GALERIE):
            page = self.open(layout, "0101", 1280, strip=1)
            page.command("Emulation.setEmulatedMedia", media="print")
            page.settle()
            self.assertFalse(self.is_shown(page, ".menu"))
            self.assertFalse(self.is_shown(page, ".turn"))
            self.assertTrue(self.is_shown(page, ".content h3"))

    def test_a_strip_that_floats_stays_in_view(self):
        for layout in (MODERN, GALERIE):
            page = self.open(layout, "0101", 390, height=260, strip=0)
            box = page.ask("(box => [box.top, box.bottom])(document.getElementById('mrdnav').getBoundingClientRect())")
            self.assertGreaterEqual(box[0], 0)
            self.assertLessEqual(box[1], 260)

    def test_the_open_tab_goes_on_into_its_page(self):
        page = self.open(TABS, "0101", 1280)
        edge = page.ask("""(tabs => tabs.map(tab => getComputedStyle(tab).borderBottomColor === getComputedStyle(tab).backgroundColor))(
            [...document.querySelectorAll('td.tab1aktiv, td.tab1')])""")
        opened = page.ask("[...document.querySelectorAll('td.tab1aktiv, td.tab1')].map(tab => tab.className === 'tab1aktiv')")
        self.assertEqual(edge, opened)
        self.assertEqual(opened.count(True), 2)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
