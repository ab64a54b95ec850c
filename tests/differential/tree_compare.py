#!/usr/bin/env python3
"""Adds, deletes and moves pages of random trees, by the program and by the reference, and compares all rows after each operation.

  tree_compare.py --driver PROGRAM [--seeds N] [--first SEED] [--operations N] [--seconds N]
  tree_compare.py --mrd PROGRAM --program-dir DIR [--seeds N] ...

The driver takes operations on its standard input; `mrd` is called once for each. Exit status 1 on any difference.
"""
import argparse
import collections
import os
import random
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from tree_random import WORDS, Tree, operation
from tree_reference import ROOT, Table

NULL = "\\N"
COLUMNS = ("id", "Überschrift", "html", "dateiname", "seitentyp-id", "script", "changingdate", "expanded")
SHOWN = 5
# Share of operations on pages that are not there; the command line knows them before it asks.
GHOSTS = 0.03


class Driver:
    """The program's own classes behind a pipe."""

    def __init__(self, program):
        # The projects are gone with the run: they need no disk.
        fast = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        self.folder = tempfile.mkdtemp(prefix="mirandel-tree-", dir=fast)
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8",
                                        env={**os.environ, "TMPDIR": self.folder})

    def close(self):
        self.process.stdin.close()
        status = self.process.wait()
        shutil.rmtree(self.folder)
        return status

    def load(self, rows, unique):
        self.say("unique" if unique else "twins", f"table {len(rows)}", *(f"{page_id}\t{content}" for page_id, content in rows))

    def perform(self, step):
        verb, page, *rest = step
        if verb == "delete":
            self.say(f"delete {page} {'yes' if rest[0] else 'no'}")
        elif verb == "move":
            self.say(f"move {page} {WORDS[rest[1]]} {rest[0]}")
        else:
            self.say(f"add {page}")
        verdict, *numbers = self.line().split()
        rows = [tuple(self.line().split("\t", 1)) for _ in range(int(self.line()))]
        return [int(number) for number in numbers], verdict == "OK", rows

    def open_page(self):
        """The driver has no window that remembers one."""
        return None

    def say(self, *lines):
        self.process.stdin.write("\n".join(lines) + "\n")
        self.process.stdin.flush()

    def line(self):
        text = self.process.stdout.readline()
        if not text:
            raise SystemExit("the driver has ended")
        return text.rstrip("\n")


class CommandLine:
    """`mrd` on a project file."""

    def __init__(self, mrd, program_dir):
        self.mrd, self.program_dir = mrd, program_dir
        self.folder = Path(tempfile.mkdtemp(prefix="mirandel-tree-"))
        self.project = self.folder / "projekt.mdb"

    def close(self):
        shutil.rmtree(self.folder)
        return 0

    def load(self, rows, unique):
        shutil.copy(Path(self.program_dir) / "mrdleer.mdb", self.project)
        self.project.chmod(0o644)
        with sqlite3.connect(self.project) as db:
            if unique:
                db.execute("CREATE UNIQUE INDEX EineSeite ON Seite (id)")
            db.execute("DELETE FROM Seite")
            marks = ", ".join("?" * len(COLUMNS))
            for page_id, content in rows:
                fields = [None if field == NULL else field for field in (page_id, *content.split("\t"))]
                db.execute("INSERT INTO Seite (%s) VALUES (%s)" % (", ".join(f'"{c}"' for c in COLUMNS), marks), fields)
        db.close()

    def perform(self, step):
        verb, page, *rest = step
        options = {"add": lambda: ["--under", page],
                   "delete": lambda: [page] + (["--yes"] if rest[0] else []),
                   "move": lambda: [page, {"behind": "--after"}.get(WORDS[rest[1]], "--" + WORDS[rest[1]]), rest[0]]}[verb]()
        done = subprocess.run([self.mrd, "page", verb, str(self.project), *options, "--program-dir", str(self.program_dir)],
                              capture_output=True, timeout=60, stdin=subprocess.DEVNULL)
        numbers = [int(number) for number in re.findall(r"^message (\d+):", done.stderr.decode(), re.MULTILINE)]
        return numbers, done.returncode == 0, self.rows()

    def open_page(self):
        db = sqlite3.connect(self.project)
        (page_id,), = db.execute("SELECT Wert FROM Einstellungen WHERE Einstellung = 'LastActivePage'")
        db.close()
        return page_id

    def rows(self):
        db = sqlite3.connect(self.project)
        found = db.execute("SELECT %s FROM Seite" % ", ".join(f'"{c}"' for c in COLUMNS)).fetchall()
        db.close()
        texts = [[NULL if field is None else re.sub(r"[\r\n\t]", " ", str(field)) for field in row] for row in found]
        return [(page_id, "\t".join(content)) for page_id, *content in texts]


def expected_outcome(table, step):
    verb, page, *rest = step
    if verb == "add":
        return table.add(page, "new")
    return table.delete(page, *rest) if verb == "delete" else table.drag(page, *rest)


def table_of(rows):
    return Table((None if page_id == NULL else page_id, content) for page_id, content in rows)


def page_to_open(step, ran, rows, after):
    """The page that is open after a deletion or a move: the homepage, or the moved page, which is found by its heading. None where
    this says nothing: a heading may be taken for a pattern."""
    verb, page, *rest = step
    if not ran or verb == "add":
        return None
    if verb == "delete":
        return ROOT
    heading = next(content for page_id, content in rows if page_id == page).split("\t")[0]
    if rest[0] == page or set("*?#[") & set(heading) or heading != heading.strip():
        return None
    return next(page_id for page_id, content in after if content.startswith(heading + "\t"))


class Comparison:
    def __init__(self, program, from_command_line):
        self.program, self.from_command_line = program, from_command_line
        self.counts = collections.Counter()
        self.differences = 0

    def run(self, seed, operations):
        dice = random.Random(seed)
        tree = Tree(dice)
        rows = tree.rows()
        self.program.load(rows, tree.has_unique_ids and dice.random() < 0.5)
        for number in range(operations):
            step = operation(dice, [page_id for page_id, _ in rows], 0 if self.from_command_line else GHOSTS)
            if step is None:
                break
            after = self.compare(f"seed {seed} ({tree.kind}), operation {number}", rows, step)
            if after is None:
                return
            rows = after

    def compare(self, where, rows, step):
        """The rows after the step; None where they are not as expected."""
        table, before = table_of(rows), table_of(rows)
        was_dense = table.is_dense()
        outcome = expected_outcome(table, step)
        messages, ran, after = self.program.perform(step)
        self.counts[step[0]] += 1
        found = with_known_content(step, rows, after)
        problem = self.problem(outcome, table, before, messages, ran, found)
        if not problem and was_dense and not table_of(found).is_dense():
            problem = "a dense tree has lost its density"
        opened = page_to_open(step, ran, rows, after) if self.from_command_line and not problem else None
        if opened and opened != self.program.open_page():
            problem = f"{self.program.open_page()} is open and not {opened}"
        if problem:
            self.show(where, rows, step, problem, outcome, table, messages, found)
            return None
        for message in outcome.messages:
            self.counts[f"message {message}"] += 1
        return after

    def problem(self, outcome, table, before, messages, ran, found):
        actual = table_of(found)
        if outcome.lenient:
            self.counts["lenient"] += 1
            if sorted(actual.listing(), key=str) == sorted(before.listing(), key=str):
                self.counts["lenient, left alone"] += 1
                return None
            return "worse than before" if actual.is_worse_than(before) else None
        if actual.listing() != table.listing():
            return "other rows"
        if messages != outcome.messages:
            return "other messages"
        # An operation on a page and itself is no failure at the command line.
        if ran != outcome.ran and not (self.from_command_line and not outcome.messages):
            return "other verdict"
        return None

    def show(self, where, rows, step, problem, outcome, table, messages, found):
        self.differences += 1
        if self.differences > SHOWN:
            return
        names = {content: page_id for page_id, content in rows}
        print(f"{where}: {problem}\n  {step}\n  messages {outcome.messages} expected, {messages} came")
        expected = {content: page_id for page_id, content in table.listing()}
        got = {content: None if page_id == NULL else page_id for page_id, content in found}
        for content in sorted(set(expected) | set(got), key=lambda text: str(names.get(text))):
            if expected.get(content) != got.get(content):
                print(f"  {names.get(content)}: {expected.get(content)} expected, {got.get(content)} came")
        print("  ids before: " + " ".join(sorted(page_id for page_id, _ in rows)))


def with_known_content(step, rows, after):
    """A page that was added has contents that the page store's tests look at: here it counts that it is there."""
    if step[0] != "add":
        return after
    fresh = collections.Counter(after) - collections.Counter(rows)
    kept = collections.Counter(after) - fresh
    return list(kept.elements()) + [(page_id, "new") for page_id, _ in fresh.elements()]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--driver", metavar="PROGRAM")
    parser.add_argument("--mrd", metavar="PROGRAM")
    parser.add_argument("--program-dir", metavar="DIR")
    parser.add_argument("--seeds", type=int, default=3000, metavar="N")
    parser.add_argument("--first", type=int, default=1, metavar="SEED")
    parser.add_argument("--operations", type=int, default=8, metavar="N", help="in a sequence")
    options = parser.parse_args()
    if not options.driver and not (options.mrd and options.program_dir):
        parser.error("--driver, or --mrd with --program-dir")

    start = time.monotonic()
    program = Driver(options.driver) if options.driver else CommandLine(options.mrd, options.program_dir)
    comparison = Comparison(program, from_command_line=not options.driver)
    for seed in range(options.first, options.first + options.seeds):
        comparison.run(seed, options.operations)
    status = program.close()
    counts = ", ".join(f"{name} {count}" for name, count in sorted(comparison.counts.items()))
    print(f"{options.seeds} sequences in {time.monotonic() - start:.1f} s: {counts}; {comparison.differences} differences")
    return 1 if comparison.differences or status else 0


if __name__ == "__main__":
    sys.exit(main())
