#!/usr/bin/env python3
"""The shop of a generated site as its customers use it, in a real browser, from a web server.

  shop_browser_test.py MRD SHOP_SITE DIRECTORY_OF_PICTURES [unittest arguments]

SHOP_SITE writes the pages as the shop's dialog does. Pictures of the basket are left for people to look at.
"""
import functools
import http.server
import json
import os
import subprocess
import sys
import tempfile
import threading
import unittest
import urllib.parse
from pathlib import Path

from browser import Browser

MRD, SHOP_SITE, PICTURES = sys.argv[1:4]

# Numbers are given in this order, from 1.
ARTICLES = [
    ("Poster \u201eD\u00fcne\u201c, gro\u00df", "Poster \u201eDune\u201c, large", "12,5", ""),
    ("Tasse", "Mug", "8,1", "11"),
    ("Anna\\'s B\u00fcchlein", "Anna\\'s booklet", "0,7", "0,8"),
    ("<img src=x onerror=window.hacked=1> & <b>Co</b>", "Herz \u2665", "1234,56", "1999,99"),
]
PAGES = [
    ("option Deutsch ja", "option Euro ja", "option Korb ja", "option St\u00fcckzahl ja", "option ShopID 4711"),
    ("page 01 Bilder bilder.htm", "insert 1", "html <p>und</p>", "insert 2"),
    ("page 02 B\u00fccher buecher.htm", "option St\u00fcckzahl nein", "insert 3", "insert 4", "option St\u00fcckzahl ja"),
    ("page 03 Warenkorb wako_de.htm", "basket"),
    ("option Deutsch nein", "option Euro nein", "page 04 Pictures pictures.htm", "insert 1", "insert 2", "insert 4"),
    ("page 05 Basket wako_en.htm", "basket"),
    ("option Korb nein", "page 06 Direct direct.htm", "insert 2"),
    ("option Deutsch ja", "option Euro ja", "page 07 Direkt direkt.htm", "insert 1", "insert 2"),
    ("option ShopID 'laden@moewe.example'", "page 08 Postkorb post.htm", "basket", "insert 2"),
    ("option ShopID kein(e)", "page 09 Ohne ohne.htm", "html <p>x</p>"),
]

# Lines of a view as a customer reads them.
SEEN = """Array.from(document.querySelectorAll('.mrdwako')).map(view => ({
  lines: Array.from(view.querySelectorAll('li')).map(li => [li.querySelector('.mrdwako-name').firstChild.data,
    li.querySelector('input').value, li.querySelector('.mrdwako-preis').textContent,
    li.querySelector('.mrdwako-betrag').textContent]),
  total: (view.querySelector('.mrdwako-summe') || {}).textContent || '',
  message: view.querySelector('.mrdwako-meldung').textContent,
  text: view.innerText, language: view.lang, form: !!view.querySelector('form')}))"""


class Server(http.server.SimpleHTTPRequestHandler):
    """The site, and the order service behind /bestellung."""
    orders = []
    cookie_lengths = []

    def do_GET(self):
        self.cookie_lengths.append(len(self.headers.get("Cookie", "")))
        if self.path == "/favicon.ico":
            self.send_response(204)
            self.end_headers()
        else:
            super().do_GET()

    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"])).decode("ascii")
        self.orders.append(dict(urllib.parse.parse_qsl(body, keep_blank_values=True, encoding="utf-8")))
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(b"<html><body>Danke</body></html>")

    def log_message(self, *_):
        pass


class Shop(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="mrd-shop-")
        cls.addClassCleanup(folder.cleanup)
        cls.site = Path(folder.name) / "web"
        (cls.site / "pix").mkdir(parents=True)
        cls.generate(Path(folder.name) / "laden.mdb")
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Server, directory=str(cls.site)))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        cls.addClassCleanup(server.server_close)
        cls.addClassCleanup(server.shutdown)
        cls.base = "http://127.0.0.1:%d/" % server.server_port
        cls.deploy()

    @classmethod
    def generate(cls, project):
        lines = ["article\t" + "\t".join(article) for article in ARTICLES]
        lines += [line.replace(" ", "\t", 3 if line.startswith("page") else 2 if line.startswith("option") else 1)
                  for page in PAGES for line in page]
        subprocess.run([MRD, "new", str(project)], check=True, stdout=subprocess.DEVNULL)
        subprocess.run([SHOP_SITE, str(project)], check=True, input="\n".join(lines).encode())
        # The name of article 4 names a picture that is not there.
        subprocess.run([MRD, "generate", str(project), "--export", str(cls.site), "--quiet"], check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    @classmethod
    def deploy(cls):
        """The values at the top of the script, as another deployment would have them."""
        script = cls.site / "mrdshop.js"
        text = script.read_text("ascii")
        for name, value in (("mrdshopService", "'%sbestellung'" % cls.base),
                            ("mrdshopServices", "{'9950': 'mailto:a@b.example'}")):
            before = next(line for line in text.splitlines() if line.startswith("var %s = " % name))
            text = text.replace(before, "var %s = %s;" % (name, value))
        script.write_text(text, "ascii")

    def setUp(self):
        # A new browser has no cookies.
        self.browser = Browser()
        self.addCleanup(self.browser.close)
        Server.orders.clear()
        Server.cookie_lengths.clear()

    def open(self, name, width=1000, height=800):
        page = self.browser.open(self.base + name, width, height)
        self.hear_alerts(page)
        return page

    def go(self, page, name):
        page.go(self.base + name)
        self.hear_alerts(page)

    def hear_alerts(self, page):
        page.ask("window.told = []; window.alert = text => told.push(text); window.hacked = window.hacked || 0")

    def put(self, page, number, quantity=None):
        """Into the basket by the article's own form, as a customer does; the basket's page is loaded then."""
        if quantity is not None:
            page.ask("document.forms.form%d.anzahl.value = %s" % (number, json.dumps(quantity)))
        page.follow("document.forms.form%d.mybutton.click()" % number)
        self.hear_alerts(page)

    def call(self, page, *arguments):
        """The same for an article that is on no page, without leaving this one."""
        page.ask("artikelinwako(%s, '')" % ", ".join(json.dumps(argument) for argument in arguments))

    def view(self, page, number=0):
        return page.ask(SEEN)[number]

    def lines(self, page):
        return [[name, quantity] for name, quantity, _, _ in self.view(page)["lines"]]

    def change(self, page, line, text):
        page.ask("(function () { var field = document.querySelectorAll('.mrdwako li input')[%d]; field.value = %s; "
                 "field.dispatchEvent(new Event('change', {bubbles: true})) })()" % (line, json.dumps(text)))

    def remove(self, page, line):
        page.ask("document.querySelectorAll('.mrdwako li button')[%d].click()" % line)

    def press_button(self, page, caption):
        page.ask("Array.from(document.querySelectorAll('.mrdwako button')).find(b => b.textContent === %s).click()"
                 % json.dumps(caption))

    def fill_in(self, page, name="Anna M\u00f6we", address="Deich 1\n26506 Norden", mail="anna@moewe.example", remark=""):
        page.ask("(function () { var fields = document.querySelectorAll('.mrdwako-feld input, .mrdwako-feld textarea'); "
                 "%s.forEach((text, i) => fields[i].value = text) })()" % json.dumps([name, address, mail, remark]))

    ORDER = "document.querySelector('.mrdwako form [type=submit]').click()"

    def told(self, page):
        return page.ask("told.splice(0)")

    def assertHarmless(self, page):
        self.assertEqual(page.errors(), [])
        self.assertFalse(page.ask("window.hacked"))


class Basket(Shop):
    def test_gathers_articles_of_two_pages(self):
        page = self.open("bilder.htm")
        self.put(page, 1, "2")
        self.assertTrue(page.ask("location.href").endswith("/wako_de.htm"))
        self.go(page, "buecher.htm")
        self.put(page, 3)
        self.assertEqual(self.view(page)["lines"],
            [["Poster \u201eD\u00fcne\u201c, gro\u00df", "2", "je 12,50 EUR", "25,00 EUR"],
             ["Anna's B\u00fcchlein", "1", "je 0,70 EUR", "0,70 EUR"]])
        self.assertEqual(self.view(page)["total"], "Summe: 25,70 EUR")
        self.assertHarmless(page)

    def test_is_empty_at_first(self):
        view = self.view(self.open("wako_de.htm"))
        self.assertIn("Ihr Warenkorb ist leer.", view["text"])
        self.assertFalse(view["form"])

    def test_adds_up_what_is_put_in_twice(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "2")
        self.go(page, "bilder.htm")
        self.put(page, 2, "3")
        self.assertEqual(self.lines(page), [["Tasse", "5"]])

    def test_is_there_after_a_reload_and_in_another_window(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "2")
        page.follow("location.reload()")
        self.assertEqual(self.lines(page), [["Tasse", "2"]])
        self.assertEqual(self.lines(self.open("wako_de.htm")), [["Tasse", "2"]])

    def test_changes_a_quantity_and_says_the_new_total(self):
        page = self.open("bilder.htm")
        self.put(page, 1, "2")
        self.change(page, 0, " 3 ")
        view = self.view(page)
        self.assertEqual(view["lines"][0][1:], ["3", "je 12,50 EUR", "37,50 EUR"])
        self.assertEqual(view["total"], "Summe: 37,50 EUR")
        self.assertEqual(view["message"], "Die Menge ist ge\u00e4ndert. Summe: 37,50 EUR")
        page.follow("location.reload()")
        self.assertEqual(self.lines(page)[0][1], "3")

    def test_refuses_a_wrong_quantity_and_keeps_the_last(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "2")
        for text in ("0", "", "-1", "1.5", "abc", "1000", "1e2", "0x5"):
            self.change(page, 0, text)
            self.assertEqual(self.view(page)["lines"][0][1], "2", text)
            self.assertIn("von 1 bis 999", self.view(page)["message"])

    def test_removes_a_line_and_leads_the_keyboard_to_the_message(self):
        page = self.open("bilder.htm")
        self.put(page, 1, "1")
        self.go(page, "bilder.htm")
        self.put(page, 2, "2")
        self.remove(page, 0)
        self.assertEqual(self.lines(page), [["Tasse", "2"]])
        self.assertIn("wurde entfernt. Summe: 16,20 EUR", self.view(page)["message"])
        self.assertEqual(page.ask("document.activeElement.className"), "mrdwako-meldung")
        self.remove(page, 0)
        self.assertIn("Ihr Warenkorb ist leer.", self.view(page)["text"])
        page.follow("location.reload()")
        self.assertEqual(self.lines(page), [])

    def test_leads_back_to_the_shop(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "1")
        self.assertEqual(page.ask("document.querySelector('.mrdwako a').href"), self.base + "bilder.htm")

    def test_adds_without_errors_of_rounding(self):
        page = self.open("wako_de.htm")
        for number, price in ((101, 0.1), (102, 0.2), (103, 1.1), (104, 19.99), (105, 0.07)):
            self.call(page, number, "Kleines", price, price, 3, "DEU")
        self.call(page, 106, "Gro\u00dfes", 999999.99, 999999.99, 999, "DEU")
        page.follow("location.reload()")
        self.assertEqual(self.view(page)["total"], "Summe: 999.000.054,39 EUR")
        self.assertEqual(self.view(page)["lines"][5][3], "998.999.990,01 EUR")

    def test_takes_over_the_price_of_the_page_that_the_article_was_put_in_from_last(self):
        page = self.open("wako_de.htm")
        self.call(page, 2, "Tasse", 1.00, 1.50, 1, "DEU")
        self.go(page, "bilder.htm")
        self.put(page, 2, "1")
        self.assertEqual(self.view(page)["lines"], [["Tasse", "2", "je 8,10 EUR", "16,20 EUR"]])

    def test_shows_what_another_window_has_changed(self):
        page, other = self.open("wako_de.htm"), self.open("bilder.htm")
        self.put(other, 2, "4")
        page.ask("window.dispatchEvent(new Event('focus'))")
        self.assertEqual(self.lines(page), [["Tasse", "4"]])


class Quantities(Shop):
    def test_of_articles_are_checked_before_they_go_into_the_basket(self):
        page = self.open("bilder.htm")
        for text in ("0", "", " ", "-1", "1.5", "1,5", "abc", "1000", "1e2", "\u0661", "99999999999999999999"):
            page.ask("document.forms.form2.anzahl.value = %s; document.forms.form2.mybutton.click()" % json.dumps(text))
            self.assertEqual(self.told(page), ["Bitte geben Sie als Menge eine ganze Zahl von 1 bis 999 ein."], text)
        self.assertEqual(page.ask("document.activeElement === document.forms.form2.anzahl"), True)
        self.assertEqual(page.ask("cookieText('mrdwako')"), "")

    def test_of_one_article_have_an_end(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "999")
        self.go(page, "bilder.htm")
        page.ask("document.forms.form2.mybutton.click()")
        self.assertIn("Mehr als 999", self.told(page)[0])
        self.go(page, "wako_de.htm")
        self.assertEqual(self.lines(page), [["Tasse", "999"]])

    def test_are_sent_by_the_return_key_too(self):
        page = self.open("bilder.htm")
        page.ask("document.forms.form2.anzahl.value = '7'; document.forms.form2.anzahl.focus()")
        page.forget_events()
        page.press("Enter")
        page.wait_until_loaded("basket")
        self.assertTrue(page.ask("location.href").endswith("/wako_de.htm"))
        self.assertEqual(self.lines(page), [["Tasse", "7"]])

    def test_stand_beside_articles_that_are_articles(self):
        page = self.open("wako_de.htm")
        for arguments in ((0, "x", 1, 1, 1), (-3, "x", 1, 1, 1), ("7<b>", "x", 1, 1, 1), (7, "", 1, 1, 1), (7, "x", -1, 1, 1),
                          (7, "x", "1", 1, 1), (7, "x", 1, None, 1), (7, "x", 1e9, 1, 1), (7, " \t\n ", 1, 1, 1)):
            self.call(page, *arguments, "DEU")
            self.assertEqual(self.told(page), ["Dieser Artikel kann zurzeit nicht bestellt werden."], arguments)
        page.ask("artikelinwako(7, 'x', NaN, 1, 1, 'DEU', '')")
        self.assertEqual(len(self.told(page)), 1)
        self.assertEqual(page.ask("document.cookie"), "")


MARKUP = "<img src=x onerror=window.hacked=1><script>window.hacked=1</script>\"' onmouseover='hacked=1' &amp; &#60;i&#62;"


class HostileTexts(Shop):
    def test_of_an_article_are_shown_as_text(self):
        page = self.open("buecher.htm")
        # The page itself is its owner's, who may write markup; a basket may not.
        page.ask("window.hacked = 0")
        page.follow("document.forms.form4.mybutton.click()")
        self.hear_alerts(page)
        self.assertEqual(self.view(page)["lines"][0][0], "<img src=x onerror=window.hacked=1> & <b>Co</b>")
        self.assertEqual(page.ask("document.querySelectorAll('.mrdwako img, .mrdwako b').length"), 0)
        self.assertHarmless(page)

    def test_keep_every_sign_but_those_that_end_a_line(self):
        page = self.open("wako_de.htm")
        for number, name in enumerate(("a;b=c, d%41+e&f", "Tab\tZeile\r\nEnde", "\u2665\U0001f41a", "x" * 300, MARKUP), 1):
            self.call(page, number, name, 1, 1, 1, "DEU")
        page.follow("location.reload()")
        self.assertEqual([name for name, _ in self.lines(page)],
            ["a;b=c, d%41+e&f", "Tab Zeile Ende", "\u2665\U0001f41a", "x" * 200,
             MARKUP.replace("&#60;", "<").replace("&#62;", ">")])
        self.assertHarmless(page)

    def test_in_cookies_are_no_lines_of_a_basket(self):
        page = self.open("wako_de.htm")
        good = "2\t3\t810\t1100\tTasse\n"
        for bad in (MARKUP, "[[1,1]]", "{\"a\":1}", "1\t1\t1\t1\n", "1\t0\t1\t1\tx\n", "1\t-1\t1\t1\tx\n", "1\t1e5\t1\t1\tx\n",
                    "0\t1\t1\t1\tx\n", "1\t1000\t1\t1\tx\n", "1\t1\t999999999\t1\tx\n", "1\t1\t1\tNaN\tx\n", "1\t1\t1\t1\t\n",
                    "1\t1\t1\t1\tx\ty\n", "__proto__\t1\t1\t1\tx\n", "1\t1\t1\t1\tx", "\n\n\n", "1\t1.5\t1\t1\tx\n"):
            page.ask("cookieStore('mrdwako', %s)" % json.dumps(good + bad))
            page.follow("location.reload()")
            self.assertEqual(self.lines(page), [["Tasse", "3"]], bad)
        self.assertHarmless(page)

    def test_in_the_names_of_cookies_lines_stay_text(self):
        page = self.open("wako_de.htm")
        page.ask("cookieStore('mrdwako', %s)" % json.dumps("1\t1\t1\t1\t" + MARKUP + "\n"))
        page.follow("location.reload()")
        self.assertEqual(self.lines(page), [[MARKUP, "1"]])
        self.assertEqual(page.ask("document.querySelectorAll('.mrdwako img, .mrdwako script').length"), 0)
        page.ask("document.querySelectorAll('.mrdwako *').forEach(e => e.dispatchEvent(new Event('mouseover')))")
        self.assertHarmless(page)

    def test_that_are_no_code_of_ours_leave_an_empty_basket(self):
        page = self.open("wako_de.htm")
        for code in ("%", "%E0%A4%A", "%FF%FE", "=", "\u00fc", "x" * 3900, "+" * 3000):
            page.ask("document.cookie = 'mrdwako0=' + %s" % json.dumps(code))
            page.follow("location.reload()")
            self.assertIn("Ihr Warenkorb ist leer.", self.view(page)["text"])
        self.hear_alerts(page)
        self.call(page, 2, "Tasse", 8.1, 11, 1, "DEU")
        page.follow("location.reload()")
        self.assertEqual(self.lines(page), [["Tasse", "1"]])
        self.assertHarmless(page)

    def test_of_the_calls_run_nothing(self):
        page = self.open("bilder.htm")
        page.ask("artikelinwako(2, 'Tasse', 1, 1, 1, 'DEU', 'javascript:window.hacked=1')")
        page.ask("artikelinwako(2, 'Tasse', 1, 1, 1, 'DEU', ' java\\tscript:window.hacked=1')")
        page.settle()
        self.assertEqual(self.told(page), ["Der Artikel liegt jetzt im Warenkorb."] * 2)
        page.ask("wakozeigen('\"><img src=x onerror=hacked=1>', '<b>', '<i>')")
        page.ask("wakozeigen('__proto__', 'toString', 'constructor')")
        self.assertIn("keine Bestellungen", self.view(page, 0)["text"])
        self.assertHarmless(page)


class FullBasket(Shop):
    def test_takes_far_more_than_twenty_articles_within_the_limits_of_cookies(self):
        page = self.open("wako_de.htm")
        for number in range(1, 61):
            self.call(page, number, "Postkarte \u201eD\u00fcne\u201c, Motiv %d" % number, 1.1, 1.65, 10, "DEU")
        self.assertEqual(self.told(page), ["Der Artikel liegt jetzt im Warenkorb."] * 60)
        page.follow("location.reload()")
        self.assertEqual(len(self.lines(page)), 60)
        self.assertEqual(self.view(page)["total"], "Summe: 660,00 EUR")
        self.assertLess(max(Server.cookie_lengths), 7000)
        self.assertTrue(all(len(cookie) <= 4000 for cookie in page.ask("document.cookie").split("; ")))

    def test_says_that_it_is_full_and_keeps_what_it_has(self):
        page = self.open("wako_de.htm")
        count = 0
        while count < 1000:
            count += 1
            self.call(page, count, "\u00c4pfel " * 30, 1, 1, 1, "DEU")
            told = self.told(page)[0]
            if not told.startswith("Der Artikel liegt"):
                break
        self.assertRegex(told, "^Ihr Warenkorb ist voll. Der Artikel wurde nicht hineingelegt.")
        page.follow("location.reload()")
        self.assertEqual(len(self.lines(page)), count - 1)
        self.assertLess(max(Server.cookie_lengths), 8000)
        self.remove(page, 0)
        self.hear_alerts(page)
        self.call(page, 5000, "Kirsche", 1, 1, 1, "ENG")
        self.assertEqual(self.told(page), ["The article is in the basket now."])

    def test_says_when_the_browser_keeps_no_cookies(self):
        page = self.open("bilder.htm")
        page.command("Emulation.setDocumentCookieDisabled", disabled=True)
        page.ask("document.forms.form2.mybutton.click()")
        self.assertRegex(self.told(page)[0], "^Ihr Browser speichert keine Cookies")
        self.assertTrue(page.ask("location.href").endswith("/bilder.htm"))


class MailOrder(Shop):
    def order(self, page):
        """The address that the e-mail program is asked for."""
        page.forget_events()
        page.ask(self.ORDER)
        asked = self.browser.wait_for(lambda e: e.get("sessionId") == page.session and
                                      e["method"] in ("Page.frameRequestedNavigation", "Page.frameScheduledNavigation",
                                                      "Page.navigatedWithinDocument", "Page.frameStartedNavigating") and
                                      e["params"].get("url", "").startswith("mailto:"), 10)
        return urllib.parse.urlparse(asked["params"]["url"]) if asked else None

    def test_goes_to_the_address_that_is_the_shops_number(self):
        page = self.open("bilder.htm")
        self.put(page, 1, "2")
        self.go(page, "post.htm")
        self.fill_in(page, remark="Bitte schnell & heil <liefern>")
        address = self.order(page)
        self.assertEqual(address.path, "laden@moewe.example")
        query = dict(urllib.parse.parse_qsl(address.query, keep_blank_values=True))
        self.assertEqual(query["subject"], "Bestellung Shop laden@moewe.example")
        self.assertEqual(query["body"], "Bestellung Shop laden@moewe.example\r\n\r\n"
            "2 x Poster \u201eD\u00fcne\u201c, gro\u00df (Artikel 1), je 12,50 EUR = 25,00 EUR\r\nSumme: 25,00 EUR\r\n\r\n"
            "Name: Anna M\u00f6we\r\nAnschrift:\r\nDeich 1\r\n26506 Norden\r\nE-Mail: anna@moewe.example\r\n"
            "Bemerkung (freiwillig):\r\nBitte schnell & heil <liefern>\r\n")
        self.assertEqual(page.ask("document.querySelector('.mrdwako-text').value"), query["body"].replace("\r\n", "\n"))
        self.assertIn("laden@moewe.example.", self.view(page)["message"])
        self.assertHarmless(page)

    def test_is_emptied_by_the_customer_when_it_is_sent(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "2")
        self.go(page, "post.htm")
        self.fill_in(page)
        self.order(page)
        self.assertEqual(self.lines(page), [["Tasse", "2"]])
        self.press_button(page, "Warenkorb leeren")
        self.assertIn("Der Warenkorb ist jetzt leer.", self.view(page)["message"])
        self.assertEqual(page.ask("document.cookie"), "")

    def test_that_is_too_long_for_an_address_is_copied(self):
        page = self.open("post.htm")
        for number in range(1, 41):
            self.call(page, number, "Postkarte D\u00fcne %d" % number, 1, 1, 1, "DEU")
        page.follow("location.reload()")
        self.fill_in(page)
        address = self.order(page)
        self.assertLess(len(address.geturl()), 1900)
        self.assertIn("kopierten Text", urllib.parse.unquote(address.query))
        self.assertIn("Postkarte D\u00fcne 40 (Artikel 40)", page.ask("document.querySelector('.mrdwako-text').value"))
        self.press_button(page, "Text kopieren")
        self.assertEqual(self.view(page)["message"], "Der Text ist kopiert.")


class PostedOrder(Shop):
    def test_reaches_the_service_with_all_it_needs(self):
        page = self.open("bilder.htm")
        self.put(page, 1, "2")
        self.go(page, "buecher.htm")
        self.put(page, 3)
        self.fill_in(page, remark="\"><script>hacked=1</script>\n& \u20ac")
        page.follow(self.ORDER)
        self.assertEqual(Server.orders, [{
            "shopid": "4711", "sprache": "DEU", "waehrung": "EUR", "positionen": "2",
            "artikelnummer_1": "1", "artikel_1": "Poster \u201eD\u00fcne\u201c, gro\u00df", "anzahl_1": "2", "preis_1": "12.50",
            "betrag_1": "25.00",
            "artikelnummer_2": "3", "artikel_2": "Anna's B\u00fcchlein", "anzahl_2": "1", "preis_2": "0.70", "betrag_2": "0.70",
            "summe": "25.70", "name": "Anna M\u00f6we", "anschrift": "Deich 1\r\n26506 Norden", "email": "anna@moewe.example",
            "bemerkung": "\"><script>hacked=1</script>\r\n& \u20ac"}])

    def test_is_told_of_when_the_customer_comes_back(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "1")
        self.fill_in(page)
        page.follow(self.ORDER)
        self.go(page, "wako_de.htm")
        self.assertRegex(self.view(page)["message"], "^Diesen Warenkorb haben Sie schon")
        self.change(page, 0, "2")
        page.follow("location.reload()")
        self.assertEqual(self.view(page)["message"], "")

    def test_needs_name_address_and_mail(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "1")
        for field, value, message in (("name", "  ", "Bitte f\u00fcllen Sie dieses Feld aus: Name"),
                                      ("address", "", "Bitte f\u00fcllen Sie dieses Feld aus: Anschrift"),
                                      ("mail", "", "Bitte f\u00fcllen Sie dieses Feld aus: E-Mail"),
                                      ("mail", "anna", "Bitte geben Sie eine vollst\u00e4ndige E-Mail-Adresse ein."),
                                      ("mail", "a@b.de\nBcc: c@d.de",
                                       "Bitte geben Sie eine vollst\u00e4ndige E-Mail-Adresse ein.")):
            self.fill_in(page, **{field: value})
            page.ask(self.ORDER)
            self.assertEqual(self.view(page)["message"], message)
            self.assertEqual(page.ask("document.activeElement.getAttribute('aria-invalid')"), "true")
        self.assertEqual(Server.orders, [])

    def test_is_what_the_customer_has_seen(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "1")
        self.fill_in(page)
        page.ask("cookieStore('mrdwako', '2\\t500\\t810\\t1100\\tTasse\\n')")
        page.ask(self.ORDER)
        self.assertRegex(self.view(page)["message"], "^Ihr Warenkorb hat sich inzwischen ge\u00e4ndert")
        self.assertEqual(self.lines(page), [["Tasse", "500"]])
        self.assertEqual(Server.orders, [])
        self.assertEqual(page.ask("document.querySelector('.mrdwako-feld input').value"), "Anna M\u00f6we")

    def test_of_a_shop_with_a_service_of_its_own_goes_there(self):
        page = self.open("bilder.htm")
        self.put(page, 2, "1")
        page.ask("wakozeigen(9950, 'DEU', 'EUR')")
        self.assertEqual(page.ask("Array.from(document.querySelectorAll('.mrdwako')).length"), 2)
        page.ask("document.querySelectorAll('.mrdwako')[0].remove()")
        self.fill_in(page)
        page.ask(self.ORDER)
        self.assertIn("a@b.example.", self.view(page)["message"])


class DirectOrder(Shop):
    def test_orders_one_article_beside_its_form(self):
        page = self.open("direkt.htm")
        page.ask("document.forms.form1.anzahl.value = '3'; document.forms.form1.mybutton.click()")
        view = self.view(page)
        self.assertEqual(view["lines"], [["Poster \u201eD\u00fcne\u201c, gro\u00df", "3", "je 12,50 EUR", "37,50 EUR"]])
        self.assertEqual(page.ask("document.activeElement.textContent"), "Ihre Bestellung")
        self.assertEqual(page.ask("document.forms.form1.nextSibling.className"), "mrdwako")
        self.change(page, 0, "2")
        self.fill_in(page)
        page.follow(self.ORDER)
        self.assertEqual({key: Server.orders[0][key] for key in ("shopid", "positionen", "artikelnummer_1", "anzahl_1", "summe")},
            {"shopid": "4711", "positionen": "1", "artikelnummer_1": "1", "anzahl_1": "2", "summe": "25.00"})
        self.go(page, "wako_de.htm")
        self.assertEqual(self.lines(page), [])

    def test_replaces_the_one_before_and_is_given_up(self):
        page = self.open("direkt.htm")
        page.ask("document.forms.form1.mybutton.click(); document.forms.form2.mybutton.click()")
        self.assertEqual(len(page.ask(SEEN)), 1)
        self.assertEqual(self.lines(page), [["Tasse", "1"]])
        self.press_button(page, "Abbrechen")
        self.assertEqual(page.ask(SEEN), [])
        self.assertEqual(page.ask("document.activeElement === document.forms.form2.mybutton"), True)

    def test_speaks_english_and_dollars(self):
        page = self.open("direct.htm")
        page.ask("document.forms.form2.mybutton.click()")
        view = self.view(page)
        self.assertEqual(view["lines"], [["Mug", "1", "each 11.00 USD", "11.00 USD"]])
        self.assertEqual(view["language"], "en")
        self.fill_in(page)
        page.follow(self.ORDER)
        self.assertEqual((Server.orders[0]["sprache"], Server.orders[0]["waehrung"]), ("ENG", "USD"))


class Languages(Shop):
    def test_follow_the_page(self):
        page = self.open("pictures.htm")
        self.assertIn("18.75 USD", page.ask("document.forms.form1.innerText"))
        self.put(page, 1, "2")
        view = self.view(page)
        self.assertTrue(page.ask("location.href").endswith("/wako_en.htm"))
        self.assertEqual(view["lines"], [["Poster \u201eDune\u201c, large", "2", "each 18.75 USD", "37.50 USD"]])
        self.assertEqual((view["total"], view["language"]), ("Total: 37.50 USD", "en"))
        self.assertIn("Order with obligation to pay", view["text"])
        self.go(page, "wako_de.htm")
        self.assertEqual(self.view(page)["total"], "Summe: 25,00 EUR")

    def test_show_signs_that_the_pages_encoding_lacks(self):
        page = self.open("pictures.htm")
        self.put(page, 4, "1")
        self.assertEqual(self.view(page)["lines"], [["Herz \u2665", "1", "each 1,999.99 USD", "1,999.99 USD"]])

    def test_tell_what_is_wrong_in_english(self):
        page = self.open("pictures.htm")
        page.ask("document.forms.form1.anzahl.value = 'x'; document.forms.form1.mybutton.click()")
        self.assertEqual(self.told(page), ["Please enter a whole number from 1 to 999 as the quantity."])


class Reading(Shop):
    """On every screen, and without one."""

    MEASURES = """(function () {
      var view = document.querySelector('.mrdwako'), box = view.getBoundingClientRect();
      var parts = Array.from(view.querySelectorAll('*')).filter(e => e.offsetParent);
      return {outside: parts.filter(e => {
            var place = e.getBoundingClientRect();
            return place.right > box.right + 1 || place.left < box.left - 1;
          }).map(e => e.outerHTML.slice(0, 80)),
        smallest: Math.min(...parts.map(e => parseFloat(getComputedStyle(e).fontSize))),
        lowest: Math.min(...Array.from(view.querySelectorAll('button, input')).map(e => e.getBoundingClientRect().height)),
        width: box.width, window: document.documentElement.clientWidth, right: box.right};
    })()"""

    def filled(self, width, height, mobile, name="wako_de.htm"):
        page = self.open("bilder.htm", width, height)
        self.put(page, 1, "2")
        self.go(page, "bilder.htm")
        self.put(page, 2, "12")
        self.go(page, "buecher.htm")
        self.put(page, 4)
        page.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=2 if mobile else 1,
                     mobile=mobile)
        self.go(page, name)
        page.settle()
        return page

    def keep_picture(self, page, name):
        os.makedirs(PICTURES, exist_ok=True)
        page.screenshot(os.path.join(PICTURES, name + ".png"))

    def test_fits_a_wide_screen_and_a_telephone(self):
        for width, height, mobile in ((1280, 900, False), (390, 1400, False), (390, 1400, True), (320, 1400, True)):
            for name in ("wako_de", "wako_en"):
                page = self.filled(width, height, mobile, name + ".htm")
                seen = page.ask(self.MEASURES)
                where = "%s %d" % (name, width)
                self.assertEqual(seen["outside"], [], where)
                self.assertGreaterEqual(seen["smallest"], 14, where)
                self.assertGreaterEqual(seen["lowest"], 40, where)
                self.assertLessEqual(seen["right"], seen["window"] + 1, where)
                self.keep_picture(page, "shop-%s-%d%s" % (name, width, "-telephone" if mobile else ""))
                page.close()

    def test_shows_a_direct_order_and_an_order_by_mail(self):
        page = self.open("direkt.htm", 390, 1200)
        page.ask("document.forms.form1.mybutton.click()")
        self.keep_picture(page, "shop-direkt-390")
        self.assertEqual(page.ask(self.MEASURES)["outside"], [])
        page = self.filled(1280, 1300, False, "post.htm")
        self.fill_in(page)
        page.ask(self.ORDER)
        page.settle()
        self.keep_picture(page, "shop-post-1280")
        self.assertEqual(page.ask(self.MEASURES)["outside"], [])

    def test_names_every_field_and_button_to_a_screen_reader(self):
        page = self.filled(1000, 900, False)
        page.command("Accessibility.enable")
        nodes = page.command("Accessibility.getFullAXTree")["nodes"]
        named = [(node["role"]["value"], node.get("name", {}).get("value", "")) for node in nodes if not node["ignored"]]
        for wanted in (("region", "Warenkorb"), ("textbox", "Menge: Tasse"), ("button", "Entfernen: Tasse"), ("textbox", "Name"),
                       ("textbox", "Anschrift"), ("textbox", "E-Mail"), ("button", "Zahlungs\u00adpflichtig bestellen"),
                       ("group", "Ihre Angaben")):
            self.assertIn(wanted, named)
        self.assertEqual(len([role for role, _ in named if role == "listitem"]), 3)
        self.assertEqual([role for role, name in named if role in ("textbox", "button") and not name], [])
        self.assertIn("status", [role for role, _ in named])

    def test_says_the_width_of_the_page_to_telephones_once(self):
        page = self.open("wako_de.htm")
        page.ask("wakozeigen(1, 'DEU', 'EUR')")
        self.assertEqual(page.ask("Array.from(document.getElementsByName('viewport')).map(m => m.content)"),
                         ["width=device-width"])


class OtherPlaces(Shop):
    def test_a_page_on_a_disk_says_that_it_has_no_basket(self):
        page = self.browser.open("file://%s/bilder.htm" % self.site)
        self.hear_alerts(page)
        page.ask("document.forms.form2.mybutton.click()")
        self.assertRegex(self.told(page)[0], "^Ihr Browser speichert keine Cookies")

    def test_another_directory_of_the_server_has_a_basket_of_its_own(self):
        other = self.site / "nachbar"
        if not other.exists():
            other.mkdir()
            for name in ("wako_de.htm", "mrdshop.js", "cookiefunctions.js"):
                (other / name).write_bytes((self.site / name).read_bytes())
        page = self.open("nachbar/wako_de.htm")
        self.call(page, 9, "Nachbars Tasse", 1, 1, 1, "DEU")
        self.go(page, "wako_de.htm")
        self.assertEqual(self.lines(page), [])

    def test_a_page_without_articles_runs_without_errors(self):
        page = self.open("ohne.htm")
        self.assertHarmless(page)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
