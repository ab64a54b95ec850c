"""Deletions and moves that are killed at any moment: the table is as before or as after, and nothing between."""

import random
import shutil
import subprocess
import time
import unittest

from house import House, heading

ROUNDS = 40
TOPS = 33
CHILDREN = 90
# All of them renumber many pages; page 34 has none below it, so that it may go anywhere.
OPERATIONS = (("move", "34", "--before", "01"), ("delete", "01", "--yes"), ("move", "0190", "--after", "34"),
              ("move", "34", "--after", "0145"), ("delete", "0101", "--yes"))


class KilledTrees(House):
    def setUp(self):
        super().setUp()
        tops = [f"{number:02}" for number in range(1, TOPS + 2)]
        below = [f"{top}{number:02}" for top in tops[:TOPS] for number in range(1, CHILDREN + 1)]
        text = "<p>" + "Text " * 200 + "</p>"
        self.make_project((page_id, f"Seite {page_id}", heading(page_id) + text) for page_id in tops + below)
        self.untouched = self.work / "vorher.mdb"
        shutil.copy(self.file, self.untouched)

    def table(self):
        return self.rows("SELECT * FROM Seite ORDER BY id")

    def restore(self):
        self.file.unlink()
        shutil.copy(self.untouched, self.file)

    def undisturbed(self, operation):
        """The table after the operation, and how long it takes."""
        self.restore()
        start = time.monotonic()
        self.assert_done(*self.words(operation))
        return self.table(), time.monotonic() - start

    def words(self, operation):
        verb, *rest = operation
        return "page", verb, self.file, *rest

    def start(self, operation):
        return subprocess.Popen(self.command(*self.words(operation)), cwd=self.work, env=self.environment(),
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    @staticmethod
    def kill_after(process, seconds):
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            return process.wait()

    def wait_for_the_transaction(self, process):
        """Returns while the operation is writing: it has a journal then."""
        journal = self.file.with_name(self.file.name + "-journal")
        while process.poll() is None and not journal.exists():
            time.sleep(0.0005)

    def test_a_killed_deletion_or_move_is_done_or_not_begun(self):
        before = self.table()
        self.assertGreater(len(before), 3000)
        after = {operation: self.undisturbed(operation) for operation in OPERATIONS}
        dice = random.Random(17)
        killed = undone = 0
        for number in range(ROUNDS):
            operation = OPERATIONS[number % len(OPERATIONS)]
            expected, duration = after[operation]
            self.restore()
            with self.start(operation) as process:
                if number % 4:
                    self.wait_for_the_transaction(process)
                    status = self.kill_after(process, dice.uniform(0, duration / 2))
                else:
                    status = self.kill_after(process, dice.uniform(0, duration))
            killed += status < 0
            if dice.random() < 0.5:
                # The next run is the one to tidy up, as any other program.
                self.assert_done("page", "show", self.file, "00")
            self.assert_sound()
            table = self.table()
            self.assertIn(table, (before, expected) if status else (expected,), f"{operation}, status {status}")
            undone += status < 0 and table == before
        self.assertGreater(killed, ROUNDS // 4, "most runs were over before they were killed")
        self.assertGreater(undone, 0, "no run was killed at work")


if __name__ == "__main__":
    unittest.main()
