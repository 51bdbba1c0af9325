#!/usr/bin/env python3
"""bench_cli.py KAVENA: the command line against another reader of the same tags.

One run over 10,000 MP3 songs, after one to warm the disk's cache. Limits: `kavena show` at least 4
times as fast as a script with mutagen that reads the same tags, and `kavena --version` under 20 ms.
"""
import os
import pathlib
import resource
import subprocess
import sys
import tempfile
import time

SONGS = 10_000
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


def measure_songs(command, listed, folder):
    taken, used, output = measure(command, listed, folder)
    if output.count(b"\n") < SONGS:
        sys.exit(f"{command[0]} has not read all songs")
    return taken, used


def main():
    kavena = os.path.abspath(sys.argv[1])
    missed = []
    with tempfile.TemporaryDirectory(prefix="kavena-bench.") as folder:
        names = [f"s{number:05}.mp3" for number in range(SONGS)]
        for number, name in enumerate(names):
            (pathlib.Path(folder) / name).write_bytes(song(number))
        listed = b"\0".join(name.encode() for name in names) + b"\0"
        own = [kavena, "show", "--json", "-0"]
        measure_songs(own, listed, folder)
        taken, used = measure_songs(own, listed, folder)
        print(f"kavena show, {SONGS} songs: {taken:.2f} s, {used:.2f} s of the processor")
        script = ["/usr/bin/python3", "-c", MUTAGEN]
        other, other_used = measure_songs(script, listed, folder)
        print(f"mutagen: {other:.2f} s, {other_used:.2f} s of the processor: {other / taken:.1f} and "
              f"{other_used / used:.1f} times as long (at least {FASTER})")
        if other < FASTER * taken:
            missed.append("kavena show")
    measure([kavena, "--version"])
    version, used, _ = measure([kavena, "--version"])
    print(f"kavena --version: {1000 * version:.1f} ms, {1000 * used:.1f} ms of the processor "
          f"(under {VERSION_MS})")
    if 1000 * version >= VERSION_MS:
        missed.append("--version")
    if missed:
        sys.exit("LIMITS MISSED: " + ", ".join(missed))


if __name__ == "__main__":
    main()
