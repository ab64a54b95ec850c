"""Databases of earlier versions for the tests of hard times: files with their content, and ways to break them."""

import json
import pathlib
import shutil
import subprocess

from house import House

DATA = pathlib.Path(__file__).resolve().parent.parent / "data" / "jet"
PRESENT, FIRST, GROWN = "altprojekt-jet4", "altprojekt-v0", "altprojekt-gewachsen-jet4"
NAMES = (PRESENT, FIRST, GROWN)
PAGE = 4096


def bytes_of(name):
    return (DATA / f"{name}.mdb").read_bytes()


def tables_of(name):
    return json.loads((DATA / f"{name}.json").read_text(encoding="utf-8"))["tables"]


def stored_form(value, column):
    """A value of the JSON as the project holds it."""
    if value is None:
        return None
    if column["type"] == "DATE":
        return value.replace("T", " ")
    return int(value) if column["type"] == "BIT" else value


def expected_rows(table):
    return [tuple(stored_form(row[column["name"]], column) for column in table["columns"]) for row in table["rows"]]


def in_any_order(rows):
    """Told apart by type and value: 1 is not 1.0, None not ''."""
    return sorted(rows, key=repr)


class OldFiles(House):
    def setUp(self):
        super().setUp()
        self.kept = self.work / "haus.jet.mdb"

    def put(self, content):
        """The old database in its place: a file's name or bytes."""
        self.file.write_bytes(bytes_of(content) if isinstance(content, str) else content)

    def files(self):
        return {path.name: path.read_bytes() for path in self.work.iterdir() if path.is_file()}

    def rows_of(self, table, columns):
        names = ", ".join('"%s"' % column["name"] for column in columns)
        return self.rows(f'SELECT {names} FROM "{table}" ORDER BY rowid')

    def assert_holds(self, name):
        """All tables of the old database, every value to the last bit, and no row more."""
        for table, content in tables_of(name).items():
            columns = [row[1] for row in self.rows(f'PRAGMA table_info("{table}")')]
            self.assertEqual(columns, [column["name"] for column in content["columns"]], table)
            self.assertEqual(list(map(repr, in_any_order(self.rows_of(table, content["columns"])))),
                             list(map(repr, in_any_order(expected_rows(content)))), table)

    def library(self, source):
        """A library to be loaded in front of the others, which changes what calls do: from a file, or from its text."""
        if not isinstance(source, pathlib.Path):
            text, source = source, self.top / "vorweg.c"
            source.write_text(text)
        built = self.top / f"{source.stem}.so"
        subprocess.run(["cc", "-shared", "-fPIC", "-o", built, source, "-ldl"], check=True)
        return built

    def loading(self, library, **variables):
        """Environment for a run with such a library. A sanitizer would like to be the first."""
        options = self.environment()["ASAN_OPTIONS"] + ":verify_asan_link_order=0"
        return {"LD_PRELOAD": str(library), "ASAN_OPTIONS": options, **{name: str(value) for name, value in variables.items()}}

    def start_anew(self):
        for path in list(self.work.iterdir()):
            if path.is_file() or path.is_symlink():
                path.unlink()
            elif path != self.site:
                shutil.rmtree(path)
