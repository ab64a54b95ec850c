#!/usr/bin/env python3
"""A second, plain implementation of the template layouts: project and layout in, site, register and messages out.

Like reference.py it is written for being read beside the rules, page after page and text after text, and shares no code with
the program. A run of the row layout is handed on to reference.py.

  template_reference.py PROJECT --program-dir DIR [--export DIR] [--prefix TEXT] [--new-only | --page ID]
"""
import argparse
import json
import os
import re
import sys
from datetime import datetime

import files
import markup
import reference
from project import Project
from template_layouts import Node, built_in_tree, layout_entries, load_layout
from template_strip import LinkInfo, NavInfo
from template_trees import STARTNAV

END = "\r\n"
TREE_NAMES = {1: "tabnavigation", 2: "sparta", 3: "einfachetabelle"}
PICTURES = ("mrdbanner.gif", "pixel.gif", "nav_home.gif", "nav_links.gif", "nav_rechts.gif", "nav_oben.gif", "nav_top.gif")
POPUP_BLOCK = (
    "<script language=JavaScript>",
    "function popupfenster(source, bu)",
    "     {",
    '    if (bu == null) { bu = "";};',
    '        bu = bu.replace(/ /g,"%20");',
    '        scu = source.replace(/ /g,"%20");',
    "        f1 = open('popupbild.htm?src=' + source + '&bu=' + bu,'fenster1',"
    "'width=320,height=350,screenx=-0,screeny=-100,scrollbars=Yes,resizable=Yes,left=10,top=10');",
    "        f1.focus();",
    "     }",
    "</script>",
)
SITE_COLOURS = (
    ("[mrd:Hintergrundfarbe]", "Hintergrundfarbe"), ("[mrd:Hintergrundfarbeaussen]", "Hintergrundfarbeaussen"),
    ("[mrd:Textfarbe]", "Textfarbe"), ("[mrd:Menütextfarbe]", "Menütextfarbe"), ("[mrd:Tabellenfarbe]", "Tabellenfarbe"),
    ("[mrd:Menüaktivfarbe]", "Menüaktivfarbe"), ("[mrd:Hyperlinkfarbe]", "Hyperlink"))
ENTITIES = {"ä": "&auml;", "Ä": "&Auml;", "ö": "&ouml;", "Ö": "&Ouml;", "ü": "&uuml;", "Ü": "&Uuml;", "ß": "&szlig;"}
WITH_TIMER = (0, 2)
QUOTE = re.compile("['\"]")
QUOTE_WITHIN = 5
ASCII_LOWER = {upper: upper + 32 for upper in range(ord("A"), ord("Z") + 1)}
LINK_WINDOW = 250


def generate(project_file, program_dir, export=None, mode="all", page=None, now=None, prefix=""):
    """One run with the project's layout. `mode` is "all", "new-only" or "page"; paths are native."""
    result = reference.Result()
    project = Project(project_file)
    program_dir = files.own_form(os.path.join(program_dir, ""))
    try:
        # The export directory is the first of the settings' fields: a given one that is missing ends the run before the layout's.
        if export is not None and not os.path.isdir(export):
            result.messages.append((37, None))
            result.refused = True
            return result
        index, text = chosen_layout(project, program_dir, result)
        if index == 0:
            RowRun(project, program_dir, result, now).go(export, mode, page)
        else:
            TemplateRun(project, program_dir, result, now, TREE_NAMES.get(index) or file_of_entry(text), prefix).go(export,
                                                                                                                    mode, page)
    finally:
        project.close()
    return result


def chosen_layout(project, program_dir, result):
    """Index and text of the layout box after the project is opened."""
    entries = layout_entries(program_dir)
    stored, index = project.setting("grundlayout"), 0
    if stored is not None:
        if stored.strip(" ") in entries:
            index = entries.index(stored.strip(" "))
        else:
            result.messages.append((None, reference.LAYOUT_HINT))
    if project.setting("blättern") is None:
        index = 0
    return index, entries[index]


def file_of_entry(text):
    """What stands in the brackets of "name (file)"; an entry without them gives a name that no file has."""
    at = text.find(" (") + 1
    return text[at + 1:at + 1 + len(text) - at - 2]


class RowRun(reference.Run):
    """The row layout; the layout box has reported an unknown entry already."""

    def report_unknown_layout(self):
        pass


class TemplateRun(reference.Run):
    """One run of a template layout; directories, register and page selection are those of every run."""

    def __init__(self, project, program_dir, result, now, layout, prefix):
        super().__init__(project, program_dir, result, now)
        self.layout, self.prefix, self.navs = layout, prefix, {}
        self.turn_kind = int(project.setting("blättern").strip(" "))

    def go(self, export, mode, page):
        if not self.take_export_directory(export):
            self.messages.append((37, None))
            self.result.refused = True
            return
        self.project.clear_register()
        self.site = self.site_list()
        if not self.write_stylesheet():
            self.messages.append((reference.ANY_NUMBER, None))
            self.result.refused = True
            return
        self.root = self.load_tree()
        for name in PICTURES:
            self.bring_picture(name)
        for name in reference.SCRIPTS:
            self.bring(name)
        if files.file_exists(self.program_dir + "picturetransfer.js"):
            files.copy_file(self.program_dir + "picturetransfer.js", self.export + "picturetransfer.js")
        self.enter("picturetransfer.js", 1)
        self.all_pages = self.project.pages()
        self.write_pages(sorted(self.select(mode, page), key=lambda p: p.id), preview=mode == "page")

    # --- what a run prepares

    def site_list(self):
        colours = [(placeholder, self.project.colour(key)) for placeholder, key in SITE_COLOURS]
        return ([("[mrd:Schriftart]", self.project.field("Schriftart"))] + colours
                + [("[mrd:Inhaltbreite]", self.project.field("inhaltbreite")),
                   ("[mrd:Kopf]", markup.body_fragment(self.project.head())),
                   ("[mrd:Tabellenfarbeinaktiv]", self.inactive_colour()), ("[mrd:Titel]", self.project.field("Titel")),
                   ("[mrd:Scripts]", self.script_block()), ("[mrd:GenDat]", self.now.strftime("%d.%m.%Y"))])

    def inactive_colour(self):
        text = self.project.setting("Rahmeninaktivfarbe")
        text = "#0080FF" if text is None else text.strip(" ")
        return "#" + (text[1:] if text.startswith("#") else text)

    def script_block(self):
        lines = []
        for name, key in (("description", "MetaDescription"), ("author", "MetaAuthor"), ("keywords", "MetaKeywords")):
            value = (self.project.setting(key) or "").strip(" ")
            if value:
                lines.append("<meta name='%s' content='%s'>" % (name, value))
        lines += ["<meta name='date' content='%s'>" % self.now.strftime("%Y-%m-%d"),
                  "<meta name='revisit' content='After 20 days'>",
                  "<meta name='expires' content='NEVER'>", "<meta name='imagetoolbar' content='no'>",
                  "<meta name='robots' content='INDEX,FOLLOW'>", "",
                  "<meta name='generator' content='%s Version %s'>" % (reference.HOME_ADDRESS, reference.program_version())]
        lines += POPUP_BLOCK
        lines.append("<script src='[mrd:Kompletterlink]picturetransfer.js' TYPE='text/javascript'></script>")
        if self.turn_kind in WITH_TIMER:
            lines.append("<SCRIPT language='Javascript1.2' src='[mrd:Kompletterlink]mrdnav.js' type='text/javascript'></SCRIPT>")
        else:
            lines.append("<!-- Blättern-Typ:%d -->" % self.turn_kind)
        lines += ["<!-- benutzerdef. Script -->", "[mrd:script]"]
        return "".join(line + END for line in lines)

    def write_stylesheet(self):
        """From the master, line by line. False without a master."""
        if not files.file_exists(self.program_dir + "mrddefault.css"):
            return False
        with open(files.native(self.program_dir + "mrddefault.css"), "rb") as file:
            data = file.read()
        try:
            text = data.decode("utf-8-sig")
        except UnicodeDecodeError:
            text = data.decode("cp1252", "replace")
        lines = text.replace("\r\n", "\n").split("\n")
        if not lines[-1]:
            lines.pop()
        out = "".join(set_attributes(line, self.site) + END for line in lines)
        with open(files.native(self.export + "mrdstyle.css"), "wb") as file:
            file.write(out.encode("cp1252", "xmlcharrefreplace"))
        self.enter("mrdstyle.css", 1)
        return True

    def load_tree(self):
        if self.layout in TREE_NAMES.values():
            root = built_in_tree(self.layout, self.turn_kind in WITH_TIMER)
        else:
            root = Node("root")
            path = self.program_dir + "xml\\" + self.layout
            if files.file_exists(path):
                load_layout(files.native(path), root)
                root.children.append(Node("mrdBanner"))
                if self.turn_kind in WITH_TIMER:
                    root.children.append(Node("startnav", code=STARTNAV.replace("¶", END)))
            else:
                self.messages.append((None, "Folgende Layoutdatei wurde nicht gefunden:\n" + path))
        self.navs[root] = NavInfo(LinkInfo("00", "Homepage", "*.htm"))
        self.kinds = {root: self.turn_kind}
        self.lists = {root: self.site}
        return root

    def bring_picture(self, name):
        target = "pix\\" + name
        if not files.file_exists(self.export + target):
            for source in (self.program_dir + name, self.program_dir + "hilfe\\pix\\" + name):
                if files.file_exists(source):
                    files.copy_file(source, self.export + target)
                    break
            else:
                self.messages.append((None, "Datei %s nicht gefunden." % name))
                return
        self.enter(target, 2)

    # --- the pages

    def write_pages(self, selected, preview):
        count = 0
        for page in selected:
            name = self.output_name(page)
            if reference.leaves_directory(name):
                self.messages.append((101, None))
                self.result.refused = True
                continue
            path = files.native(self.export + name)
            open(path, "wb").close()
            self.enter(name, 1)
            text = self.html(self.root, page.id, "00", page)
            with open(path, "wb") as file:
                file.write((with_entities(text) + END).encode("cp1252", "xmlcharrefreplace"))
            count += 1
        self.project.store_last_run(self.now)
        self.result.closing = "Fertig! Es wurden %d Seiten generiert!" % count

    def output_name(self, page):
        ident = "index" if page.id == "00" else page.id
        pattern = page.pattern
        if not pattern or pattern.startswith("http"):
            pattern = "*.htm"
        return (self.prefix + pattern).replace("*", ident)

    def base_of(self, kind):
        """What stands before links of pages of this type."""
        if kind not in (2, 4):
            return ""
        base = self.basis_url if self.basis_url.endswith("/") else self.basis_url + "/"
        return base if base[:7].lower() == "http://" else "http://" + base

    # --- rendering

    def html(self, node, ident, parent, row):
        """Text of a node. `ident` is the page being written, `row` the page whose values this call was given."""
        text = self.menu(node, ident, parent, row) if node.menu else node.code + END
        if not node.menu:
            for child in node.children:
                text += self.html(child, ident, parent, row)
        if node.name == "root":
            text = set_attributes(text, self.lists.get(node, ()))
            values = (("[mrd:Überschrift]", row.heading), ("[mrd:SeitenID]", ident), ("[mrd:Inhalt]", row.html),
                      ("[mrd:script]", row.script or ""))
            text = self.set_contents(node, text, ident, kind_of(row), values, row.pattern)
            text = self.adapt_pictures(text, self.base_of(kind_of(row)))
            text = set_attributes(text, self.lists.get(node, ()))
        return text + END + END

    def menu(self, node, ident, parent, given):
        text = ""
        for row in self.level("" if parent == "00" else parent):
            hit = ident.startswith(row.id)
            text += (node.active_code if row.id == ident or (hit and node.active) else node.code) + END
            text = self.set_contents(node, text, row.id, kind_of(given), (("[mrd:Überschrift]", row.heading),),
                                     row.pattern.lower())
            if hit or node.show_children:
                for child in node.children:
                    if row.id != "00" or not child.menu:
                        text += self.html(child, ident, row.id, row)
        return text

    def level(self, parent):
        shown = (p for p in self.all_pages if p.type is not None and p.type != 3)
        return [p for p in shown if len(p.id) == len(parent) + 2 and p.id.startswith(parent)]

    def set_contents(self, node, text, ident, kind, values, pattern):
        ident, base = "index" if ident == "00" else ident, self.base_of(kind)
        if "[mrd:BlätternNavigation]" in text:
            nav = self.navs.setdefault(node, NavInfo())
            nav.set_page(self.all_pages, ident, base)
            text = text.replace("[mrd:BlätternNavigation]", nav.strip(self.kinds.get(node, 0)))
        text = set_attributes(text, values)
        name = (pattern or "*.htm").replace("*", ident)
        text = text.replace("[mrd:Kompletterlink]", base)
        return text.replace("[mrd:ID]", name if name[:7].lower() == "http://" else base + name)

    # --- pictures and links

    def adapt_pictures(self, text, base):
        text = self.scan(text, "src", 0, lambda value: self.picture(value, base))
        return self.scan(text, "href", 1, lambda value: self.link(value, base))

    @staticmethod
    def scan(text, word, further, adapt):
        """Every value in quotes shortly behind the word, attribute or not. `further` characters behind the word are passed."""
        lowered = text.translate(ASCII_LOWER)
        done, at = "", 0
        while True:
            found = lowered.find(word, at)
            if found < 0:
                return done + text[at:]
            start = min(found + len(word) + further, len(text))
            quote = QUOTE.search(text, start)
            if (quote.start() if quote else len(text)) - start >= QUOTE_WITHIN:
                done, at = done + text[at:start], start
                continue
            if not quote:
                return done + text[at:] + adapt("")
            end = text.find(quote.group(), quote.end())
            behind = len(text) if end < 0 else end + 1
            value = text[quote.end():behind - 1] if end >= 0 else text[quote.end():]
            done += text[at:quote.end()] + adapt(value) + text[quote.end() + len(value):behind]
            at = behind

    def picture(self, value, base):
        if is_foreign(value):
            return value
        if value in ("", "xxx") or "http:" in value or is_bare_file(value):
            return base + value
        directory, name, extension = files.split_path(self.local_path(value))
        if not directory:
            directory = self.bring_layout_picture(name, extension)
        elif not self.copy_if_there(directory, name, extension):
            self.bring_layout_picture(name, extension)
        if directory:
            self.enter("pix\\%s.%s" % (name, extension), 2)
            value = "pix/" + ("%s.%s" % (name, extension)).lower()
        return base + value

    @staticmethod
    def local_path(value):
        """Path of a reference; a relative one stays relative."""
        if value[:5].lower() == "file:" and value[5:6] in ("/", "\\"):
            return files.reference_path("file:" + value[5:], "")
        return files.decoded(value).replace("/", "\\")

    def copy_if_there(self, directory, name, extension):
        """Copies a picture that is missing in pix. False if there was nothing to copy, or no need to."""
        source, target = "%s%s.%s" % (directory, name, extension), "%spix\\%s.%s" % (self.export, name, extension)
        if not is_absolute(directory):
            # A run works in the directory of its pictures.
            source = self.export + "pix\\" + source
        if not files.file_exists(source) or files.file_exists(target):
            return False
        files.copy_file(source, "%spix\\%s" % (self.export, ("%s.%s" % (name, extension)).lower()))
        return True

    def bring_layout_picture(self, name, extension):
        """A picture that came with a layout; then the directory where it is now."""
        source = "%sxml\\pix\\%s.%s" % (self.program_dir, name, extension)
        target = "%spix\\%s.%s" % (self.export, name, extension)
        if not files.file_exists(source) or files.file_exists(target):
            return ""
        files.copy_file(source, "%spix\\%s" % (self.export, ("%s.%s" % (name, extension)).lower()))
        return self.export + "pix\\"

    def link(self, value, base):
        if is_foreign(value):
            return value
        if "file:" in value:
            value = self.picture_link(value)
        return value if base in value or "http://" in value or value.startswith("#") else base + value

    def picture_link(self, value):
        at = value.find("file:")
        prefix, rest, suffix = value[:at], value[at + 7:at + 7 + LINK_WINDOW], ""
        if "'" in rest:
            quote = rest.index("'")
            rest, suffix = rest[:quote], rest[quote:]
        path = files.rooted(files.decoded(rest.lower()).lstrip("/\\")).replace("/", "\\") if rest else ""
        directory, name, extension = files.split_path(path)
        self.copy_if_there(directory, name, extension)
        self.enter("pix\\%s.%s" % (name, extension), 2)
        if not self.basis_url.endswith("/"):
            self.basis_url += "/"
        return prefix + ("" if "popup" in prefix else self.basis_url) + "pix/" + ("%s.%s" % (name, extension)).lower() + suffix


def set_attributes(text, values):
    for placeholder, value in values:
        text = text.replace(placeholder, value)
    return text


def kind_of(page):
    return 1 if page.type is None else page.type


def is_foreign(value):
    """Of a scheme that is left alone; calls of scripts with a file are not."""
    scheme = reference.scheme_of(value)
    return scheme not in ("", "file", "http") and not (scheme == "javascript" and "file:" in value)


def is_bare_file(value):
    """A `file://` and a name: no directory is left when the scheme is taken away."""
    return bool(re.fullmatch(r"file:[/\\]{2}[^/\\]+", value)) and not files.DRIVE.match(value[7:])


def is_absolute(path):
    return path[:1] == "\\" or bool(files.DRIVE.match(path))


def with_entities(text):
    for letter, entity in ENTITIES.items():
        text = text.replace(letter, entity)
    return text


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("project")
    parser.add_argument("--program-dir", required=True)
    parser.add_argument("--export")
    parser.add_argument("--prefix", default="")
    what = parser.add_mutually_exclusive_group()
    what.add_argument("--new-only", action="store_true")
    what.add_argument("--page", metavar="ID")
    options = parser.parse_args()
    mode = "page" if options.page else "new-only" if options.new_only else "all"
    now = datetime.utcfromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]))
    result = generate(options.project, options.program_dir, options.export, mode, options.page, now, options.prefix)
    json.dump({"messages": result.messages, "closing": result.closing, "refused": result.refused}, sys.stdout,
              ensure_ascii=False)
    print()


if __name__ == "__main__":
    main()
