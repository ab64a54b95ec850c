#!/usr/bin/env python3
"""The scripts that generated sites use, run in a real browser on small pages.

  web_files_test.py DIRECTORY_OF_WEB_FILES [DIRECTORY_OF_PICTURES] [unittest arguments]
"""
import os
import shutil
import sys
import tempfile
import time
import unittest
from pathlib import Path

from browser import Browser, Page

WEB, PIX = Path(sys.argv[1]), Path(sys.argv[2])


class Site(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="mrd-site-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        for file in WEB.iterdir():
            shutil.copy(file, self.folder)
        (self.folder / "pix").mkdir()
        shutil.copy(PIX / "mrdbanner.gif", self.folder / "pix" / "haus am meer.gif")
        shutil.copy(PIX / "mrdbanner.gif", self.folder / "pix" / "d\u00fcne.gif")
        shutil.copy(PIX / "mrdbanner.gif", self.folder / "pix" / "100% #1.gif")

    def page(self, name, text, height=600):
        (self.folder / name).write_bytes(text.encode("cp1252"))
        return self.open(name, height)

    def open(self, name, height=600):
        page = self.browser.open(self.address(name), 800, height)
        self.addCleanup(page.close)
        return page

    def address(self, name):
        return "file://%s/%s" % (self.folder, name)


class Notices(Site):
    """Without this the absence of errors in the other tests would say nothing."""

    def test_a_script_error_and_a_missing_picture(self):
        page = self.page("fehler.htm", "<html><body><img src='pix/weg.gif'><script>fehlt();</script></body></html>")
        self.assertRegex("|".join(page.errors()), "fehlt is not defined")
        self.assertRegex("|".join(page.errors()), "ERR_FILE_NOT_FOUND")


class PageTurnStrip(Site):
    """mrdnav.js. Pages without a document type are laid out by the old rules, as generated pages are."""

    def strip_page(self, content_height, position="absolute", cell="id=zelle", table="id=tabelle", doctype="", before=""):
        return (doctype + "<HTML><HEAD><TITLE>x</TITLE></HEAD><BODY>" + before
                + "<TABLE " + table + " cellSpacing=0 cellPadding=0 width=90% border=0 align=center>"
                "<TR><TD colspan=2>Kopf</TD></TR>"
                "<TR><TD width=140>Men\u00fc</TD><TD><div id=hoch style='height:" + str(content_height)
                    + "px'>Text</div></TD></TR>"
                "<tr><TD>&nbsp;</TD><td " + cell + ">&nbsp;\r\n<div ID='mrdnav' STYLE='position:" + position + ";'>"
                "<table border=0 cellpadding=0 cellspacing=0><tr><td><layer ID='nsmrdnav' STYLE='position:absolute;'>"
                "<a href='#oben'>&lt; Das Haus am Meer</a> | <a href='#oben'>oben</a></layer></td></tr></table></div></td></TR></TABLE><P></P></BODY>"
                "<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>"
                "<SCRIPT language='Javascript1.2'>if ((document.all) || (document.layers)){ setInterval('navposition()', 800); }"
                "</SCRIPT ></HTML>")

    WHERE = """(function () {
      var strip = document.getElementById('nsmrdnav').getBoundingClientRect();
      var frame = document.getElementById('mrdnav').getBoundingClientRect();
      var cell = (document.getElementById('zelle') || document.body).getBoundingClientRect();
      return {top: strip.top, bottom: strip.bottom, left: strip.left, cellTop: cell.top, cellBottom: cell.bottom,
        cellLeft: cell.left, frameTop: frame.top, frameBottom: frame.bottom, window: innerHeight, full: document.scrollingElement.scrollHeight};
    })()"""

    def steps(self, name, text, height=600):
        """Where the strip lies when the page has loaded, a little down, at the page's end, and when the page has then grown."""
        page = self.page(name, text, height)
        found = [page.ask(self.WHERE)]
        page.scroll(100)
        found.append(page.ask(self.WHERE))
        page.scroll(100000)
        found.append(page.ask(self.WHERE))
        page.ask("document.getElementById('hoch').style.height = '3000px'")
        page.settle()
        found.append(page.ask(self.WHERE))
        self.assertEqual(page.errors(), [])
        return found

    def test_shows_its_content_on_one_line_within_the_strip(self):
        for step in self.steps("lang.htm", self.strip_page(2000)):
            self.assertLess(step["bottom"] - step["top"], 30)
            self.assertGreaterEqual(step["top"], step["frameTop"])
            self.assertLessEqual(step["bottom"], step["frameBottom"])

    def assertHome(self, step):
        self.assertAlmostEqual((step["top"] + step["bottom"]) / 2, (step["cellTop"] + step["cellBottom"]) / 2, delta=2)
        self.assertAlmostEqual(step["left"], step["cellLeft"], delta=1)

    def test_lies_at_the_bottom_of_the_window_until_its_home_comes_into_view(self):
        first, second, third, grown = self.steps("lang.htm", self.strip_page(2000))
        for step in (first, second, grown):
            self.assertAlmostEqual(step["bottom"], step["window"], delta=1)
            self.assertGreater(step["cellTop"], step["window"])
            self.assertAlmostEqual(step["left"], step["cellLeft"], delta=1)
        self.assertHome(third)
        self.assertLess(third["bottom"], third["window"])

    def test_lies_in_its_cell_on_a_page_that_is_shorter_than_the_window(self):
        first, second, third, grown = self.steps("kurz.htm", self.strip_page(100))
        for step in (first, second, third):
            self.assertHome(step)
        self.assertAlmostEqual(grown["bottom"], grown["window"], delta=1)

    def test_works_by_the_new_layout_rules_too(self):
        first, second, third, _ = self.steps("neu.htm", self.strip_page(2000, doctype="<!DOCTYPE html>"))
        self.assertAlmostEqual(first["bottom"], first["window"], delta=1)
        self.assertAlmostEqual(second["bottom"], second["window"], delta=1)
        self.assertHome(third)

    def test_counts_from_a_positioned_element_around_the_table(self):
        text = self.strip_page(2000, before="<div style='position:relative;margin:30px;padding:10px'>")
        first, second, third, _ = self.steps("kasten.htm", text.replace("</TABLE>", "</TABLE></div>"))
        self.assertAlmostEqual(first["bottom"], first["window"], delta=1)
        self.assertAlmostEqual(second["left"], second["cellLeft"], delta=1)
        self.assertHome(third)

    def test_does_not_make_the_page_longer(self):
        first, second, third, _ = self.steps("lang.htm", self.strip_page(2000))
        self.assertEqual({first["full"]}, {first["full"], second["full"], third["full"]})

    def test_never_rises_above_the_table(self):
        text = self.strip_page(2000, before="<div style='height:1500px'></div>")
        self.assertGreater(self.steps("tief.htm", text)[0]["top"], 1400)

    def test_leaves_a_strip_alone_that_is_part_of_the_text(self):
        first, second, third, _ = self.steps("fest.htm", self.strip_page(2000, position="relative"))
        for step in (first, second, third):
            self.assertGreaterEqual(step["top"], step["cellTop"])
            self.assertLessEqual(step["bottom"], step["cellBottom"])

    def test_leaves_the_strip_alone_without_its_cell_or_its_table(self):
        for cell, table in (("", "id=tabelle"), ("id=zelle", "")):
            first, second, _, _ = self.steps("ohne.htm", self.strip_page(2000, cell=cell, table=table))
            self.assertGreater(first["top"], 2000)
            self.assertAlmostEqual(second["top"], first["top"] - 100, delta=1)

    def test_is_harmless_on_a_page_without_a_strip_and_in_the_head(self):
        page = self.page("leer.htm", "<html><head><script src='mrdnav.js'></script></head><body>nichts</body></html>")
        page.ask("navposition()")
        page.scroll(10)
        self.assertEqual(page.errors(), [])

    def test_follows_the_window_when_it_changes_its_size(self):
        page = self.page("lang.htm", self.strip_page(2000))
        page.command("Emulation.setDeviceMetricsOverride", width=600, height=300, deviceScaleFactor=1, mobile=False)
        page.settle()
        place = page.ask(self.WHERE)
        self.assertEqual(place["window"], 300)
        self.assertAlmostEqual(place["bottom"], 300, delta=1)
        self.assertAlmostEqual(place["left"], place["cellLeft"], delta=1)

    def test_finds_a_strip_that_is_read_after_the_script(self):
        text = self.strip_page(2000).replace("<TITLE>", "<SCRIPT src='mrdnav.js'></SCRIPT><TITLE>", 1)
        text = text.replace("<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>", "", 1)
        first = self.steps("oben.htm", text)[0]
        self.assertAlmostEqual(first["bottom"], first["window"], delta=1)


class PicturePopup(Site):
    """popupbild.htm. The address bar of a page in Windows-1252 escapes umlauts as bytes of that encoding."""

    def show(self, query):
        page = self.open("popupbild.htm" + query)
        page.settle()
        self.errors = page.errors()
        return page.ask("""(function () {
          var picture = document.getElementById('bild');
          return {caption: document.getElementById('bu').textContent, address: picture.getAttribute('src'), alt: picture.alt,
            shown: picture.complete && picture.naturalWidth === 120 && picture.offsetWidth > 0, title: document.title,
            elements: document.querySelectorAll('body *').length};
        })()""")

    def test_shows_the_picture_with_its_caption(self):
        seen = self.show("?src=pix/haus%20am%20meer.gif&bu=Haus%20am%20Meer")
        self.assertEqual(seen["address"], "pix/haus%20am%20meer.gif")
        self.assertTrue(seen["shown"])
        self.assertEqual([seen["caption"], seen["title"], seen["alt"]], ["Haus am Meer"] * 3)
        self.assertEqual(self.errors, [])

    def test_reads_umlauts_as_scripts_and_as_pages_escape_them(self):
        for query in ("?src=pix/d%C3%BCne.gif&bu=D%C3%BCne%20%E2%99%A5%20%E2%82%AC",
                      "?src=pix/d%FCne.gif&bu=D%FCne%20%26%239829%3B%20%80"):
            seen = self.show(query)
            self.assertTrue(seen["shown"])
            self.assertEqual(seen["caption"], "D\u00fcne \u2665 \u20ac")

    def test_takes_everything_behind_bu_as_the_caption(self):
        seen = self.show("?src=pix/haus am meer.gif&bu=Ebbe & Flut, Bild #3 & 100%")
        self.assertEqual(seen["caption"], "Ebbe & Flut, Bild #3 & 100%")
        self.assertTrue(seen["shown"])

    def test_finds_a_picture_with_signs_in_its_name(self):
        self.assertTrue(self.show("?src=pix/100%25%20%231.gif&bu=x")["shown"])
        self.assertTrue(self.show("?src=pix/100% #1.gif&bu=x")["shown"])

    def test_needs_no_caption_and_no_query(self):
        self.assertTrue(self.show("?src=pix/haus%20am%20meer.gif")["shown"])
        self.assertEqual(self.show("")["caption"], "Das Bild kann nicht angezeigt werden.")

    def test_says_when_the_picture_is_missing(self):
        self.assertEqual(self.show("?src=pix/weg.jpg&bu=Weg")["caption"], "Das Bild wurde nicht gefunden.")

    def test_shows_markup_in_the_query_as_text(self):
        usual = self.show("?src=pix/haus%20am%20meer.gif&bu=x")["elements"]
        text = "<script>document.title='offen'</script><b>x</b><img src=x onerror=document.title='offen'>"
        for bu in (text, text.replace("<", "%3C").replace(">", "%3E"), text.replace("<", "&#60;")):
            seen = self.show("?src=pix/haus%20am%20meer.gif&bu=" + bu)
            self.assertEqual((seen["caption"], seen["title"], seen["elements"]), (text, text, usual))

    def test_shows_only_pictures_of_sites(self):
        for text in ("javascript:document.title='offen'", "JavaScript:alert(1)", "java%09script:alert(1)",
            "%01javascript:alert(1)",
                     "data:image/gif;base64,R0lGODlhAQABAAAAACw=", "vbscript:x", "file:///etc/passwd", "blob:x", "//host/x.gif",
                     "%5C%5Chost%5Cx.gif", "/%09/host/x.gif", "http:x.gif", "  ", ""):
            seen = self.show("?src=" + text + "&bu=x")
            self.assertIsNone(seen["address"], text)
            self.assertEqual((seen["caption"], seen["title"]), ("Das Bild kann nicht angezeigt werden.", "x"), text)
            self.assertEqual(self.errors, [])

    def opened_window(self):
        """The window that a generated page's own function opens, with the picture in it."""
        text = ("<html><body><script language=JavaScript>\r\nfunction popupfenster(src, bu)\r\n     {\r\n"
                "    if (bu == null) { bu = \"\";};\r\n        bu = bu.replace(/ /g,\"%20\");\r\n"
                "        srcu = src.replace(/ /g,\"%20\");\r\n"
                "        f1 = open('popupbild.htm?src=' + src + '&bu=' + bu,'fenster1',"
                "'width=320,height=350,screenx=-0,screeny=-100,scrollbars=Yes,resizable=Yes,left=10,top=10');\r\n"
                "        f1.focus();\r\n     }\r\n</script>"
                "<a id=verweis href=\"javascript:popupfenster('pix/d\u00fcne.gif','D\u00fcne \u201eNord\u201c')\">Bild</a>")
        page = self.page("seite.htm", text.replace("<html>", "<html><head><meta charset=windows-1252></head>"))
        page.ask("document.getElementById('verweis').click()")
        self.assertTrue(self.until(lambda: self.popups() and not self.popups()[0]["url"].endswith("blank")))
        return Page(self.browser, self.popups()[0]["targetId"])

    def popups(self):
        return [t for t in self.browser.targets() if t.get("openerId")]

    def until(self, condition):
        for _ in range(100):
            if condition():
                return True
            time.sleep(0.1)
        return False

    def test_opens_from_the_function_that_pages_carry(self):
        window = self.opened_window()
        self.assertIn("%FC", window.ask("location.search"))
        self.assertTrue(self.until(lambda: window.ask("document.getElementById('bild').naturalWidth") == 120))
        self.assertEqual(window.ask("document.getElementById('bu').textContent"), "D\u00fcne \u201eNord\u201c")
        self.assertTrue(self.until(lambda: window.ask("outerHeight") < 300), "the window is fitted to a small picture")
        window.close()

    def test_closes_by_the_keys(self):
        for key in ("Escape", "Enter"):
            window = self.opened_window()
            self.assertTrue(self.until(lambda: window.ask("document.activeElement.id") == "zu"))
            window.press(key)
            self.assertTrue(self.until(lambda: not self.popups()), key)


class PictureTransfer(Site):
    def orders(self, *calls):
        page = self.page("bild.htm",
            "<html><head><script src='picturetransfer.js' TYPE='text/javascript'></script></head></html>")
        page.ask("var told = []; window.open = a => told.push(a); window.alert = t => told.push('!' + t);")
        told = page.ask("".join("picturetransfer(%s);" % call for call in calls) + "told")
        self.assertEqual(page.errors(), [])
        return told

    def test_hands_the_full_address_and_the_partner_to_the_service(self):
        service = "https://fotoservice.mirandel.example/bestellung?bild="
        self.assertEqual(
            self.orders("'http://www.moewe.example/pix/haus am meer.jpg','4711'", "'https://x.example/a.jpg'",
                        "'www.moewe.example/pix/a&b.jpg',''", "'www.moewe.example:8080/a.jpg'"),
            [service + "http%3A%2F%2Fwww.moewe.example%2Fpix%2Fhaus%20am%20meer.jpg&partner=4711",
             service + "https%3A%2F%2Fx.example%2Fa.jpg", service + "http%3A%2F%2Fwww.moewe.example%2Fpix%2Fa%26b.jpg",
             service + "http%3A%2F%2Fwww.moewe.example%3A8080%2Fa.jpg"])

    def test_refuses_what_the_service_cannot_fetch(self):
        told = self.orders("'file:///C:/fotos/x.jpg','4711'", "'pix/x.jpg'", "'javascript:alert(1)'", "''", "null",
            "'/pix/x.jpg'")
        self.assertEqual(len(told), 6)
        self.assertEqual({text[:16] for text in told}, {"!Dieses Bild kan"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
