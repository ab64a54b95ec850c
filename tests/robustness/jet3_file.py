"""Writes a small database in the Jet 3 format: as much of it as a reader of tables needs, in pages of 2,048 bytes."""

import datetime
import struct

PAGE = 2048
BIT, LONG, DOUBLE, DATE, TEXT, MEMO = 1, 4, 7, 8, 10, 12
WIDTHS = {BIT: 1, LONG: 4, DOUBLE: 8, DATE: 8}
FIXED, NULLABLE, COUNTER = 1, 2, 4
DELETED, MOVED = 0x8000, 0x4000
SYSTEM = 0x80000000
MEMO_IN_ROW, MEMO_ON_ONE_PAGE = 0x80000000, 0x40000000


def veil(data, key=b"\xc7\xda\x39\x6b"):
    """The header is enciphered (RC4); the same call lifts the veil."""
    box, j = list(range(256)), 0
    for i in range(256):
        j = (j + box[i] + key[i % len(key)]) % 256
        box[i], box[j] = box[j], box[i]
    out, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + box[i]) % 256
        box[i], box[j] = box[j], box[i]
        out.append(byte ^ box[(box[i] + box[j]) % 256])
    return bytes(out)


def header(password=""):
    plain = bytearray(126)
    struct.pack_into("<HH", plain, 0x3A - 0x18, 0x0407, 1252)
    plain[0x42 - 0x18:0x42 - 0x18 + len(password)] = password.encode("cp1252")
    page = bytearray(PAGE)
    page[:20] = b"\0\1\0\0Standard Jet DB\0"
    page[0x18:0x18 + 126] = veil(plain)
    return bytes(page)


class Jet3File:
    def __init__(self, password=""):
        self.pages = [header(password), bytes(PAGE), None]
        self.catalog = []

    def add(self, page):
        self.pages.append(page)
        return len(self.pages) - 1

    def table(self, name, columns, rows):
        """Columns are pairs of a name and a type, with COUNTER as a third of one that counts."""
        place = self.add(None)
        self.fill(place, columns, rows)
        self.catalog.append((place, 1, 0, name))

    def bytes(self):
        self.catalog.append((2, 1, SYSTEM - (1 << 32), "MSysObjects"))
        self.fill(2, [("Id", LONG), ("Type", LONG), ("Flags", LONG), ("Name", TEXT)], self.catalog)
        return b"".join(self.pages)

    def fill(self, place, columns, rows):
        packed = [self.row(columns, row) for row in rows]
        pages = []
        while packed:
            page, taken = data_page(struct.pack("<I", place), packed)
            pages.append(self.add(page))
            packed = packed[taken:]
        # A bit for each page behind the first that the map knows.
        bits, first = bytearray(128), pages[0] if pages else 0
        for number in pages:
            bits[(number - first) // 8] |= 1 << (number - first) % 8
        maps = self.add(data_page(b"\0\0\0\0", [b"\0" + struct.pack("<I", first) + bytes(bits)])[0])
        self.pages[place] = definition(columns, len(rows), maps)

    def row(self, columns, values):
        fixed, variable, mask = bytearray(), [], bytearray((len(columns) + 7) // 8)
        for number, ((_, kind, *_), value) in enumerate(zip(columns, values)):
            if value is not None and (kind != BIT or value):
                mask[number // 8] |= 1 << number % 8
            if kind == BIT:
                continue
            if kind in WIDTHS:
                fixed += struct.pack({LONG: "<i", DOUBLE: "<d", DATE: "<d"}[kind], days(value) if kind == DATE else value or 0)
            elif value is None:
                variable.append(b"")
            else:
                variable.append(value.encode("cp1252") if kind == TEXT else self.memo(value.encode("cp1252")))
        out = bytes([len(columns)]) + bytes(fixed)
        ends = [len(out)]
        for content in variable:
            out += content
            ends.append(len(out))
        # From the end: mask, number of variable columns, jumps, places of the columns, each modulo 256.
        tail = bytes(end % 256 for end in reversed(ends))
        jumps = (len(out) + len(tail) + 1 + len(mask)) // 256
        places = [next((i for i, end in enumerate(ends) if end >= 256 * (jump + 1)), 255) for jump in range(jumps)]
        return out + tail + bytes(reversed(places)) + bytes([len(variable)]) + bytes(mask)

    def memo(self, content):
        if len(content) <= 60:
            return struct.pack("<III", len(content) | MEMO_IN_ROW, 0, 0) + content
        if len(content) <= 1500:
            page = self.add(data_page(b"LVAL", [content])[0])
            return struct.pack("<III", len(content) | MEMO_ON_ONE_PAGE, page << 8, 0)
        following = 0
        for start in reversed(range(0, len(content), 1500)):
            piece = struct.pack("<I", following) + content[start:start + 1500]
            following = self.add(data_page(b"LVAL", [piece])[0]) << 8
        return struct.pack("<III", len(content), following, 0)


def days(moment):
    return (moment - datetime.datetime(1899, 12, 30)) / datetime.timedelta(days=1) if moment else 0.0


def data_page(owner, rows):
    """As many of the rows as find room, from the page's end; their number is the second result. A row may be a pair with its flags."""
    page, end = bytearray(PAGE), PAGE
    for number, row in enumerate(rows):
        content, flags = row if isinstance(row, tuple) else (row, 0)
        if end - len(content) < 12 + 2 * len(rows[:number + 1]):
            rows = rows[:number]
            break
        end -= len(content)
        page[end:end + len(content)] = content
        struct.pack_into("<H", page, 10 + 2 * number, end | flags)
    page[:4] = b"\1\1\0\0"
    page[4:8] = owner
    struct.pack_into("<H", page, 8, len(rows))
    return bytes(page), len(rows)


def definition(columns, rows, maps):
    page = bytearray(PAGE)
    page[:4] = b"\2\1VC"
    variable = sum(kind not in WIDTHS for _, kind, *_ in columns)
    struct.pack_into("<I", page, 12, rows)
    page[20] = 0x4E
    struct.pack_into("<HHHIIII", page, 21, len(columns), variable, len(columns), 0, 0, maps << 8, maps << 8)
    place, offset, slot = 43, 0, 0
    for number, (_, kind, *more) in enumerate(columns):
        fixed = kind in WIDTHS
        flags = NULLABLE | (FIXED if fixed else 0) | (more[0] if more else 0)
        struct.pack_into("<BHHHHHHBHH", page, place, kind, number, 0 if fixed else slot, number, 0x0409, 1252, 0, flags,
                         offset if fixed else 0, WIDTHS.get(kind, 255 if kind == TEXT else 0))
        place += 18
        slot += not fixed
        offset += WIDTHS[kind] if fixed and kind != BIT else 0
    for name, *_ in columns:
        name = name.encode("cp1252")
        page[place] = len(name)
        page[place + 1:place + 1 + len(name)] = name
        place += 1 + len(name)
    struct.pack_into("<I", page, 8, place)
    return bytes(page)
