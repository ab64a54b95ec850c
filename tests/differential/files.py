"""Paths in the form of the system (backslashes) and the files behind them, found whatever the case of the path."""
import codecs
import os
import re
import shutil
from urllib.parse import unquote_to_bytes

DRIVE = re.compile(r"[A-Za-z]:")
SCHEME = re.compile(r"([A-Za-z][A-Za-z0-9+.\-]+):")        # two letters and more: one letter is a drive


def own_form(native):
    return native.replace("/", "\\")


def native(path):
    """The native path; parts that exist in another case only are taken in that case."""
    if DRIVE.match(path):
        return "/no drives here/" + path
    here = "/"
    for part in path.replace("\\", "/").split("/"):
        if part in ("", "."):
            continue
        exact = os.path.join(here, part)
        if part != ".." and not os.path.lexists(exact) and os.path.isdir(here):
            exact = next((os.path.join(here, n) for n in sorted(os.listdir(here)) if n.lower() == part.lower()), exact)
        here = os.path.normpath(exact)
    return here


def file_exists(path):
    return os.path.isfile(native(path))


def directory_exists(path):
    return os.path.isdir(native(path))


def copy_file(source, target):
    shutil.copyfile(native(source), native(target))


def split_path(path):
    """Directory, name, extension by the rules of the program, a lost long extension and a name without directory included."""
    extension = ""
    for at in range(len(path) - 1, -1, -1):
        if path[at] == "\\":
            break
        if path[at] == ".":
            extension, path = path[at + 1:], path[:at]
            break
    if len(extension) > 4:
        extension = extension[:extension.find(" ") + 1]
    cut = path.rfind("\\") + 1
    directory, name = (path[:cut], path[cut:]) if cut else (path, "")
    if not name:
        directory, name = "", directory
    return directory, name, extension


def _as_windows_1252(error):
    return error.object[error.start:error.end].decode("cp1252", "replace"), error.end


codecs.register_error("windows-1252", _as_windows_1252)


def decoded(reference):
    """Percent signs decoded; bytes that are no UTF-8 are taken as Windows-1252."""
    return unquote_to_bytes(reference).decode("utf-8", "windows-1252")


def rooted(rest):
    """What stands behind `file:` and its slashes: behind a drive nothing is to be added, elsewhere the root is."""
    return rest if DRIVE.match(rest) or rest[:1] in ("/", "\\") else "\\" + rest


def reference_path(reference, base):
    """Path of a reference without a scheme or with `file:`; `base` is the directory of the page."""
    if reference.startswith("file:"):
        path = rooted(decoded(reference[5:].lstrip("/\\")))
    else:
        path = decoded(reference)
        if not DRIVE.match(path) and path[:1] not in ("/", "\\"):
            path = base + path
    return path.replace("/", "\\")
