"""Databases of earlier versions: opened like any other, taken over to the last bit, or refused with a word."""

import datetime
import fcntl
import os
import random
import shutil
import subprocess
import unittest

from house import snapshot, with_file_limit
from jet3_file import BIT, COUNTER, DATE, DOUBLE, LONG, MEMO, TEXT, Jet3File
from old_files import FIRST, GROWN, NAMES, PAGE, PRESENT, OldFiles, bytes_of, expected_rows, tables_of

# Kinds of pages by their first byte, and the flag of a row.
DATA_PAGE, TABLE_PAGE = 1, 2
DELETED = 0x80


class OldProjects(OldFiles):
    def test_an_import_holds_every_row_of_the_old_file_to_the_last_bit(self):
        for name in NAMES:
            with self.subTest(name):
                self.start_anew()
                old = self.work / "alt.mdb"
                old.write_bytes(bytes_of(name))
                old.chmod(0o444)
                done = self.mrd("import", old, self.file)
                self.assertEqual((done.returncode, done.out, done.err), (0, "", ""))
                self.assert_sound()
                self.assert_holds(name)
                self.assertEqual(set(self.files()), {"alt.mdb", "haus.mdb"})
                self.assertEqual(old.read_bytes(), bytes_of(name))

    def test_text_that_is_empty_is_not_null_and_long_memos_are_whole(self):
        self.put(PRESENT)
        self.assert_done("import", self.file)
        self.assertEqual(self.rows("SELECT html IS NULL, html = '' FROM Seite WHERE id IN ('05', '0505') ORDER BY id"), [(1, None), (0, 1)])
        ((length, size),) = self.rows("SELECT length(html), length(CAST(html AS BLOB)) FROM Seite WHERE id = '0403'")
        self.assertEqual((length, size), (72_500, 85_049))
        self.assertEqual(self.rows("SELECT Wert FROM Einstellungen WHERE Einstellung = 'Titel' ORDER BY rowid"),
                         [("Ferienhaus Möwe",), ("Ferienhaus Möwe (zweite Zeile)",)])
        self.assertEqual(self.assert_done("settings", self.file, "Titel"), "Ferienhaus Möwe\n")
        self.assertEqual(self.rows("SELECT Preis_Dollar FROM Artikel WHERE Artikelnummer = 6"), [(0.30000000000000004,)])

    def test_a_deleted_row_is_none_wherever_it_claims_to_lie(self):
        data, last_row = bytearray(bytes_of(GROWN)), 41 * PAGE + 14 + 2 * 4
        self.assertTrue(data[last_row + 1] & DELETED)
        data[last_row:last_row + 2] = b"\xff\x9f"
        self.put(bytes(data))
        done = self.mrd("import", self.file)
        self.assertEqual(done.returncode, 0, done.err)
        self.assertNotIn("message 112", done.err)
        self.assert_holds(GROWN)

    def test_opening_replaces_the_file_and_keeps_the_old_one(self):
        for name in NAMES:
            with self.subTest(name):
                self.start_anew()
                self.put(name)
                self.file.chmod(0o640)
                done = self.mrd("pages", self.file)
                self.assertEqual(done.returncode, 0)
                self.assertRegex(done.err, rf"^message 105: .*{self.kept}\n$")
                self.assertEqual(set(self.files()), {"haus.mdb", "haus.jet.mdb"})
                self.assertEqual(self.kept.read_bytes(), bytes_of(name))
                self.assertEqual(self.file.stat().st_mode & 0o777, 0o640)
                self.assert_sound()

    def test_the_second_opening_is_an_ordinary_one(self):
        self.put(PRESENT)
        first = self.assert_done("pages", self.file)
        before = self.files()
        done = self.mrd("pages", self.file)
        self.assertEqual((done.returncode, done.out, done.err), (0, first, ""))
        self.assertEqual(self.files(), before)

    def test_a_project_of_the_first_version_reaches_the_present_one_and_generates(self):
        self.put(FIRST)
        self.assert_done(*self.generate())
        self.assertEqual(self.rows("SELECT Wert FROM Einstellungen WHERE Einstellung = 'dbVersion'"), [("5",)])
        pages = tables_of(FIRST)["Seite"]
        expected = sorted(("00",) + row[1:] if row[0] == "index" else row for row in expected_rows(pages))
        self.assertEqual(sorted(self.rows_of("Seite", pages["columns"])), expected)
        self.assertEqual(self.rows("SELECT count(*) FROM Artikel"), [(0,)])
        self.assertEqual(self.rows("SELECT DISTINCT expanded, script, changingdate FROM Seite"), [(0, None, None)])
        self.assertGreaterEqual(len([name for name in snapshot(self.site) if name.endswith(".htm")]), 6)
        self.assertIn("Kegelclub", (self.site / "index.htm").read_text(encoding="cp1252"))

    def test_the_others_generate_too(self):
        for name in (PRESENT, GROWN):
            with self.subTest(name):
                self.start_anew()
                self.put(name)
                self.assert_done(*self.generate())
                self.assertTrue((self.site / "index.htm").is_file())

    def test_a_file_of_the_kept_name_stays_what_it_is(self):
        self.put(GROWN)
        self.kept.write_text("Notizen")
        self.assert_done("pages", self.file)
        self.assertEqual(self.kept.read_text(), "Notizen")
        self.assertEqual((self.work / "haus.jet2.mdb").read_bytes(), bytes_of(GROWN))

    def test_what_an_interrupted_conversion_left_is_taken_up(self):
        self.put(PRESENT)
        os.link(self.file, self.kept)
        for name in ("haus.mdb.neu.tmp", "haus.mdb.neu.tmp-journal"):
            (self.work / name).write_bytes(b"halb fertig")
        self.assert_done("pages", self.file)
        self.assertEqual(set(self.files()), {"haus.mdb", "haus.jet.mdb"})
        self.assertEqual(self.kept.read_bytes(), bytes_of(PRESENT))

    def test_a_journal_of_another_file_is_not_played_into_the_new_project(self):
        self.make_project([(f"{n:02}", "Alt", "x" * 3000) for n in range(1, 60)])
        before = self.file.read_bytes()
        with self.database() as db:
            db.execute("PRAGMA cache_size = 1")
            db.execute("UPDATE Seite SET html = html || 'y'")
            journal = (self.work / "haus.mdb-journal").read_bytes()
            db.rollback()
        self.assertGreater(len(journal), 512)
        self.assertNotEqual(before[:4], b"\0\1\0\0")
        self.put(PRESENT)
        (self.work / "haus.mdb-journal").write_bytes(journal)
        self.assert_done("pages", self.file)
        self.assert_sound()
        self.assertEqual(self.rows("SELECT count(*) FROM Seite"), [(41,)])

    def test_a_link_leads_to_the_file_that_is_converted(self):
        elsewhere = self.top / "anderswo"
        elsewhere.mkdir()
        (elsewhere / "haus.mdb").write_bytes(bytes_of(FIRST))
        self.file.symlink_to(elsewhere / "haus.mdb")
        self.assert_done("pages", self.file)
        self.assertTrue(self.file.is_symlink())
        self.assertEqual((elsewhere / "haus.jet.mdb").read_bytes(), bytes_of(FIRST))
        self.assert_sound()

    def test_another_name_of_the_old_file_keeps_the_old_content(self):
        self.put(FIRST)
        other = self.work / "sicherung.mdb"
        os.link(self.file, other)
        self.assert_done("pages", self.file)
        self.assertEqual(other.read_bytes(), bytes_of(FIRST))

    def test_a_copy_is_kept_where_a_file_has_one_name_only(self):
        self.put(GROWN)
        library = self.library("""
            #include <errno.h>
            int link(const char* from, const char* to) { errno = EPERM; return -1; }
        """)
        self.assert_done("pages", self.file, env=self.loading(library))
        self.assertEqual(self.kept.read_bytes(), bytes_of(GROWN))
        self.assert_sound()
        self.assert_done("import", self.kept, self.work / "zweites.mdb", env=self.loading(library))
        self.assertEqual(set(self.files()), {"haus.mdb", "haus.jet.mdb", "zweites.mdb"})


class Version3(OldFiles):
    """The format before: other pages, one byte a character, other rows. No program writes such files any more; the tests do."""

    PAGES = (("id", TEXT), ("Überschrift", TEXT), ("html", MEMO), ("dateiname", TEXT), ("seitentyp-id", LONG), ("changingdate", DATE),
             ("expanded", BIT))
    ROWS = (("00", "Größe – 5 €", "<p>" + "ä" * 40_000, "*.htm", 1, datetime.datetime(2003, 10, 26, 2, 30, 5), True),
            ("01", "x" * 255, "<p>" + "é" * 900, None, None, None, False),
            ("02", "", "", "", 2, datetime.datetime(1899, 12, 30), True),
            ("03", None, None, "größe.htm", 3, None, False),
            *((f"04{number:02}", f"Seite {number}", "kurz", "*.htm", 1, None, False) for number in range(1, 60)),
            ("04", "Vier", "x" * 1499, "*.htm", 1, None, False))

    def old(self, password=""):
        file = Jet3File(password)
        file.table("Seite", self.PAGES, self.ROWS)
        file.table("Einstellungen", [("Einstellung", TEXT), ("Wert", MEMO)], [("Titel", "kurz „Text“"), ("Titel", "zwei"), ("leer", None)])
        file.table("Dateien", [(name, TEXT) for name in ("pfad", "dateiname", "erweiterung", "pfadLokal")]
                   + [("dateityp-id", LONG), ("übertragen", BIT), ("dateidatum", DATE)], [])
        file.table("Artikel", [("Artikel_deutsch", TEXT), ("Preis_Euro", DOUBLE), ("Artikelnummer", LONG, COUNTER)],
                   [("a", 0.1, 1), (None, 0.30000000000000004, 7)])
        return file.bytes()

    def test_arrives_to_the_last_bit(self):
        self.put(self.old())
        done = self.mrd("import", self.file)
        self.assertEqual(done.returncode, 0)
        self.assertNotIn("message 112", done.err)
        expected = [(*row[:5], str(row[5]) if row[5] else None, int(row[6])) for row in self.ROWS]
        self.assertEqual(self.rows("SELECT * FROM Seite ORDER BY rowid"), expected)
        self.assertEqual(self.rows("SELECT * FROM Einstellungen ORDER BY rowid"),
                         [("Titel", "kurz „Text“"), ("Titel", "zwei"), ("leer", None)])
        self.assertEqual(self.rows("SELECT * FROM Artikel"), [("a", 0.1, 1), (None, 0.30000000000000004, 7)])
        self.assertIn("AUTOINCREMENT", self.rows("SELECT sql FROM sqlite_master WHERE name = 'Artikel'")[0][0])

    def test_reaches_the_present_version_and_generates(self):
        self.put(self.old())
        self.assert_done(*self.generate())
        self.assertTrue((self.site / "index.htm").is_file())

    def test_with_a_password_is_refused(self):
        self.put(self.old("geheim"))
        self.assertIn("mit einem Kennwort geschützt", self.assert_refused("pages", self.file))

    def test_cut_off_or_full_of_random_bytes_is_refused_or_taken_over_in_part(self):
        dice = random.Random(3)
        whole = self.old()
        for number in range(60):
            data = bytearray(whole)
            if number % 2:
                del data[dice.randrange(len(data)):]
            else:
                for _ in range(dice.choice((1, 4, 64))):
                    data[dice.randrange(20, len(data))] = dice.randrange(256)
            self.start_anew()
            self.put(bytes(data))
            done = self.mrd("import", self.file)
            if done.returncode == 0:
                self.assert_sound()
            else:
                self.assertEqual(self.files(), {"haus.mdb": bytes(data)})


class Refusals(OldFiles):
    """What is no project, or cannot be had, stays as it was."""

    def assert_untouched(self, number, content, words, *arguments, **options):
        self.put(content)
        before = self.files()
        said = self.assert_refused(*(arguments or ("pages", self.file)), **options)
        self.assertRegex(said, rf"^message {number}: ", content if isinstance(content, str) else "")
        self.assertIn(words, said)
        self.assertEqual(self.files(), before)

    def test_a_password_is_named_as_the_reason(self):
        data = bytearray(bytes_of(PRESENT))
        # The header is veiled by exclusive or: what is added so to no password is a password.
        for place, byte in enumerate("geheim".encode("utf-16-le")):
            data[0x42 + place] ^= byte
        self.assert_untouched(106, bytes(data), "mit einem Kennwort geschützt")

    def test_a_foreign_database_lacks_the_table_of_pages(self):
        foreign = bytes_of(PRESENT).replace("Seite".encode("utf-16-le"), "Kunde".encode("utf-16-le"))
        self.assert_untouched(106, foreign, 'Die Tabelle "Seite" fehlt.')

    def test_a_foreign_database_with_a_table_of_that_name_lacks_its_columns(self):
        foreign = bytes_of(PRESENT).replace("dateiname".encode("utf-16-le"), "dateigabe".encode("utf-16-le"))
        self.assert_untouched(106, foreign, 'In der Tabelle "Seite" fehlt die Spalte "dateiname".')

    def test_a_project_without_a_page_is_refused(self):
        import struct
        data = bytearray(bytes_of(FIRST))
        for page in range(0, len(data), PAGE):
            owner = int.from_bytes(data[page + 4:page + 8], "little")
            if data[page] == DATA_PAGE and owner * PAGE < len(data) and data[owner * PAGE] == TABLE_PAGE and owner > 16:
                for row in range(int.from_bytes(data[page + 12:page + 14], "little")):
                    data[page + 15 + 2 * row] |= DELETED
        self.assert_untouched(106, bytes(data), "keine einzige Seite")

    def test_a_file_that_another_program_converts_is_left_to_it(self):
        self.put(PRESENT)
        with open(self.file, "rb") as taken:
            fcntl.flock(taken, fcntl.LOCK_EX)
            self.assert_untouched(107, PRESENT, "arbeitet gerade")

    def test_a_target_that_exists_is_not_replaced(self):
        target = self.work / "da.mdb"
        target.write_text("etwas anderes")
        self.assert_untouched(5, PRESENT, "", "import", self.file, target)

    def test_a_file_that_is_missing_or_no_old_database_is_named(self):
        self.assert_untouched(109, PRESENT, "fehlt.mdb", "import", self.work / "fehlt.mdb", self.work / "neu.mdb")
        self.assert_untouched(106, b"Liebe Oma", "", "import", self.file, self.work / "neu.mdb")

    def test_directories_that_are_missing_are_told_before_anything_is_done(self):
        self.assert_untouched(37, PRESENT, "", "import", self.file, "--export", self.work / "nirgends")
        self.assert_untouched(113, PRESENT, "nirgends", "import", self.file, "--pictures", self.work / "nirgends")

    def test_a_full_disk_leaves_everything_as_it_was(self):
        for size in (0, 4096, 20_000, 60_000, 150_000):
            with self.subTest(size=size):
                self.assert_untouched(106, PRESENT, "", **with_file_limit(size))

    def test_a_file_or_directory_that_cannot_be_written_stays(self):
        self.put(PRESENT)
        options = self.as_ordinary_user()
        self.file.chmod(0o444)
        self.assertRegex(self.assert_refused("pages", self.file, **options), "schreibgeschützt")
        self.file.chmod(0o644)
        self.work.chmod(0o555)
        self.addCleanup(self.work.chmod, 0o755)
        self.assertRegex(self.assert_refused("pages", self.file, **options), "^message 106: ")
        self.assertEqual(self.files(), {"haus.mdb": bytes_of(PRESENT)})

    def as_ordinary_user(self):
        """Options for a run that is not root's, who may write everywhere."""
        if os.geteuid() != 0:
            return {}
        nobody = 65534
        for path in [self.top, *self.top.rglob("*")]:
            os.chown(path, nobody, nobody)
        return {"user": nobody, "group": nobody}

    def test_a_reader_that_is_missing_is_named(self):
        alone = self.top / "allein"
        alone.mkdir()
        shutil.copy(self.command()[0], alone / "mrd")
        self.put(PRESENT)
        done = subprocess.run([alone / "mrd", "pages", self.file], env=self.environment(), capture_output=True, timeout=60)
        self.assertEqual(done.returncode, 1)
        self.assertIn("mrd-jet-reader", done.stderr.decode())
        self.assertEqual(self.file.read_bytes(), bytes_of(PRESENT))

    def test_the_environment_cannot_change_how_a_file_is_read(self):
        self.put(PRESENT)
        strange = {"MDBICONV": "ASCII", "MDBOPTS": "debug_all", "MDB_JET3_CHARSET": "CP437", "MDBPATH": "/", "LC_ALL": "C"}
        self.assert_done("import", self.file, env=strange)
        self.assert_holds(PRESENT)


class Gone(OldFiles):
    """What the library reads without a complaint and what cannot be."""

    def left_out(self, data):
        self.put(bytes(data))
        done = self.mrd("import", self.file)
        self.assertEqual(done.returncode, 0, done.err)
        self.assertIn("message 112: ", done.err)
        self.assert_sound()
        return done.err

    def test_a_page_of_an_impossible_number_is_left_out_and_said(self):
        data = self.renumbered("0301", "03x1")
        said = self.left_out(data)
        self.assertIn('unmöglichen Nummer "03x1" und der Überschrift "Größere Ausflüge" fehlt', said)
        self.assertEqual(self.rows("SELECT count(*) FROM Seite"), [(7,)])

    def test_of_two_pages_with_one_number_the_second_is_left_out_and_said(self):
        data = self.renumbered("0301", "0102")
        self.assertIn('Eine zweite Seite mit der Nummer "0102"', self.left_out(data))

    def test_a_homepage_that_is_missing_is_replaced_and_said(self):
        data = self.renumbered("index", "inde ")
        self.assertIn("Die Homepage fehlt.", self.left_out(data))
        self.assertIn("00\t1\tHomepage\n", self.assert_done("pages", self.file))

    def test_a_page_that_is_missing_above_others_is_said(self):
        data = self.renumbered("03", "07")
        self.assertIn("Die Seite 03 fehlt.", self.left_out(data))

    def place_of_page(self, page_id):
        """Where the number of a page stands in the file, in two bytes a character: its heading follows it."""
        heading = next(row["Überschrift"] for row in tables_of(FIRST)["Seite"]["rows"] if row["id"] == page_id)
        start = (page_id + heading).encode("utf-16-le")
        self.assertEqual(bytes_of(FIRST).count(start), 1, page_id)
        return bytes_of(FIRST).index(start)

    def renumbered(self, page_id, new):
        data = bytearray(bytes_of(FIRST))
        place = self.place_of_page(page_id)
        data[place:place + 2 * len(new)] = new.encode("utf-16-le")
        return data


if __name__ == "__main__":
    unittest.main()
