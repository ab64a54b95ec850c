#!/usr/bin/env python3
"""The stylesheet master and the shipped layouts: complete, made of the known vocabulary, legible, and without outside resources."""
import random
import re
import unittest

import colours
import sources

CLASSES_OF_TABS = {"tab1", "tab1aktiv", "tab1L", "tab1r", "tab1or", "tab1om", "tab1omaktiv", "tab1oraktiv", "tdl", "tdr", "tdeckeo",
                   "tdro", "tdul", "tdu", "tdur", "nav3", "nav3aktiv", "nav4", "nav4aktiv"}
AA = 4.5


def uncommented(css):
    return re.sub(r"/\*.*?\*/", "", css, flags=re.S)


def rules(css):
    """Selectors and declarations of a sheet's innermost blocks."""
    for selectors, body in re.findall(r"([^{}]+)\{([^{}]*)\}", uncommented(css)):
        declarations = [line.split(":", 1) for line in body.split(";") if ":" in line]
        yield [selector.strip() for selector in selectors.split(",")], [(name.strip(), value.strip()) for name, value in declarations]


class Stylesheet(unittest.TestCase):
    def setUp(self):
        self.css = sources.STYLESHEET.read_text(encoding="utf-8")

    def test_defines_every_class_of_the_tab_layout(self):
        defined = set(re.findall(r"\.([A-Za-z][\w-]*)", uncommented(self.css)))
        self.assertEqual(CLASSES_OF_TABS - defined, set())

    def test_defines_every_class_of_the_built_in_trees(self):
        named = set(re.findall(r"class=(\w+)", sources.TREES.read_text(encoding="utf-8")))
        self.assertTrue(named)
        self.assertEqual(named - CLASSES_OF_TABS, set())

    def test_uses_placeholders_of_the_site_and_no_others(self):
        self.assertEqual(sources.placeholders(self.css) - sources.SITE_PLACEHOLDERS, set())

    def test_text_has_font_size_and_links_as_the_editor_shows_them(self):
        found = {selector: dict(declared) for selectors, declared in rules(self.css) for selector in reversed(selectors)
                 if selector in ("p", "td", "a:link", "a:hover") and "color" in dict(declared) or "FONT-SIZE" in str(declared).upper()}
        self.assertEqual(found["p"], {"font-family": "[mrd:Schriftart]", "font-size": "10pt"})
        self.assertEqual(found["a:link"], {"text-decoration": "none", "color": "[mrd:Hyperlinkfarbe]"})
        self.assertEqual(found["a:hover"], {"text-decoration": "underline", "color": "[mrd:Hyperlinkfarbe]"})

    def test_has_balanced_blocks_and_only_characters_of_generated_files(self):
        self.assertEqual(self.css.count("{"), self.css.count("}"))
        self.css.encode("cp1252")

    def test_tabs_of_the_demo_are_legible(self):
        palette = sources.PALETTES["demo"]
        ground = {selector: value for selectors, declared in rules(sources.coloured(self.css, palette)) for selector in selectors
                  for name, value in declared if name == "background"}
        closed, opened = colours.evaluate(ground["td.tab1"]), colours.evaluate(ground["td.tab1aktiv"])
        self.assertGreaterEqual(colours.contrast(colours.evaluate(palette["Menütextfarbe"]), closed), AA)
        self.assertGreaterEqual(colours.contrast(colours.evaluate(palette["Menüaktivfarbe"]), opened), AA)

    def test_the_open_tab_has_the_ground_of_what_it_opens(self):
        ground = {selector: value for selectors, declared in rules(self.css) for selector in selectors
                  for name, value in declared if name == "background"}
        self.assertEqual(ground["td.tab1aktiv"], "[mrd:Tabellenfarbe]")
        self.assertNotEqual(ground["td.tab1"], "[mrd:Tabellenfarbe]")

    def test_body_text_of_all_palettes_is_legible(self):
        for name, palette in sources.PALETTES.items():
            with self.subTest(name):
                text, ground = colours.evaluate(palette["Textfarbe"]), colours.evaluate(palette["Hintergrundfarbe"])
                self.assertGreaterEqual(colours.contrast(text, ground), AA)


class Layouts(unittest.TestCase):
    def layouts(self):
        for path in sources.LAYOUTS:
            with self.subTest(path.name):
                yield path, sources.layout(path)

    def test_two_are_shipped_and_named(self):
        names = [sources.layout(path).get("name") for path in sources.LAYOUTS]
        self.assertEqual(names, ["Galerie", "Modern"])

    def test_elements_and_attributes_are_known(self):
        children = {"root": {"template", "code"}, "template": {"template", "code", "codeactive"}, "code": set(), "codeactive": set()}
        attributes = {"root": {"name"}, "template": {"name", "ismenuitem", "isactivemenuitem", "showchildren"}, "code": set(),
                      "codeactive": set()}
        for _, root in self.layouts():
            self.assertEqual(root.tag, "root")
            for element in root.iter():
                self.assertEqual({child.tag for child in element} - children[element.tag], set())
                self.assertEqual(set(element.keys()) - attributes[element.tag], set())
                for name in set(element.keys()) - {"name"}:
                    self.assertIn(element.get(name), ("true", "false"))

    def test_no_element_is_skipped_for_being_empty(self):
        for _, root in self.layouts():
            for element in root.iter("template"):
                self.assertGreater(len(element), 0, element.get("name"))

    def test_placeholders_are_known_and_stand_where_they_are_filled(self):
        for _, root in self.layouts():
            used = set().union(*map(sources.placeholders, sources.fragments(root)))
            self.assertEqual(used - sources.SITE_PLACEHOLDERS - sources.PAGE_PLACEHOLDERS, set())
            self.assertLessEqual({"[mrd:Kopf]", "[mrd:Inhalt]", "[mrd:Scripts]", "[mrd:BlätternNavigation]", "[mrd:Titel]"}, used)
            for row in root.iter("template"):
                if row.get("ismenuitem") == "true":
                    own = set().union(*(sources.placeholders(child.text) for child in row if child.tag != "template"), set())
                    self.assertEqual(own - sources.ROW_PLACEHOLDERS, set())

    def test_menus_reach_all_four_levels(self):
        for _, root in self.layouts():
            self.assertEqual(max(depth for depth, _ in menu_depths(root, 0)), 4)
            self.assertEqual({depth for depth, has_text in menu_depths(root, 0) if has_text}, {1, 2, 3, 4})

    def test_the_document_says_how_it_is_written_before_anything_else(self):
        for _, root in self.layouts():
            page = "\n".join(sources.fragments(root))
            self.assertTrue(page.startswith("<!DOCTYPE html>"))
            self.assertLess(page.index('<meta charset="windows-1252">'), 200)
            self.assertIn('<meta name="viewport" content="width=device-width, initial-scale=1">', page)

    def test_landmarks_and_skip_link_lead_to_the_content(self):
        for _, root in self.layouts():
            page = "\n".join(sources.fragments(root))
            for landmark in ("<header ", '<nav class="menu" aria-label=', "<main ", "<footer "):
                self.assertEqual(page.count(landmark), 1, landmark)
            skip = re.search(r'<a class="skip" href="#([\w-]+)">', page)[1]
            self.assertRegex(page, rf'<main [^>]*id="{skip}"')
            self.assertLess(page.index('class="skip"'), page.index("<header "))
            self.assertEqual(sorted(re.findall(r'\bid="([\w-]+)"', page)), sorted(set(re.findall(r'\bid="([\w-]+)"', page))))

    def test_pictures_open_without_the_page_that_only_another_layout_brings(self):
        for _, root in self.layouts():
            page = "".join(sources.fragments(root))
            self.assertLess(page.index("[mrd:Scripts]"), page.index("function popupfenster(source, bu)"))
            self.assertNotIn("popupbild", page)
            self.assertIn('<dialog class="box" id="mrd-box"', page)

    def test_the_end_is_left_open_for_what_the_generator_adds(self):
        for _, root in self.layouts():
            page = "".join(sources.fragments(root))
            self.assertNotIn("</body>", page)
            self.assertNotIn("</html>", page)

    def test_styles_and_scripts_hold_nothing_that_the_generator_rewrites(self):
        for path, root in self.layouts():
            page = "".join(sources.fragments(root))
            for block in sources.blocks(page, "style") + sources.blocks(page, "script"):
                plain = re.sub(r"\[mrd:[^\]]*\]", "", block)
                self.assertTrue(plain.isascii())
                self.assertIsNone(re.search(r"(?:src|href).{0,4}['\"]", plain, re.I | re.S), path.name)

    def test_nothing_comes_from_outside(self):
        texts = [(path.name, "".join(sources.fragments(root))) for path, root in self.layouts()]
        texts.append(("mrddefault.css", sources.STYLESHEET.read_text(encoding="utf-8")))
        texts += [(path.name, path.read_text(encoding="utf-8").replace('xmlns="http://www.w3.org/2000/svg"', ""))
                  for path in (sources.RESOURCES / "xml" / "pix").glob("*.svg")]
        for name, text in texts:
            with self.subTest(name):
                self.assertNotRegex(text, r"(?i)https?:|@import|url\(|['\"(]//")

    def test_pictures_are_shipped(self):
        for _, root in self.layouts():
            for picture in re.findall(r'src="pix/([^"]+)"', "".join(sources.fragments(root))):
                shipped = [sources.RESOURCES / "xml" / "pix" / picture, sources.RESOURCES / "pix" / picture]
                self.assertTrue(any(path.is_file() for path in shipped), picture)


def menu_depths(node, depth):
    for child in node:
        if child.tag != "template":
            continue
        is_row = child.get("ismenuitem") == "true"
        if is_row:
            yield depth + 1, child.find("code") is not None
        yield from menu_depths(child, depth + is_row)


class Contrast(unittest.TestCase):
    """Colours of text and the grounds that it stands on, by the names that both layouts give them."""
    PAIRS = [("--text", "--paper"), ("--soft", "--paper"), ("--link", "--paper"), ("--band-text", "--band"), ("--band-active", "--band")]
    PAIRS_OF = {"modern.xml": [("--text", "--page"), ("--soft", "--page"), ("--link", "--page")],
                "galerie.xml": [("--text", "--mat"), ("--soft", "--mat"), ("--link", "--mat")]}

    def schemes(self, path):
        """Name and custom properties of each scheme: for browsers that bend colours and for others, in the light and in the dark."""
        css = uncommented(sources.blocks("".join(sources.fragments(sources.layout(path))), "style")[0])
        css = css[:css.index("*,*::before")]
        dark_at = css.find("@media (prefers-color-scheme:dark)")
        halves = [("light", css)] if dark_at < 0 else [("light", css[:dark_at]), ("dark", css[dark_at:])]
        plain, bent = {}, {}
        for name, half in halves:
            first, second = half.split("@supports")
            plain = {**plain, **self.properties(first)}
            bent = {**bent, **self.properties(first), **self.properties(second)}
            yield name + ", plain", plain
            yield name + ", bent", bent

    @staticmethod
    def properties(css):
        return {name: value.strip() for name, value in re.findall(r"(--[\w-]+):([^;]+);", css)}

    def check(self, palette):
        for path in sources.LAYOUTS:
            for scheme, properties in self.schemes(path):
                variables = {name: sources.coloured(value, palette) for name, value in properties.items()}
                for text, ground in self.PAIRS + self.PAIRS_OF[path.name]:
                    ratio = colours.contrast(colours.evaluate(variables[text]), colours.evaluate(variables[ground]))
                    self.assertGreaterEqual(ratio, AA, f"{path.name}, {scheme}: {text} on {ground} with {palette}")

    def test_text_of_both_layouts_is_legible_with_the_colours_of_a_new_project(self):
        self.check(sources.PALETTES["defaults"])

    def test_text_of_both_layouts_is_legible_with_the_colours_of_the_demo(self):
        self.check(sources.PALETTES["demo"])

    def test_text_of_both_layouts_is_legible_with_any_colours(self):
        rows = random.Random(27)
        corners = [f"#{r}{g}{b}" for r in ("00", "ff") for g in ("00", "ff") for b in ("00", "ff")]
        for palette in [dict.fromkeys(sources.COLOUR_KEYS.values(), corner) for corner in corners]:
            self.check(palette)
        for _ in range(150):
            self.check({key: rows.choice(corners + [f"#{rows.randrange(1 << 24):06x}"] * 8) for key in sources.COLOUR_KEYS.values()})

    def test_the_menus_mark_has_contrast_with_its_ground(self):
        for _, properties in self.schemes(next(path for path in sources.LAYOUTS if path.name == "modern.xml")):
            variables = {name: sources.coloured(value, sources.PALETTES["defaults"]) for name, value in properties.items()}
            self.assertGreaterEqual(colours.contrast(colours.evaluate(variables["--link"]), colours.evaluate(variables["--page"])), 3)


class Colours(unittest.TestCase):
    def test_black_on_white_has_the_largest_contrast(self):
        self.assertAlmostEqual(colours.contrast(colours.evaluate("#000"), colours.evaluate("#ffffff")), 21)

    def test_a_relative_colour_that_changes_nothing_is_its_origin(self):
        for text in ("#336699", "#ff0000", "#0a0b0c"):
            for one, other in zip(colours.evaluate(text), colours.evaluate(f"oklch(from {text} l c h)")):
                self.assertAlmostEqual(one, other, places=4)

    def test_a_mix_lies_between(self):
        self.assertEqual(colours.evaluate("color-mix(in srgb, #000000 50%, white)"), colours.evaluate("color-mix(in srgb, white 50%, black)"))


if __name__ == "__main__":
    unittest.main()
