#!/usr/bin/env python3
"""check_metainfo.py METAINFO SOURCES VERSION: a software centre finds each picture that the metainfo
names, in the size that it names and in the languages of the program; it tells of this release."""
import pathlib
import shutil
import struct
import subprocess
import sys
import xml.etree.ElementTree as xml

SCREENSHOTS = "https://kravo.example/screenshots/"
LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"


def size_of(png):
    """Width and height, as the header of the file says."""
    return struct.unpack(">II", png.read_bytes()[16:24])


def main():
    metainfo, sources, version = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    faults = []
    root = xml.parse(metainfo).getroot()
    screenshots = root.findall("screenshots/screenshot")
    if not screenshots:
        faults.append("there are no screenshots")
    for screenshot in screenshots:
        images = screenshot.findall("image")
        if len({image.get(LANGUAGE) for image in images}) != 2:
            faults.append("a screenshot is not in both languages of the program")
        for image in images:
            if not image.text.startswith(SCREENSHOTS):
                faults.append(f"{image.text} is elsewhere")
                continue
            picture = sources / "docs/screenshots" / image.text[len(SCREENSHOTS):]
            if not picture.is_file():
                faults.append(f"{picture} is missing")
            elif size_of(picture) != (int(image.get("width")), int(image.get("height"))):
                faults.append(f"{picture} has the size {size_of(picture)}")
    release = root.find("releases/release")
    if release.get("version") != version:
        faults.append(f"the newest release is not {version}")
    if not release.findall("description/ul/li"):
        faults.append("it does not tell what is new")
    if shutil.which("appstreamcli"):
        check = subprocess.run(["appstreamcli", "validate", "--no-net", metainfo],
                               capture_output=True, text=True, check=False)
        if check.returncode != 0:
            faults.append(check.stdout)
    sys.exit("\n".join(faults) or 0)


main()
