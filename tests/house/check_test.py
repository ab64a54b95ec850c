"""Runs tools/check on small trees, each with one fault, and looks for the finding."""
import pathlib
import subprocess
import sys
import tempfile

SOUND = {
    "src/base/CMakeLists.txt": "mrd_library(mrd_base SOURCES text.cpp HEADERS text.h)\n",
    "src/base/text.h": "#pragma once\n#include <string>\n",
    "src/base/text.cpp": '#include "base/text.h"\n\n#include <utf8proc.h>\n',
    "src/pagetree/CMakeLists.txt": "mrd_library(mrd_pagetree\n  SOURCES tree.cpp HEADERS tree.h\n  USES mrd_base\n  VENDOR X::X)\n",
    "src/pagetree/tree.h": '#pragma once\n#include "base/text.h"\n',
    "src/pagetree/tree.cpp": '#include "pagetree/tree.h"\n#include <unistd.h>\n',
}

# What is changed in the sound tree, and what the check then says.
FAULTS = [
    ({"src/pagetree/tree.cpp": '#include "base/text.h"\n#include "pagetree/tree.h"\n'}, "does not include its own header first"),
    ({"src/pagetree/tree.h": '#include "base/text.h"\n'}, "lacks #pragma once"),
    ({"src/pagetree/tree.cpp": '#include "pagetree/tree.h"\n#include <sqlite3.h>\n'}, "<sqlite3.h> belongs into"),
    ({"src/pagetree/tree.cpp": '#include "pagetree/tree.h"\n#include <QString>\n'}, "<QString> belongs into"),
    ({"src/pagetree/tree.cpp": '#include "pagetree/tree.h"\n#include <strange.hpp>\n'}, "is in no list"),
    ({"src/base/text.h": "#pragma once\n#include <utf8proc.h>\n"}, "<utf8proc.h> belongs into"),
    ({"src/base/text.h": "#pragma once\n#include <unistd.h>\n"}, "<unistd.h> has no place in a header"),
    ({"src/pagetree/tree.h": '#pragma once\n#include "../base/text.h"\n'}, "is no path from src"),
    ({"src/base/text.cpp": '#include "base/text.h"\n#include "pagetree/tree.h"\n'}, "which mrd_base does not name"),
    ({"src/base/CMakeLists.txt": "mrd_library(mrd_base SOURCES text.cpp HEADERS text.h USES mrd_pagetree)\n"}, "which stands above it"),
    ({"src/pagetree/tree.h": "#pragma once\n"}, "names mrd_base and includes nothing of it"),
    ({"src/attic/CMakeLists.txt": "mrd_library(mrd_attic HEADERS old.h)\n"}, "has no floor"),
    ({"notes.txt": "TO" + "DO: later\n"}, "notes.txt:1: mentions unfinished work"),
    ({"notes.txt": "see Part " + "3.1\n"}, "mentions a numbered part"),
    ({"notes.txt": "as the spec" + "ification says\n"}, "mentions another text"),
    ({"notes.txt": "cd /work" + "/main\n"}, "mentions a path of one machine"),
]


def run(check, files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        result = subprocess.run([sys.executable, check, "--rules", folder], capture_output=True, text=True, check=False)
        return result.returncode, result.stdout + result.stderr


def main(check):
    failures = 0
    status, output = run(check, SOUND)
    if status != 0 or output:
        failures += 1
        print(f"a sound tree: status {status}, said:\n{output}")
    for change, expected in FAULTS:
        status, output = run(check, {**SOUND, **change})
        if status != 1 or expected not in output:
            failures += 1
            print(f"{change}: expected '{expected}', status {status}, said:\n{output}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
