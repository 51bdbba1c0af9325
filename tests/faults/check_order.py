"""Judges the order of the calls that a job made on songs and memories (the trace of faultpreload.cpp).

A power cut keeps what was flushed, and any part of the rest. So:

- a file gets another file's name only when its bytes are flushed; the bytes of the old file keep
  their place (it is held open) until the new one is flushed under its name;
- a folder is not flushed while a new name in it leads to a file that is not flushed under it;
- a song is written in place only while its journal and the journal's name are flushed, and the
  journal goes only when the song is flushed;
- the room of a song that was removed is not given to another file before the removal is flushed;
- no index file changes before everything else and the removal of the old counts are flushed; the
  counts get their name when all other index files and their names are flushed;
- when the program says that it has done something, nothing at all is left to flush.
"""

import os
import re

from check_memory import INDEX_FILES

LINE = re.compile(r"^(\w+) (.*?)(?: -> (.*?))?(?: #(\d+))?$")
UNCOUNTED = ("handle", "refused", "failed", "say")
SONG = re.compile(r"/[^./][^/]*\.(mid|mf3|mf4|mf5|mp3|cdg)$")
COUNTS = "fsinfos.idx"
LOCK = "/.kavena-lock"  # it says who holds the memory, and is worth nothing after a power cut
OTHER_INDEX_FILES = {name for name in INDEX_FILES if name != COUNTS}


class WrongOrder(Exception):
    pass


def counted(trace):
    """The lines of the calls that can fail, without what else the trace tells."""
    return [line for line in trace if line.split(" ", 1)[0] not in UNCOUNTED]


def must_be_noticed(trace):
    """Numbers (from 1) of the calls whose failure the program may not pass over in silence.

    These are the flushes, and the first close of a file that was written. Not among them are flushes
    of a whole file system, which are followed by flushes of each file where they fail, and the
    memory's lock, which holds without its text.
    """
    numbers = set()
    written = set()
    calls = [LINE.match(line).groups() for line in counted(trace)]
    for number, (call, path, _, _) in enumerate(calls, 1):
        if call == "write" and not path.endswith(LOCK):
            written.add(path)
        elif call == "close" and path in written:
            written.discard(path)
            numbers.add(number)
        elif call == "flush" and calls[number - 2][0] != "flushall":
            numbers.add(number)
    return numbers


class Order:
    """What a power cut could still undo, call by call."""

    def __init__(self, existing):
        self.existing = set(existing)
        self.folders = {path for path in existing if os.path.isdir(path)}
        self.bytes = {}     # file: the call by which its bytes changed
        self.entries = {}   # file: the call that renamed it to this
        self.fresh = set()  # those of them that replace no file
        self.changes = {}   # folder: changes of its entries, as (path, call)
        self.handles = {}
        self.kept = {}      # handle: the file whose old bytes it keeps
        self.unopened = set()  # what the medium refused
        self.opening = ""
        self.building = False

    def check(self, trace, every_claim):
        """every_claim: the program may say nothing before all is flushed, not even in part."""
        for number, line in enumerate(trace):
            match = LINE.match(line)
            call, path, target, handle = match.groups()
            if path.endswith(LOCK):
                continue
            failed = number + 1 < len(trace) and trace[number + 1].startswith("failed ")
            if failed and (call in ("openread", "flush") or path.endswith("/" + COUNTS)):
                # The medium refuses: what follows for this file cannot be had, but a claim is wrong.
                self.unopened.add(path)
                self.fresh.discard(path)
            if failed and call not in ("write", "close", "truncate"):
                continue
            if call == "say":
                claim = path.startswith("result 1") or every_claim and path.startswith("told ")
                if claim:
                    self.nothing_left(line)
            elif hasattr(self, call):
                getattr(self, call)(line, path, target, handle)
            elif call not in UNCOUNTED:
                raise WrongOrder(f"unknown call: {line}")

    def wrong(self, line, what):
        raise WrongOrder(f"{line}: {what}")

    def nothing_left(self, line):
        left = list(self.bytes.values()) + list(self.entries.values())
        for changes in self.changes.values():
            left += [call for _, call in changes]
        if left:
            self.wrong(line, "not on the medium yet: " + "; ".join(left))

    def changed(self, path, line):
        self.changes.setdefault(os.path.dirname(path), []).append((path, line))

    def change_index(self, line, path, removed=False):
        """The index is built behind all else. Without one of its files it is none, too."""
        name = os.path.basename(path)
        if name not in INDEX_FILES:
            return
        if not self.building:
            self.nothing_left(line)
            self.building = True
        counts = os.path.join(os.path.dirname(path), COUNTS)
        pending = [changed for changed, _ in self.changes.get(os.path.dirname(path), [])]
        if removed and self.unopened & {counts, os.path.dirname(path)}:
            return
        if name in OTHER_INDEX_FILES and (counts in self.existing or counts in pending):
            self.wrong(line, "the old counts are still there")

    # The calls

    def open(self, line, path, target, handle):
        self.opening = "open"

    def openread(self, line, path, target, handle):
        self.opening = "openread"

    def create(self, line, path, target, handle):
        self.opening = "create"
        self.change_index(line, path)

    def handle(self, line, path, target, handle):
        self.handles[handle] = path
        if self.opening == "create":
            if path in self.existing:
                self.bytes[path] = line
            else:
                self.existing.add(path)
                self.changed(path, "create " + path)
        self.opening = ""

    def write(self, line, path, target, handle):
        self.change_index(line, path)
        for changes in self.changes.values():
            for changed, call in changes:
                if call.startswith("remove ") and SONG.search(changed):
                    self.wrong(line, "may take the room of what is not removed for certain: " + call)
        if SONG.search(path):
            self.in_place(line, path)
        self.bytes[path] = line

    truncate = write

    def in_place(self, line, song):
        folder, name = os.path.split(song)
        journal = os.path.join(folder, f".{name}.kavena-journal")
        if journal not in self.existing:
            self.wrong(line, "the song has no journal")
        if journal in self.bytes or folder in self.changes:
            self.wrong(line, "the song's journal is not on the medium")

    def flush(self, line, path, target, handle):
        if path in self.folders:
            for entry in self.fresh:
                if os.path.dirname(entry) == path:
                    self.wrong(line, f"before the file: {self.entries[entry]}")
            self.changes.pop(path, None)
        self.flushed(path)

    def flushed(self, path):
        self.bytes.pop(path, None)
        self.entries.pop(path, None)
        self.fresh.discard(path)

    def flushall(self, line, path, target, handle):
        for flushed in list(self.bytes) + list(self.entries):
            self.flushed(flushed)

    def rename(self, line, path, target, handle):
        if path in self.bytes:
            self.wrong(line, f"its bytes are not on the medium: {self.bytes[path]}")
        if os.path.basename(target) == COUNTS:
            self.complete_index(line, path)
        if target in self.existing:
            held = [number for number, file in self.handles.items() if file == target]
            if not held and target not in self.unopened:
                self.wrong(line, "the old bytes lose their place at once")
            for number in held:
                self.kept[number] = target
        else:
            self.fresh.add(target)
        for number, file in self.handles.items():
            if file == path:
                self.handles[number] = target
        moved = {old for old in self.existing if old == path or old.startswith(path + "/")}
        self.existing -= moved
        self.existing |= {target + old[len(path):] for old in moved}
        self.folders |= {target + old[len(path):] for old in moved & self.folders}
        self.entries.pop(path, None)
        self.fresh.discard(path)
        self.entries[target] = line
        self.changed(path, line)
        self.changed(target, line)

    def complete_index(self, line, path):
        folder = os.path.dirname(path)
        for name in OTHER_INDEX_FILES:
            if os.path.join(folder, name) in self.bytes:
                self.wrong(line, f"{name} is not on the medium")
        names = [changed for changed, _ in self.changes.get(folder, []) if changed != path]
        if names:
            self.wrong(line, f"not on the medium by name: {names}")

    def remove(self, line, path, target, handle):
        if path not in self.existing:
            return
        self.change_index(line, path, removed=True)
        folder, name = os.path.split(path)
        if name.endswith(".kavena-journal"):
            song = os.path.join(folder, name[1:-len(".kavena-journal")])
            if song in self.bytes:
                self.wrong(line, "the song is not on the medium")
        if SONG.search(path):
            held = [number for number, file in self.handles.items() if file == path]
            if not held and path not in self.unopened:
                self.wrong(line, "the bytes lose their place before the name is gone for certain")
            for number in held:
                self.kept[number] = path
        self.existing.discard(path)
        self.flushed(path)
        self.changed(path, line)

    def close(self, line, path, target, handle):
        self.handles.pop(handle, None)
        kept = self.kept.pop(handle, None)
        if kept is None or self.unopened & {kept, os.path.dirname(kept)}:
            return
        gone = [call for file, call in self.changes.get(os.path.dirname(kept), []) if file == kept]
        if kept in self.entries or gone:
            self.wrong(line, f"the old bytes lose their place too early: {kept}")

    def mkdir(self, line, path, target, handle):
        self.existing.add(path)
        self.folders.add(path)
        self.bytes[path] = line
        self.changed(path, line)
