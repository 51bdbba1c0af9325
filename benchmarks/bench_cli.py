#!/usr/bin/env python3
"""bench_cli.py KAVENA: the command line against other readers of the same tags.

10,000 MP3 songs, after one run to warm the disk's cache; the best of three runs counts, of the
slow kid3-cli the only one. Limits:
`kavena show` at least 4 times as fast as a script with mutagen that reads the same tags and as
kid3-cli, which writes those that its list has, by the clock and in processor time; `kavena
--version` under 20 ms, the best of twenty runs.
"""
import os
import pathlib
import resource
import subprocess
import sys
import tempfile
import time

SONGS = 10_000
RUNS = 3
VERSION_RUNS = 20
AUDIO = b"\xff\xfb\x90\x00" + bytes(413)
FASTER = 4
VERSION_MS = 20

MUTAGEN = """
import sys
from mutagen.id3 import ID3
for name in sys.stdin.read().split("\\0"):
    if name:
        tag = ID3(name)
        print(name, *[str(tag.get(frame, "")) for frame in
                      ("TIT2", "TPE1", "TCON", "TCOM", "TLEN", "TBPM", "TKEY")], sep="\\t")
"""


def frame(name, text):
    data = b"\0" + text.encode("latin-1")
    return name + len(data).to_bytes(4, "big") + b"\0\0" + data


def song(number):
    frames = (frame(b"TIT2", f"Song number {number}") + frame(b"TPE1", f"Artist {number % 300}")
              + frame(b"TCON", "Swing") + frame(b"TCOM", f"Composer {number % 100}")
              + frame(b"TBPM", str(60 + number % 120)) + frame(b"TKEY", "A-")
              + frame(b"TLEN", "185000")) + bytes(1024)
    size = len(frames)
    head = b"ID3\x03\0\0" + bytes(size >> shift & 127 for shift in (21, 14, 7, 0))
    return head + frames + AUDIO * 40


def processor_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def measure(command, listed=b"", folder=None):
    """Seconds by the clock and of the processor, and the output."""
    start, used = time.perf_counter(), processor_seconds()
    done = subprocess.run(command, input=listed, cwd=folder, check=True, stdout=subprocess.PIPE)
    return time.perf_counter() - start, processor_seconds() - used, done.stdout


def measure_songs(command, listed, folder, runs=RUNS, made=None):
    """The best times of some runs; their output is the file made, or standard output."""
    times = []
    for _ in range(runs):
        taken, used, output = measure(command, listed, folder)
        lines = pathlib.Path(made).read_bytes() if made else output
        if lines.count(b"\n") < SONGS or b"Song number 1" not in lines:
            sys.exit(f"{command[0]} has not read all songs")
        if made:
            os.remove(made)
        times.append((taken, used))
    return [min(values) for values in zip(*times)]


def main():
    kavena = os.path.abspath(sys.argv[1])
    missed = []
    with tempfile.TemporaryDirectory(prefix="kavena-bench.") as folder, \
            tempfile.TemporaryDirectory(prefix="kavena-bench.") as outside:
        names = [f"s{number:05}.mp3" for number in range(SONGS)]
        for number, name in enumerate(names):
            (pathlib.Path(folder) / name).write_bytes(song(number))
        listed = b"\0".join(name.encode() for name in names) + b"\0"
        own = [kavena, "show", "--json", "-0"]
        measure(own, listed, folder)
        taken, used = measure_songs(own, listed, folder)
        print(f"kavena show, {SONGS} songs: {taken:.2f} s, {used:.2f} s of the processor")
        exported = os.path.join(outside, "list.csv")
        peers = {
            "mutagen": (["/usr/bin/python3", "-c", MUTAGEN], RUNS, None),
            "kid3-cli": (["kid3-cli", "-c", "timeout off", "-c", "select all",
                          "-c", f"export {exported} 'CSV unquoted' 2", "."], 1, exported)}
        for name, (command, runs, made) in peers.items():
            other, other_used = measure_songs(command, listed, folder, runs, made)
            print(f"{name}: {other:.2f} s, {other_used:.2f} s of the processor: "
                  f"{other / taken:.1f} and {other_used / used:.1f} times as long "
                  f"(at least {FASTER})")
            if other < FASTER * taken or other_used < FASTER * used:
                missed.append(f"kavena show against {name}")
    versions = [measure([kavena, "--version"]) for _ in range(VERSION_RUNS)]
    version, used = (min(run[value] for run in versions) for value in (0, 1))
    print(f"kavena --version: {1000 * version:.1f} ms, {1000 * used:.1f} ms of the processor "
          f"(under {VERSION_MS})")
    if 1000 * version >= VERSION_MS:
        missed.append("--version")
    if missed:
        sys.exit("LIMITS MISSED: " + ", ".join(missed))


if __name__ == "__main__":
    main()
