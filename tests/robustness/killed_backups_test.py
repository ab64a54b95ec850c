"""Backups and restorations that are killed at any call: the project is one of the two, and every backup is whole."""

import pathlib
import sqlite3
import subprocess
import unittest

from house import heading
from old_files import OldFiles

HERE = pathlib.Path(__file__).resolve().parent
DAY, LATER = "haus-2003-04-16.mdb", "haus-2003-04-17-090506.mdb"


class KilledBackups(OldFiles):
    def setUp(self):
        super().setUp()
        self.kept = self.work / "haus.mdb.sicherung"
        self.killer = self.library(HERE / "kill_at_call.c")
        self.counts = self.top / "counts"

    def project(self, pages):
        self.start_anew()
        self.make_project((f"{page:02}", f"Seite {page}", heading(f"Seite {page}") + "<p>" + "Text " * 3000) for page in range(1, pages + 1))

    def start_anew(self):
        for path in [*self.work.glob("haus*"), *self.kept.glob("*")]:
            if path.is_file():
                path.unlink()

    def killed(self, number, *arguments):
        self.counts.unlink(missing_ok=True)
        variables = self.loading(self.killer, MRD_KILL_AT=number, MRD_CALL_COUNT=self.counts)
        return subprocess.run(self.command(*arguments), cwd=self.work, env={**self.environment(), **variables},
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=60).returncode

    def number_of_calls(self, prepare, *arguments):
        # The first run also writes what the program remembers.
        for _ in range(2):
            prepare()
            self.assertEqual(self.killed(0, *arguments), 0)
        return max(map(int, self.counts.read_text().split()))

    def at_every_call(self, prepare, *arguments):
        """Yields after each kill."""
        total = self.number_of_calls(prepare, *arguments)
        self.assertGreater(total, 10)
        for number in range(1, total + 1):
            prepare()
            self.assertEqual(self.killed(number, *arguments), -9, f"call {number} of {total}")
            yield f"call {number} of {total}"

    def pages(self, path):
        db = sqlite3.connect(path)
        try:
            self.assertEqual(db.execute("PRAGMA integrity_check").fetchall(), [("ok",)], path)
            return db.execute("SELECT count(*) FROM Seite").fetchone()[0]
        finally:
            db.close()

    def test_a_backup_is_there_whole_or_not_at_all(self):
        def prepare():
            self.project(7)

        without = 0
        for where in self.at_every_call(prepare, "settings", self.file, "Titel=Neu"):
            made = sorted(path.name for path in self.kept.glob("*.mdb"))
            self.assertIn(made, ([], ["haus-2003-04-17.mdb"]), where)
            without += not made
            for name in made:
                self.assertEqual(self.pages(self.kept / name), 8, where)
            self.assert_sound()
            self.assert_done("settings", self.file, "Titel=Wieder")
            self.assertEqual([path.name for path in self.kept.iterdir()], ["haus-2003-04-17.mdb"], where)
        self.assertGreater(without, 0)

    def test_a_restoration_is_done_or_not_begun(self):
        def prepare():
            self.project(3)
            self.kept.mkdir(exist_ok=True)
            self.file.rename(self.kept / DAY)
            self.make_project((f"{page:02}", f"Seite {page}", heading(f"Seite {page}")) for page in range(1, 7))

        old = new = 0
        for where in self.at_every_call(prepare, "restore", self.file, "2003-04-16"):
            pages = self.pages(self.file)
            self.assertIn(pages, (4, 7), where)
            old += pages == 7
            new += pages == 4
            if pages == 4:
                self.assertEqual(self.pages(self.kept / LATER), 7, where)
            self.assertEqual(self.pages(self.kept / DAY), 4, where)
            self.assert_done("restore", self.file, "2003-04-16")
            self.assertEqual(self.pages(self.file), 4, where)
            self.assertEqual({path.name for path in self.work.glob("haus*")}, {self.file.name, self.kept.name}, where)
            self.assertEqual([path.name for path in self.kept.iterdir() if not path.name.endswith(".mdb")], [], where)
        self.assertGreater(old, 0)
        self.assertGreater(new, 0, "no kill came behind the rename")


if __name__ == "__main__":
    unittest.main()
