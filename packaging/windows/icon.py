#!/usr/bin/env python3
"""Makes an icon file for Windows from an SVG drawing.

    packaging/windows/icon.py DRAWING.svg ICON.ico

Each size is drawn on its own, and stored as PNG, which Windows reads since Vista.
"""

import struct
import subprocess
import sys

SIZES = (16, 24, 32, 48, 64, 256)
HEADER = struct.Struct("<HHH")
ENTRY = struct.Struct("<BBBBHHII")


def main():
    drawing, icon = sys.argv[1:]
    pictures = [
        subprocess.run(
            ["rsvg-convert", "-w", str(size), "-h", str(size), drawing],
            check=True,
            stdout=subprocess.PIPE,
        ).stdout
        for size in SIZES
    ]
    offset = HEADER.size + len(SIZES) * ENTRY.size
    directory = HEADER.pack(0, 1, len(SIZES))
    for size, picture in zip(SIZES, pictures):
        # 0 stands for 256.
        directory += ENTRY.pack(size % 256, size % 256, 0, 0, 1, 32, len(picture), offset)
        offset += len(picture)
    with open(icon, "wb") as file:
        file.write(directory + b"".join(pictures))


main()
