#!/usr/bin/env python3
"""Publishes a site with `mrd` to real servers, and to one that misbehaves, and compares what lies there.

    site_test.py PROGRAM_DIR
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
SERVER = HERE.parent / "support" / "ftp_server.py"
PICTURE = HERE.parent.parent / "demo" / "pix" / "hafen.jpg"
PROGRAMS = pathlib.Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None


class Site(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mirandel-test-")
        self.addCleanup(folder.cleanup)
        self.work = pathlib.Path(folder.name)
        self.environment = dict(os.environ, MIRANDEL_HOME=str(PROGRAMS), XDG_CONFIG_HOME=str(self.work / "config"))
        self.root = self.work / "root"
        self.site = self.work / "site"
        (self.site / "pix").mkdir(parents=True)
        self.root.mkdir()
        self.project = self.work / "haus.mdb"
        self.mrd("new", self.project)
        (self.site / "pix" / "hafen.jpg").write_bytes(PICTURE.read_bytes())
        body = self.work / "body.html"
        body.write_text(f'<h3 id="ueberschrift">Hafen</h3><img src="file://{self.site}/pix/hafen.jpg">')
        self.mrd("page", "add", self.project, "--under", "00", "--html", body)
        self.mrd("settings", self.project, f"exportpfad={self.site}")
        self.mrd("generate", self.project)

    def mrd(self, *words, status=0, standard_input=""):
        result = subprocess.run([PROGRAMS / "mrd", *words], env=self.environment, input=standard_input, capture_output=True,
                                text=True, check=False, timeout=60)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return result

    def serve(self, kind, *faults, scheme=""):
        arguments = ["/usr/bin/python3", SERVER, kind, self.root]
        for fault in faults:
            arguments += ["--fault", fault]
        server = subprocess.Popen(arguments, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

        def end():
            server.stdin.close()
            server.stdout.close()
            server.wait()
        self.addCleanup(end)
        place = json.loads(server.stdout.readline())
        self.password = place["password"]
        self.server = f"127.0.0.1:{place['port']}"
        directory = place["directory"].lstrip("/")
        self.web = self.root / directory / "web"
        if place["home"]:
            self.environment["HOME"] = place["home"]
        self.mrd("settings", self.project, f"ftpserver={scheme}{self.server}", f"ftpuser={place['user']}",
                 f"ftppasswort={self.password}", f"ftpverzeichnis={directory + '/' if directory else ''}web")

    def publish(self, *words, **how):
        return json.loads(self.mrd("--json", "--yes", "publish", self.project, *words, **how).stdout)

    def assert_same_tree(self):
        def tree(root):
            return {str(path.relative_to(root)): path.read_bytes() for path in root.rglob("*") if path.is_file()}
        self.assertEqual(tree(self.web), tree(self.site))

    def check_life_of_a_site(self):
        first = self.publish()
        self.assertEqual((first["failed"], first["orphans"]), ([], []))
        self.assert_same_tree()

        pictures = [path for path in (self.web / "pix").iterdir()]
        again = self.publish()
        self.assertEqual(again["sent"], first["sent"] - len(pictures))
        self.assertEqual(again["kept"], len(pictures))

        # What the server has is not compared: a picture that has changed goes up where it is gone from there.
        (self.web / "pix" / "hafen.jpg").unlink()
        (self.site / "pix" / "hafen.jpg").write_bytes(PICTURE.read_bytes() + b"x")
        self.mrd("generate", self.project)
        self.assertEqual(self.publish()["sent"], again["sent"] + 1)
        self.assert_same_tree()

        (self.web / "alt.htm").write_text("alt")
        (self.web / "pix" / "ein altes bild.jpg").write_text("alt")
        orphans = ["alt.htm", "pix/ein altes bild.jpg"]
        self.assertEqual(self.publish("--connect-only")["orphans"], orphans)
        self.assertEqual(self.publish("--delete-orphans")["deleted"], orphans)
        self.assert_same_tree()

    def test_vsftpd(self):
        self.serve("vsftpd")
        self.check_life_of_a_site()

    def test_vsftpd_encrypted(self):
        self.serve("vsftpd-tls", scheme="ftpes://")
        self.check_life_of_a_site()

    def test_pyftpdlib(self):
        self.serve("pyftpdlib")
        self.check_life_of_a_site()

    def test_pyftpdlib_encrypted(self):
        self.serve("pyftpdlib-tls", scheme="ftpes://")
        self.check_life_of_a_site()

    def test_openssh(self):
        self.serve("sftp", scheme="sftp://")
        self.check_life_of_a_site()

    def test_the_edition_for_telephones_goes_to_a_directory_of_its_own(self):
        self.serve("pyftpdlib")
        self.mrd("settings", self.project, "ftpverzeichnisimode=" + str(self.web.relative_to(self.root)).replace("web", "handy"),
                 "imodekopftyp=0")
        self.mrd("generate", self.project, "--imode")
        first = self.publish("--imode")
        self.assertEqual((first["failed"], first["orphans"], first["sent"]), ([], [], 4))
        self.web, self.site = self.web.parent / "handy", self.site / "imode"
        self.assert_same_tree()
        self.assertEqual(sorted(path.name for path in (self.web / "pix").iterdir()), ["hafen_xs.gif", "imodelogo.gif"])

        again = self.publish("--imode")
        self.assertEqual((again["sent"], again["kept"]), (2, 2))
        (self.web / "alt.htm").write_text("alt")
        self.assertEqual(self.publish("--imode", "--delete-orphans")["deleted"], ["alt.htm"])
        self.assert_same_tree()

    def test_a_server_that_is_not_trusted_gets_nothing_and_is_told_with_its_fingerprint(self):
        self.serve("vsftpd-tls")
        result = self.mrd("publish", self.project, status=1)
        self.assertIn("SHA256:", result.stderr)
        self.assertFalse(self.web.exists())

    def test_a_server_that_has_changed_is_not_trusted_by_a_general_yes(self):
        self.serve("vsftpd-tls", scheme="ftpes://")
        settings = self.work / "config" / "mirandel" / "settings.ini"
        settings.parent.mkdir(parents=True)
        known = f"[FTPServer]\n{self.server}=SHA256:another\n"
        settings.write_text(known)
        result = self.mrd("--yes", "publish", self.project, status=1)
        self.assertIn("message 180", result.stderr)
        self.assertIn(str(settings), result.stderr)
        self.assertEqual(settings.read_text(), known)
        self.assertFalse(self.web.exists())

    def test_pictures_are_counted_as_sent_or_as_there_already_and_never_as_both(self):
        self.serve("pyftpdlib")
        first = self.publish()
        self.assertEqual((first["sent"], first["kept"]), (len([p for p in self.site.rglob("*") if p.is_file()]), 0))

    def test_a_server_that_is_gone_for_good_before_the_run_is_a_failure(self):
        self.serve("scripted", "die=MLSD:2")
        result = self.mrd("publish", self.project, status=1)
        self.assertIn("Fehler bei der FTPÜbertragung:", result.stderr)
        self.assertIn("nimmt keine Verbindung an", result.stderr)

    def test_a_listing_that_is_lacking_sends_nothing_and_is_told(self):
        self.web = self.root / "web"
        self.web.mkdir()
        (self.web / "alt.htm").write_text("alt")
        self.serve("scripted", "refuse=MKD")
        result = self.mrd("--yes", "publish", self.project, "--delete-orphans", status=1)
        self.assertIn("message 35", result.stderr)
        self.assertIn("message 181", result.stderr)
        self.assertEqual(result.stdout, "")
        self.assertEqual([path.name for path in self.web.iterdir()], ["alt.htm"])

    def test_all_that_is_printed_is_in_the_language_of_the_program(self):
        self.serve("scripted", "refuse-name=hafen", "no-size")
        result = self.mrd("--lang", "ENG", "publish", self.project, status=1)
        self.assertIn("not sent: pix/hafen.jpg: 553 this file is not allowed", result.stderr)
        self.assertRegex(result.stdout, r"Sent: \d+\. On the server already: 0\. Without a page: 0\. Deleted: 0\. Failed: 1\.")
        result = self.mrd("publish", self.project, status=1)
        self.assertIn("nicht übertragen: pix/hafen.jpg: 553", result.stderr)
        self.assertIn("Übertragen: ", result.stdout)

    def test_a_link_that_somebody_put_there_is_no_orphan(self):
        for kind, scheme in (("vsftpd", ""), ("sftp", "sftp://")):
            with self.subTest(kind):
                self.root = self.work / kind
                self.root.mkdir()
                self.serve(kind, scheme=scheme)
                self.publish()
                (self.web / "alt.htm").write_text("alt")
                (self.web / "cgi").symlink_to(self.root)
                self.assertEqual(self.publish("--delete-orphans")["deleted"], ["alt.htm"])
                self.assertTrue((self.web / "cgi").is_symlink())

    def test_a_listing_without_end_is_told_as_the_reason(self):
        self.serve("scripted", "endless")
        result = self.mrd("publish", self.project, status=1)
        self.assertEqual(result.stderr.count("64 MB"), 1)
        self.assertIn("message 181", result.stderr)

    def test_a_full_disk_names_each_file_and_fails(self):
        self.serve("scripted", "full=10")
        summary = self.publish(status=1)
        self.assertEqual(summary["sent"], 0)
        self.assertIn("552", summary["failed"][0]["problem"])
        self.assertEqual(list(self.web.rglob("*.htm")), [])

    def test_a_wrong_password_is_told_once_and_never_shown(self):
        self.serve("scripted")
        self.mrd("settings", self.project, "ftppasswort=ganz geheim")
        result = self.mrd("publish", self.project, status=1)
        self.assertEqual(result.stderr.count("530 Login incorrect"), 1)
        self.assertNotIn("ganz geheim", result.stdout + result.stderr)

    def test_a_password_that_is_not_stored_is_read_from_standard_input(self):
        self.serve("pyftpdlib")
        self.mrd("settings", self.project, "ftppasswort=")
        self.mrd("publish", self.project, standard_input=self.password + "\n")
        self.assert_same_tree()
        # The server is read a second time, with the same password.
        self.mrd("--yes", "publish", self.project, standard_input=self.password + "\n")

    def test_orphans_stay_without_the_users_yes(self):
        self.serve("pyftpdlib")
        self.publish()
        (self.web / "alt.htm").write_text("alt")
        self.mrd("publish", self.project, "--delete-orphans", status=1)
        self.assertTrue((self.web / "alt.htm").exists())

    def test_pages_that_the_last_run_left_out_are_no_orphans(self):
        self.serve("pyftpdlib")
        self.publish()
        self.mrd("generate", self.project, "--page", "00")
        self.publish("--delete-orphans")
        self.assert_same_tree()

    def test_a_project_without_pages_deletes_nothing(self):
        self.serve("pyftpdlib")
        self.mrd("new", self.work / "leer.mdb")
        self.assertIn("noch nicht generiert", self.mrd("publish", self.work / "leer.mdb", status=1).stderr)

    def test_a_refused_port_is_tried_again_and_told(self):
        self.mrd("settings", self.project, "ftpserver=127.0.0.1:1", "ftpuser=a", "ftppasswort=b", "ftpverzeichnis=web")
        result = self.mrd("publish", self.project, status=1)
        self.assertIn("nimmt keine Verbindung an", result.stderr)
        self.assertIn("message 36", result.stderr)


if __name__ == "__main__":
    unittest.main()
