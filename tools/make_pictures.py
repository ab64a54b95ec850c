#!/usr/bin/env python3
"""Draws the small GIF pictures of the program directory and writes them byte for byte the same each time.

  make_pictures.py [--check] [DIRECTORY]      DIRECTORY: resources/pix beside this script's folder

With --check nothing is written; the exit status says whether the files are what this script draws. Standard library only.

A picture is a list of shapes in pixel units, painted one over the other. Each pixel is sampled at 6 x 6 points; the mean of
its samples is its colour, and it is transparent where less than half of them hit a shape.
"""
import math
import os
import sys

BLUE, DEEP, PALE, WHITE, INK = (0x2f, 0x6f, 0xa0), (0x1d, 0x4a, 0x70), (0xd6, 0xe6, 0xf2), (255, 255, 255), (0x24, 0x2c, 0x34)
SAND, RED, STEEL = (0xf3, 0xe3, 0xb8), (0xc2, 0x3b, 0x22), (0x8c, 0x98, 0xa4)
SAMPLES = 6


# --- shapes: functions that say whether a point lies inside -----------------------------------------------------------

def disc(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def ring(cx, cy, outer, inner):
    return lambda x, y: inner * inner <= (x - cx) ** 2 + (y - cy) ** 2 <= outer * outer


def box(x0, y0, x1, y1):
    return lambda x, y: x0 <= x <= x1 and y0 <= y <= y1


def polygon(*points):
    def inside(x, y):
        hit = False
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
                hit = not hit
        return hit
    return inside


def stroke(x0, y0, x1, y1, width):
    length = math.hypot(x1 - x0, y1 - y0)
    dx, dy = (x1 - x0) / length, (y1 - y0) / length

    def inside(x, y):
        along = (x - x0) * dx + (y - y0) * dy
        across = (x - x0) * dy - (y - y0) * dx
        return 0 <= along <= length and abs(across) <= width / 2
    return inside


def turned(points, quarter_turns, centre):
    """The points turned clockwise about the centre."""
    for _ in range(quarter_turns):
        points = [(centre - (y - centre), x) for x, y in points]
    return points


# --- the pictures: size and shapes ------------------------------------------------------------------------------------

def button(*signs):
    """A round sign of 24 pixels: white on blue."""
    return (24, 24, [(DEEP, disc(12, 12, 11.3)), (BLUE, disc(12, 12, 10.2))] + [(WHITE, sign) for sign in signs])


def arrow(quarter_turns):
    """Points up before it is turned."""
    points = [(12, 5.4), (18.2, 12.2), (14.2, 12.2), (14.2, 18.4), (9.8, 18.4), (9.8, 12.2), (5.8, 12.2)]
    return polygon(*turned(points, quarter_turns, 12))


LETTERS = {  # 7 rows each, one text per letter
    "m": "..... ..... ##.#. #.#.# #.#.# #.#.# #.#.#", "a": ".... .... .##. ...# .### #..# .###",
    "d": "...# ...# .### #..# #..# #..# .###", "e": ".... .... .##. #..# #### #... .###",
    "w": "..... ..... #.#.# #.#.# #.#.# #.#.# .#.#.", "i": "# . # # # # #", "t": ".#. .#. ### .#. .#. .#. .##",
    "h": "#... #... ###. #..# #..# #..# #..#", "M": "#...# ##.## #.#.# #.#.# #...# #...# #...#",
    "r": "... ... #.# ##. #.. #.. #..", "n": ".... .... ###. #..# #..# #..# #..#", "l": "# # # # # # #",
    " ": ".. .. .. .. .. .. ..",
}


def lettering(text, x, y, size):
    boxes = []
    for letter in text:
        rows = LETTERS[letter].split()
        boxes += [box(x + i * size, y + j * size, x + (i + 1) * size, y + (j + 1) * size)
                  for j, row in enumerate(rows) for i, dot in enumerate(row) if dot == "#"]
        x += (len(rows[0]) + 1) * size
    return lambda px, py: any(b(px, py) for b in boxes)


def banner():
    wave = lambda height, phase: lambda x, y: y >= height + 1.6 * math.sin(x / 7 + phase)
    return (120, 40, [
        (DEEP, box(0, 0, 120, 40)), (PALE, box(1, 1, 119, 39)),
        (SAND, lambda x, y: disc(100, 17, 8)(x, y)),
        (BLUE, lambda x, y: box(1, 1, 119, 39)(x, y) and wave(30.5, 0)(x, y)),
        (DEEP, lambda x, y: box(1, 1, 119, 39)(x, y) and wave(35, 2)(x, y)),
        (INK, lettering("made with", 8, 4, 1)),
        (DEEP, lettering("Mirandel", 8, 13, 2)),
    ])


PICTURES = {
    "pixel.gif": (1, 1, []),
    "nav_links.gif": button(arrow(3)),
    "nav_rechts.gif": button(arrow(1)),
    "nav_oben.gif": button(arrow(0)),
    "nav_top.gif": button(box(6, 5.4, 18, 7.6), polygon((12, 8.6), (18.2, 15), (14.2, 15), (14.2, 19), (9.8, 19), (9.8, 15),
        (5.8, 15))),
    "nav_home.gif": (24, 24, button(polygon((12, 4.6), (20, 12), (4, 12)), box(6.4, 12, 17.6, 18.4))[2]
                     + [(BLUE, box(10.6, 13.6, 13.4, 18.4))]),
    "lupe.gif": (20, 20, [(INK, stroke(11.6, 11.6, 18.6, 18.6, 3.4)), (INK, disc(8, 8, 7.2)), (PALE, disc(8, 8, 5.4)),
                          (INK, box(4.9, 7.2, 11.1, 8.8)), (INK, box(7.2, 4.9, 8.8, 11.1))]),
    "karre.gif": (22, 20, [
        (INK, stroke(0.6, 2.4, 4.6, 2.4, 1.8)), (INK, stroke(3.8, 2, 7.4, 13.8, 1.8)), (INK, box(6.4, 12.8, 18.6, 14.4)),
        (RED, polygon((5.2, 4.4), (21, 4.4), (18.4, 11.4), (7.4, 11.4))),
        (WHITE, stroke(10.4, 4.4, 11.2, 11.4, 0.9)), (WHITE, stroke(15.8, 4.4, 15, 11.4, 0.9)), (WHITE, box(6, 7.5, 19.8, 8.2)),
        (INK, disc(8.8, 17, 2.2)), (INK, disc(16.4, 17, 2.2)), (STEEL, disc(8.8, 17, 0.8)), (STEEL, disc(16.4, 17, 0.8))]),
    "mrdbanner.gif": banner(),
}


# --- from shapes to bytes ---------------------------------------------------------------------------------------------

def pixel_colour(shapes, px, py):
    """None where the picture is transparent. Colours are coarsened so that few of them make the table."""
    hits = []
    for sy in range(SAMPLES):
        for sx in range(SAMPLES):
            x, y = px + (sx + 0.5) / SAMPLES, py + (sy + 0.5) / SAMPLES
            found = [colour for colour, inside in shapes if inside(x, y)]
            if found:
                hits.append(found[-1])
    if 2 * len(hits) < SAMPLES * SAMPLES:
        return None
    return tuple(min(255, 8 * round(sum(c[k] for c in hits) / len(hits) / 8)) for k in range(3))


def lzw(indexes, code_size):
    """The compressed raster data in sub-blocks of at most 255 bytes."""
    clear, end = 1 << code_size, (1 << code_size) + 1
    out, bits, held = bytearray(), 0, 0

    def put(code, width):
        nonlocal bits, held
        bits |= code << held
        held += width
        while held >= 8:
            out.append(bits & 255)
            bits >>= 8
            held -= 8

    table, width = {(i,): i for i in range(clear)}, code_size + 1
    put(clear, width)
    word, following = (), end + 1
    for index in indexes:
        longer = word + (index,)
        if longer in table:
            word = longer
            continue
        put(table[word], width)
        table[longer] = following
        if following == 1 << width:
            width += 1
        following += 1
        if following == 4095:
            put(clear, width)
            table, width, following = {(i,): i for i in range(clear)}, code_size + 1, end + 1
        word = (index,)
    put(table[word], width)
    put(end, width)
    if held:
        out.append(bits & 255)
    blocks = b"".join(bytes([len(out[i:i + 255])]) + bytes(out[i:i + 255]) for i in range(0, len(out), 255))
    return bytes([code_size]) + blocks + b"\0"


def gif(width, height, shapes):
    pixels = [pixel_colour(shapes, x, y) for y in range(height) for x in range(width)]
    colours = sorted({p for p in pixels if p is not None})
    table = [(255, 255, 255)] + colours                                   # entry 0 is the transparent one
    if len(table) > 256:
        sys.exit("too many colours for a GIF")
    depth = max(1, (len(table) - 1).bit_length())
    place = {colour: i + 1 for i, colour in enumerate(colours)}
    word = lambda n: n.to_bytes(2, "little")
    palette = b"".join(bytes(c) for c in table + [(0, 0, 0)] * ((1 << depth) - len(table)))
    return (b"GIF89a" + word(width) + word(height) + bytes([0xf0 | (depth - 1), 0, 0]) + palette
            + b"\x21\xf9\x04\x01\0\0\0\0" + b"\x2c" + word(0) + word(0) + word(width) + word(height) + b"\0"
            + lzw([0 if p is None else place[p] for p in pixels], max(2, depth)) + b"\x3b")


def main():
    words = [w for w in sys.argv[1:] if w != "--check"]
    check = len(words) < len(sys.argv) - 1
    directory = words[0] if words else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "resources", "pix")
    for name, picture in PICTURES.items():
        path, data = os.path.join(directory, name), gif(*picture)
        if not check:
            with open(path, "wb") as file:
                file.write(data)
        elif not os.path.isfile(path) or open(path, "rb").read() != data:
            sys.exit("%s is not what tools/make_pictures.py draws" % name)


if __name__ == "__main__":
    main()
