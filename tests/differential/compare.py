#!/usr/bin/env python3
"""Runs the reference and `mrd generate` on random projects and shows where they differ.

  compare.py [--mrd PROGRAM] [--program-dir DIR] [--seeds N] [--first SEED] [--modes all,new-only,page] [--keep DIR]

Both work on the same project at the same path, one after the other, so that files, register rows and messages compare as
they are.
Exit status 1 on any difference. `--keep` leaves what both have written of the first project that differs.
"""
import argparse
import os
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
from datetime import datetime
from pathlib import Path

import random_project
import reference

MODES = ("all", "new-only", "page")
TEXT_OF_A_MESSAGE = re.compile(r"message(?: (\d+))?: ?(.*)", re.S)
NO_OUTPUT = re.compile(r"projekt\.mdb.*|programm/[^/]*\.(mdb|INI|ini).*")
SHOWN_PER_RUN = 6
GIF_HEAD = 10                     # bytes


class Outcome:
    """All that a run leaves behind."""

    def __init__(self, scenario, closing, messages, status):
        self.closing, self.messages, self.status = closing, messages, status
        self.files = {}
        for path in sorted(scenario.root.rglob("*")):
            name = str(path.relative_to(scenario.root))
            if not NO_OUTPUT.fullmatch(name):
                self.files[name] = path.read_bytes() if path.is_file() else None
        db = sqlite3.connect(scenario.project)
        self.register = sorted((repr(row) for row in db.execute(
            'SELECT pfad, dateiname, erweiterung, "dateityp-id", "übertragen" <> 0 FROM Dateien')))
        self.pages = sorted(repr(row) for row in db.execute("SELECT * FROM Seite"))
        self.settings = sorted(repr(row) for row in db.execute(
            "SELECT * FROM Einstellungen WHERE Einstellung <> 'LastActivePage'"))
        db.close()


def run_reference(scenario, mode):
    result = reference.generate(str(scenario.project), str(scenario.program), scenario.given_export, mode, scenario.page,
                                datetime.utcfromtimestamp(scenario.now))
    return Outcome(scenario, result.closing or "", result.messages, 1 if result.refused else 0)


def run_program(scenario, mode, mrd):
    command = [mrd, "generate", str(scenario.project), "--program-dir", str(scenario.program)]
    command += ["--prefix", scenario.prefix] if getattr(scenario, "prefix", "") else []
    command += {"all": [], "new-only": ["--new-only"], "page": ["--page", scenario.page], "imode": ["--imode"]}[mode]
    command += ["--export", scenario.given_export] if scenario.given_export is not None else []
    environment = dict(os.environ, SOURCE_DATE_EPOCH=str(scenario.now), HOME=str(scenario.root / ".."),
                       XDG_CONFIG_HOME=str(scenario.root / ".."))
    try:
        done = subprocess.run(command, capture_output=True, env=environment, timeout=120)
        out, err, status = done.stdout, done.stderr, done.returncode
    except subprocess.TimeoutExpired as hang:
        out, err, status = hang.stdout or b"", (hang.stderr or b"") + b"\nmessage: (stopped after 120 seconds)", "hang"
    return Outcome(scenario, out.decode("utf-8", "replace").strip(), messages_of(err.decode("utf-8", "replace")), status)


def messages_of(text):
    """The messages on standard error; one may go over several lines."""
    found = []
    for line in text.splitlines():
        if line.startswith("warning: "):        # the command line's own word, beside what the run has to say
            continue
        match = TEXT_OF_A_MESSAGE.fullmatch(line)
        if match:
            found.append((int(match.group(1)) if match.group(1) else None, match.group(2)))
        elif found:
            found[-1] = (found[-1][0], found[-1][1] + "\n" + line)
        else:
            found.append((None, line))
    return found


def same_message(expected, got):
    if expected[0] not in (got[0], reference.ANY_NUMBER):
        return False
    return expected[1] is None or expected[1].replace("\\", "/") == got[1].rstrip().replace("\\", "/")


def differences(expected, got):
    if expected.status != got.status:
        yield "exit status: expected %s, got %s" % (expected.status, got.status)
    if expected.closing != got.closing:
        yield "standard output: expected %r, got %r" % (expected.closing, got.closing)
    yield from message_differences(expected.messages, got.messages)
    for what in ("register", "settings", "pages"):
        yield from row_differences(what, getattr(expected, what), getattr(got, what))
    for name in sorted(set(expected.files) | set(got.files)):
        if name not in got.files:
            yield "%s: missing" % name
        elif name not in expected.files:
            yield "%s: is there, expected none" % name
        elif not same_content(expected.files[name], got.files[name]):
            yield file_difference(name, expected.files[name], got.files[name])


def same_content(expected, got):
    """A corner is drawn in the program's own way; of a small GIF file the reference knows signature and size alone."""
    if expected is None or got is None:
        return expected is got
    small = expected[:6] == b"GIF87a" and len(expected) == GIF_HEAD
    return expected in (b"corner", got) or (small and got[:GIF_HEAD] == expected)


def message_differences(expected, got):
    for at in range(max(len(expected), len(got))):
        first = expected[at] if at < len(expected) else None
        second = got[at] if at < len(got) else None
        if first is None or second is None or not same_message(first, second):
            yield "message %d of %d/%d: expected %r, got %r" % (at + 1, len(expected), len(got), first, second)
            return


def row_differences(what, expected, got):
    missing, extra = list(expected), []
    for row in got:
        missing.remove(row) if row in missing else extra.append(row)
    for row in missing:
        yield "%s: row missing: %s" % (what, row)
    for row in extra:
        yield "%s: row too many: %s" % (what, row)


def file_difference(name, expected, got):
    at = next((i for i, (a, b) in enumerate(zip(expected, got)) if a != b), min(len(expected), len(got)))
    before = expected[max(0, at - 120):at]
    return ("%s: differs at byte %d, line %d (%d bytes expected, %d got)\n"
            "      before:   %s\n      expected: %s\n      got:      %s"
            % (name, at, expected[:at].count(b"\n") + 1, len(expected), len(got), shown(before),
               shown(expected[at:at + 160]), shown(got[at:at + 160])))


def shown(data):
    return repr(data.decode("cp1252", "replace"))


def compare(seed, mode, options, root, make, run_expected):
    """The differences of one run, as text. `make` makes the project, `run_expected` is the reference's run."""
    program_source = options.program_dir or str(Path(options.mrd).resolve().parent)
    outcomes = []
    for run in (run_expected, lambda scenario, mode: run_program(scenario, mode, options.mrd)):
        shutil.rmtree(root, ignore_errors=True)
        root.mkdir(parents=True)
        scenario = make(seed, root, program_source)
        outcomes.append(run(scenario, mode))
        if options.keep:
            kept = Path(options.keep) / ("expected" if len(outcomes) == 1 else "got")
            shutil.rmtree(kept, ignore_errors=True)
            shutil.copytree(root, kept)
    return list(differences(*outcomes))


def main(description=__doc__, make=random_project.make, run_expected=run_reference, modes=MODES):
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--mrd", default=os.environ.get("MRD"))
    parser.add_argument("--program-dir", help="where the program's files lie; default: beside mrd")
    parser.add_argument("--seeds", type=int, default=25)
    parser.add_argument("--first", type=int, default=1)
    parser.add_argument("--modes", default=",".join(modes))
    parser.add_argument("--keep", metavar="DIR")
    options = parser.parse_args()
    if not options.mrd:
        parser.error("name the program with --mrd or MRD")
    options.mrd = str(Path(options.mrd).resolve())
    # The path of the work directory takes part in the random projects' texts, so it has one length everywhere.
    base = Path(tempfile.mkdtemp(prefix="mrd-diff-"))
    runs = failed = 0
    try:
        for seed in range(options.first, options.first + options.seeds):
            for mode in options.modes.split(","):
                runs += 1
                found = compare(seed, mode, options, base / "w", make, run_expected)
                if found:
                    failed += 1
                    print("seed %d, mode %s:" % (seed, mode))
                    for difference in found[:SHOWN_PER_RUN]:
                        print("    " + difference)
                    if len(found) > SHOWN_PER_RUN:
                        print("    and %d more" % (len(found) - SHOWN_PER_RUN))
                    sys.stdout.flush()
                    if options.keep:
                        return 1
    finally:
        shutil.rmtree(base, ignore_errors=True)
    print("%d runs, %d differ" % (runs, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
