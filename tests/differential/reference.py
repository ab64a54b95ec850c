#!/usr/bin/env python3
"""A second, plain implementation of the layout "Navigation linke Seite": project in, site, register and messages out.

It is written for being read beside the rules, one page after the other and without any cache, and shares no code with the
program. The comparison runs both on random projects.

  reference.py PROJECT --program-dir DIR [--export DIR] [--new-only | --page ID]      (SOURCE_DATE_EPOCH is the present time)
"""
import argparse
import json
import os
import re
import sys
from datetime import datetime
from pathlib import Path

import files
import markup
from project import Project
from rows import POPUP_BLOCK, row_table

HOME_ADDRESS = "http://www.mirandel.example"
SUPPORT_MAIL = "support@mirandel.example"
LAYOUTS = ("Navigation linke Seite", "Navigation in Laschen oben", "ohne alles", "einfache Tabelle")
LAYOUT_HINT = "Bitte überpüfen Sie auf der Lasche 'Layout' das Feld 'Grundlayout'!"
CORNERS = ("ecke-ur.jpg", "ecke-ol.jpg", "ecke-or.jpg", "ecke-ul.jpg")
SCRIPTS = ("mrdnav.js", "mrdshop.js", "cookiefunctions.js")
COLOURS_AND_FONT = (
    ("[mrd:Hintergrundfarbe]", "Hintergrundfarbe"), ("[mrd:Hintergrundfarbeaussen]", "Hintergrundfarbeaussen"),
    ("[mrd:Textfarbe]", "Textfarbe"), ("[mrd:Menütextfarbe]", "Menütextfarbe"), ("[mrd:Tabellenfarbe]", "Tabellenfarbe"),
    ("[mrd:Menüaktivfarbe]", "Menüaktivfarbe"), ("[mrd:Schriftart]", "Schriftart"))
# Menu rows by length of the identifier: other pages, the current page.
MENU_ROWS = {2: (12, 18), 4: (19, 20), 6: (21, 22), 8: (23, 24)}
LINK_WINDOW = 250
ANY_NUMBER = -1                   # of a message whose number and text are free
END = "\r\n"


def program_version():
    text = (Path(__file__).resolve().parents[2] / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(\w+\s+VERSION\s+([0-9.]+)", text).group(1)


class Link:
    """A target of the page-turn row."""

    def __init__(self, ident="", heading="", file=""):
        self.id, self.heading, self.file = ident, heading, file


class Result:
    def __init__(self):
        self.messages = []         # (number, None or ANY_NUMBER; text, or None where the text is data)
        self.closing = None
        self.refused = False


def generate(project_file, program_dir, export=None, mode="all", page=None, now=None):
    """One run. `mode` is "all", "new-only" or "page"; paths are native."""
    result = Result()
    project = Project(project_file)
    try:
        Run(project, files.own_form(os.path.join(program_dir, "")), result, now).go(export, mode, page)
    finally:
        project.close()
    return result


class Run:
    def __init__(self, project, program_dir, result, now):
        self.project, self.program_dir, self.result, self.now = project, program_dir, result, now
        self.messages = result.messages
        self.basis_url = project.field("BasisURL")

    def go(self, export, mode, page):
        self.report_unknown_layout()
        if not self.take_export_directory(export):
            self.messages.append((37, None))
            self.result.refused = True
            return
        self.rows = row_table(self.project.checked("rundeEcke"), self.link_colour())
        self.head = markup.body_fragment(self.project.head())
        self.project.clear_register()
        self.make_corners()
        self.bring_banner()
        for name in SCRIPTS:
            self.bring(name)
        self.all_pages = self.project.pages()
        selected = self.select(mode, page)
        if not selected:
            self.messages.append((None, "Es wurden keine Seiten zum Generieren gefunden."))
            self.result.refused = True
            return
        self.write_pages(selected, preview=mode == "page")

    def report_unknown_layout(self):
        layout = self.project.setting("grundlayout")
        if layout is not None and layout.strip(" ") not in LAYOUTS:
            self.messages.append((None, LAYOUT_HINT))

    def take_export_directory(self, given):
        """The field of the export directory: a stored one that is missing falls back to the program's own."""
        text = files.own_form(given) if given is not None else self.project.setting("Exportpfad")
        if text is None:
            return False
        text = files.own_form(text.strip(" "))
        self.export = text if text.endswith("\\") else text + "\\"
        if not files.directory_exists(self.export):
            if given is not None:
                return False
            self.export = self.program_dir + "exportpfad\\"
            os.makedirs(files.native(self.export), exist_ok=True)
        os.makedirs(files.native(self.export + "pix"), exist_ok=True)
        for name in ("mrdnav.js", "pix\\mrdbanner.gif"):
            source = self.program_dir + "hilfe\\" + name
            if not files.file_exists(self.export + name) and files.file_exists(source):
                files.copy_file(source, self.export + name)
        return True

    def link_colour(self):
        return self.project.colour("Hyperlink")

    # --- what a run prepares

    def make_corners(self):
        if self.project.checked("rundeEcke"):
            for name in CORNERS:
                Path(files.native(self.export + "pix\\" + name)).write_bytes(b"corner")
                self.enter("pix\\" + name, 2)

    def bring_banner(self):
        name = "pix\\mrdbanner.gif"
        if not files.file_exists(self.export + name):
            for source in (self.program_dir + "mrdbanner.gif", self.program_dir + "hilfe\\pix\\mrdbanner.gif"):
                if files.file_exists(source):
                    files.copy_file(source, self.export + name)
                    break
            else:
                return
        self.enter(name, 2)

    def bring(self, name):
        """Enters a file of the export directory's top, from the program directory where it is missing. False without one."""
        if not files.file_exists(self.export + name):
            if not files.file_exists(self.program_dir + name):
                return False
            files.copy_file(self.program_dir + name, self.export + name)
        self.enter(name, 1)
        return True

    def enter(self, name, kind):
        self.project.register(self.export + name, kind, self.messages)

    # --- selection

    def select(self, mode, page):
        if mode == "page":
            return [p for p in self.all_pages if p.id == page]
        pages = self.all_pages
        if mode == "new-only":
            since = self.project.last_run()
            pages = [p for p in pages if p.id == "00" or (p.changed and datetime.fromisoformat(p.changed) > since)]
        by_id = sorted(pages, key=lambda p: p.id)
        return sorted(by_id, key=lambda p: p.changed or "", reverse=True)

    # --- the pages

    def write_pages(self, selected, preview):
        self.preview, self.script_pages, count = preview, [], 0
        self.home = self.homepage_link()
        self.ancestors = [Link() for _ in range(5)]
        self.ancestors[0] = Link("00", "Homepage", self.home.file)
        for page in selected:
            name = self.home.file if page.id == "00" else output_name(page)
            if leaves_directory(name):
                self.messages.append((ANY_NUMBER, None))
                self.result.refused = True
                continue
            if page.id != "00":
                self.ancestors[len(page.id) // 2] = Link(page.id, page.heading, name)
            self.basislink = "" if preview or page.type not in (2, 4) else self.base_address()
            self.write_page(page, name)
            count += 1
        self.project.store_last_run(self.now)
        if self.script_pages:
            self.messages.append((38, None))
        self.result.closing = "Fertig! Es wurden %d Seiten generiert." % count

    def homepage_link(self):
        for page in self.all_pages:
            if page.id == "00":
                name = "index.htm" if page.pattern in ("", "*.htm") else page.pattern.replace("*", "index")
                return Link("00", page.heading, name)
        return Link("", "", "index.htm")

    def base_address(self):
        base = self.basis_url if self.basis_url.endswith("/") else self.basis_url + "/"
        return base if base[:4].lower() == "http" else "http://" + base

    def write_page(self, page, name):
        path = files.native(self.export + name)
        open(path, "wb").close()
        self.enter(name, 1)
        self.out = []
        self.page = page
        self.previous, self.next, self.first, self.seen = self.home, Link(), Link(), ""
        for number in range(1, 18):
            self.SPECIAL_ROWS.get(number, lambda run: run.default_row(number))(self)
        Path(path).write_bytes("".join(self.out).encode("cp1252", "xmlcharrefreplace"))

    def print(self, text=""):
        self.out.append(text + END)

    def with_base(self, text):
        if not self.basislink:
            return text
        return text.replace("src='pix", "src='%spix" % self.basislink).replace('src="pix', 'src="%spix' % self.basislink)

    def with_colours(self, text):
        for placeholder, key in COLOURS_AND_FONT:
            value = self.project.field(key) if key == "Schriftart" else self.project.colour(key)
            text = text.replace(placeholder, value)
        return text

    def menu_line(self, number, heading, target):
        text = self.rows[number].replace("[mrd:Überschrift]", heading).replace("[mrd:ID]", target)
        self.print(self.with_colours(text))

    def default_row(self, number):
        text = self.with_base(self.rows[number])
        text = text.replace("[mrd:Inhaltbreite]", self.project.field("inhaltbreite"))
        text = text.replace("[mrd:Menübreite]", self.project.field("menübreite"))
        self.print(self.with_colours(text))

    def head_row(self):
        text = self.rows[1] + END
        for name, key in (("description", "MetaDescription"), ("author", "MetaAuthor"), ("keywords", "MetaKeywords")):
            value = (self.project.setting(key) or "").strip(" ")
            if value:
                text += "<meta name='%s' content='%s'>" % (name, value) + END
        text += "<meta name='date' content='%s'>" % self.now.strftime("%Y-%m-%d") + END
        text += "<meta name='revisit' content='After 20 days'>" + END + "<meta name='expires' content='NEVER'>" + END
        text += "<meta http-equiv='imagetoolbar' content='no'>" + END
        text += "<meta name='robots' content='INDEX,FOLLOW'>" + END + END
        text += END + "<meta name='generator' content='%s Version %s'>" % (HOME_ADDRESS, program_version()) + END
        self.print(self.with_colours(self.with_base(text)))
        if self.page.script is not None:
            self.print_apart(self.page.script)
        if "popup" in self.page.html:
            self.print_apart(END.join(POPUP_BLOCK))
            if not self.bring("popupbild.htm"):
                self.messages.append((None, "Sie benötigen die Datei popupbild.htm. Bitte kontaktieren Sie %s ." % SUPPORT_MAIL))
        if "picturetransfer" in self.page.html:
            self.print_apart("<script src='%spicturetransfer.js' TYPE='text/javascript'></script>" % self.basislink)
            if files.file_exists(self.program_dir + "picturetransfer.js"):
                files.copy_file(self.program_dir + "picturetransfer.js", self.export + "picturetransfer.js")
            self.enter("picturetransfer.js", 1)

    def print_apart(self, text):
        self.print()
        self.print(text)
        self.print()

    def title_row(self):
        text = self.rows[2].replace("[mrd:Überschrift]", self.page.heading).replace("[mrd:Titel]", self.project.field("Titel"))
        self.print(self.with_base(self.with_colours(text)))

    def shared_head_row(self):
        document = markup.Document(self.head)
        self.bring_pictures(document, "")
        text = self.with_colours(self.rows[8]).replace("[mrd:Kopf]", document.body_html())
        self.print(self.with_base(text))

    def homepage_row(self):
        self.menu_line(11 if self.page.id == "00" else 25, "Homepage", self.basislink + self.home.file)

    def body_row(self):
        page = self.page
        if ".php" in page.pattern or ".asp" in page.pattern:
            text = page.html
            self.script_pages.append(page.pattern)
        else:
            document = markup.Document("<html><head><title>generator</title><base href='file://'>%s</head><body>%s</body></html>"
                                       % (page.script or "", page.html))
            self.bring_pictures(document, self.export)
            text = document.body_html()
        self.print("<!-- Beginn Inhalt -->" + END + self.with_base(text) + END + "<!-- Ende Inhalt -->" + END + "<br>")

    # --- menu

    def menu(self):
        self.menu_level([p for p in self.all_pages if "00" < p.id <= "99" and len(p.id) < 3])
        if not self.seen:
            self.previous = self.home

    def menu_level(self, rows):
        for row in rows:
            if row.type is None or row.type == 3:
                continue
            here = Link(row.id, row.heading, (row.pattern or "*.htm").replace("*", row.id))
            if row.id == "01":
                self.first = here
            other, current = MENU_ROWS[len(row.id)]
            if row.id == self.page.id:
                self.seen = row.id
            elif not self.seen:
                self.previous = here
            elif not self.next.id:
                self.next = here
            self.menu_line(current if row.id == self.page.id else other, here.heading, self.basislink + here.file)
            if self.page.id.startswith(row.id) and len(row.id) < 8:
                upper = "%0*d" % (len(row.id), int(row.id) + 1)
                self.menu_level([p for p in self.all_pages if row.id < p.id < upper and len(p.id) == len(row.id) + 2])

    def page_turn_row(self):
        if not self.next.id:
            self.next = self.home if self.seen else self.first
        level = len(self.page.id) // 2 - 1
        parent, parent_part = self.ancestors[level], ""
        if self.page.id != "00" and parent.file != self.previous.file:
            parent_part = self.turn_link(parent.file, parent.heading) + " | "
        self.print(self.with_colours(self.with_base(
            self.rows[16] + "<font size=2 face='[mrd:Schriftart]'>"
            + self.turn_link(self.previous.file, "&lt; " + self.previous.heading) + " | " + parent_part
            + "<a href='#oben'><FONT color=[mrd:Menütextfarbe]>oben</font></a> | "
            + self.turn_link(self.next.file, self.next.heading + " &gt;") + "</font>" + END)))

    def turn_link(self, file, text):
        return "<a href='%s%s'><FONT color=[mrd:Menütextfarbe]>%s</font></a>" % (self.basislink, file, text)

    # --- pictures and links

    def bring_pictures(self, document, base):
        """`base` is the directory of relative references; the shared head, a document of its own, has none."""
        for image in document.images():
            self.bring_image(image, base)
        for link in document.links():
            self.bring_link(link, base)

    def bring_image(self, image, base):
        reference = image.getAttribute("src")
        if not reference or scheme_of(reference) not in ("", "file"):
            return
        directory, name, extension = files.split_path(files.reference_path(reference, base))
        self.copy_picture(directory, name, extension)
        self.enter("pix\\%s.%s" % (name, extension), 2)
        image.setAttribute("src", "pix/" + ("%s.%s" % (name, extension)).lower())

    def bring_link(self, link, base):
        value = link.getAttribute("href").replace("///", "//")
        scheme = scheme_of(value)
        if scheme not in ("", "file", "http") and not (scheme == "javascript" and "file:" in value):
            return
        if "jpg" not in value.lower() and not ("file:" in value and "'" in value):
            return
        prefix, suffix, at = "", "", value.find("file:")
        if at >= 0:
            prefix, value = value[:at], value[at + 7:at + 7 + LINK_WINDOW]
            quote = value.find("'")
            if quote >= 0:
                value, suffix = value[:quote], value[quote:]
            path = files.rooted(files.decoded(value)).replace("/", "\\")
        elif scheme == "http":
            path = files.decoded(value).replace("/", "\\")
        else:
            path = files.reference_path(value, base)
        directory, name, extension = files.split_path(path)
        if "http:" not in value:
            self.copy_picture(directory, name, extension)
            self.enter("pix\\%s.%s" % (name, extension), 2)
        if not self.basis_url.endswith("/"):
            self.basis_url += "/"
        base_address = self.basis_url if "picturetrans" in prefix else self.basislink
        link.setAttribute("href", prefix + base_address + "pix/" + ("%s.%s" % (name, extension)).lower() + suffix)

    def copy_picture(self, directory, name, extension):
        source, target = "%s%s.%s" % (directory, name, extension), "%spix\\%s.%s" % (self.export, name, extension)
        if files.file_exists(source) and not files.file_exists(target):
            files.copy_file(source, "%spix\\%s" % (self.export, ("%s.%s" % (name, extension)).lower()))

    SPECIAL_ROWS = {1: head_row, 2: title_row, 8: shared_head_row, 11: homepage_row, 12: menu, 15: body_row, 16: page_turn_row}


def scheme_of(reference):
    match = files.SCHEME.match(reference)
    return match.group(1).lower() if match else ""


def output_name(page):
    pattern = page.pattern or "*.htm"
    return page.id + ".htm" if pattern.startswith("http") else pattern.replace("*", page.id)


def leaves_directory(name):
    return "/" in name or "\\" in name or name in (".", "..") or bool(files.DRIVE.match(name))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("project")
    parser.add_argument("--program-dir", required=True)
    parser.add_argument("--export")
    what = parser.add_mutually_exclusive_group()
    what.add_argument("--new-only", action="store_true")
    what.add_argument("--page", metavar="ID")
    options = parser.parse_args()
    mode = "page" if options.page else "new-only" if options.new_only else "all"
    now = datetime.utcfromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]))
    result = generate(options.project, options.program_dir, options.export, mode, options.page, now)
    json.dump({"messages": result.messages, "closing": result.closing, "refused": result.refused}, sys.stdout, ensure_ascii=False)
    print()


if __name__ == "__main__":
    main()
