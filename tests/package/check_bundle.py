#!/usr/bin/env python3
"""check_bundle.py SOURCES INFO_PLIST VERSION: what the macOS bundle is made of, as far as that can be
judged elsewhere: its property list and its icon file."""
import pathlib
import plistlib
import struct
import subprocess
import sys
import tempfile

sources, plist, version = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
images = sources / "resources/images"
script = sources / "packaging/macos/make_icns.py"


def check(condition, what):
    if not condition:
        sys.exit(f"FAIL: {what}")


def make_icns(target, *pictures):
    return subprocess.run([sys.executable, script, target, *pictures], capture_output=True,
                          check=False)


def blocks(data):
    """The images of an icon file by their types, read by its lengths."""
    check(data[:4] == b"icns" and struct.unpack(">I", data[4:8])[0] == len(data), "no icon file")
    position, found = 8, {}
    while position < len(data):
        kind, length = struct.unpack(">4sI", data[position:position + 8])
        check(length > 8 and position + length <= len(data), f"{kind} has the length {length}")
        found[kind.decode()] = data[position + 8:position + length]
        position += length
    return found


info = plistlib.loads(plist.read_bytes())
check(info["CFBundleShortVersionString"] == version, "the property list has another version")
songs = info["CFBundleDocumentTypes"][0]["CFBundleTypeExtensions"]
check(sorted(songs) == ["kar", "mf3", "mf4", "mf5", "mid", "mp3"], f"documents are {songs}")
check("@" not in plist.read_text(encoding="utf-8"), "the property list is not filled in")

with tempfile.TemporaryDirectory() as folder:
    icon = pathlib.Path(folder) / info["CFBundleIconFile"]
    sizes = (16, 32, 64, 128, 256, 512)
    result = make_icns(icon, *(images / f"kavena-pc_{size}.png" for size in sizes))
    check(result.returncode == 0, result.stderr.decode())
    found = blocks(icon.read_bytes())
    expected = {"icp4": 16, "icp5": 32, "ic07": 128, "ic08": 256, "ic09": 512,
                "ic11": 32, "ic12": 64, "ic13": 256, "ic14": 512}
    check(found.keys() == expected.keys(), f"the icon file holds {sorted(found)}")
    for kind, size in expected.items():
        check(found[kind] == (images / f"kavena-pc_{size}.png").read_bytes(),
              f"{kind} is not the picture of {size} pixels")

    check(make_icns(icon, images / "kavena-pc_22.png").returncode != 0, "22 pixels were taken")
    check(make_icns(icon, images / "logo-kavena.png").returncode != 0, "a wide picture was taken")
    check(make_icns(icon, script).returncode != 0, "a script was taken for a picture")

print("property list and icon file are right")
