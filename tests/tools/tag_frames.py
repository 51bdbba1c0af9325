#!/usr/bin/env python3
"""Prints as JSON every frame that mutagen reads in a file, encodings and pictures included."""
import json
import sys

from mutagen.id3 import ID3, ID3NoHeaderError


def main(path):
    try:
        tag = ID3(path, translate=False, load_v1=False)
    except ID3NoHeaderError:
        return {"version": 0, "frames": {}}
    for picture in tag.getall("APIC"):  # version 2 names the kind of picture by three letters
        if len(picture.mime) == 3:
            picture.mime = {"JPG": "image/jpeg", "PNG": "image/png"}[picture.mime]
    frames = {key: repr(frame) for key, frame in tag.items()}
    frames |= {raw[:4].decode("latin-1"): repr(raw) for raw in tag.unknown_frames}
    return {"version": tag.version[1], "frames": frames}


print(json.dumps(main(sys.argv[1])))
