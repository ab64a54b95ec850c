"""Runs that are killed at any moment: what was committed is there, and the next run knows nothing of it."""

import random
import shutil
import subprocess
import time
import unittest

from house import House, children, heading, snapshot

ROUNDS = 50


class KilledRuns(House):
    PAGES = 60

    def setUp(self):
        super().setUp()
        self.make_project([page for page in children(self.PAGES, "<p>" + "Text " * 400 + "</p>")], [("rundeEcke", "True")])

    def duration_of(self, *arguments):
        start = time.monotonic()
        self.assert_done(*arguments)
        return time.monotonic() - start

    def run_and_kill(self, delay, *arguments):
        """Exit status, negative where the run was still at work when it was killed."""
        with subprocess.Popen(self.command(*arguments), cwd=self.work, env=self.environment(), stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
            try:
                return process.wait(delay)
            except subprocess.TimeoutExpired:
                process.kill()
                return process.wait()

    def test_a_killed_generation_leaves_a_whole_project_and_the_next_run_makes_the_same_site(self):
        self.assert_done(*self.generate())
        undisturbed = snapshot(self.site)
        register = self.register()
        pages = self.rows("SELECT * FROM Seite ORDER BY id")
        duration = self.duration_of(*self.generate())
        dice = random.Random(11)
        killed = 0
        for number in range(ROUNDS):
            shutil.rmtree(self.site)
            self.site.mkdir()
            killed += self.run_and_kill(dice.uniform(0, duration), *self.generate()) < 0
            self.assert_sound()
            self.assertEqual(self.rows("SELECT * FROM Seite ORDER BY id"), pages)
            if number % 5 == 4:
                self.assert_done(*self.generate())
                self.assertEqual(snapshot(self.site), undisturbed)
                self.assertEqual(self.register(), register)
        self.assertGreater(killed, ROUNDS // 4, "most runs were over before they were killed")

    def register(self):
        return self.rows('SELECT pfad, dateiname, erweiterung, "dateityp-id", "übertragen" FROM Dateien ORDER BY 1, 2, 3')

    def test_a_killed_save_leaves_the_old_page_or_the_new_one(self):
        body = self.top / "neu.html"
        others = self.rows("SELECT * FROM Seite WHERE id <> '07' ORDER BY id")
        body.write_text(heading("Anfang"), encoding="utf-8")
        duration = self.duration_of("page", "set", self.file, "07", "--html", body)
        current = self.page()
        dice = random.Random(12)
        killed = 0
        for number in range(ROUNDS):
            text = heading(f"Fassung {number}") + f"<p>{'neu ' * dice.randrange(1, 20_000)}</p>"
            body.write_text(text, encoding="utf-8")
            status = self.run_and_kill(dice.uniform(0, 1.2 * duration), "page", "set", self.file, "07", "--html", body)
            killed += status < 0
            self.assert_sound()
            stored = self.page()
            new = (f"Fassung {number}", text)
            self.assertIn(stored, (new,) if status == 0 else (new, current), f"round {number}, status {status}")
            self.assertEqual(self.rows("SELECT * FROM Seite WHERE id <> '07' ORDER BY id"), others)
            current = stored
        self.assertGreater(killed, ROUNDS // 4, "most runs were over before they were killed")
        self.assertIn("\n07\t1\t", self.assert_done("pages", self.file))
        self.assert_done("page", "set", self.file, "07", "--html", body)

    def page(self):
        (stored,) = self.rows("SELECT Überschrift, html FROM Seite WHERE id = '07'")
        return stored

    def test_pages_added_one_after_the_other_are_all_there_that_were_told_of(self):
        told = 0
        dice = random.Random(13)
        duration = self.duration_of("page", "add", self.file, "--under", "01", "--heading", "erste")
        for _ in range(ROUNDS // 2):
            told += self.run_and_kill(dice.uniform(0, 1.5 * duration), "page", "add", self.file, "--under", "02") == 0
        self.assert_sound()
        ids = [page_id for page_id, in self.rows("SELECT id FROM Seite WHERE id LIKE '02__' ORDER BY id")]
        self.assertGreaterEqual(len(ids), told)
        self.assertEqual(ids, [f"02{number:02}" for number in range(1, len(ids) + 1)])

    def test_a_new_project_is_there_whole_or_not_at_all(self):
        target = self.work / "neu.mdb"
        duration = self.duration_of("new", self.work / "erstes.mdb")
        dice = random.Random(14)
        for _ in range(ROUNDS // 2):
            target.unlink(missing_ok=True)
            self.run_and_kill(dice.uniform(0, 1.2 * duration), "new", target)
            if target.exists():
                self.assertEqual(self.assert_done("pages", target), "00\t1\tHomepage\n")


if __name__ == "__main__":
    unittest.main()
