"""Export directories and output files that do not take what a run wants to write, and names that lead out of them."""

import os
import pathlib
import subprocess
import unittest

from house import House, children, heading, snapshot, with_file_limit


class ExportDirectory(House):
    def setUp(self):
        super().setUp()
        self.make_project(children(5))

    def assert_project_is_as_before(self):
        self.assert_sound()
        self.assertEqual(len(self.assert_done("pages", self.file).splitlines()), 6)

    def assert_next_run_is_complete(self):
        """What went wrong leaves nothing behind that a later run would suffer from."""
        self.site = self.work / "danach"
        self.site.mkdir()
        self.assertIn("6 Seiten", self.assert_done(*self.generate()))
        self.assertEqual(len(list(self.site.glob("*.htm"))), 6)

    def test_missing(self):
        self.site.rmdir()
        register = self.rows("SELECT * FROM Dateien")

        self.assertIn("message 37: ", self.assert_refused(*self.generate()))

        self.assertFalse(self.site.exists())
        self.assertEqual(self.rows("SELECT * FROM Dateien"), register)
        self.assert_project_is_as_before()

    def test_a_file_in_its_place(self):
        self.site.rmdir()
        self.site.write_text("eine Datei")

        self.assertIn("message 37: ", self.assert_refused(*self.generate()))

        self.assertEqual(self.site.read_text(), "eine Datei")
        self.assert_project_is_as_before()

    def test_an_empty_name_is_none(self):
        before = set(snapshot(self.work))
        self.assert_refused("generate", self.file, "--export", "")
        self.assertEqual({path for path in snapshot(self.work) if not path.startswith("haus.mdb.sicherung")}, before)

    def test_a_directory_that_takes_nothing(self):
        # Nobody can make a file there, whoever he is.
        self.assert_refused("generate", self.file, "--export", "/proc")
        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_directory_without_the_right_to_write(self):
        self.site.chmod(0o555)
        done = self.mrd(*self.generate())
        self.site.chmod(0o755)
        if os.geteuid() != 0:
            self.assertEqual(done.returncode, 1)
        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_file_in_place_of_the_picture_directory(self):
        (self.site / "pix").write_text("eine Datei")

        self.mrd(*self.generate())

        self.assertEqual((self.site / "pix").read_text(), "eine Datei")
        self.assert_project_is_as_before()

    def test_a_directory_in_place_of_a_page(self):
        (self.site / "03.htm").mkdir()

        self.assertIn("03.htm", self.assert_refused(*self.generate()))

        self.assertTrue((self.site / "03.htm").is_dir())
        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_device_in_place_of_a_page_that_takes_no_byte(self):
        (self.site / "03.htm").symlink_to("/dev/full")

        done = self.mrd(*self.generate())

        self.assertTrue(done.returncode == 1 or not (self.site / "03.htm").is_symlink(), done.out)
        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_full_disk(self):
        self.make_project(children(5, "<p>" + "Text " * 20_000 + "</p>"))
        with SmallDisk(self.site, 128) as disk:
            self.assert_refused(*self.generate(), **disk.options)

        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_disk_that_is_full_from_a_size_on(self):
        # The pages name the typeface often enough to grow beyond the limit, the project names it once.
        self.make_project(children(5), [("Schriftart", "Arial " * 3000)])
        limit = 150_000
        self.assertLess(self.file.stat().st_size, limit)

        self.assert_refused(*self.generate(), **with_file_limit(limit))

        self.assert_project_is_as_before()
        self.assert_next_run_is_complete()

    def test_a_picture_that_is_a_directory(self):
        picture = self.site / "pix" / "ordner.jpg"
        picture.mkdir(parents=True)
        elsewhere = self.work / "bilder.jpg"
        elsewhere.mkdir()
        self.make_project([("01", "Haus", heading("Haus") + f'<img src="file://{picture}"><img src="file://{elsewhere}">'
                            + '<img src="file:///"><img src=""><img src="pix/"><img src="file://."><a href="file:///tmp">x</a>')])

        self.mrd(*self.generate())

        self.assertTrue((self.site / "01.htm").exists())
        self.assertTrue(picture.is_dir())
        self.assertEqual(self.rows("SELECT * FROM Dateien WHERE dateiname = 'ordner'"), [])
        self.assert_sound()

    def test_a_picture_that_is_none(self):
        pictures = {"leer.jpg": b"", "zufall.jpg": os.urandom(2000), "halb.gif": b"GIF89a\x10"}
        (self.site / "pix").mkdir()
        for name, content in pictures.items():
            (self.site / "pix" / name).write_bytes(content)
        self.make_project([("01", "Haus", heading("Haus") + "".join(f'<img src="file://{self.site}/pix/{name}">' for name in pictures))])

        self.assert_done(*self.generate())

        for name, content in pictures.items():
            self.assertEqual((self.site / "pix" / name).read_bytes(), content)


class Patterns(House):
    """File name patterns that are none: refused for their page, the others are written, nothing lies outside."""

    REFUSED = ("../x.htm", "..\\x.htm", "..", "../../../../../../tmp/mirandel-x.htm", "/tmp/mirandel-x.htm", "\\tmp\\mirandel-x.htm",
               "a/b.htm", "a\\b.htm", "a/../../x.htm", "C:x.htm", "C:\\x.htm", "pix/../../x.htm", "./x.htm", "//x", "x/", "\\", "/")
    STRANGE = (".", "pix", "x" * 300 + ".htm", "\n.htm", "a\x00b.htm", "a:b.htm", "*" * 50, "?.htm", " ", "%2e%2e%2fx.htm", "nul", "~/x.htm",
               "index.htm")

    def run_with(self, pattern):
        self.make_project([("01", "davor", heading("davor")), ("02", "fremd", heading("fremd"), pattern), ("03", "danach", heading("danach"))])
        before = snapshot(self.top)
        done = self.mrd(*self.generate())
        after = snapshot(self.top)
        outside = {path for path in after if path not in before and not path.startswith(("work/site/", "work/haus.mdb", "program/"))}
        self.assertEqual(outside, set(), pattern)
        self.assertFalse(pathlib.Path("/tmp/mirandel-x.htm").exists())
        self.assert_sound()
        return done

    def test_that_lead_out_of_the_directory_are_refused_and_the_run_goes_on(self):
        for pattern in self.REFUSED:
            with self.subTest(pattern):
                done = self.run_with(pattern)

                self.assertEqual(done.returncode, 1)
                self.assertIn("message 101: ", done.err)
                self.assertIn("3 Seiten", done.out)
                for name in ("index.htm", "01.htm", "03.htm"):
                    self.assertTrue((self.site / name).exists(), name)

    def test_that_are_strange_do_no_harm(self):
        for pattern in self.STRANGE:
            with self.subTest(pattern[:20]):
                self.run_with(pattern)

    def test_that_lead_out_by_the_pages_number_are_refused(self):
        self.make_project([("../x", "fremd", heading("fremd")), ("01", "Haus", heading("Haus"))])

        self.assertIn("message 101: ", self.assert_refused(*self.generate()))

        self.assertFalse((self.work / "x.htm").exists())
        self.assertTrue((self.site / "01.htm").exists())

    def test_that_lead_out_by_the_prefix_of_a_run_are_refused(self):
        self.make_project(children(1), [("grundlayout", "ohne alles")])
        before = set(snapshot(self.work))

        self.mrd(*self.generate("--prefix", "../"))

        self.assertEqual({path for path in set(snapshot(self.work)) - before if not path.startswith(("site/", "haus.mdb"))}, set())


class SmallDisk:
    """A directory on a disk of so many kilobytes; where nothing can be mounted, runs that can write no longer file than that."""

    def __init__(self, directory, kilobytes):
        self.directory, self.kilobytes, self.options = directory, kilobytes, {}

    def __enter__(self):
        mount = ["mount", "-t", "tmpfs", "-o", f"size={self.kilobytes}k", "tmpfs", str(self.directory)]
        self.mounted = os.geteuid() == 0 and subprocess.run(mount, capture_output=True).returncode == 0
        if not self.mounted:
            self.options = with_file_limit(self.kilobytes * 1024)
        return self

    def __exit__(self, *_):
        if self.mounted:
            subprocess.run(["umount", str(self.directory)], check=True)


class ProjectOnAFullDisk(House):
    def test_keeps_the_page_that_was_there(self):
        self.make_project(children(3))
        body = self.top / "gross.html"
        body.write_text(heading("gross") + "Text " * 200_000, encoding="utf-8")
        before = self.rows("SELECT * FROM Seite")

        self.assert_refused("page", "set", self.file, "02", "--html", body, **with_file_limit(self.file.stat().st_size + 50_000))
        self.assert_refused("page", "add", self.file, "--under", "00", "--html", body, **with_file_limit(self.file.stat().st_size + 50_000))

        self.assert_sound()
        self.assertEqual(self.rows("SELECT * FROM Seite"), before)
        self.assert_done("page", "set", self.file, "02", "--html", body)

    def test_gets_no_half_project_from_the_template(self):
        self.assert_refused("new", self.file, **with_file_limit(5000))

        self.assertEqual([path.name for path in self.work.iterdir()], ["site"])


if __name__ == "__main__":
    unittest.main()
