"""Completes command lines of mrd as bash does when somebody presses the tabulator key.

    bash_completion_test.py SCRIPT
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.abspath(sys.argv[1])

COMPLETE = """
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_mrd
printf '%s\\n' "${COMPREPLY[@]}"
"""


class BashCompletion(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "haus am see.mdb").touch()
        (self.folder / "garten.html").touch()
        (self.folder / "site").mkdir()

    def offered(self, *words):
        done = subprocess.run(["bash", "--norc", "-c", COMPLETE, "bash", SCRIPT, "mrd", *words], cwd=self.folder,
                              capture_output=True, text=True, check=True)
        self.assertEqual(done.stderr, "")
        return sorted(line for line in done.stdout.split("\n") if line)

    def test_offers_commands(self):
        self.assertIn("generate", self.offered(""))
        self.assertEqual(self.offered("pa"), ["page", "pages", "path"])

    def test_offers_commands_of_a_group(self):
        self.assertEqual(self.offered("page", ""), ["add", "delete", "move", "set", "show"])
        self.assertEqual(self.offered("ini", "g"), ["get"])

    def test_offers_options_of_the_command_and_of_the_program(self):
        self.assertEqual(self.offered("page", "move", "haus.mdb", "01", "--b"), ["--before"])
        self.assertEqual(self.offered("publish", "--de"), ["--delete-orphans"])
        self.assertIn("--quiet", self.offered("publish", "haus.mdb", "--"))
        self.assertNotIn("--before", self.offered("--"))

    def test_offers_the_values_that_an_option_takes(self):
        self.assertEqual(self.offered("--lang", ""), ["ENG", "GER"])
        self.assertEqual(self.offered("pictures", "add", "--names", "k"), ["keep"])

    def test_finds_the_command_behind_an_option_with_a_value(self):
        self.assertEqual(self.offered("--lang", "ENG", "page", "s"), ["set", "show"])
        self.assertEqual(self.offered("--program-dir", "page", "ini", "s"), ["set"])

    def test_offers_files_where_files_stand(self):
        self.assertEqual(self.offered("pages", "h"), ["haus am see.mdb"])
        self.assertEqual(self.offered("page", "add", "haus.mdb", "--html", "g"), ["garten.html"])
        self.assertEqual(self.offered("pictures", "add", "haus.mdb", "--page", "00", "a.jpg", "b.jpg", "g"), ["garten.html"])

    def test_offers_directories_where_only_they_can_stand(self):
        self.assertEqual(self.offered("generate", "haus.mdb", "--export", ""), ["site"])

    def test_offers_nothing_where_only_the_user_knows(self):
        self.assertEqual(self.offered("page", "show", "haus.mdb", ""), [])
        self.assertEqual(self.offered("page", "add", "haus.mdb", "--heading", ""), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
