#!/usr/bin/env python3
"""single_commands.py BUILD FOLDER: writes FOLDER/compile_commands.json, which is that of BUILD where
each source that is compiled together with others of its layer has a command of its own.
"""
import json
import pathlib
import re
import sys


def single_commands(command):
    """The commands of the sources that this one's source includes; else itself."""
    unity = pathlib.Path(command["file"])
    if unity.parent.name != "Unity":
        return [command]
    sources = re.findall(r'^#include "(.*\.cpp)"$', unity.read_text(), re.M)
    if not sources:
        sys.exit(f"{unity} includes no source")
    return [{"directory": command["directory"], "file": source,
             "command": command["command"].replace(str(unity), source)} for source in sources]


def main():
    build, folder = map(pathlib.Path, sys.argv[1:])
    commands = json.loads((build / "compile_commands.json").read_text())
    folder.mkdir(parents=True, exist_ok=True)
    singles = [one for command in commands for one in single_commands(command)]
    (folder / "compile_commands.json").write_text(json.dumps(singles, indent=1))


main()
