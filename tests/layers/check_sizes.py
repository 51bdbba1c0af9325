#!/usr/bin/env python3
"""check_sizes.py ROOT MOST: no source, script or list of sources has more than MOST lines.

A file that grows beyond that holds more than one topic and is split.
"""
import pathlib
import sys

FOLDERS = ("storage", "formats", "library", "devindex", "windows", "app", "cli", "tests",
           "benchmarks", "packaging", "resources")
KINDS = (".h", ".cpp", ".mm", ".py", ".sh", ".cmake", "CMakeLists.txt")


def main():
    root, most = pathlib.Path(sys.argv[1]), int(sys.argv[2])
    sources = [path for folder in FOLDERS for path in sorted((root / folder).rglob("*"))
               if path.name.endswith(KINDS)]
    if len(sources) < len(FOLDERS):
        sys.exit(f"there are only {len(sources)} sources in {root}")
    sizes = {path: len(path.read_bytes().splitlines()) for path in sources}
    large = [f"{path.relative_to(root)} has {lines} lines, more than {most}"
             for path, lines in sizes.items() if lines > most]
    print("\n".join(large))
    sys.exit(1 if large else 0)


main()
