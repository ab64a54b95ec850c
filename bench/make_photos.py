#!/usr/bin/env python3
"""Makes photographs for timing: JPEG files of 12 megapixels with large soft shapes and fine noise, so that they cost about as much
to decode as a camera's (3 to 4 MB each, quality 90, 4:2:0). No two are the same; the same number always gives the same picture.

  bench/make_photos.py DIR [--count 60] [--size 4000x3000]

Needs ImageMagick (convert) and libvips-tools (vips). About 2 s a picture; those that are there are kept.
"""
import argparse
import os
import shutil
import subprocess
import sys
import tempfile


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def make(number, target, width, height, work):
    base, large, noise, both, picture = (os.path.join(work, name) for name in ("b.png", "r.v", "n.v", "s.v", "p.jpg"))
    # Soft coloured shapes, sharper in every third picture.
    plasma = "plasma:fractal" if number % 3 == 0 else "plasma:"
    run("convert", "-seed", str(number), "-size", f"{width // 4}x{height // 4}", plasma, "-depth", "8", "png24:" + base)
    run("vips", "resize", base, large, "4", "--kernel", "cubic")
    run("vips", "gaussnoise", noise, str(width), str(height), "--mean", "0", "--sigma", str(4 + number % 4), "--seed", str(number))
    run("vips", "add", large, noise, both)
    run("vips", "cast", both, picture + "[Q=90,subsample-mode=on]", "uchar")
    shutil.move(picture, target)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("directory")
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--size", default="4000x3000")
    arguments = parser.parse_args()
    for tool in ("convert", "vips"):
        if not shutil.which(tool):
            sys.exit(f"needs {tool}")
    width, height = map(int, arguments.size.split("x"))
    os.makedirs(arguments.directory, exist_ok=True)
    with tempfile.TemporaryDirectory() as work:
        for number in range(1, arguments.count + 1):
            target = os.path.join(arguments.directory, f"IMG_{number:04}.JPG")
            if not os.path.isfile(target):
                make(number, target, width, height, work)


if __name__ == "__main__":
    main()
