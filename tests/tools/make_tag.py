#!/usr/bin/env python3
"""Puts an ID3v2 tag as people's files have it in front of MPEG audio: make_tag.py KIND AUDIO OUT."""
import sys
import zlib

from mutagen import id3
from mutagen.id3._util import unsynch

# A grey dot as PNG; what follows it looks like MPEG audio and like frames in places.
DOT = bytes.fromhex(
    "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b550000000a494441"
    "54789c636000000002000148afa4710000000049454e44ae426082")
PICTURE = DOT + b"\xff\xe0\0" + bytes(range(256)) * 3 + b"TIT2\xff\xff\0TPE1\xff\xd9"
SECOND_PICTURE = DOT + PICTURE[::-1]


def frames(encoding):
    return [
        id3.TIT2(encoding, "Caffè nero"),
        id3.TPE1(encoding, ["Łukasz", "Zoë"]),
        id3.TCOM(encoding, "Contè"),
        id3.TBPM(encoding, "128.00"),
        id3.TKEY(encoding, "F#m"),
        id3.TLEN(encoding, "215999"),
        id3.TALB(encoding, "Città " * 60),
        id3.TDRC(encoding, "1987-06-05"),
        id3.COMM(encoding, "ita", "nota", "TCON TIT2 " * 30),
        id3.USLT(encoding, "ita", "", "Via via,\nvieni via di qui"),
        id3.TXXX(encoding, "REPLAYGAIN", ["-7 dB", "x"]),
        id3.PRIV("owner", b"\xff\xfb\x90\0\0" * 40),
        id3.APIC(encoding, "image/png", 3, "davanti", PICTURE),
        id3.APIC(encoding, "image/png", 4, "dietro", SECOND_PICTURE),
    ]


def groups(size):
    return bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0))


def tag(version, body, flags=0):
    return b"ID3" + bytes([version, 0, flags]) + groups(len(body)) + body


def by_mutagen(version, encoding, out):
    tags = id3.ID3()
    for frame in frames(encoding):
        tags.add(frame)
    if version == 3:
        tags.update_to_v23()
    tags.save(out, v1=0, v2_version=version, v23_sep=None)


def body_by_mutagen(version, encoding, out):
    by_mutagen(version, encoding, out)
    with open(out, "rb") as file:
        head = file.read(10)
        size = sum((byte & 0x7F) << shift for byte, shift in zip(head[6:], (21, 14, 7, 0)))
        return file.read(size)


def frame4(name, content, flags=0):
    return name + groups(len(content)) + bytes([0, flags]) + content


def frame2(name, content):
    return name + len(content).to_bytes(3, "big") + content


def special4():
    """Frames of version 4 that are compressed, unsynchronised, with data lengths."""
    title = b"\3" + "Caffè nero".encode()
    picture = b"\0image/png\0\3\0" + PICTURE
    return b"".join([
        frame4(b"TIT2", groups(len(title)) + zlib.compress(title), 0x09),
        frame4(b"TPE1", groups(4) + b"\0Zo\xeb", 0x01),
        frame4(b"TCOM", b"\0Conte"),
        frame4(b"APIC", groups(len(picture)) + unsynch.encode(picture), 0x03),
        frame4(b"TALB", b"\0" + b"Album " * 50),
    ])


def old2(extra):
    return b"".join([
        frame2(b"TT2", b"\1\xff\xfe" + "Caffè nero".encode("utf-16-le")),
        extra,
        frame2(b"TP1", b"\0Zo\xeb"),
        frame2(b"TAL", b"\0" + b"Album " * 50),
        frame2(b"PIC", b"\0PNG\3\0" + PICTURE),
        frame2(b"COM", b"\0ita\0nota"),
    ])


def main(kind, audio, out):
    with open(audio, "rb") as file:
        sound = file.read()
    with open(out, "wb") as file:
        file.write(sound)
    made = None
    if kind == "v23-utf16":
        by_mutagen(3, 1, out)
    elif kind == "v24-utf8":
        by_mutagen(4, 3, out)
    elif kind == "v24-utf16":
        by_mutagen(4, 1, out)
    elif kind == "v23-unsynchronised":
        made = tag(3, unsynch.encode(body_by_mutagen(3, 1, out)), 0x80)
    elif kind == "v23-extended":
        extended = (6).to_bytes(4, "big") + bytes(6)
        made = tag(3, extended + body_by_mutagen(3, 1, out), 0x40)
    elif kind == "v24-extended":
        made = tag(4, groups(6) + b"\1\0" + body_by_mutagen(4, 3, out), 0x40)
    elif kind == "v24-special":
        made = tag(4, special4())
    elif kind == "v24-footer":
        made = tag(4, special4(), 0x10)
        made += b"3DI" + made[3:10]
    elif kind == "v22":
        made = tag(2, old2(b"") + bytes(100))
    elif kind == "v22-unsynchronised":
        made = tag(2, unsynch.encode(old2(b"")), 0x80)
    elif kind == "v22-podcast":
        made = tag(2, old2(frame2(b"PCS", bytes(4)) + frame2(b"LNK", b"ULThttp://x\0")))
    else:
        sys.exit(f"unknown kind: {kind}")
    if made is not None:
        with open(out, "wb") as file:
            file.write(made + sound)


main(*sys.argv[1:])
