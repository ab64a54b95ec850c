"""Project files that are none, or hold what no program of ours would store."""

import json
import random
import unittest

from house import House, children, heading, snapshot


class FilesThatAreNoProject(House):
    """Every command refuses them with a message that names the file, and leaves them and their directory as they were."""

    def commands(self):
        body = self.top / "neu.html"
        body.write_text(heading("neu"), encoding="utf-8")
        yield "pages", self.file
        yield "page", "show", self.file, "00"
        yield "page", "set", self.file, "00", "--html", body
        yield "page", "add", self.file, "--under", "00"
        yield "settings", self.file
        yield "settings", self.file, "Titel=neu"
        yield self.generate()

    def assert_all_refuse(self, commands=None):
        before = snapshot(self.work)
        for command in commands or self.commands():
            self.assertIn(self.file.name, self.assert_refused(*command), command)
            self.assertEqual(snapshot(self.work), before, command)

    def test_no_file(self):
        self.assert_all_refuse()

    def test_a_directory(self):
        self.file.mkdir()
        self.assert_all_refuse()

    def test_a_path_through_a_file(self):
        self.make_project()
        self.assert_refused("pages", self.file / "haus.mdb")

    def test_an_empty_file(self):
        self.file.touch()
        self.assert_all_refuse()

    def test_random_bytes(self):
        dice = random.Random(1)
        for size in (1, 15, 16, 100, 512, 4096, 100_000):
            with self.subTest(size):
                self.file.write_bytes(dice.randbytes(size))
                self.assert_all_refuse([("pages", self.file), self.generate()])

    def test_random_bytes_behind_a_databases_beginning(self):
        dice = random.Random(2)
        beginning = self.make_project().read_bytes()[:100]
        for size in (0, 1, 412, 4096, 20_000):
            with self.subTest(size):
                self.file.write_bytes(beginning + dice.randbytes(size))
                self.assert_all_refuse([("pages", self.file), self.generate()])

    def test_a_database_without_the_pages_or_the_settings(self):
        for table in ("Seite", "Einstellungen"):
            with self.subTest(table):
                self.make_project()
                with self.database() as db:
                    db.execute(f"DROP TABLE {table}")
                for command in self.commands():
                    self.assertIn(table, self.assert_refused(*command))

    def test_a_database_that_was_cut_off(self):
        whole = self.make_project(children(40, "<p>" + "Text " * 300 + "</p>")).read_bytes()
        lengths = {len(whole) - 1, len(whole) - 100, len(whole) // 2, 4095, 4096, 4097, 8192, 100, 99, 17}
        lengths |= {random.Random(seed).randrange(1, len(whole)) for seed in range(25)}
        for length in sorted(lengths):
            with self.subTest(length):
                self.file.write_bytes(whole[:length])
                self.assert_all_refuse([("pages", self.file)])
        self.assert_all_refuse()

    def test_damaged_bytes_are_no_crash(self):
        whole = self.make_project(children(40, "<p>" + "Text " * 300 + "</p>")).read_bytes()
        for seed in range(25):
            with self.subTest(seed):
                dice = random.Random(seed)
                damaged = bytearray(whole)
                for _ in range(dice.choice((1, 20, 400))):
                    damaged[dice.randrange(100, len(damaged))] = dice.randrange(256)
                self.file.write_bytes(damaged)
                self.mrd("pages", self.file)
                self.mrd(*self.generate())


class StrangeContents(House):
    """Databases that are projects, with contents of the wrong kind: worked on as far as they make sense, without a crash."""

    def look_at_everything(self):
        self.mrd("pages", self.file)
        json.loads(self.assert_done("pages", self.file, "--json"))
        json.loads(self.assert_done("settings", self.file, "--json"))
        self.mrd(*self.generate())
        self.mrd(*self.generate("--new-only"))
        self.assert_sound()

    def test_no_homepage(self):
        self.make_project(children(3))
        with self.database() as db:
            db.execute("DELETE FROM Seite WHERE id = '00'")

        self.assertEqual(len(self.assert_done("pages", self.file).splitlines()), 3)
        done = self.mrd(*self.generate())
        self.assertIn("warning: In diesem Projekt fehlt die Homepage", done.err)
        self.assertIn("3 Seiten", done.out)
        self.assertTrue((self.site / "02.htm").exists())
        self.assertIn("message 102: ", self.assert_refused("page", "set", self.file, "00"))
        self.look_at_everything()
        self.assertEqual(self.assert_done("page", "add", self.file, "--under", "00"), "04\n")

    def test_no_page_at_all(self):
        self.make_project()
        with self.database() as db:
            db.execute("DELETE FROM Seite")

        self.assertEqual(self.assert_done("pages", self.file), "")
        self.mrd(*self.generate())
        self.assert_sound()

    def test_no_register(self):
        self.make_project(children(2))
        with self.database() as db:
            db.execute("DROP TABLE Dateien")

        self.assert_refused(*self.generate())
        self.assertEqual(len(self.assert_done("pages", self.file).splitlines()), 3)

    def test_null_and_wrong_types_in_every_column_of_a_page(self):
        contents = (None, 7, -1, 2.5, 2**40, "", "abc", "' OR '1'='1", b"\x00\xff\xfe", b"", "\udcff\udcfe", "a\x00b", "9" * 400)
        columns = ("Überschrift", "html", "dateiname", "seitentyp-id", "script", "changingdate", "expanded")
        self.make_project()
        with self.database() as db:
            for n, content in enumerate(contents, 1):
                value = content.encode("utf-8", "surrogateescape") if isinstance(content, str) and "\udcff" in content else content
                db.execute("INSERT INTO Seite (id) VALUES (?)", (f"{n:02}",))
                for c, column in enumerate(columns, 1):
                    cast = "CAST(? AS TEXT)" if value is not content else "?"
                    db.execute("INSERT INTO Seite (id, html, \"seitentyp-id\") VALUES (?, 'x', 1)", (f"{n:02}{c:02}",))
                    db.execute(f'UPDATE Seite SET "{column}" = {cast} WHERE id = ?', (value, f"{n:02}{c:02}"))
                    db.execute(f'UPDATE Seite SET "{column}" = {cast} WHERE id = ?', (value, f"{n:02}"))

        self.look_at_everything()
        for n in range(1, len(contents) + 1):
            json.loads(self.assert_done("page", "show", self.file, f"{n:02}"))
            self.mrd("page", "set", self.file, f"{n:02}")
        self.assert_sound()

    def test_ids_that_are_no_ids(self):
        ids = (None, "", "1", "001", "0100", "M01", "M0101", "index2", "ab", " 01", "01 ", "@01", "../x", "a/b", "..\\x", "..", "*", "?",
               "01'", "%", "01\x0002", "ä" * 100, 7, 2.5, b"01", b"\xff\xfe")
        self.make_project([(page_id, "Seite", heading("Seite")) for page_id in ids] + [("01", "Haus", heading("Haus"))])
        outside = snapshot(self.top)

        self.assertGreaterEqual(len(json.loads(self.assert_done("pages", self.file, "--json"))), len(ids))
        self.mrd(*self.generate())
        self.mrd("page", "add", self.file, "--under", "00")
        self.mrd("page", "set", self.file, "01")

        self.assertTrue((self.site / "01.htm").exists())
        self.assertEqual(new_files(outside, snapshot(self.top), "work/site", "program", "work/haus.mdb"), set())
        self.assertEqual(len(self.rows("SELECT id FROM Seite WHERE id = '01'")), 1)

    def test_an_id_that_is_too_long_for_a_file_name(self):
        self.make_project([("0" * 5000, "Seite", heading("Seite"))])

        self.assert_refused(*self.generate())
        self.assert_sound()

    def test_ids_that_are_no_ids_at_the_command_line(self):
        self.make_project(children(2))
        before = self.rows("SELECT * FROM Seite")

        for text in ("", "1", "M01", "abc", "@", "*", "0?", "' OR '1'='1", "../01", "01020304050607", "ä"):
            self.assert_refused("page", "show", self.file, text)
            self.assert_refused("page", "set", self.file, text)
            self.assert_refused("page", "add", self.file, "--under", text)
            self.assert_refused(*self.generate("--page", text or "x"))

        self.assertEqual(self.rows("SELECT * FROM Seite"), before)

    def test_one_id_twice(self):
        self.make_project([("01", "eins", heading("eins")), ("01", "zwei", heading("zwei"))])
        before = self.rows("SELECT * FROM Seite")

        self.assertIn("message 17: ", self.assert_refused("page", "set", self.file, "01", "--file-name", "x.htm"))

        self.assertEqual(self.rows("SELECT * FROM Seite"), before)
        self.mrd(*self.generate())

    def test_settings_of_every_kind_in_every_key(self):
        self.make_project(children(2))
        keys = [key for key, in self.rows("SELECT Einstellung FROM Einstellungen")] + ["lastgendate", "KopfHTML", "Hyperlink"]
        for content in (None, "", "abc", "-1", "99999999999", 7, 2.5, b"\xff\xfe\x00", "' OR '1'='1", "ä" * 5000, "[mrd:Titel]", "#", "%s%n"):
            with self.subTest(repr(content)[:20]):
                self.make_project(children(2), [(key, content) for key in keys if key != "Exportpfad"])
                self.look_at_everything()

    def test_settings_of_another_kind_in_the_keys_that_are_counted_with(self):
        for key, contents in {
                "Eckradius": ("0", "-5", "1e9", "99999999999999999999", "abc", "nan", None, b"\xff"),
                "blättern": ("999", "-7", "1e9", "x", None, "4.9"), "imodekopftyp": ("99", "-1", "x", None),
                "grundlayout": ("fehlt (fehlt.xml)", "(", "../../etc/passwd (../../etc/passwd)", None),
                "lastgendate": ("gestern", "31.02.2003", "99.99.9999 99:99:99", None, "#", "1.1.1900"),
                "dbVersion": ("9999", "0", "10", "", None, "abc")}.items():
            for content in contents:
                with self.subTest(f"{key} {content}"):
                    self.make_project(children(1), [("rundeEcke", "True"), (key, content)])
                    self.mrd(*self.generate("--new-only"))
                    self.assert_sound()

    def test_settings_without_a_key_and_twice(self):
        self.make_project(children(1))
        with self.database() as db:
            for row in ((None, None), (None, "x"), ("", ""), (7, 8), (b"\xff", b"\xff"), ("Titel", "zweiter"), ("TITEL", "dritter")):
                db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES (?, ?)", row)

        self.assert_done("settings", self.file, "Titel=erster")
        self.assertEqual(self.assert_done("settings", self.file, "Titel"), "erster\n")
        self.look_at_everything()

    def test_a_language_database_and_an_ini_file_that_are_none(self):
        self.make_project(children(1))
        dice = random.Random(3)
        (self.home / "language.mdb").write_bytes(dice.randbytes(5000))
        (self.home / "mirandel.INI").write_bytes(dice.randbytes(5000))

        self.assertEqual(len(self.assert_done("pages", self.file).splitlines()), 2)
        self.mrd("page", "show", self.file, "07")


def new_files(before, after, *expected):
    """Paths that came into being outside the expected places."""
    return {path for path in after if path not in before and not path.startswith(expected)}


if __name__ == "__main__":
    unittest.main()
