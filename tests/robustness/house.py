"""What all tests of hard times share: projects made by hand, the program under test, and what it must never do."""

import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import unittest

PROGRAM_DIR = pathlib.Path(os.environ["MRD_PROGRAM_DIR"])
SECONDS_FOR_A_COMMAND = 60
# Told apart from the status of a refusal.
SANITIZER_STATUS = 99
MESSAGE = re.compile(r"^(message( \d+)?|warning): \S", re.MULTILINE)
PAGE_COLUMNS = ("id", "Überschrift", "html", "dateiname", "seitentyp-id", "script", "changingdate", "expanded")


def heading(text):
    return f'<h3 id="ueberschrift">{text}</h3>'


def children(count, body="<p>Text</p>"):
    """So many pages of the first level."""
    return [(f"{n:02}", f"Seite {n}", heading(f"Seite {n}") + body) for n in range(1, count + 1)]


class House(unittest.TestCase):
    """Each test has a directory with a program directory of its own and an export directory `site`."""

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="mirandel-robust-")
        self.addCleanup(holder.cleanup)
        self.top = pathlib.Path(holder.name).resolve()
        self.home = self.top / "program"
        self.home.mkdir()
        for name in ("mrdleer.mdb", "language.mdb"):
            shutil.copy(PROGRAM_DIR / name, self.home / name)
        self.work = self.top / "work"
        self.site = self.work / "site"
        self.site.mkdir(parents=True)
        self.file = self.work / "haus.mdb"

    # Projects

    def make_project(self, pages=(), settings=()):
        """A project with the homepage and these pages: tuples in the order of PAGE_COLUMNS, cut where one likes."""
        shutil.copy(PROGRAM_DIR / "mrdleer.mdb", self.file)
        self.file.chmod(0o644)
        with self.database() as db:
            for page in pages:
                row = list(page) + [None] * (len(PAGE_COLUMNS) - len(page))
                if len(page) <= PAGE_COLUMNS.index("seitentyp-id"):
                    row[PAGE_COLUMNS.index("seitentyp-id")] = 1
                db.execute("INSERT INTO Seite (%s) VALUES (?, ?, ?, ?, ?, ?, ?, ?)" % ", ".join(f'"{c}"' for c in PAGE_COLUMNS), row)
            for key, value in settings:
                db.execute("DELETE FROM Einstellungen WHERE Einstellung = ?", (key,))
                db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES (?, ?)", (key, value))
        return self.file

    def database(self):
        db = sqlite3.connect(self.file, isolation_level="IMMEDIATE")
        self.addCleanup(db.close)
        # Bytes that are no UTF-8 are looked at as they are.
        db.text_factory = lambda content: content.decode("utf-8", "surrogateescape")
        return db

    def rows(self, statement, *values):
        db = self.database()
        try:
            return db.execute(statement, values).fetchall()
        finally:
            db.close()

    def assert_sound(self):
        self.assertEqual(self.rows("PRAGMA integrity_check"), [("ok",)])

    # Runs

    def environment(self):
        sanitizer = {name: f"{os.environ.get(name, '')}:halt_on_error=1:exitcode={SANITIZER_STATUS}"
                     for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS")}
        return {**os.environ, **sanitizer, "MIRANDEL_HOME": str(self.home), "HOME": str(self.top), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                "SOURCE_DATE_EPOCH": "1050570306"}

    def command(self, *arguments):
        return [str(PROGRAM_DIR / "mrd"), *map(str, arguments)]

    def mrd(self, *arguments, env=None, **options):
        """Runs to the end, without a crash, a hang or a word that is no message. `env` is added to the environment."""
        done = subprocess.run(self.command(*arguments), cwd=self.work, env={**self.environment(), **(env or {})}, stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=SECONDS_FOR_A_COMMAND, **options)
        done.out, done.err = done.stdout.decode(), done.stderr.decode()
        self.assertIn(done.returncode, (0, 1), f"{arguments}\n{done.err}")
        if done.returncode == 1:
            self.assertRegex(done.err, MESSAGE, arguments)
        return done

    def assert_done(self, *arguments, **options):
        done = self.mrd(*arguments, **options)
        self.assertEqual(done.returncode, 0, f"{arguments}\n{done.err}")
        return done.out

    def assert_refused(self, *arguments, **options):
        """The refusal's words."""
        done = self.mrd(*arguments, **options)
        self.assertEqual(done.returncode, 1, f"{arguments}\n{done.out}{done.err}")
        return done.err

    def generate(self, *options):
        return "generate", self.file, "--export", self.site, *options


def snapshot(directory):
    """Bytes of every file below a directory, by its path in it; a directory without a file counts too."""
    return {str(path.relative_to(directory)): path.read_bytes() if path.is_file() else None for path in sorted(directory.rglob("*"))}


def with_file_limit(size):
    """Options for a run that can write no file beyond a size, and is told so by an error and not by a signal."""

    def limit():
        import resource
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

    return {"preexec_fn": limit, "restore_signals": False}
