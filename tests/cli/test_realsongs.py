#!/usr/bin/env python3
"""test_realsongs.py KAVENA: songs that other programs made, judged by other programs.

MP3 by lame and ffmpeg, MIDI by abc2midi, MFX packed from it; the judges are id3v2, mutagen, ffmpeg,
midicsv and an LZHUF expander of this file.
"""
import array
import json
import math
import pathlib
import re
import subprocess

import songs
from songs import CliTest, seeds

READ_TAG = pathlib.Path(__file__).resolve().parent.parent / "tools" / "read_tag.py"
SYSTEM_PYTHON = "/usr/bin/python3"  # for which Debian installs mutagen

# A song of the catalogue.
FILE, ARTIST, AUTHOR = "BIRGILCA", "JERE MAHONEY", "VON TILZER HARRY - LAMB ARTHUR"
FIRST_MARKER = {"bar": 1, "text": "Intro"}

TUNE = b"""X:1
T:Real Tune
M:4/4
L:1/8
Q:1/4=110
K:D
V:1
DEFG ABcd|d2A2 F2D2|[DFA]4 z4|
V:2
D,4 A,4|D,4 A,4|D,8|
"""


def tool(*words, data=b""):
    return subprocess.run([str(word) for word in words], input=data, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, check=True).stdout


def sound():
    """One second of a falling tone: 22,050 samples of 16 bits."""
    return array.array("h", (int(9000 * math.sin(i * (0.1 - i / 1e6)))
                             for i in range(22050))).tobytes()


def expand(stream):
    """LZHUF, as it was published, with matches of 3 to 29 bytes."""
    size = int.from_bytes(stream[:4], "little")
    bits = iter(f"{int.from_bytes(stream[4:], 'big'):0{8 * (len(stream) - 4)}b}" + "0" * 64)
    lengths = [3] + [4] * 3 + [5] * 8 + [6] * 12 + [7] * 24 + [8] * 16
    places, code = {}, 0
    for place, length in enumerate(lengths):
        places[f"{code >> (8 - length):0{length}b}"] = place
        code += 1 << (8 - length)
    tree = seeds.Literals()
    out = bytearray(b" " * 4096)
    start = len(out)
    while len(out) - start < size:
        node = tree.son[tree.ROOT]
        while node < tree.NODES:
            node = tree.son[node + int(next(bits))]
        symbol = node - tree.NODES
        tree.count(symbol)
        if symbol < 256:
            out.append(symbol)
            continue
        word = next(bits)
        while word not in places:
            word += next(bits)
        back = (places[word] << 6 | int("".join(next(bits) for _ in range(6)), 2)) + 1
        for _ in range(symbol - 253):
            out.append(out[-back])
    return bytes(out[start:])


class RealSong(CliTest):
    def shown(self, path):
        return self.run_kavena("show", "--json", path, status=0).lines[0]


class Mp3(RealSong):
    def setUp(self):
        super().setUp()
        picture = self.folder / "cover.png"
        tool("ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=red:s=16x16", "-frames:v", "1",
             picture)
        raw = ["-f", "s16le", "-ar", "22050", "-ac", "1", "-i", "-"]
        words = ["-metadata", "title=Caffè ♥ nero", "-metadata", "artist=Łukasz", "-metadata",
                 "album=Das Album", "-metadata", "genre=Pop"]
        tool("lame", "--quiet", "-r", "-m", "m", "-s", "22.05", "--id3v2-only", "--id3v2-latin1",
             "--tt", "Caffè nero", "--ta", "Somebody", "--tl", "Das Album", "--tg", "Pop",
             "-", self.music / "lame.mp3", data=sound())
        for version in (3, 4):
            tool("ffmpeg", "-v", "error", *raw, "-i", picture, "-map", "0:a", "-map", "1:v",
                 "-c:v", "copy", "-id3v2_version", version, *words, "-b:a", "64k",
                 self.music / f"ffmpeg{version}.mp3", data=sound())
        self.names = ["lame.mp3", "ffmpeg3.mp3", "ffmpeg4.mp3"]

    def tag(self, name):
        return json.loads(tool(SYSTEM_PYTHON, READ_TAG, self.music / name))

    def music_of(self, name):
        """Check sums of the audio and of the pictures, as ffmpeg finds them."""
        return tool("ffmpeg", "-v", "error", "-i", self.music / name, "-map", "0", "-c", "copy",
                    "-f", "streamhash", "-")

    def id3v2(self, name):
        """The texts that id3v2 finds; it reads no tags of version 4."""
        listed = tool("id3v2", "-l", self.music / name).decode("utf-8", "replace")
        return dict(re.findall(r"^(\w{4}) \(.*?\): (.*)$", listed, re.MULTILINE))

    def test_the_files_are_what_the_tests_are_about(self):
        self.assertIn(b"\xff\xfeC\0a\0f\0", (self.music / "ffmpeg3.mp3").read_bytes())
        self.assertEqual([self.tag(name)["version"] for name in self.names], [3, 3, 4])
        for name in self.names[1:]:
            self.assertIn("APIC", self.tag(name)["frames"])

    def test_show(self):
        for name in self.names:
            shown = self.shown(name)
            self.assertEqual((shown["format"], shown["genre"]), ("MP3", "Pop"))
        self.assertEqual(self.shown("lame.mp3")["title"], "Caffè nero")

    def test_set_changes_the_item_and_nothing_else(self):
        for name in self.names:
            before, music = self.tag(name), self.music_of(name)
            self.run_kavena("set", "--genre", "Swing", name, status=0)
            after = self.tag(name)
            self.assertEqual(self.shown(name)["genre"], "Swing")
            self.assertEqual(after["frames"].pop("TCON"), "Swing")
            if name != "ffmpeg4.mp3":
                self.assertEqual(self.id3v2(name)["TCON"].split(" (")[0], "Swing")
            del before["frames"]["TCON"]
            after["frames"].pop("MEDT", None)
            self.assertEqual(after["frames"], before["frames"], name)
            self.assertEqual(after["version"], before["version"])
            self.assertEqual(self.music_of(name), music, name)

    def test_sync(self):
        for name in self.names:
            song = self.music / f"{FILE}.mp3"
            song.write_bytes((self.music / name).read_bytes())
            before, music = self.tag(song.name), self.music_of(song.name)
            run = self.run_kavena("sync", "--json", "--unsigned", "yes", song.name, status=0)
            self.assertTrue(run.lines[0]["found"] and run.lines[0]["changes"], name)
            after = self.tag(song.name)
            self.assertEqual(after["frames"]["TCOM"], AUTHOR)
            if name != "ffmpeg4.mp3":
                self.assertEqual(self.id3v2(song.name)["TCOM"], AUTHOR)
            for frame in ("APIC", "TALB", "TSSE"):
                self.assertEqual(after["frames"].get(frame), before["frames"].get(frame))
            self.assertEqual(self.music_of(song.name), music, name)


class Midi(RealSong):
    def setUp(self):
        super().setUp()
        source = self.folder / "tune.abc"
        source.write_bytes(TUNE)
        tool("abc2midi", source, "-o", self.music / "tune.mid")
        self.midi = (self.music / "tune.mid").read_bytes()

    def events(self, data):
        """The lines of midicsv, of which those of the notes and of the end are the music."""
        file = self.folder / "judged.mid"
        file.write_bytes(data)
        return tool("midicsv", file).decode("latin-1").splitlines()

    def notes(self, data):
        return [line for line in self.events(data) if re.search(", (Note|Control|End_t)", line)]

    def test_show(self):
        shown = self.shown("tune.mid")
        self.assertEqual((shown["format"], shown["title"], shown["key"]),
                         ("MIDI", "Real Tune", "D"))

    def test_set(self):
        self.run_kavena("set", "--title", "Neu: Größe", "--key", "A-", "tune.mid", status=0)
        data = (self.music / "tune.mid").read_bytes()
        self.assertIn('1, 0, Title_t, "Neu: Größe"', self.events(data))
        self.assertIn('1, 0, Key_signature, 0, "minor"', self.events(data))
        self.assertGreater(len(self.notes(data)), 20)
        self.assertEqual(self.notes(data), self.notes(self.midi))

    def test_sync(self):
        (self.music / f"{FILE}.mid").write_bytes(self.midi)
        run = self.run_kavena("sync", "--json", "--unsigned", "yes", f"{FILE}.mid", status=0)
        self.assertIn({"field": "artist", "old": "", "new": ARTIST}, run.lines[0]["changes"])
        data = (self.music / f"{FILE}.mid").read_bytes()
        self.assertTrue([line for line in self.events(data) if "Unknown_meta_event, 75" in line])
        self.assertEqual(self.notes(data), self.notes(self.midi))
        self.assertIn(FIRST_MARKER, self.shown(f"{FILE}.mid")["markers"])


class Mfx(Midi):
    """The header's fields are read at their places, the music is expanded for midicsv."""

    HEADERS = {"mf3": 512, "mf4": 512, "mf5": 1024}

    def setUp(self):
        super().setUp()
        for kind in self.HEADERS:
            packed = seeds.mfx(b"_" + kind.upper().encode(), self.midi)
            (self.music / f"{FILE}.{kind}").write_bytes(packed)

    def field(self, kind, offset, size):
        data = (self.music / f"{FILE}.{kind}").read_bytes()
        return data[offset:offset + size].split(b"\0")[0].decode("latin-1")

    def music_of(self, kind):
        data = (self.music / f"{FILE}.{kind}").read_bytes()
        self.assertEqual(int.from_bytes(data[4:8], "little"), len(data))
        payload = expand(data[self.HEADERS[kind]:])
        self.assertEqual(int.from_bytes(data[12:16], "little"), len(payload))
        if kind == "mf4":
            start = payload.index(b"MTrk") + 8
            self.assertEqual(payload[start:start + 3], b"\xff\0\xff")
            payload = payload[:start] + payload[start + 3:]
        return payload

    def test_show(self):
        for kind in self.HEADERS:
            shown = self.shown(f"{FILE}.{kind}")
            self.assertEqual((shown["format"], shown["title"], shown["key"], shown["bpm"]),
                             (kind.upper(), "Blue Moon", "D", 120))

    def test_set(self):
        for kind in self.HEADERS:
            self.assertEqual(self.music_of(kind), self.midi)
            self.run_kavena("set", "--title", "Größe", "--bpm", "99", f"{FILE}.{kind}", status=0)
            self.assertEqual(self.field(kind, 122, 32), "Größe")
            self.assertEqual(self.field(kind, 38, 2), "\x63")
            self.assertEqual(self.notes(self.music_of(kind)), self.notes(self.midi), kind)

    def test_sync(self):
        for kind in self.HEADERS:
            name = f"{FILE}.{kind}"
            run = self.run_kavena("sync", "--json", "--unsigned", "yes", name, status=0)
            self.assertTrue(run.lines[0]["found"] and run.lines[0]["changes"], kind)
            self.assertEqual(self.field(kind, 218, 32), ARTIST, kind)
            music = self.music_of(kind)
            self.assertEqual(self.notes(music), self.notes(self.midi), kind)
            self.assertTrue([line for line in self.events(music)
                             if "Unknown_meta_event, 75" in line], kind)
            self.assertIn(FIRST_MARKER, self.shown(name)["markers"])


if __name__ == "__main__":
    songs.main()
