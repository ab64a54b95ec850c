"""Installs the build into a directory and uses it as somebody who has just installed it.

    installation_test.py CMAKE BUILD_DIRECTORY
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD = sys.argv[1:3]
ROOT = pathlib.Path(__file__).resolve().parents[2]
OLD_PROJECT = ROOT / "tests/data/jet/altprojekt-jet4.mdb"
PICTURE = ROOT / "demo/pix/haus_vorne.jpg"


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = pathlib.Path(folder.name).resolve() / "usr"
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", str(cls.prefix)], check=True, capture_output=True)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name).resolve()
        self.own = self.home / ".local/share/mirandel"

    def start(self, *arguments):
        environment = {"HOME": str(self.home), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS"):
            environment[name] = os.environ.get(name, "")
        return subprocess.Popen([str(self.prefix / "bin/mrd"), *map(str, arguments)], cwd=self.home, env=environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def mrd(self, *arguments):
        program = self.start(*arguments)
        output, errors = program.communicate(timeout=60)
        self.assertEqual((program.returncode, errors), (0, ""), arguments)
        return output

    def test_only_the_programs_are_where_programs_are(self):
        self.assertEqual(sorted(os.listdir(self.prefix / "bin")), ["mirandel", "mrd"])

    def test_the_resources_are_those_of_the_build(self):
        resources = self.prefix / "share/mirandel"
        names = [path.relative_to(resources) for path in resources.rglob("*") if path.is_file()]
        self.assertGreater(len(names), 30)
        for name in names:
            self.assertEqual((resources / name).read_bytes(), (pathlib.Path(BUILD, "mirandel") / name).read_bytes(), name)

    def test_the_first_start_fills_the_users_directory(self):
        self.mrd("new", "haus.mdb")
        self.mrd("generate", "haus.mdb", "--export", self.made("site"))
        resources = self.prefix / "share/mirandel"
        for path in filter(pathlib.Path.is_file, resources.rglob("*")):
            self.assertEqual((self.own / path.relative_to(resources)).read_bytes(), path.read_bytes())
        self.assertTrue((self.home / "site/index.htm").is_file())

    def test_using_the_programs_changes_nothing_that_an_update_would_have_to_spare(self):
        self.mrd("new", "haus.mdb")
        self.mrd("layouts")
        self.mrd("generate", "haus.mdb", "--export", self.made("site"))
        resources = self.prefix / "share/mirandel"
        for path in filter(pathlib.Path.is_file, resources.rglob("*")):
            os.utime(path, (1, 1))
        self.mrd("layouts")
        self.assertEqual([path for path in self.own.rglob("*.neu")], [])

    def test_many_first_starts_at_once_are_like_one(self):
        programs = [self.start("new", f"haus{number}.mdb") for number in range(8)]
        for program in programs:
            self.assertEqual(program.communicate(timeout=60), ("", ""))
            self.assertEqual(program.returncode, 0)
        self.assertEqual([path for path in self.own.rglob("*") if path.suffix in (".neu", ".tmp")], [])

    def test_a_layout_of_the_users_own_is_there_after_an_update(self):
        self.mrd("layouts")
        (self.own / "xml/meins.xml").write_text("<root name='Meins'><code>x</code></root>", encoding="utf-8")
        resource = self.prefix / "share/mirandel/mrdnav.js"
        before = resource.read_bytes()
        self.addCleanup(resource.write_bytes, before)
        resource.write_bytes(before + b"// newer\n")

        self.assertIn("Meins", self.mrd("layouts"))

        self.assertEqual((self.own / "mrdnav.js").read_bytes(), before + b"// newer\n")

    def test_the_picture_module_is_found(self):
        self.mrd("pictures", "gif", PICTURE, "klein.gif")
        self.assertEqual((self.home / "klein.gif").read_bytes()[:3], b"GIF")

    def test_the_reader_of_old_databases_is_found(self):
        self.mrd("import", OLD_PROJECT, "neu.mdb")
        self.assertIn("00\t", self.mrd("pages", "neu.mdb"))

    def test_a_home_that_takes_nothing_ends_in_a_message(self):
        (self.home / ".local").write_text("no directory")
        program = self.start("new", "haus.mdb")
        errors = program.communicate(timeout=60)[1]
        self.assertEqual(program.returncode, 1)
        self.assertNotEqual(errors, "")
        self.assertFalse((self.home / "haus.mdb").exists())

    def made(self, name):
        (self.home / name).mkdir()
        return name


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
