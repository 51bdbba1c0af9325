#!/usr/bin/env python3
"""make_icns.py TARGET PNG...: puts square PNG images into one icon file of macOS.

The file is the word "icns" and its own length, then the images; each has a four-letter type, which
says its size, and its length. Both lengths count their own eight bytes, big-endian."""
import pathlib
import struct
import sys

# Sizes in pixels and the types for them: as they are, and for screens of twice the density.
TYPES = {
    16: [b"icp4"],
    32: [b"icp5", b"ic11"],
    64: [b"ic12"],
    128: [b"ic07"],
    256: [b"ic08", b"ic13"],
    512: [b"ic09", b"ic14"],
}


def png_size(data):
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("no PNG image")
    width, height = struct.unpack(">II", data[16:24])
    if width != height or width not in TYPES:
        raise ValueError(f"{width} x {height} is no size of an icon")
    return width


def block(kind, data):
    return kind + struct.pack(">I", len(data) + 8) + data


def icns(images):
    return block(b"icns", b"".join(block(kind, image)
                                   for image in sorted(images, key=png_size)
                                   for kind in TYPES[png_size(image)]))


if __name__ == "__main__":
    target, *sources = [pathlib.Path(argument) for argument in sys.argv[1:]]
    target.write_bytes(icns([source.read_bytes() for source in sources]))
