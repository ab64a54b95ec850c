"""Runs one command line script in a directory of its own and compares what the commands print.

    run_script.py PROGRAM_DIR SCRIPT

A script is a text of lines:

    # a comment
    <<< NAME        the lines up to >>> are written to the file NAME
    >>>
    $ COMMAND       run by the shell; `mrd` is the program under test, $TOP the directory, $MIRANDEL_HOME its program directory,
                    $DATA the folder with old databases
    TEXT            a line of standard output that the command must print
    ! TEXT          a line of standard error
    ? N             its exit status, 0 where it is not given

In expected lines {*} stands for any text, {TOP} and {TOP\\} for the directory in native form and in the form of project files. Output that begins like another line ("$ ", "#",
"! ", "? ") stands behind a backslash. Blank lines between commands mean nothing; `\\` alone expects an empty line.
"""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

PROGRAMS = ("mrd", "mirandel")
SECONDS_FOR_A_COMMAND = 60
DATA = pathlib.Path(__file__).resolve().parent.parent / "data" / "jet"


class Step:
    def __init__(self, number, command):
        self.number, self.command = number, command
        self.output, self.errors, self.status = [], [], 0


def parse(text):
    """Steps and files in the order in which they stand; a file is a pair of name and content."""
    lines = iter(enumerate(text.splitlines(), 1))
    for number, line in lines:
        if line.startswith("<<< "):
            content = []
            for _, inner in lines:
                if inner == ">>>":
                    break
                content.append(inner + "\n")
            yield line[4:], "".join(content)
        elif line.startswith("$ "):
            yield Step(number, line[2:])
        elif line and not line.startswith("#"):
            yield number, line


def read_script(text):
    items = []
    for item in parse(text):
        if isinstance(item, Step) or isinstance(item[0], str):
            items.append(item)
            continue
        number, line = item
        if not items or not isinstance(items[-1], Step):
            raise SystemExit(f"line {number}: expected output stands behind no command")
        step = items[-1]
        if line.startswith("! "):
            step.errors.append(line[2:])
        elif line.startswith("? "):
            step.status = int(line[2:])
        else:
            step.output.append(line[1:] if line.startswith("\\") else line)
    return items


def matches(expected, actual):
    if len(expected) != len(actual):
        return False
    patterns = (".*".join(re.escape(piece) for piece in line.split("{*}")) for line in expected)
    return all(re.fullmatch(pattern, line, re.DOTALL) for pattern, line in zip(patterns, actual))


def show(step, what, expected, actual):
    print(f"line {step.number}: {step.command}\n{what} differs:")
    print("\n".join(difflib.unified_diff(expected, actual, "expected", "printed", lineterm="")))


def run(step, top, environment):
    done = subprocess.run(["sh", "-c", step.command], cwd=top, env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=SECONDS_FOR_A_COMMAND)
    passed = done.returncode == step.status
    if not passed:
        print(f"line {step.number}: {step.command}\nended with {done.returncode} and not with {step.status}")
    for what, expected, printed in (("standard output", step.output, done.stdout), ("standard error", step.errors, done.stderr)):
        expected = [line.replace("{TOP}", str(top)).replace("{TOP\\}", str(top).replace("/", "\\")) for line in expected]
        actual = printed.decode("utf-8", "backslashreplace").split("\n")
        if actual[-1] == "":
            actual.pop()
        if not matches(expected, actual):
            show(step, what, expected, actual)
            passed = False
    return passed


def environment_for(top, program_dir, home):
    return {"PATH": f"{program_dir}:{os.environ['PATH']}", "MIRANDEL_HOME": str(home), "HOME": str(top / ".user"), "TOP": str(top), "DATA": str(DATA),
            "LC_ALL": "C.UTF-8", "TZ": "UTC", "SOURCE_DATE_EPOCH": "1050570306",
            **{name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}}


def main(program_dir, script):
    items = read_script(pathlib.Path(script).read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory(prefix="mirandel-script-") as directory:
        top = pathlib.Path(directory).resolve() / "work"
        home = top.parent / "program"
        top.mkdir()
        shutil.copytree(program_dir, home, ignore=shutil.ignore_patterns(*PROGRAMS, "*.INI", "exportpfad"))
        environment = environment_for(top, program_dir, home)
        for item in items:
            if not isinstance(item, Step):
                target = top / item[0]
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_text(item[1], encoding="utf-8")
            elif not run(item, top, environment):
                return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
