"""Conversions that are killed at any moment: there is the old file as it was, or the finished project and the old file beside it."""

import pathlib
import random
import subprocess
import time
import unittest

from old_files import GROWN, PRESENT, OldFiles, bytes_of

HERE = pathlib.Path(__file__).resolve().parent
ROUNDS = 30


class KilledConversions(OldFiles):
    def run_once(self, library, number, *arguments):
        """Exit status, negative when it was killed; 0 as the number kills nothing."""
        self.counts = self.top / "counts"
        self.counts.unlink(missing_ok=True)
        variables = self.loading(library, MRD_KILL_AT=number, MRD_CALL_COUNT=self.counts)
        return subprocess.run(self.command(*arguments), cwd=self.work, env={**self.environment(), **variables},
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=60).returncode

    def number_of_calls(self, library, *arguments):
        self.assertEqual(self.run_once(library, 0, *arguments), 0)
        # The reader is another program, which counts by itself.
        total = max(map(int, self.counts.read_text().split()))
        self.assertGreater(total, 20)
        return total

    def assert_old_or_new(self, name, where):
        """And what the next opening makes of it."""
        old = bytes_of(name)
        content = self.file.read_bytes()
        if content != old:
            self.assert_sound()
            self.assertEqual(self.kept.read_bytes(), old, where)
        self.assert_done("pages", self.file)
        self.assert_sound()
        self.assert_holds_but_migrated(name)
        self.assertEqual(set(self.files()), {"haus.mdb", "haus.jet.mdb"}, where)
        self.assertEqual(self.kept.read_bytes(), old, where)

    def assert_holds_but_migrated(self, name):
        pages = {PRESENT: 41, GROWN: 38}[name]
        self.assertEqual(self.rows("SELECT count(*), count(DISTINCT id) FROM Seite"), [(pages, pages)])

    def test_at_every_call_that_changes_a_file(self):
        library = self.library(HERE / "kill_at_call.c")
        # The first run also writes what the program remembers.
        self.put(PRESENT)
        self.assert_done("import", self.file)
        self.start_anew()
        self.put(PRESENT)
        total = self.number_of_calls(library, "import", self.file)
        old_left = new_there = 0
        for number in range(1, total + 1):
            self.start_anew()
            self.put(PRESENT)
            self.assertEqual(self.run_once(library, number, "import", self.file), -9, f"call {number} of {total}")
            old_left += self.file.read_bytes() == bytes_of(PRESENT)
            new_there += self.file.read_bytes() != bytes_of(PRESENT)
            self.assert_old_or_new(PRESENT, f"call {number} of {total}")
        self.assertGreater(old_left, 0)
        self.assertGreater(new_there, 0, "no kill came behind the last rename")

    def test_a_new_file_is_there_whole_or_not_at_all(self):
        library = self.library(HERE / "kill_at_call.c")
        old, target = self.work / "alt.mdb", self.file
        old.write_bytes(bytes_of(GROWN))
        for number in range(1, self.number_of_calls(library, "import", old, target) + 1):
            target.unlink(missing_ok=True)
            self.run_once(library, number, "import", old, target)
            if not target.exists():
                self.assert_done("import", old, target)
            self.assert_sound()
            self.assert_holds(GROWN)
            self.assertEqual(old.read_bytes(), bytes_of(GROWN))

    def test_at_any_time(self):
        self.put(GROWN)
        start = time.monotonic()
        self.assert_done("pages", self.file)
        duration = time.monotonic() - start
        dice = random.Random(21)
        killed = 0
        for number in range(ROUNDS):
            self.start_anew()
            self.put(GROWN)
            with subprocess.Popen(self.command("pages", self.file), cwd=self.work, env=self.environment(),
                                  stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
                time.sleep(dice.uniform(0, duration))
                process.kill()
                killed += process.wait() < 0
            self.assert_old_or_new(GROWN, f"round {number}")
        self.assertGreater(killed, ROUNDS // 4, "most runs were over before they were killed")


if __name__ == "__main__":
    unittest.main()
