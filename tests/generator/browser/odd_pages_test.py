#!/usr/bin/env python3
"""Pages that the demo site does not have, in a real browser: long ones, popups, scripts that fail, signs of other alphabets.

  odd_pages_test.py MRD [unittest arguments]
"""
import functools
import http.server
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests" / "web"))
from browser import Browser  # noqa: E402

MRD = sys.argv[1]
PICTURE = ROOT / "demo" / "pix" / "logo.jpg"
HEADING = '<h3 id="ueberschrift">%s</h3>'
PAGES = [
    HEADING % "Größe & Maß" + "<p>Dünen „Nord“ 5 €, ♥ Привет 日本</p><p><img src='file://%s'></p>" % PICTURE,
    HEADING % "Lang" + "<p>Zeile</p>" * 200,
    HEADING % "Bild" + "<a id=verweis href=\"javascript:popupfenster('file://%s','Möwe „Emma“')\">groß</a>" % PICTURE,
    HEADING % "Fehler" + "<p>steht da</p><script>throw new Error('eigener Fehler');</script><p>auch</p>",
]
SETTINGS = ["rundeEcke=1", "Eckradius=30", "Tabellenfarbe=23648c", "Titel=Möwe ♥"]


class Quiet(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


class OddPages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="mrd-odd-")
        cls.addClassCleanup(folder.cleanup)
        cls.site, project, body = Path(folder.name) / "web", Path(folder.name) / "p.mdb", Path(folder.name) / "body.html"
        cls.site.mkdir()
        cls.mrd("new", project)
        for page in PAGES:
            body.write_text(page, encoding="utf-8")
            cls.mrd("page", "add", project, "--under", "00", "--html", body)
        cls.mrd("settings", project, *SETTINGS)
        cls.mrd("generate", project, "--export", cls.site)
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Quiet, directory=str(cls.site)))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        cls.addClassCleanup(server.server_close)
        cls.addClassCleanup(server.shutdown)
        cls.places = [cls.site.as_uri() + "/", "http://127.0.0.1:%d/" % server.server_port]
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

    @staticmethod
    def mrd(*arguments):
        subprocess.run([MRD, *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)

    def opened(self, name):
        """The page from the file system and from the web server."""
        for place in self.places:
            page = self.browser.open(place + name, 900, 500)
            self.addCleanup(page.close)
            page.settle()
            yield page

    @staticmethod
    def errors(page):
        return [error for error in page.errors() if "favicon" not in error]

    def test_signs_of_all_alphabets_are_shown(self):
        for page in self.opened("01.htm"):
            text = page.ask("document.body.innerText")
            for words in ("Größe & Maß", "Dünen „Nord“ 5 €, ♥ Привет 日本"):
                self.assertIn(words, text)
            self.assertEqual(page.ask("document.title"), "Möwe ♥: Größe & Maß")
            self.assertEqual(self.errors(page), [])

    def test_corners_and_pictures_are_there(self):
        for page in self.opened("01.htm"):
            sizes = page.ask("Object.fromEntries(Array.from(document.images).map(i => [i.getAttribute('src'), i.naturalWidth]))")
            for corner in ("ol", "or", "ul", "ur"):
                self.assertEqual(sizes["pix/ecke-%s.jpg" % corner], 30)
            self.assertGreater(sizes["pix/logo.jpg"], 0)

    STRIP = """(function () {
      var strip = document.getElementById('mrdnav').getBoundingClientRect();
      var table = document.getElementById('tabelle').getBoundingClientRect();
      var cell = document.getElementById('zelle').getBoundingClientRect();
      return {bottom: strip.bottom, left: strip.left, right: strip.right, tableLeft: table.left, tableRight: table.right,
        cellLeft: cell.left,
        cellTop: cell.top, window: innerHeight, links: document.querySelectorAll('#nsmrdnav a').length};
    })()"""

    def test_the_page_turn_strip_of_a_long_page_lies_at_the_bottom_of_the_window_within_the_table(self):
        for page in self.opened("02.htm"):
            for y in (0, 700):
                page.scroll(y)
                seen = page.ask(self.STRIP)
                self.assertGreater(seen["cellTop"], seen["window"], "the strip's home is out of sight")
                self.assertAlmostEqual(seen["bottom"], seen["window"], delta=1)
                self.assertAlmostEqual(seen["left"], seen["cellLeft"], delta=1)
                self.assertGreaterEqual(seen["left"], seen["tableLeft"])
                self.assertLessEqual(seen["right"], seen["tableRight"] + 1)
                self.assertGreaterEqual(seen["links"], 3)
            self.assertEqual(self.errors(page), [])

    def test_a_popup_link_asks_for_its_picture_with_its_words(self):
        for page in self.opened("03.htm"):
            page.ask("window.opened = ''; window.open = address => { opened = address; return window; }")
            page.ask("document.getElementById('verweis').click()")
            page.settle()
            self.assertEqual(page.ask("opened"), "popupbild.htm?src=pix/logo.jpg&bu=Möwe%20„Emma“")
            self.assertTrue((self.site / "popupbild.htm").is_file())

    def test_a_page_s_own_failing_script_leaves_the_rest_of_the_page_alone(self):
        for page in self.opened("04.htm"):
            self.assertIn("auch", page.ask("document.body.innerText"))
            self.assertEqual(page.ask("typeof navposition"), "function")
            self.assertEqual(len(self.errors(page)), 1)
            self.assertIn("eigener Fehler", self.errors(page)[0])

    def test_the_menu_leads_through_the_site(self):
        for page in self.opened("index.htm"):
            page.follow("Array.from(document.links).find(l => l.innerText === 'Lang').click()")
            self.assertEqual(page.ask("document.title"), "Möwe ♥: Lang")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
