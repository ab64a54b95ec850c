#!/usr/bin/env python3
"""The demo project's site as visitors see it, in a real browser, from the file system and from a web server.

  site_test.py MRD BUILD_DEMO [unittest arguments]
"""
import functools
import http.server
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

from browser import Browser

MRD, BUILD_DEMO = sys.argv[1], sys.argv[2]
# This page's addresses lead to the site on the internet, which a test does not visit.
EXTERNAL_PAGE = "06.htm"

SEEN = """(function () {
  var strip = document.getElementById('nsmrdnav').getBoundingClientRect();
  var table = document.getElementById('tabelle').getBoundingClientRect();
  return {
    title: document.title, encoding: document.characterSet, text: document.body.innerText,
    missing: Array.from(document.images).filter(i => !i.complete || i.naturalWidth === 0).map(i => i.src),
    links: Array.from(document.links).map(l => l.href),
    strip: [strip.top, strip.bottom, strip.left], table: [table.top, table.bottom, table.left], window: innerHeight
  };
})()"""


class QuietServer(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


class DemoSite(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="mrd-demo-")
        cls.addClassCleanup(cls.folder.cleanup)
        cls.site = Path(cls.folder.name) / "web"
        subprocess.run(["sh", BUILD_DEMO, MRD, str(cls.site)], check=True, stdout=subprocess.DEVNULL)
        cls.pages = sorted(file.name for file in cls.site.glob("*.htm") if file.name not in (EXTERNAL_PAGE, "popupbild.htm"))
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(QuietServer, directory=str(cls.site)))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        cls.addClassCleanup(server.server_close)
        cls.addClassCleanup(server.shutdown)
        cls.bases = ["file://%s/" % cls.site, "http://127.0.0.1:%d/" % server.server_port]
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

        cls.visits = [cls.visit(base, name) for base in cls.bases for name in cls.pages]

    @classmethod
    def visit(cls, base, name):
        """What is seen of a page when it has loaded, with its errors and what is seen further down and at its end."""
        page = cls.browser.open(base + name, 1000, 500)
        page.settle()
        seen = page.ask(SEEN)
        seen.update(base=base, address=base + name, errors=page.errors(), further=[])
        for y in 200, 100000:
            page.scroll(y)
            seen["further"].append(page.ask(SEEN))
        page.close()
        return seen

    def test_has_its_pages(self):
        self.assertEqual(len(self.pages), 25)
        self.assertIn("anreise04.htm", self.pages)

    def test_shows_no_script_error_and_no_missing_picture(self):
        for seen in self.visits:
            self.assertEqual([error for error in seen["errors"] if "favicon" not in error], [], seen["address"])
            self.assertEqual(seen["missing"], [], seen["address"])

    def test_shows_umlauts_and_signs(self):
        for seen in self.visits:
            self.assertRegex(seen["title"], "^Ferienhaus M\u00f6we: ")
            self.assertNotRegex(seen["text"], "\ufffd|\u00c3[\u00a4\u00b6\u00bc\u201e\u2013\u0178]|[\u0080-\u009f]", seen["address"])
            if seen["address"].endswith("index.htm"):
                for sign in "\u20ac", "\u201e", "\u201c", "\u00df", "\u2665":
                    self.assertIn(sign, seen["text"])

    def test_links_lead_somewhere(self):
        for seen in self.visits:
            for link in seen["links"]:
                if link.startswith(seen["base"]):
                    self.assertTrue((self.site / link[len(seen["base"]):].split("#")[0]).is_file(), link)
                else:
                    self.assertRegex(link, "^(javascript:|mailto:|http://www.kuestenwetter.example/)")

    def test_keeps_the_page_turn_strip_within_the_table_and_the_window(self):
        for seen in self.visits:
            for place in [seen] + seen["further"]:
                top, bottom, left = place["strip"]
                self.assertGreaterEqual(top, place["table"][0], seen["address"])
                self.assertLessEqual(bottom, min(place["table"][1], place["window"]) + 1, seen["address"])
                self.assertGreaterEqual(left, place["table"][2], seen["address"])
                self.assertLess(bottom - top, 40, seen["address"])

    def test_works_out_the_tide_with_the_script_of_its_page(self):
        page = self.browser.open(self.bases[0] + "020201.htm")
        page.ask("document.forms.tide.zuletzt.value = '18:00'; document.forms.tide.querySelector('[type=submit]').click()")
        self.assertEqual(page.ask("document.forms.tide.hoch.value"), "06:25")
        page.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
