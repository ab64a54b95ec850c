#!/usr/bin/env python3
"""Compares the GIF files of `mrd pictures gif` with those of a second implementation, byte for byte, on random pictures.

    gif_compare.py --mrd PROGRAM [--seeds N] [--first SEED]

Sources are PNG files of own making: 24 bits, and with a colour table. What is written is decoded by an independent decoder as well.
"""
import argparse
import random
import subprocess
import sys
import tempfile
import zlib
from pathlib import Path

import gif_reference as reference

SIDES = (1, 2, 3, 8, 60, 119, 120)


def chunk(kind, data):
    return len(data).to_bytes(4, "big") + kind + data + zlib.crc32(kind + data).to_bytes(4, "big")


def png(rows, palette):
    """A PNG file of colours, with numbers of the table where there is one."""
    head = len(rows[0]).to_bytes(4, "big") + len(rows).to_bytes(4, "big") + bytes([8, 3 if palette else 2, 0, 0, 0])
    if palette:
        lines = [bytes(palette.index(colour) for colour in row) for row in rows]
    else:
        lines = [b"".join(bytes(colour) for colour in row) for row in rows]
    out = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head)
    if palette:
        out += chunk(b"PLTE", b"".join(bytes(colour) for colour in palette))
    return out + chunk(b"IDAT", zlib.compress(b"".join(b"\0" + line for line in lines))) + chunk(b"IEND", b"")


def random_colours(rng):
    count = rng.choice((1, 2, 3, 16, 255, 256, 4000))
    return [tuple(rng.choice((rng.randrange(256), rng.choice((0, 31, 32, 33, 95, 96, 97, 160, 223, 224, 255)))) for _ in range(3))
            for _ in range(count)]


def random_rows(rng, colours):
    """From noise to long runs of one colour."""
    width, height = rng.choice(SIDES), rng.choice(SIDES)
    change = rng.choice((1.0, 0.3, 0.02))
    rows, colour = [], rng.choice(colours)
    for _ in range(height):
        row = []
        for _ in range(width):
            if rng.random() < change:
                colour = rng.choice(colours)
            row.append(colour)
        rows.append(row)
    return rows


def difference(mrd, directory, seed):
    """What is wrong for a seed, or nothing."""
    rng = random.Random(seed)
    colours = random_colours(rng)
    rows = random_rows(rng, colours)
    palette = list(dict.fromkeys(colours)) if len(colours) <= 256 and rng.random() < 0.5 else None
    source, target = directory / "quelle.png", directory / "ziel.gif"
    source.write_bytes(png(rows, palette))
    done = subprocess.run([mrd, "pictures", "gif", str(source), str(target)], capture_output=True, text=True, timeout=60)
    if done.returncode != 0:
        return done.stderr.strip()
    written, expected = target.read_bytes(), reference.encode_colours(rows, palette)
    if written != expected:
        at = next((i for i, pair in enumerate(zip(written, expected)) if pair[0] != pair[1]), min(len(written), len(expected)))
        return f"byte {at} of {len(written)}, {len(expected)} expected"
    table = palette or reference.cube()
    shown = [[table[reference.nearest(colour, table)] for colour in row] for row in rows[:3]]
    width, height, decoded = reference.decode(written)
    if (width, height) != (len(rows[0]), len(rows)) or decoded[:3] != shown:
        return "the decoded picture is another one"
    return None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--mrd", required=True)
    parser.add_argument("--seeds", type=int, default=100)
    parser.add_argument("--first", type=int, default=0)
    arguments = parser.parse_args()
    failed = 0
    with tempfile.TemporaryDirectory() as directory:
        for seed in range(arguments.first, arguments.first + arguments.seeds):
            found = difference(arguments.mrd, Path(directory), seed)
            if found:
                failed += 1
                print(f"seed {seed}: {found}")
    print(f"{arguments.seeds} pictures, {failed} differ")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
