"""The handbook and the help as the build made them: nothing missing, nothing that leads nowhere, and no caption that the program
does not show.

    handbook_test.py TREE PROGRAM_DIR

Everything in <b> of a chapter is a caption of the program in the chapter's language.
"""
import functools
import pathlib
import re
import sys
import unittest
import urllib.parse

import html5lib

TREE, PROGRAM = map(pathlib.Path, sys.argv[1:3])
HANDBOOK = TREE / "docs/handbook"
LANGUAGES = {"de": ("GER", "hilfe", "handbuch"), "en": ("ENG", "help", "handbook")}


@functools.lru_cache(maxsize=None)
def parsed(path):
    """All elements of a page, and what is wrong with its text."""
    parser = html5lib.HTMLParser(tree=html5lib.getTreeBuilder("etree"), namespaceHTMLElements=False)
    root = parser.parse(path.read_text(encoding="utf-8"))
    return list(root.iter()), parser.errors


def elements(path):
    return parsed(path)[0]


def text_of(element):
    return re.sub(r"\s+", " ", "".join(element.itertext())).strip()


def plain(caption):
    """A caption as one reads it: no marks of access keys, no dots or colon at its end."""
    caption = caption.replace("&&", "\0").replace("&", "").replace("\0", "&")
    return re.sub(r"\s+", " ", caption).strip().rstrip(".:").strip()


def captions(language):
    lines = (TREE / "resources/language/captions.tsv").read_text(encoding="utf-8").splitlines()
    rows = [line.split("\t") for line in lines if not line.startswith("#")][1:]
    found = set()
    for row in rows:
        if row[4] == language:
            for text in row[5:7]:
                # What stands in front of a colon names the control, what follows explains it.
                found |= {plain(text), plain(text.split(":")[0])}
    return found - {""}


def chapters():
    return ["index"] + (HANDBOOK / "chapters.txt").read_text(encoding="utf-8").split()


def pages(language):
    _, help_folder, folder = LANGUAGES[language]
    return [PROGRAM / help_folder / folder / f"{name}.htm" for name in chapters()]


class Handbook(unittest.TestCase):
    def test_every_chapter_is_there_in_both_languages_and_no_other(self):
        for language in LANGUAGES:
            found = sorted(path.stem for path in (HANDBOOK / language).glob("*.htm"))
            self.assertEqual(found, sorted(chapters()), language)
            for page in pages(language):
                self.assertTrue(page.is_file(), page)

    def test_chapters_have_the_same_parts_in_both_languages(self):
        for german, english in zip(pages("de"), pages("en")):
            shapes = [[e.tag if e.tag != "img" else e.get("src") for e in elements(page)
                       if e.tag in ("h1", "h2", "img", "li", "dt", "tr", "ol", "ul")] for page in (german, english)]
            self.assertEqual(*shapes, german.name)

    def test_pages_are_valid_html(self):
        for language in LANGUAGES:
            for page in pages(language):
                self.assertEqual(parsed(page)[1], [], page)

    def test_captions_are_those_of_the_program(self):
        for language, (code, _, _) in LANGUAGES.items():
            known = captions(code)
            unknown = [f"{page.name}: {text_of(element)}" for page in pages(language) for element in elements(page)
                       if element.tag == "b" and plain(text_of(element)) not in known]
            self.assertEqual(unknown, [], language)

    def test_each_page_leads_to_its_neighbours(self):
        for language in LANGUAGES:
            names = [page.name for page in pages(language)]
            for place, page in enumerate(pages(language)):
                ways = {e.get("rel"): e.get("href") for e in elements(page) if e.tag == "a" and e.get("rel")}
                wanted = {"prev": names[place - 1] if place else None,
                          "next": names[place + 1] if place + 1 < len(names) else None}
                self.assertEqual(ways, {rel: name for rel, name in wanted.items() if name}, page)

    def test_the_first_page_lists_all_chapters(self):
        for language in LANGUAGES:
            links = [e.get("href") for e in elements(pages(language)[0]) if e.tag == "a" and not e.get("rel")]
            self.assertEqual([link for link in links if link[:-4] in chapters()[1:]], [f"{name}.htm" for name in chapters()[1:]])


class Help(unittest.TestCase):
    def pages(self):
        return [page for _, folder, _ in LANGUAGES.values() for page in (PROGRAM / folder).rglob("*.htm")]

    def test_links_and_pictures_lead_somewhere(self):
        for page in self.pages():
            for element in elements(page):
                address = element.get("href") or element.get("src")
                if not address or re.match(r"[a-z]+:", address):
                    continue
                path, _, mark = urllib.parse.unquote(address).partition("#")
                target = (page.parent / path).resolve() if path else page
                self.assertTrue(target.is_file(), f"{page}: {address}")
                if mark:
                    self.assertIn(mark, [e.get("id") for e in elements(target)], f"{page}: {address}")

    def test_pictures_have_a_text(self):
        for page in self.pages():
            for element in elements(page):
                if element.tag == "img":
                    self.assertTrue(element.get("alt"), f"{page}: {element.get('src')}")

    def test_every_picture_is_shown_somewhere(self):
        for _, folder, _ in LANGUAGES.values():
            shown = {(page.parent / e.get("src")).resolve() for page in (PROGRAM / folder).rglob("*.htm")
                     for e in elements(page) if e.tag == "img"}
            for picture in (TREE / "resources/help" / folder / "bilder").glob("*.png"):
                self.assertIn((PROGRAM / folder / "bilder" / picture.name).resolve(), shown)

    def test_the_first_page_of_the_help_leads_to_the_handbook(self):
        for _, folder, handbook in LANGUAGES.values():
            links = [e.get("href") for e in elements(PROGRAM / folder / "index.htm") if e.tag == "a"]
            self.assertIn(f"{handbook}/index.htm", links)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
