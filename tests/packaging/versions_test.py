"""All texts of the package name the version of the build.

    versions_test.py VERSION
"""
import pathlib
import re
import sys

PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
PLACES = {
    "debian/changelog": r"^mirandel \(([0-9.]+)-[0-9]+\)",
    "example.mirandel.Mirandel.metainfo.xml": r'<releases>\s*<release version="([0-9.]+)"',
}

wrong = 0
for name, pattern in PLACES.items():
    found = re.search(pattern, (PACKAGING / name).read_text(encoding="utf-8"))
    if not found or found.group(1) != sys.argv[1]:
        print(f"packaging/{name} names {found.group(1) if found else 'no version'} first, and the build is {sys.argv[1]}")
        wrong = 1
sys.exit(wrong)
