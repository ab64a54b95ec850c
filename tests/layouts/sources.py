"""What the layouts and the stylesheet master hold, read from the source tree."""
import re
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
RESOURCES = ROOT / "resources"
STYLESHEET = RESOURCES / "web" / "mrddefault.css"
LAYOUTS = sorted((RESOURCES / "xml").glob("*.xml"))
TREES = ROOT / "src" / "generator" / "templates" / "built_in_trees.cpp"

# Placeholder of a colour and the key of the setting behind it.
COLOUR_KEYS = {
    "[mrd:Hintergrundfarbe]": "Hintergrundfarbe", "[mrd:Hintergrundfarbeaussen]": "Hintergrundfarbeaussen",
    "[mrd:Textfarbe]": "Textfarbe", "[mrd:Menütextfarbe]": "Menütextfarbe", "[mrd:Tabellenfarbe]": "Tabellenfarbe",
    "[mrd:Menüaktivfarbe]": "Menüaktivfarbe", "[mrd:Hyperlinkfarbe]": "Hyperlink",
    "[mrd:Tabellenfarbeinaktiv]": "Rahmeninaktivfarbe",
}
SITE_PLACEHOLDERS = set(COLOUR_KEYS) | {
    "[mrd:Schriftart]", "[mrd:Inhaltbreite]", "[mrd:Kopf]", "[mrd:Titel]", "[mrd:Scripts]", "[mrd:GenDat]"}
PAGE_PLACEHOLDERS = {"[mrd:Überschrift]", "[mrd:SeitenID]", "[mrd:Inhalt]", "[mrd:script]", "[mrd:ID]",
                     "[mrd:BlätternNavigation]", "[mrd:Kompletterlink]"}
ROW_PLACEHOLDERS = {"[mrd:Überschrift]", "[mrd:ID]", "[mrd:Kompletterlink]"}


def settings(path):
    """Key and value of a table of settings; colours with their sign."""
    values = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith("#") or "\t" not in line:
            continue
        key, value = line.split("\t", 1)
        values[key] = "#" + value.lstrip("#") if key in COLOUR_KEYS.values() else value
    # Without a row of their own, links have the colour of the active menu entry.
    values.setdefault("Hyperlink", values["Menüaktivfarbe"])
    return values


PALETTES = {"defaults": settings(RESOURCES / "project" / "settings.tsv"), "demo": settings(ROOT / "demo" / "settings.tsv")}


def coloured(text, palette):
    for placeholder, key in COLOUR_KEYS.items():
        text = text.replace(placeholder, palette[key])
    return text


def placeholders(text):
    return set(re.findall(r"\[mrd:[^\]]*\]", text))


def layout(path):
    return ElementTree.parse(path).getroot()


def fragments(root):
    return [element.text or "" for element in root.iter() if element.tag in ("code", "codeactive")]


def blocks(text, tag):
    return re.findall(rf"<{tag}>(.*?)</{tag}>", text, re.S)
