#!/usr/bin/env python3
"""A second, plain implementation of the edition for telephones: project in, pages, register and messages out.

It takes from the reference of the other edition only what both have in common, and shares no code with the program. Of a small
GIF file it writes signature and size, and no more: how a picture is resampled is the business of the picture library.

  imode_reference.py PROJECT --program-dir DIR [--export DIR]      (SOURCE_DATE_EPOCH is the present time)
"""
import argparse
import json
import os
import struct
import sys
from datetime import datetime
from pathlib import Path

import files
import imode_markup
import reference
from imode_rows import END, row
from picture_size import picture_size
from project import Project
from reference import ANY_NUMBER, HOME_ADDRESS, Link, program_version

LIMIT = 120
MENU_ROWS = {2: (12, 18), 4: (19, 20), 6: (21, 22), 8: (23, 24)}
LOGO_SIZE = (120, 20)
NO_PICTURE = "max. 120 Pixel Breite"      # what the label says where no file was chosen


class StopRun(Exception):
    """A failure that ends the run in message 1."""


def generate(project_file, program_dir, export=None, now=None):
    result = reference.Result()
    project = Project(project_file)
    try:
        ImodeRun(project, files.own_form(os.path.join(program_dir, "")), result, now).go_imode(export)
    finally:
        project.close()
    return result


class ImodeRun(reference.Run):
    def go_imode(self, export):
        self.report_unknown_layout()
        if not self.take_export_directory(export):
            self.messages.append((37, None))
            self.result.refused = True
            return
        self.imode = self.export + "imode\\"
        self.pix = self.imode + "pix\\"
        os.makedirs(files.native(self.imode), exist_ok=True)
        os.makedirs(files.native(self.pix), exist_ok=True)
        self.project.clear_register()
        self.all_pages = self.project.pages()
        self.home = self.homepage_link()
        self.logo_saved, self.script_pages = False, []
        try:
            for page in self.all_pages:
                self.take_page(page)
        except StopRun:
            self.messages.append((1, None))
            self.result.refused = True
            return
        self.result.closing = "Fertig!"
        if self.script_pages:
            self.messages.append((38, None))

    def take_page(self, page):
        name = self.home.file if page.id == "00" else reference.output_name(page)
        if reference.leaves_directory(name):
            self.messages.append((ANY_NUMBER, None))
            self.result.refused = True
            return
        path = files.native(self.imode + name)
        open(path, "wb").close()
        self.project.register(self.imode + name, 1, self.messages)
        self.basislink = self.base_address() if page.type == 2 else ""
        self.page, self.out, self.menu_buffer = page, [], []
        self.previous, self.next, self.first, self.seen = self.home, Link(), Link(), ""
        for number in range(1, 18):
            self.write_row(number)
        Path(path).write_bytes("".join(self.out).encode("cp1252", "xmlcharrefreplace"))

    def write_row(self, number):
        special = {1: self.head_start, 2: self.title, 4: self.page_head, 6: self.body, 8: self.nothing, 11: self.homepage_entry,
                   12: self.walk, 15: self.menu_block, 16: self.key_line}
        special.get(number, lambda: self.plain(number))()

    def nothing(self):
        pass

    def plain(self, number):
        text = self.with_base(row(number))
        text = text.replace("[mrd:Inhaltbreite]", self.project.field("inhaltbreite"))
        text = text.replace("[mrd:Menübreite]", self.project.field("menübreite"))
        self.print(self.with_colours(text))

    def head_start(self):
        text = row(1) + END
        for name, key in (("description", "MetaDescription"), ("author", "MetaAuthor"), ("keywords", "MetaKeywords")):
            value = (self.project.setting(key) or "").strip(" ")
            if value:
                text += "<meta name='%s' content='%s'>" % (name, value) + END
        text += "<meta name='date' content='%s'>" % self.now.strftime("%Y-%m-%d") + END
        text += END + "<meta name='generator' content='%s Version %s'>" % (HOME_ADDRESS, program_version()) + END
        self.print(self.with_colours(self.with_base(text)))

    def title(self):
        text = row(2).replace("[mrd:Überschrift]", self.page.heading).replace("[mrd:Titel]", self.project.field("Titel"))
        self.print(self.with_base(self.with_colours(text)))

    # --- the head of the page

    def head_option(self):
        text = (self.project.setting("imodekopftyp") or "").strip(" ")
        return int(text) if text in ("0", "1", "2", "3") else 3

    def head_text(self):
        text = (self.project.setting("imodekopftext") or "").strip(" ")
        return text or self.project.field("Titel")

    def page_head(self):
        option = self.head_option()
        if option == 0:
            self.print("<div align=center><img src='pix/imodelogo.gif'></div>" + END)
            if not self.logo_saved:
                self.write_gif(self.pix + "imodelogo.gif", LOGO_SIZE)
                self.project.register(self.pix + "imodelogo.gif", 2, self.messages)
                self.logo_saved = True
        elif option == 1:
            self.print("<div align=center>" + self.head_text().strip(" ") + "</div><br>")
        elif option == 2:
            self.chosen_picture()
        else:
            self.print()

    def chosen_picture(self):
        path = (self.project.setting("imodekopfgif") or NO_PICTURE).strip(" ")
        _, name, extension = files.split_path(path)
        target = "%s.%s" % (name, extension)
        self.print("<div align=center><img src='pix/%s'></div>" % target + END)
        self.project.register(path, 2, self.messages)
        if not files.file_exists(self.pix + target):
            if not files.file_exists(path):
                raise StopRun
            files.copy_file(path, self.pix + target)

    # --- the body

    def body(self):
        page = self.page
        if ".php" in page.pattern or ".asp" in page.pattern:
            text = page.html
            self.script_pages.append(page.pattern)
        else:
            document = imode_markup.read(page.html)
            self.small_pictures(document)
            imode_markup.dissolve(document)
            text = document.body_html()
        self.print("<!-- Beginn Inhalt -->" + END + self.with_base(text) + END + "<!-- Ende Inhalt -->" + END)

    def small_pictures(self, document):
        for image in document.images():
            source = image.getAttribute("src")
            scheme = reference.scheme_of(source)
            if not source or scheme not in ("", "file", "http") or "http:" in source:
                continue
            directory, name, extension = files.split_path(files.reference_path(source, self.pix))
            shown = self.small_picture("%s%s.%s" % (directory, name, extension), name, extension)
            if shown is not None:
                self.project.register(self.pix + shown, 2, self.messages)
                image.setAttribute("src", ("pix/" + shown).lower())

    def small_picture(self, path, name, extension):
        """The file name that the page shows; None for a picture that cannot be had."""
        small = name + "_xs.gif"
        if files.file_exists(self.pix + small):
            return small
        size = picture_size(files.native(path)) if files.file_exists(path) else None
        if size is None:
            return None
        width, height = size
        if width <= LIMIT and height <= LIMIT:
            return "%s.%s" % (name, extension)
        ratio = max(width, height) / LIMIT
        self.write_gif(self.pix + small.lower(), (max(1, int(width / ratio + 0.5)), max(1, int(height / ratio + 0.5))))
        return small

    def write_gif(self, path, size):
        Path(files.native(path)).write_bytes(b"GIF87a" + struct.pack("<HH", *size))

    # --- menu and keys

    def entry(self, number, heading, target):
        text = row(number).replace("[mrd:Überschrift]", heading).replace("[mrd:ID]", target)
        self.menu_buffer.append(self.with_colours(text))

    def homepage_entry(self):
        self.entry(11 if self.page.id == "00" else 25, "Homepage", self.basislink + self.home.file)

    def walk(self):
        self.walk_level([p for p in self.all_pages if "00" < p.id <= "99" and len(p.id) < 3])
        if not self.seen:
            self.previous = self.home

    def walk_level(self, rows):
        for page in rows:
            if page.type is None or page.type == 3:
                continue
            here = Link(page.id, page.heading, (page.pattern or "*.htm").replace("*", page.id))
            if page.id == "01":
                self.first = here
            if page.id == self.page.id:
                self.seen = page.id
            elif not self.seen:
                self.previous = here
            elif not self.next.id:
                self.next = here
            on_path = self.page.id.startswith(page.id)
            normal, active = MENU_ROWS[len(page.id)]
            self.entry(active if on_path else normal, here.heading, self.basislink + here.file)
            if on_path and len(page.id) < 8:
                upper = "%0*d" % (len(page.id), int(page.id) + 1)
                self.walk_level([p for p in self.all_pages if page.id < p.id < upper and len(p.id) == len(page.id) + 2])

    def menu_block(self):
        self.print(self.with_colours(row(15)))
        self.print("".join(self.menu_buffer))

    def key_line(self):
        if not self.next.id:
            self.next = self.home if self.seen else self.first
        line = row(16)
        line += "[1] <a href='%s%s' accesskey='1'>zurück</a><br>" % (self.basislink, self.previous.file)
        line += "[3] <a href='%s%s' accesskey='3'>nächste Seite</a><br>" % (self.basislink, self.next.file) + END
        self.print(self.with_colours(self.with_base(line)))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("project")
    parser.add_argument("--program-dir", required=True)
    parser.add_argument("--export")
    options = parser.parse_args()
    now = datetime.utcfromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]))
    result = generate(options.project, options.program_dir, options.export, now)
    json.dump({"messages": result.messages, "closing": result.closing, "refused": result.refused}, sys.stdout, ensure_ascii=False)
    print()


if __name__ == "__main__":
    main()
