#!/usr/bin/env python3
"""Prints as JSON what mutagen reads in the ID3v2 tag of a file: version, size and frames."""
import hashlib
import json
import sys

from mutagen.id3 import ID3, ID3NoHeaderError


def value(frame):
    if hasattr(frame, "data"):
        return f"{len(frame.data)} {hashlib.sha1(frame.data).hexdigest()}"
    return "/".join(str(text) for text in frame.text) if hasattr(frame, "text") else repr(frame)


def main(path):
    try:
        tag = ID3(path, translate=False, load_v1=False)
    except ID3NoHeaderError:
        return {}
    return {
        "version": tag.version[1],
        "size": tag.size,
        "unread": len(tag.unknown_frames),
        "frames": {frame.FrameID: value(frame) for frame in tag.values()},
    }


print(json.dumps(main(sys.argv[1])))
