#!/usr/bin/env python3
"""Reads a memory as the player does and says what is wrong with its index.

    check_memory.py [options] ROOT
    check_memory.py --serve

Prints one line for each fault, and with --list the songs as the player's title list shows them.
Ids say nothing about which song a playlist means: --save-playlists notes the songs behind them in a
file, and --playlists-before compares the playlists of a later index with it.
Exit status: 0 the index is consistent, 1 it has faults, 2 there is no complete index (the player
then finds no songs at all, which is no fault), 3 wrong usage.

With --serve it reads lines of options and ROOT, separated by tabs, and ends the answer to each with
a line "exit STATUS".

The file layouts are written down here a second time, on purpose: this program shares nothing with
the one that writes the index.
"""

import argparse
import json
import os
import re
import struct
import sys
import time

INDEX_FILES = (
    "index.idx ordfile.idx title.idx artist.idx genre.idx atitle.idx aartist.idx agenre.idx "
    "title3.idx artist3.idx genre3.idx atitle3.idx aartist3.idx agenre3.idx fsinfos.idx"
).split()
SONG_SUFFIXES = {"mid", "kar", "mf3", "mf4", "mf5", "mp3"}
PLAYER_FOLDERS = {"sfx", "bridge"}
HIDDEN_FOLDER = re.compile(
    r"\..*|system volume information|\$recycle\.bin|found\.[0-9]{3}|lost\.dir|recycler", re.I)
MAX_SONGS = 65535
MAX_PATH = 45
NO_OFFSET = 0xFFFFFFFF
MP3 = 1
LAST_FILE_TYPE = 4
MOST_LINES = 100


class Checker:
    def __init__(self, root, options):
        self.root = root
        self.options = options
        self.faults = []
        self.songs = []  # (id, path bytes, date, time) by record number
        self.records = {}  # id: the song record in the title file
        self.groups = {"artist": {}, "genre": {}}  # id: the text of the song's group
        self.files = {}  # path: the files, by device and number, that lie there
        self.playlists = {}  # file name: [path, title] of each song, None for a song that is gone

    def fault(self, text):
        self.faults.append(text)

    def read(self, name):
        path = os.path.join(self.root, name)
        if os.path.exists(path) and not os.path.isfile(path):
            raise FileNotFoundError(path)  # a pipe would be waited for
        with open(path, "rb") as file:
            return file.read()

    def run(self):
        self.check_path_file()
        self.check_order_file()
        counts = []
        for number in ("", "3"):
            wanted = self.check_title_file(number)
            counts.append(len(wanted))
            counts.append(self.check_group_file("artist", number, wanted))
            counts.append(self.check_group_file("genre", number, wanted))
        self.check_counts(counts)
        self.check_playlists()

    # The path file and the order of paths

    def check_path_file(self):
        data = self.read("index.idx")
        if len(data) % 64:
            self.fault(f"index.idx: {len(data)} bytes are no whole records")
        if len(data) // 64 > MAX_SONGS:
            self.fault(f"index.idx: {len(data) // 64} songs are too many")
        found = self.song_files()
        previous_id = -1
        seen = set()
        for number in range(len(data) // 64):
            record = data[64 * number : 64 * number + 64]
            song_id = int.from_bytes(record[0:4], "big")
            path, _, padding = record[4:50].partition(b"\0")
            where = f"index.idx record {number} ({path.decode('cp850')})"
            if song_id <= previous_id or song_id == 0xFFFFFFFF:
                self.fault(f"{where}: id {song_id} after {previous_id}")
            previous_id = song_id
            if len(path) > MAX_PATH or padding.strip(b"\0"):
                self.fault(f"{where}: the path is not zero-terminated and zero-padded")
            if not path.startswith(b"/") or b".." in path.split(b"/"):
                self.fault(f"{where}: no path on the memory")
            if path in seen and b"?" not in path:
                self.fault(f"{where}: listed twice")
            seen.add(path)
            digits = record[50:64]
            if not digits.isdigit():
                self.fault(f"{where}: date and time are {digits!r}")
                digits = b"0" * 14
            stamps = found.get(path) or self.stamps_behind_links(path)
            if stamps is None:
                self.fault(f"{where}: no such file")
            elif not self.options.allow_changed and digits.decode() not in stamps:
                self.fault(f"{where}: changed at {stamps}, listed with {digits.decode()}")
            self.songs.append((song_id, path))
        if not self.options.allow_missing:
            # The player tells no upper case from lower case: one of such files is enough.
            listed = {fold_text(path.decode("cp850")) for path in seen}
            # Where links lead to a song by several ways, one of them is enough.
            files = {file for path in seen for file in self.files.get(path, [])}
            for path in found:
                if fold_text(path.decode("cp850")) not in listed and files.isdisjoint(
                    self.files[path]
                ):
                    self.fault(f"{path.decode('cp850')}: a song that is not listed")

    def song_files(self):
        """Every song file that the index can list: path bytes and times of change."""
        found = {}
        linked = set()
        for folder, subfolders, names in os.walk(self.root, followlinks=self.options.follow_links):
            subfolders[:] = [
                name
                for name in subfolders
                if name.lower() not in PLAYER_FOLDERS
                and not HIDDEN_FOLDER.fullmatch(name)
                and self.is_new_way(os.path.join(folder, name), linked)
            ]
            for name in names:
                if name.startswith(".") or name.rpartition(".")[2].lower() not in SONG_SUFFIXES:
                    continue
                full = os.path.join(folder, name)
                path = full[len(self.root) :]
                if len(path) > MAX_PATH or not os.path.isfile(full):
                    continue
                key = path.encode("cp850", "replace")
                found.setdefault(key, []).append(self.stamp_of(key, full))
        return found

    def stamp_of(self, path, full):
        status = os.stat(full)  # its st_mtime may be rounded up
        self.files.setdefault(path, []).append((status.st_dev, status.st_ino))
        return time.strftime("%Y%m%d%H%M%S", time.localtime(status.st_mtime_ns // 10**9))

    def stamps_behind_links(self, path):
        """Of a song that the index found by another way through links; None without one."""
        full = self.root + path.decode("cp850")
        if not self.options.follow_links or not os.path.isfile(full):
            return None
        return [self.stamp_of(path, full)]

    @staticmethod
    def is_new_way(folder, linked):
        """False for a folder that was entered through a link before: links may lead in circles."""
        real = os.path.realpath(folder)
        if real == folder:
            return True
        if real in linked:
            return False
        linked.add(real)
        return True

    def check_order_file(self):
        data = self.read("ordfile.idx")
        if len(data) != 2 * len(self.songs):
            self.fault(f"ordfile.idx: {len(data)} bytes for {len(self.songs)} songs")
            return
        order = struct.unpack(f"<{len(self.songs)}H", data)
        if sorted(order) != list(range(len(self.songs))):
            self.fault("ordfile.idx: does not list every record number once")
            return
        # "?" stands for any character that the file cannot hold; its place is not known.
        paths = [self.songs[number][1] for number in order]
        keys = [path_key(path) for path in paths if b"?" not in path]
        for first, second in zip(keys, keys[1:]):
            if first > second:
                self.fault(f"ordfile.idx: {first!r} stands before {second!r}")

    # Title, artist and genre files

    def song_records(self, name):
        data = self.read(name)
        if len(data) % 32:
            self.fault(f"{name}: {len(data)} bytes are no whole records")
        return [data[pos : pos + 32] for pos in range(0, len(data) - len(data) % 32, 32)]

    def check_song(self, where, record):
        """Returns the song's id and title."""
        text, _, padding = record[4:30].partition(b"\0")
        if padding.strip(b"\0"):
            self.fault(f"{where}: the title is not zero-padded")
        if record[31] & 7 > LAST_FILE_TYPE or record[31] & 0xF0:
            self.fault(f"{where}: type byte {record[31]:#x}")
        return int.from_bytes(record[0:4], "big"), text.decode("latin-1")

    def check_title_file(self, number):
        """Returns the ids that the artist and genre files must list."""
        name = f"title{number}.idx"
        records = self.song_records(name)
        known = {song[0] for song in self.songs}
        seen = {}
        initials = []
        previous = None
        for i, record in enumerate(records):
            where = f"{name} record {i}"
            song_id, title = self.check_song(where, record)
            if song_id in seen or song_id not in known:
                self.fault(f"{where}: id {song_id} is listed twice or has no path")
            self.check_order_of(where, previous, title)
            seen[song_id] = record
            initials.append((title, 32 * i))
            previous = title
        if number:
            expected = {song for song, rec in self.records.items() if rec[31] & 7 == MP3}
            for song_id, record in seen.items():
                if self.records.get(song_id) != record:
                    self.fault(f"{name}: id {song_id} differs from title.idx")
        else:
            expected = known
            self.records = seen
        if set(seen) != expected:
            self.fault(f"{name}: does not list every song that belongs there")
        self.check_alpha(f"atitle{number}.idx", initials)
        return expected

    def check_group_file(self, kind, number, expected):
        """Returns the number of groups."""
        name = f"{kind}{number}.idx"
        seen = set()
        initials = []
        group = previous_title = None
        groups = last_count = left = 0
        for i, record in enumerate(self.song_records(name)):
            where = f"{name} record {i}"
            if record[31] == 0xFF:
                before, count = struct.unpack(">HH", record[0:4])
                text, _, padding = record[4:30].partition(b"\0")
                text = text.decode("latin-1")
                if left:
                    self.fault(f"{where}: {left} songs are missing before this group")
                if before != last_count:
                    self.fault(f"{where}: {before} songs in the group before, not {last_count}")
                if count == 0 or padding.strip(b"\0") or record[30]:
                    self.fault(f"{where}: damaged header of a group")
                if group is not None and fold(group) == fold(text) and "?" not in text:
                    self.fault(f"{where}: a second group of {text}")
                self.check_order_of(where, group, text)
                initials.append((text, 32 * i))
                group, previous_title, groups = text, None, groups + 1
                last_count = left = count
                continue
            song_id, title = self.check_song(where, record)
            if left == 0:
                self.fault(f"{where}: a song more than its group's header says")
            left = max(0, left - 1)
            if song_id in seen or record != self.records.get(song_id):
                self.fault(f"{where}: id {song_id} is listed twice or differs from title.idx")
            seen.add(song_id)
            if fold(self.groups[kind].setdefault(song_id, group or "")) != fold(group or ""):
                self.fault(f"{where}: id {song_id} has another {kind} than in {kind}.idx")
            self.check_order_of(where, previous_title, title)
            previous_title = title
        if left:
            self.fault(f"{name}: {left} songs are missing at the end")
        if seen != expected:
            self.fault(f"{name}: does not list every song that belongs there")
        self.check_alpha(f"a{kind}{number}.idx", initials)
        return groups

    def check_order_of(self, where, first, second):
        if first is None or "?" in first + second:
            return
        if fold(first) > fold(second):
            self.fault(f"{where}: {second} after {first}")

    def check_alpha(self, name, initials):
        data = self.read(name)
        if len(data) != 256:
            self.fault(f"{name}: {len(data)} bytes")
            return
        first = {}
        for text, offset in initials:
            if text:
                first.setdefault(text[0].upper(), offset)
        texts = {offset: text for text, offset in initials}
        for slot, offset in enumerate(struct.unpack(">64I", data)):
            letter = chr(0x20 + slot)
            if letter == "?":
                if offset != NO_OFFSET and not texts.get(offset, "").startswith("?"):
                    self.fault(f"{name}: ? leads to {offset}")
            elif offset != first.get(letter, NO_OFFSET):
                self.fault(f"{name}: {letter} leads to {offset}, not {first.get(letter)}")

    def check_counts(self, counts):
        data = self.read("fsinfos.idx")
        if data != struct.pack("<6H", *(count & 0xFFFF for count in counts)):
            self.fault(f"fsinfos.idx: {data.hex()} for {counts}")

    # Playlists

    def check_playlists(self):
        try:
            data = self.read("playlist/playlist.dat")
        except OSError:
            return
        if len(data) % 32:
            self.fault(f"playlist/playlist.dat: {len(data)} bytes are no whole records")
        paths = {song[0]: song[1].decode("cp850") for song in self.songs}
        seen = set()
        for pos in range(0, len(data) - 31, 32):
            low, high = struct.unpack("bB", data[pos : pos + 2])
            name = f"playlist/play{(high * 256 + low) % 65536:04}.dat"
            if name in seen:
                continue
            seen.add(name)
            try:
                records = self.read(name)
            except OSError:
                if not self.options.allow_lost_songs:
                    self.fault(f"{name}: the playlist is listed but cannot be read")
                continue
            if len(records) % 32:
                self.fault(f"{name}: {len(records)} bytes are no whole records")
            songs = self.playlists[name] = []
            for song in range(len(records) // 32):
                song_id = int.from_bytes(records[32 * song : 32 * song + 4], "big")
                if song_id in paths:
                    songs.append([paths[song_id], self.title_of(song_id)])
                    continue
                songs.append(None)
                if not self.options.allow_lost_songs:
                    self.fault(f"{name} song {song}: id {song_id} is not on the memory")

    def title_of(self, song_id):
        return self.records.get(song_id, bytes(32))[4:30].split(b"\0")[0].decode("latin-1")

    def compare_playlists(self, before):
        """Says where the playlists do not mean the songs any more that they meant before."""
        left = {fold_text(song[1].decode("cp850")) for song in self.songs}
        for name, songs in before.items():
            if name not in self.playlists:
                self.fault(f"{name}: the playlist is gone")
                continue
            now = self.playlists[name]
            if len(now) != len(songs):
                self.fault(f"{name}: {len(now)} songs, {len(songs)} before")
            # The record of a song that is gone keeps its id, or the songs behind it move up.
            wanted = [song for song in songs if song and fold_text(song[0]) in left]
            found = [song for song in now if song]
            for place, song in enumerate(wanted):
                meant = found[place] if place < len(found) else None
                if meant is None or not self.is_same_song(song, meant):
                    self.fault(f"{name}: {meant} instead of {song}")
                    break

    def is_same_song(self, before, now):
        return fold_text(before[0]) == fold_text(now[0]) and (
            self.options.allow_changed or before[1] == now[1])

    # What the player shows

    def list_songs(self):
        paths = {song[0]: song[1].decode("cp850") for song in self.songs}
        types = ("MIDI", "MP3", "MF3", "MF4", "MF5")
        print(f"{'id':>5}  {'type':4}  {'bpm':>3}  {'title':26}  path")
        for song_id, record in self.records.items():
            title = record[4:30].split(b"\0")[0].decode("latin-1")
            kind = types[record[31] & 7] if record[31] & 7 < len(types) else "?"
            print(f"{song_id:5}  {kind:4}  {record[30]:3}  {title:26}  {paths.get(song_id, '?')}")


def fold(text):
    """Case is ignored character by character, as the player's lists are sorted."""
    return [char.lower() for char in text]


def fold_text(text):
    return "".join(fold(text))


def path_key(path):
    """The bytes by which the player orders paths: upper case, except that "ß" stays."""
    text = path.decode("cp850")
    upper = "".join(char if char == "ß" else char.upper() for char in text)
    return upper.encode("cp850", "replace")


def check(arguments):
    parser = argparse.ArgumentParser(description="Checks the player's index on a memory.")
    parser.add_argument("root")
    parser.add_argument("--allow-changed", action="store_true", help="files newer than the index")
    parser.add_argument("--allow-missing", action="store_true", help="songs that are not listed")
    parser.add_argument("--allow-lost-songs", action="store_true",
                        help="playlists may name them, or have no file")
    parser.add_argument("--follow-links", action="store_true", help="songs behind symbolic links")
    parser.add_argument("--list", action="store_true", help="print the songs by title")
    parser.add_argument("--save-playlists", metavar="FILE", help="note the playlists' songs there")
    parser.add_argument("--playlists-before", metavar="FILE", help="the songs that were noted")
    try:
        options = parser.parse_args(arguments)
    except SystemExit as stop:
        return 3 if stop.code else 0
    root = options.root.rstrip("/")
    if not all(os.path.isfile(os.path.join(root, name)) for name in INDEX_FILES):
        print("no complete index")
        return 2
    checker = Checker(root, options)
    checker.run()
    if options.save_playlists:
        with open(options.save_playlists, "w", encoding="utf-8") as file:
            json.dump(checker.playlists, file)
    if options.playlists_before:
        with open(options.playlists_before, encoding="utf-8") as file:
            checker.compare_playlists(json.load(file))
    if options.list:
        checker.list_songs()
    for fault in checker.faults[:MOST_LINES]:
        print(fault)
    return 1 if checker.faults else 0


def main():
    if sys.argv[1:] != ["--serve"]:
        return check(sys.argv[1:])
    for line in sys.stdin:
        print("exit", check(line.rstrip("\n").split("\t")), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
