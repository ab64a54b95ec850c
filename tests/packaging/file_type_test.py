"""A project is known as one by its content; a database of another program is not, whatever its name.

    file_type_test.py UPDATE_MIME_DATABASE EMPTY_PROJECT
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

UPDATE, EMPTY_PROJECT = sys.argv[1:3]
PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
SYSTEM = pathlib.Path("/usr/share/mime/packages/freedesktop.org.xml")
OURS = "application/x-mirandel-project"


class FileType(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.data = pathlib.Path(cls.folder.name)
        packages = cls.data / "mime/packages"
        packages.mkdir(parents=True)
        shutil.copy(PACKAGING / "mime.xml", packages / "mirandel.xml")
        shutil.copy(SYSTEM, packages)
        subprocess.run([UPDATE, str(cls.data / "mime")], check=True, capture_output=True)

    def type_of(self, name, content):
        file = self.data / name
        file.write_bytes(content)
        environment = dict(os.environ, XDG_DATA_HOME=str(self.data), XDG_DATA_DIRS=str(self.data), HOME=str(self.data))
        done = subprocess.run(["gio", "info", "-a", "standard::content-type", str(file)], env=environment, capture_output=True,
                              text=True, check=True)
        return done.stdout.rsplit(" ", 1)[1].strip()

    def test_a_project_is_ours(self):
        project = pathlib.Path(EMPTY_PROJECT).read_bytes()
        self.assertEqual(self.type_of("haus.mdb", project), OURS)
        self.assertEqual(self.type_of("haus", project), OURS)

    def test_an_old_database_belongs_to_its_own_program(self):
        old = b"\0\1\0\0Standard Jet DB\0" + bytes(4096)
        self.assertNotEqual(self.type_of("alt.mdb", old), OURS)

    def test_a_database_of_another_program_is_not_ours(self):
        other = bytearray(pathlib.Path(EMPTY_PROJECT).read_bytes())
        other[68:72] = b"XXXX"
        self.assertNotEqual(self.type_of("fremd.sqlite", bytes(other)), OURS)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
