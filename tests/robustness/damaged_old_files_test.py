"""Damaged copies of databases of earlier versions: taken over as far as they can be read, or refused; said in either case.

MRD_LONG in the environment asks for 5,000 copies in place of 300.
"""

import concurrent.futures
import json
import os
import random
import re
import shutil
import sqlite3
import subprocess
import time
import unittest

from old_files import NAMES, PAGE, OldFiles, bytes_of, expected_rows, tables_of

COPIES = 5000 if os.environ.get("MRD_LONG") else 300
SECONDS_FOR_ONE = 60
WORKERS = 2
PAGE_ID = re.compile(r"00|((?!00)\d\d){1,4}|index")
# What the tables of an undamaged file hold.
CONTENT = {name: {table: expected_rows(content) for table, content in tables_of(name).items()} for name in NAMES}


# Ways to break a file. Each takes the bytes and the dice, and says what it did.


def cut_off(data, dice):
    length = dice.choice((dice.randrange(len(data)), dice.randrange(len(data) // PAGE) * PAGE, dice.randrange(PAGE * 4)))
    del data[length:]
    return f"cut to {length}"


def zero_block(data, dice):
    size = dice.choice((16, 512, PAGE, PAGE * 4, PAGE * 16))
    place = dice.randrange(len(data)) // min(size, PAGE) * min(size, PAGE)
    data[place:place + size] = bytes(len(data[place:place + size]))
    return f"{size} zeros at {place}"


def swap_pages(data, dice):
    a, b = (dice.randrange(len(data) // PAGE) * PAGE for _ in range(2))
    data[a:a + PAGE], data[b:b + PAGE] = data[b:b + PAGE], data[a:a + PAGE]
    return f"pages {a // PAGE} and {b // PAGE} swapped"


def flip_anywhere(data, dice):
    places = [dice.randrange(len(data)) for _ in range(dice.choice((1, 4, 64)))]
    for place in places:
        data[place] ^= 1 << dice.randrange(8)
    return f"bits at {places[:4]}"


def set_bytes(data, dice, places):
    value = dice.choice((b"\xff\xff\xff\xff", b"\0\0\0\0", dice.randbytes(1), dice.randbytes(2), dice.randbytes(4),
                         dice.randrange(len(data) // PAGE + 2).to_bytes(4, "little")))
    for place in places:
        data[place:place + len(value)] = value[:len(data) - place]
    return f"{value.hex()} at {places[:4]}"


def pages_of_kind(data, kind):
    return [page for page in range(0, len(data), PAGE) if data[page] == kind]


def hit_header(data, dice):
    return "header: " + set_bytes(data, dice, [dice.randrange(0x80)])


def hit_table_definition(data, dice):
    page = dice.choice(pages_of_kind(data, 2))
    return "definition: " + set_bytes(data, dice, [page + dice.choice((dice.randrange(64), dice.randrange(PAGE)))])


def hit_row_table(data, dice):
    page = dice.choice(pages_of_kind(data, 1))
    count = max(1, int.from_bytes(data[page + 12:page + 14], "little") % 200)
    return "row table: " + set_bytes(data, dice, [page + dice.choice((dice.randrange(14), 12, 14 + 2 * dice.randrange(count)))])


def hit_row(data, dice):
    """At the ends of a row lie its lengths, pointers and marks of Null."""
    page = dice.choice(pages_of_kind(data, 1))
    count = int.from_bytes(data[page + 12:page + 14], "little") % 200
    if count == 0:
        return flip_anywhere(data, dice)
    place = 14 + 2 * dice.randrange(count)
    start = int.from_bytes(data[page + place:page + place + 2], "little") & 0x1FFF
    return "row: " + set_bytes(data, dice, [min(page + start + dice.choice((0, 2, 6, 10, -1, -2, -4, dice.randrange(40))), len(data) - 1)])


def hit_memo_page(data, dice):
    pages = [page for page in pages_of_kind(data, 1) if data[page + 4:page + 8] == b"LVAL"]
    page = dice.choice(pages)
    return "memo: " + set_bytes(data, dice, [page + dice.choice((dice.randrange(20), dice.randrange(PAGE)))])


def hit_usage_map(data, dice):
    page = dice.choice(pages_of_kind(data, 5) + [PAGE])
    return "usage map: " + set_bytes(data, dice, [page + dice.randrange(PAGE)])


def hit_catalog(data, dice):
    """The table of all tables: its definition is page 2, its rows know it."""
    pages = [page for page in pages_of_kind(data, 1) if data[page + 4:page + 8] == b"\2\0\0\0"] + [2 * PAGE]
    return "catalog: " + set_bytes(data, dice, [dice.choice(pages) + dice.randrange(PAGE) for _ in range(dice.choice((1, 1, 8)))])


WAYS = (cut_off, zero_block, swap_pages, flip_anywhere, hit_header, hit_table_definition, hit_row_table, hit_row, hit_memo_page,
        hit_usage_map, hit_catalog)


class DamagedOldFiles(OldFiles):
    def damaged(self, number):
        dice = random.Random(number)
        name = NAMES[number % len(NAMES)]
        data = bytearray(bytes_of(name))
        way = WAYS[number // len(NAMES) % len(WAYS)]
        damage = way(data, dice)
        return name, data, damage

    def one(self, number):
        """What became of one copy: refused, whole or in part. A word on what is wrong, where something is."""
        name, data, damage = self.damaged(number)
        folder = self.top / f"copy-{number}"
        folder.mkdir()
        file = folder / "haus.mdb"
        file.write_bytes(data)
        try:
            started = time.monotonic()
            # An import changes nothing of what it read; opening also brings the schema up to date.
            opened = number % 4 == 3
            done = subprocess.run(self.command("pages" if opened else "import", file), cwd=folder, env=self.environment(), stdin=subprocess.DEVNULL,
                                  capture_output=True, timeout=SECONDS_FOR_ONE)
            took = time.monotonic() - started
            outcome, fault = self.judge(name, bytes(data), folder, done, opened)
        except subprocess.TimeoutExpired:
            return number, damage, "hung", "no end", SECONDS_FOR_ONE
        finally:
            shutil.rmtree(folder, ignore_errors=True)
        return number, damage, outcome, fault, took

    def judge(self, name, data, folder, done, opened):
        err = done.stderr.decode("utf-8", "replace")
        left = {path.name: path.read_bytes() if path.is_file() else None for path in folder.iterdir()}
        if done.returncode == 1:
            if not re.search(r"^message( \d+)?: \S", err, re.MULTILINE):
                return "refused", "no message"
            return "refused", None if left == {"haus.mdb": data} else f"left {sorted(left)}"
        if done.returncode != 0:
            return "fell", f"status {done.returncode}: {err[-2000:]}"
        # A new project that is worked with at once is backed up at once.
        left.pop("haus.mdb.sicherung", None)
        if set(left) != {"haus.mdb", "haus.jet.mdb"} or left["haus.jet.mdb"] != data:
            return "taken over", f"left {sorted(left)}"
        return self.judge_project(name, folder / "haus.mdb", err, opened)

    def judge_project(self, name, file, err, opened):
        db = sqlite3.connect(file)
        try:
            if db.execute("PRAGMA integrity_check").fetchall() != [("ok",)]:
                return "taken over", "not sound"
            ids = [page_id for page_id, in db.execute("SELECT id FROM Seite")]
            tables = {table for table, in db.execute("SELECT name FROM sqlite_master WHERE type = 'table'")}
            rows = {table: db.execute(f'SELECT * FROM "{table}"').fetchall() if table in tables else [] for table in CONTENT[name]}
        finally:
            db.close()
        faults = [page_id for page_id in ids if not isinstance(page_id, str) or not PAGE_ID.fullmatch(page_id)]
        if faults or len(set(ids)) != len(ids) or not {"00", "index"} & set(ids):
            return "taken over", f"ids {faults or ids}"
        said = "message 112: " in err
        if said:
            return "in part", None
        lacking = [table for table, content in CONTENT[name].items() if len(rows[table]) < len(content)]
        if opened:
            return "whole", None
        if lacking:
            return "taken over", f"rows of {lacking} are missing and nothing is said"
        # No checksum tells of a letter that became another one.
        same = all(sorted(map(repr, content)) == sorted(map(repr, rows[table])) for table, content in CONTENT[name].items())
        return "whole" if same else "with other values", None

    def test_damaged_copies_are_taken_over_or_refused_and_never_without_a_word(self):
        outcomes, faults, longest = {}, [], 0
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as workers:
            for number, damage, outcome, fault, took in workers.map(self.one, range(COPIES)):
                outcomes[outcome] = outcomes.get(outcome, 0) + 1
                longest = max(longest, took)
                if fault:
                    faults.append(f"copy {number} ({damage}): {outcome}, {fault}")
        print(f"{COPIES} damaged copies: {json.dumps(outcomes)}, at most {longest:.1f} s for one")
        self.assertEqual(faults, [])
        self.assertGreater(outcomes.get("refused", 0), COPIES // 20)
        self.assertGreater(outcomes.get("in part", 0), COPIES // 20)


if __name__ == "__main__":
    unittest.main()
