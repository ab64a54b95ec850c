"""Project file, settings and file register as the generation run sees them."""
import re
import sqlite3
from datetime import datetime

import files

DEFAULTS = {
    "Titel": "", "Textfarbe": "000000", "Menütextfarbe": "ff0000", "Tabellenfarbe": "#0080FF",
    "Hintergrundfarbe": "ffffff", "Hintergrundfarbeaussen": "ffffff", "Menüaktivfarbe": "ff0000", "BasisURL": "",
    "MetaDescription": "", "MetaAuthor": "", "MetaKeywords": "", "Schriftart": "Arial", "menübreite": "140 px",
    "inhaltbreite": "90%", "rundeEcke": "False",
}
TRUE_WORDS = ("true", "wahr", "1", "-1")
DEFAULT_HEAD = "<font face='[mrd:Schriftart]'><div align=center>made with Mirandel</div></font>"


class Page:
    def __init__(self, row):
        self.id, self.heading, self.html, self.pattern, self.type, self.script, self.changed = row
        self.heading = self.heading or ""
        self.html = self.html or ""
        self.pattern = self.pattern or ""


class Project:
    def __init__(self, path):
        self.db_ = sqlite3.connect(path)
        self.db_.isolation_level = None

    def close(self):
        self.db_.close()

    def pages(self):
        rows = self.db_.execute('SELECT id, "Überschrift", html, dateiname, "seitentyp-id", script, changingdate FROM Seite')
        return sorted((Page(row) for row in rows), key=lambda page: page.id)

    def setting(self, key):
        """The first row counts; the key's case does not. None without a row."""
        for name, value in self.db_.execute("SELECT Einstellung, Wert FROM Einstellungen ORDER BY rowid"):
            if name is not None and name.rstrip(" ").lower() == key.lower():
                return value or ""
        return None

    def field(self, key):
        value = self.setting(key)
        return DEFAULTS[key] if value is None else value.strip(" ")

    def colour(self, key):
        if key == "Hyperlink" and self.setting(key) is None:
            key = "Menüaktivfarbe"
        text = self.setting(key).strip(" ") if key == "Hyperlink" else self.field(key)
        return "#" + (text[1:] if text.startswith("#") else text)

    def checked(self, key):
        return self.field(key).lower() in TRUE_WORDS

    def head(self):
        value = self.setting("KopfHTML")
        return DEFAULT_HEAD if value is None else value

    def last_run(self):
        value = self.setting("lastgendate")
        if value is None:
            return datetime(1900, 1, 1)
        german = re.fullmatch(r"(\d+)\.(\d+)\.(\d+) (\d+):(\d+):(\d+)", value)
        if german:
            day, month, year, hour, minute, second = map(int, german.groups())
            return datetime(year, month, day, hour, minute, second)
        return datetime.fromisoformat(value)

    def store_last_run(self, now):
        value = now.strftime("%d.%m.%Y %H:%M:%S")
        row = self.db_.execute("SELECT rowid FROM Einstellungen WHERE Einstellung = 'lastgendate' COLLATE NOCASE"
                               " ORDER BY rowid LIMIT 1").fetchone()
        if row:
            self.db_.execute("UPDATE Einstellungen SET Wert = ? WHERE rowid = ?", (value, row[0]))
        else:
            self.db_.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES ('lastgendate', ?)", (value,))

    def clear_register(self):
        self.db_.execute('DELETE FROM Dateien WHERE "dateityp-id" IN (1, 2)')

    def register(self, path, kind, messages):
        """Enters a file once; one that is not there is only reported."""
        if not files.file_exists(path):
            messages.append((None, "Die Datei %s wurde nicht gefunden!" % path))
            return
        key = tuple(part.lower() for part in files.split_path(path))
        compared = tuple(part.rstrip(" ") for part in key)
        for row in self.db_.execute("SELECT pfad, dateiname, erweiterung FROM Dateien"):
            if tuple((part or "").rstrip(" ").lower() for part in row) == compared:
                return
        self.db_.execute('INSERT INTO Dateien (pfad, dateiname, erweiterung, "dateityp-id", "übertragen") VALUES (?,?,?,?,1)',
                         (key[0], key[1], key[2] or None, kind))
