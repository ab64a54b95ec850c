#!/usr/bin/env python3
"""The telephone on the screen and the pages in it, in a real browser.

  viewer_test.py MRD [unittest arguments]
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "web"))
from browser import Browser  # noqa: E402

MRD = sys.argv[1]
VIEWER = Path(__file__).resolve().parents[3] / "resources" / "imode" / "viewer.html"

PAGES = (("01", "Küche", "<h3 id=ueberschrift>Küche</h3><table><tr><td>Herd</td><td>Spüle</td></tr></table>"),
         ("02", "Garten", "<h3 id=ueberschrift>Garten</h3><p>Rosen €"))


class Telephone:
    """The viewer's page and what its display shows. The page itself may not look into the frame; the browser may."""

    def __init__(self, page):
        self.page = page
        self.main = page.command("Page.getFrameTree")["frameTree"]["frame"]["id"]

    def in_display(self, expression):
        frames = self.page.command("Page.getFrameTree")["frameTree"].get("childFrames", [])
        frame = frames[0]["frame"]["id"]
        context = [e["params"]["context"]["id"] for e in self.page.browser.events
                   if e["method"] == "Runtime.executionContextCreated" and e.get("sessionId") == self.page.session
                   and e["params"]["context"]["auxData"] == {"isDefault": True, "type": "default", "frameId": frame}][-1]
        return self.page.ask(expression, contextId=context)

    def text(self):
        return self.in_display("document.body.innerText")

    def click(self, words):
        """With the mouse, at the place where the link stands."""
        before = self.in_display("location.href")
        x, y = self.in_display("(() => { const link = Array.from(document.links).find(l => l.innerText == %r); link.scrollIntoView();"
                               " const box = link.getBoundingClientRect(); return [box.left + 5, box.top + box.height / 2]; })()" % words)
        left, top = self.page.ask("(() => { const box = document.getElementById('display').getBoundingClientRect();"
                                  " return [box.left, box.top]; })()")
        for kind in ("mousePressed", "mouseReleased"):
            self.page.command("Input.dispatchMouseEvent", type=kind, x=left + x, y=top + y, button="left", clickCount=1)
        until = time.monotonic() + 20
        while time.monotonic() < until:
            self.page.settle()
            try:
                if self.in_display("location.href != %r && document.readyState == 'complete'" % before):
                    return
            except AssertionError:          # between two pages
                pass
        raise AssertionError("the link led nowhere: " + words)


class Viewer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="mrd-viewer-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.site = self.folder / "Häuser 100% #1"
        self.site.mkdir()
        environment = dict(os.environ, HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder))
        def mrd(*arguments):
            return subprocess.run([MRD, *map(str, arguments)], check=True, capture_output=True, env=environment, text=True).stdout
        project = self.folder / "haus.mdb"
        mrd("new", project)
        for ident, _, html in PAGES:
            file = self.folder / (ident + ".html")
            file.write_text(html, encoding="utf-8")
            mrd("page", "add", project, "--under", "00", "--html", file)
        mrd("settings", project, "imodekopftyp=0", "Titel=Haus")
        mrd("generate", project, "--imode", "--export", self.site)
        self.viewer = self.folder / "programm" / "imode"
        self.viewer.mkdir(parents=True)
        shutil.copy(VIEWER, self.viewer)

    def point_at(self, path):
        """As the program writes it: signs of their own meaning escaped, all others as they are."""
        address = str(path).replace("%", "%25").replace("#", "%23")
        (self.viewer / "viewer.js").write_bytes(
            ('document.getElementById("display" ).src = "%s"; \r\n' % address).encode("cp1252"))

    def open(self):
        page = self.browser.open("file://%s/viewer.html" % self.viewer, 800, 700)
        self.addCleanup(page.close)
        page.settle()
        return page, Telephone(page)

    def test_the_display_shows_the_homepage(self):
        self.point_at(self.site / "imode" / "index.htm")
        page, telephone = self.open()
        self.assertEqual(page.errors(), [])
        self.assertIn("Homepage", telephone.text())
        self.assertIn("Küche", telephone.text())

    def test_a_link_in_the_display_leads_on_in_it(self):
        self.point_at(self.site / "imode" / "index.htm")
        page, telephone = self.open()
        telephone.click("Küche")
        self.assertIn("Herd\nSpüle", telephone.text())
        telephone.click("nächste Seite")
        self.assertIn("Rosen €", telephone.text())
        self.assertEqual(page.errors(), [])

    def test_keys_of_the_telephone_are_access_keys(self):
        self.point_at(self.site / "imode" / "01.htm")
        page, telephone = self.open()
        self.assertEqual(telephone.in_display("Array.from(document.links).filter(l => l.accessKey).map(l => l.accessKey + l.innerText).join()"),
                         "0Homepage,1zurück,3nächste Seite")

    def test_the_head_picture_is_there(self):
        self.point_at(self.site / "imode" / "01.htm")
        page, telephone = self.open()
        self.assertEqual(telephone.in_display("document.images[0].naturalWidth + 'x' + document.images[0].naturalHeight"), "120x20")

    def test_without_a_script_the_telephone_is_there_and_empty(self):
        page, telephone = self.open()
        self.assertEqual(page.ask("document.getElementById('display').src"), "")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]] + sys.argv[2:])
