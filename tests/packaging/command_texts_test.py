"""Walks through the help of mrd and looks for all of it in the manual page and in the completions.

    command_texts_test.py MRD TEXTS
"""
import pathlib
import re
import subprocess
import sys
import unittest

MRD, TEXTS = sys.argv[1], pathlib.Path(sys.argv[2])


def sections(path):
    """The lines of the help of a command, by the heading above them."""
    text = subprocess.run([MRD, *path, "--help"], check=True, capture_output=True, text=True).stdout
    found, heading = {}, ""
    for line in text.splitlines():
        if line.strip().endswith(":") and not line.strip().startswith("-"):
            heading = line.strip()
        else:
            found.setdefault(heading, []).append(line)
    return found


def commands():
    """Path and options of every command; the first is the program itself."""
    waiting, found = [[]], []
    while waiting:
        path = waiting.pop(0)
        help_text = sections(path)
        options = [re.match(r"\s+(?:-\w,)?(--[\w-]+)", line).group(1)
                   for line in help_text.get("Options:", []) if re.match(r"\s+-", line)]
        found.append((path, [option for option in options if not path or option != "--help"]))
        waiting += [path + [line.split()[0]] for line in help_text.get("Subcommands:", []) if line.strip()]
    return found


COMMANDS = commands()


def manual():
    """The manual page as it reads on a terminal without a width, so that no name is broken."""
    page = (TEXTS / "mrd.1").read_text(encoding="utf-8")
    return re.sub(r"\\f[BIR]", "", page).replace("\\-", "-")


class CommandTexts(unittest.TestCase):
    def test_the_help_was_understood(self):
        paths = {" ".join(path) for path, _ in COMMANDS}
        self.assertGreater(len(paths), 20)
        self.assertIn("page add", paths)
        self.assertIn("--under", dict((" ".join(path), options) for path, options in COMMANDS)["page move"])

    def test_the_manual_page_has_every_command_with_every_option(self):
        general, _, special = manual().partition(".SH COMMANDS")
        parts = dict(re.findall(r"^\.SS mrd ([a-z]+(?: [a-z]+)?)\b[^\n]*\n(.*?)(?=^\.S[SH]|\Z)", special, re.MULTILINE | re.DOTALL))
        groups = {" ".join(path[:-1]) for path, _ in COMMANDS if path}
        for path, options in COMMANDS:
            name = " ".join(path)
            if name in groups and name:
                continue
            text = parts[name] if name else general
            for option in options:
                self.assertRegex(text, rf"\n(-\w, )?{option}\b", f"mrd {name}")

    def test_every_completion_has_every_command_with_every_option(self):
        for script, of_option in (("mrd.bash", "--{}"), ("_mrd", "--{}["), ("mrd.fish", "-l {} ")):
            text = (TEXTS / script).read_text(encoding="utf-8")
            for path, options in COMMANDS:
                for word in path:
                    self.assertRegex(text, rf"\b{word}\b", script)
                for option in options:
                    self.assertIn(of_option.format(option[2:]), text + " ", f"{script}: mrd {' '.join(path)}")

    def test_nothing_is_left_of_the_template(self):
        self.assertNotRegex(manual(), r"@[A-Z_]+@")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
