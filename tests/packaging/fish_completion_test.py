"""Completes command lines of mrd as fish does when somebody presses the tabulator key.

    fish_completion_test.py FISH SCRIPT
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

FISH, SCRIPT = sys.argv[1], os.path.abspath(sys.argv[2])


class FishCompletion(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "garten.html").touch()

    def offered(self, line):
        environment = dict(os.environ, HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder), XDG_DATA_HOME=str(self.folder))
        done = subprocess.run([FISH, "--no-config", "-c", 'source $argv[1]; complete -C $argv[2]', SCRIPT, line],
                              cwd=self.folder, env=environment, capture_output=True, text=True, check=True)
        self.assertEqual(done.stderr, "")
        return [offer.split("\t")[0] for offer in done.stdout.splitlines()]

    def test_offers_commands_and_those_of_a_group(self):
        self.assertEqual(self.offered("mrd pa"), ["page", "pages", "path"])
        self.assertEqual(self.offered("mrd page "), ["add", "delete", "move", "set", "show"])

    def test_offers_options_of_the_command(self):
        self.assertEqual(self.offered("mrd page move haus.mdb 01 --b"), ["--before"])
        self.assertEqual(self.offered("mrd publish --before"), [])

    def test_offers_the_values_that_an_option_takes(self):
        self.assertEqual(self.offered("mrd --lang "), ["ENG", "GER"])

    def test_offers_files_where_files_stand(self):
        self.assertEqual(self.offered("mrd page add haus.mdb --html g"), ["garten.html"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
