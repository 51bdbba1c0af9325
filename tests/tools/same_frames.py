#!/usr/bin/env python3
"""same_frames.py BEFORE AFTER [FRAME...]: prints which frames differ for mutagen in the ID3v2 tags.

The named frames are left out. Version 3 has other encodings than version 4, so texts count, not how
they are encoded; mutagen itself brings dates and names of frames into one form. Exit status 1 when
something differs.
"""
import sys

from mutagen.id3 import ID3, ID3NoHeaderError


def value(frame):
    values = {}
    for part in frame._framespec + frame._optionalspec:
        if part.name != "encoding" and hasattr(frame, part.name):
            content = getattr(frame, part.name)
            values[part.name] = content if isinstance(content, bytes) else str(content)
    return values


def frames(path, left_out):
    try:
        tag = ID3(path, load_v1=False)
    except ID3NoHeaderError:
        return {}
    found = {key: value(frame) for key, frame in tag.items() if key[:4] not in left_out}
    # Raw frames: the name, and the content behind the header of ten bytes.
    found |= {raw[:4]: raw[10:] for raw in tag.unknown_frames}
    return found


def main(before, after, *left_out):
    old, new = frames(before, left_out), frames(after, left_out)
    different = [key for key in sorted(old.keys() | new.keys(), key=str)
                 if old.get(key) != new.get(key)]
    for key in different:
        print(f"{key}: {str(old.get(key))[:200]} -> {str(new.get(key))[:200]}")
    return 1 if different else 0


sys.exit(main(*sys.argv[1:]))
