#!/usr/bin/env python3
"""The demo project's whole site, compared byte for byte with the one that is kept here.

  golden_site.py compare MRD GOLDEN      exit status 1 and a unified diff when they differ
  golden_site.py write MRD GOLDEN        keeps the present site

MRD is the command line program beside its resources, GOLDEN the directory of the kept site, called after its layout: pages as they are, files that were
copied by name and origin in copied.tsv, other pictures by name and checksum in pictures.sha256, the file register in
register.tsv, what the program said in said.txt.
"""
import difflib
import hashlib
import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD_DEMO = ROOT / "tools" / "build-demo"
# The moment at which the kept site was generated: 1 June 2024, 10:00 UTC.
MOMENT = "1717236000"
ENVIRONMENT = {"SOURCE_DATE_EPOCH": MOMENT, "TZ": "Europe/Berlin", "LC_ALL": "C.UTF-8"}
TEXT = {".htm", ".html", ".js", ".css", ".php"}
# Layout and page-turn style of a kept site, by the name of its directory: each style is met once.
LAYOUTS = {
    "navigationlinks": ("Navigation linke Seite", 0), "tabnavigation": ("Navigation in Laschen oben", 0),
    "sparta": ("ohne alles", 2), "einfachetabelle": ("einfache Tabelle", 4),
    "modern": ("Modern (modern.xml)", 1), "galerie": ("Galerie (galerie.xml)", 3),
}
COPIED, PICTURES, REGISTER, SAID = "copied.tsv", "pictures.sha256", "register.tsv", "said.txt"


def run(command):
    """What a command says; the end of the program when it fails."""
    said = subprocess.run(command, env={**os.environ, **ENVIRONMENT}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if said.returncode != 0:
        sys.exit("failed: %s\n%s" % (" ".join(command), said.stdout.decode("utf-8", "replace")))
    return said.stdout


def generate_again(mrd, site, project, layout):
    """The site in another layout, without what the first run wrote."""
    name, style = LAYOUTS[layout]
    run([mrd, "settings", str(project), "grundlayout=" + name, "blättern=%d" % style])
    for file in [*site.iterdir(), *(site / "pix").glob("ecke-*")]:
        if file.is_file():
            file.unlink()
    return run([mrd, "generate", str(project), "--export", str(site)])


def generated(mrd, layout):
    """The site as it is kept: bytes by file name."""
    with tempfile.TemporaryDirectory(prefix="mrd-golden-") as folder:
        site, project = Path(folder) / "web", Path(folder) / "moewe.mdb"
        said = run(["sh", str(BUILD_DEMO), mrd, str(site), str(project)])
        if layout != "navigationlinks":
            said = generate_again(mrd, site, project, layout)
        copied = origins(site, Path(mrd).parent)
        generated_files = [file for file in files_of(site) if name_in(site, file) not in copied]
        kept = {SAID: said, REGISTER: register(project, site), COPIED: table(copied.items()),
                PICTURES: checksums(site, [file for file in generated_files if file.suffix not in TEXT])}
        kept.update((name_in(site, file), file.read_bytes()) for file in generated_files if file.suffix in TEXT)
        refuse_traces(kept, folder)
        return kept


def files_of(folder):
    return sorted(file for file in folder.rglob("*") if file.is_file())


def name_in(site, file):
    return file.relative_to(site).as_posix()


def table(rows):
    return "".join("\t".join(row) + "\n" for row in rows).encode()


def origins(site, program):
    """Where each file comes from that equals one of the same place and name in the demo or in the program directory."""
    found = {}
    for file in files_of(site):
        name = name_in(site, file)
        for origin, where in (("demo", ROOT / "demo" / name), ("program", program / name), ("program", program / file.name)):
            if where.is_file() and where.read_bytes() == file.read_bytes():
                found[name] = origin
                break
    return found


def checksums(site, files):
    return "".join("%s  %s\n" % (hashlib.sha256(file.read_bytes()).hexdigest(), name_in(site, file)) for file in files).encode()


def register(project, site):
    """The rows of the register in their order of entry, without the export directory and the dates, which are the files' own."""
    base = str(site).replace("/", "\\").lower() + "\\"
    database = sqlite3.connect(project)
    rows = database.execute('SELECT pfad, dateiname, erweiterung, "dateityp-id", "übertragen" FROM Dateien ORDER BY rowid')
    kept = table((path.removeprefix(base), name, extension or "", str(kind), str(due))
                 for path, name, extension, kind, due in rows)
    database.close()
    return kept


def refuse_traces(kept, folder):
    """Where a site was generated must not be readable in it."""
    for name, content in kept.items():
        text = content.decode("cp1252", "replace").replace("\\", "/")
        if folder in text or Path(folder).name in text:
            sys.exit("%s holds the path of the directory that it was generated in" % name)


def kept_site(golden):
    return {str(file.relative_to(golden)): file.read_bytes() for file in files_of(golden)}


def readable(content, name):
    encoding = "utf-8" if name in (COPIED, PICTURES, REGISTER, SAID) else "cp1252"
    return content.decode(encoding, "replace").splitlines(keepends=True)


def differences(kept, present):
    """A unified diff; bytes that look alike as text are told by their place."""
    for name in sorted(kept.keys() | present.keys()):
        before, after = kept.get(name, b""), present.get(name, b"")
        if before == after and name in kept and name in present:
            continue
        lines = list(difflib.unified_diff(readable(before, name), readable(after, name), "kept/" + name, "present/" + name))
        for line in lines:
            yield line if line.endswith("\n") else line + "\n\\ No newline at end of file\n"
        if not lines:
            place = next((i for i, pair in enumerate(zip(before, after)) if pair[0] != pair[1]), min(len(before), len(after)))
            yield "%s: %s\n" % (name, "only on one side" if before == after else "differs at byte %d" % place)


def compare(mrd, golden):
    found = list(differences(kept_site(golden), generated(mrd, golden.name)))
    sys.stdout.reconfigure(encoding="utf-8", newline="")
    sys.stdout.writelines(found)
    if found:
        sys.exit("The site differs from the kept one. If that is meant: tools/rebaseline")


def write(mrd, golden):
    present = generated(mrd, golden.name)
    if golden.exists():
        shutil.rmtree(golden)
    for name, content in present.items():
        (golden / name).parent.mkdir(parents=True, exist_ok=True)
        (golden / name).write_bytes(content)


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in ("compare", "write"):
        sys.exit(__doc__)
    {"compare": compare, "write": write}[sys.argv[1]](sys.argv[2], Path(sys.argv[3]))
