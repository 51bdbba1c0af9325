#!/usr/bin/env python3
"""test_measure.py KAVENA: length, tempo, key and marked places that the program finds in the music.

MIDI is judged by a reckoner of this file over what midicsv reads, and by the time that fluidsynth
plays; MP3 by sox and ffprobe.
"""
import os
import pathlib
import shutil

import songs
from songs import CliTest, meta
from test_realsongs import expand, sound, tool

# Real songs: those of packages that may be installed, or those below the folders that the variable
# names, divided by colons.
PACKAGED = ("/usr/share/games/openttd/baseset/openmsx", "/usr/share/planetblupi/music",
            "/usr/share/doc/mma/examples", "/usr/share/doc/pianobooster/courses")
FOLDERS = os.environ.get("KAVENA_REAL_MIDI", ":".join(PACKAGED))
REAL_MIDI = sorted(path for folder in FOLDERS.split(":")
                   for path in pathlib.Path(folder).rglob("*.mid"))
# Tunes of many kinds; a converter of them is another maker of MIDI files.
TUNES = sorted(pathlib.Path("/usr/share/doc/abcmidi/examples").glob("*.abc"))
FIFTHS = ["Cb", "Gb", "Db", "Ab", "Eb", "Bb", "F", "C", "G", "D", "A", "E", "B", "F#", "C#", "G#",
          "D#", "A#"]


def quantity(value):
    out = [value & 127]
    while value := value >> 7:
        out.insert(0, 128 | value & 127)
    return bytes(out)


def midi(*tracks, division=96):
    """A file of format 1; each track is a list of (ticks to wait, event without its delta time)."""
    out = b"MThd\0\0\0\6\0\1" + len(tracks).to_bytes(2, "big") + division.to_bytes(2, "big")
    for track in tracks:
        data = b"".join(quantity(wait) + event for wait, event in track) + b"\0\xff\x2f\0"
        out += b"MTrk" + len(data).to_bytes(4, "big") + data
    return out


def event(kind, data):
    return meta(kind, data)[1:]


def tempo(bpm):
    return event(0x51, round(60e6 / bpm).to_bytes(3, "big"))


# Four bars in C major at 90 beats a minute: 10.667 seconds.
NOTES = [(wait, bytes([status, key, 100])) for key in (60, 64, 67, 72) * 4
         for wait, status in ((0, 0x90), (96, 0x80))]
TUNE = midi([(0, tempo(90)), (0, event(6, b"Intro")), (768, event(7, b"Chorus"))], NOTES)


def key_name(sharps, minor):
    return FIFTHS[sharps + 10] + "-" if minor else FIFTHS[sharps + 7]


class Reckoning:
    """What midicsv reads in a file, added up as the standard has it."""

    def __init__(self, path):
        lines = tool("midicsv", path).decode("latin-1").splitlines()
        rows = [[field.strip() for field in line.split(",")] for line in lines]
        division = next(int(row[5]) for row in rows if row[2] == "Header")
        rows = [(int(row[1]), row[2], row[3:]) for row in rows
                if row[2] not in ("Header", "Start_track", "End_of_file")]
        end = max(time for time, _, _ in rows)
        changes = sorted(((time, int(rest[0])) for time, kind, rest in rows if kind == "Tempo"),
                         key=lambda change: change[0])
        held, now, micros = {}, 0, 500000
        for time, following in [*changes, (end, 0)]:
            bpm = int(60e6 / micros + 0.5)
            held[bpm] = held.get(bpm, 0) + (time - now) * micros / division / 1e6
            now, micros = time, following
        self.length = sum(held.values())
        self.bpm = max(held, key=held.get)
        keys = [(time, key_name(int(rest[0]), rest[1] == '"minor"')) for time, kind, rest in rows
                if kind == "Key_signature"]
        first = min((time for time, _ in keys), default=0)
        self.keys = {key for time, key in keys if time == first}
        self.has_notes = any(kind == "Note_on_c" and rest[0] != "9" for _, kind, rest in rows)


class Measure(CliTest):
    def measured(self, *arguments, **options):
        return self.run_kavena("measure", "--json", *arguments, status=0, **options).lines

    def played(self, path):
        """The seconds that fluidsynth plays. Without a sound font no note sounds on at the end."""
        out = self.folder / "played.wav"
        tool("fluidsynth", "-n", "-i", "-q", "-o", "synth.default-soundfont=", "-r", "8000",
             "-R", "0", "-C", "0", "-F", out, path)
        return float(tool("soxi", "-D", out))


class Midi(Measure):
    def real_songs(self):
        self.assertGreaterEqual(len(REAL_MIDI), 30)
        folder = self.folder / "tunes"
        folder.mkdir()
        for tune in TUNES:
            # It writes beside the tune; several tunes of a file become several songs.
            tool("abc2midi", shutil.copy(tune, folder))
        return REAL_MIDI + sorted(folder.glob("*.mid"))

    def test_what_is_found_in_the_music(self):
        path = self.write("tune.mid", TUNE)
        line, = self.measured(path)
        self.assertEqual(line, {
            "path": str(path), "length": 10.667, "bpm": 90, "key": "C", "guess": True,
            "markers": [{"bar": 1, "text": "Intro"}, {"bar": 3, "text": "Chorus"}], "filled": []})
        self.assertEqual(path.read_bytes(), TUNE)

    def test_words_for_people(self):
        self.write("tune.mid", TUNE)
        out = self.run_kavena("measure", "tune.mid", status=0).out
        self.assertEqual([line.split(None, 1) for line in out.splitlines()], [
            ["tune.mid"], ["Length:", "00:11"], ["BPM:", "90"], ["Key:", "C (guessed)"],
            ["Sections:", "1 Intro, 3 Chorus"], []])

    def test_real_songs_as_reckoned(self):
        guesses = 0
        real = self.real_songs()
        for path, line in zip(real, self.measured(*real), strict=True):
            with self.subTest(path.name):
                judge = Reckoning(path)
                self.assertAlmostEqual(line["length"], judge.length, delta=0.001)
                self.assertEqual(line["bpm"], judge.bpm)
                self.assertEqual(line["guess"], not judge.keys and judge.has_notes)
                self.assertIn(line["key"], judge.keys or (all_keys() if judge.has_notes else {""}))
                guesses += line["guess"]
        self.assertGreater(guesses, 0)

    def test_real_songs_as_played(self):
        four_seconds = midi([(0, event(1, b"")), (96 * 8, event(1, b""))])
        silence = self.played(self.write("four.mid", four_seconds)) - 4  # that fluidsynth adds
        self.assertLess(abs(silence), 3)
        real = self.real_songs()
        for path, line in zip(real, self.measured(*real), strict=True):
            with self.subTest(path.name):
                self.assertAlmostEqual(line["length"], self.played(path) - silence, delta=0.1)

    def test_packed_songs_are_measured_as_the_songs_in_them(self):
        packed, plain = (self.measured(self.write(f"song.{kind}", data))[0] for kind, data in
                         (("mf5", songs.mf5()), ("mid", expand(songs.mf5()[1024:]))))
        self.assertGreater(plain["length"], 0)
        self.assertEqual({**packed, "path": ""}, {**plain, "path": ""})

    def test_film_frames(self):
        path = self.write("film.mid", midi(NOTES, division=0xE728))  # 25 frames of 40 ticks
        self.assertEqual(self.measured(path)[0]["length"], 1.536)

    def marked(self, name, data):
        return [(place["bar"], place["text"])
                for place in self.measured(self.write(name, data))[0]["markers"]]

    def test_marked_places_have_their_bars(self):
        # Two bars of 3/4 (of 288 ticks), two of 6/8, then 4/4.
        metres = [(0, event(0x58, b"\3\2\x18\10")), (576, event(0x58, b"\6\3\x18\10")),
                  (576, event(0x58, b"\4\2\x18\10"))]
        marks = [(0, event(6, b"Upbeat")), (287, event(7, b"Still bar 1")), (1, event(6, b"Two")),
                 (288, event(6, b"Three")), (576, event(7, b"xyzzy")), (384, event(6, b"Six"))]
        found = [(1, "Upbeat"), (1, "Still bar 1"), (2, "Two"), (3, "Three"), (5, "xyzzy"),
                 (6, "Six")]
        self.assertEqual(self.marked("tracks.mid", midi(metres, marks)), found)
        one_track = bytearray(midi([
            metres[0], marks[0], marks[1], marks[2], (288, metres[1][1]), (0, marks[3][1]),
            (576, metres[2][1]), (0, marks[4][1]), marks[5]]))
        one_track[9] = 0  # format 0
        self.assertEqual(self.marked("track.mid", bytes(one_track)), found)

    def test_marked_places_that_are_too_many_end_somewhere(self):
        found = self.marked("many.mid", midi([(384, event(6, b"%d" % n)) for n in range(5000)]))
        self.assertEqual(found, [(n + 2, str(n)) for n in range(1000)])

    def test_bad_songs_end_in_a_clear_word(self):
        files = {"cut.mid": TUNE[:40], "empty.mid": b"", "text.mid": b"no song",
                 "zero.mid": midi(NOTES, division=0),
                 "stopped.mid": midi([(0, event(0x51, b"\0\0\0")), *NOTES])}
        for name, data in files.items():
            self.write(name, data)
        result = self.run_kavena("measure", "--json", *files, status=1)
        lines = {line["path"]: line for line in result.lines}
        self.assertEqual([name for name in files if "error" in lines[name]],
                         ["empty.mid", "text.mid"])
        self.assertEqual(lines["zero.mid"]["length"], 0)
        self.assertEqual((lines["stopped.mid"]["length"], lines["stopped.mid"]["bpm"]), (8, 120))


class Apply(Measure):
    def shown(self, path):
        line = self.run_kavena("show", "--json", path, status=0).lines[0]
        return line["length"], line["bpm"], line["key"]

    def test_fills_what_is_not_there(self):
        path = self.write("tune.mid", TUNE)
        self.assertEqual(self.measured("--apply", path)[0]["filled"], ["length", "bpm", "key"])
        self.assertEqual(self.shown(path), (11, 90, "C"))
        self.assertEqual(self.measured("--apply", path)[0]["filled"], [])

    def test_the_music_stays(self):
        path = self.write("tune.mid", TUNE)
        before = self.music_of(path)
        self.measured("--apply", path)
        self.assertEqual(self.music_of(path), before)

    def music_of(self, path):
        return [line for line in tool("midicsv", path).decode("latin-1").splitlines()
                if not any(word in line for word in ("Unknown_meta", "Key_sig", "Title_t"))]

    def test_what_is_there_stays(self):
        path = self.write("tune.mid", TUNE)
        self.run_kavena("set", "--bpm", "77", "--key", "A-", path, status=0)
        self.assertEqual(self.measured("--apply", path)[0]["filled"], ["length"])
        self.assertEqual(self.shown(path), (11, 77, "A-"))
        bytes_before = path.read_bytes()
        self.assertEqual(self.measured("--apply", path)[0]["bpm"], 90)
        self.assertEqual(path.read_bytes(), bytes_before)

    def test_without_it_nothing_is_written(self):
        self.write("tune.mid", TUNE)
        before = self.snapshot(self.music)
        self.measured(self.music)
        self.assertEqual(self.snapshot(self.music), before)
        self.assertEqual(self.run_kavena("history", "--json").lines, [])

    def test_is_a_job_that_can_be_taken_back(self):
        paths = [self.write(f"{number}.mid", TUNE) for number in range(20)]
        self.run_kavena("set", "--key", "D", "--bpm", "1", "--length", "0:01", paths[0], status=0)
        self.measured("--apply", *paths)
        job = self.run_kavena("history", "--json", status=0).lines[0]
        self.assertEqual((job["kind"], job["songs"]), ("measure", 19))
        self.run_kavena("undo", status=0)
        self.assertEqual([path.read_bytes() for path in paths[1:]], [TUNE] * 19)

    def test_what_cannot_be_entered_is_not_written(self):
        long = self.write("long.mid", midi([(0, tempo(1500)), (96 * 1500 * 100, event(1, b""))]))
        line, = self.measured("--apply", long)
        self.assertEqual((line["length"], line["bpm"], line["filled"]), (6000, 1500, []))
        self.assertEqual(self.shown(long), (0, 0, ""))
        self.write("longest.mid", midi([(0, tempo(999)), (96 * 999 * 99, event(1, b""))]))
        self.assertEqual(self.measured("--apply", "longest.mid")[0]["filled"], ["length", "bpm"])

    def test_packed_song(self):
        path = self.write("song.mf5", songs.mf5())
        found, = self.measured("--apply", path)
        length, bpm, key = self.shown(path)
        self.assertEqual(found["filled"], [field for field in ("length", "bpm", "key")
                                           if field in found["filled"]])
        self.assertIn("length", found["filled"])
        self.assertEqual(length, round(found["length"]))

    def test_a_file_that_cannot_be_written_is_named(self):
        path = self.write("tune.mid", TUNE)
        result = self.run_kavena("measure", "--apply", path, self.folder / "none.mid", status=1)
        self.assertIn("none.mid", result.err)
        self.assertEqual(self.shown(path), (11, 90, "C"))


class Mp3(Measure):
    def setUp(self):
        super().setUp()
        lame = ["lame", "--quiet", "-r", "-m", "m"]
        self.kinds = {
            "constant": [*lame, "-s", "44.1", "-b", "128"],
            "constant without header": [*lame, "-s", "44.1", "-t", "-b", "128"],
            "variable": [*lame, "-s", "44.1", "-V2"],
            "variable without header": [*lame, "-s", "44.1", "-t", "-V2"],
            "average": [*lame, "-s", "48", "--abr", "130"],
            "MPEG 2": [*lame, "-s", "22.05", "-V4"],
            "free format": [*lame, "-s", "44.1", "--freeformat", "-b", "100"],
            "free format without header": [*lame, "-s", "44.1", "-t", "--freeformat", "-b", "400"],
        }
        for kind, words in self.kinds.items():
            tool(*words, "-", self.music / f"{kind}.mp3", data=sound() * 9)
        tool("ffmpeg", "-v", "error", "-f", "s16le", "-ar", "44100", "-ac", "1", "-i", "-", "-q:a",
             "3", "-metadata", "title=Song", self.music / "ffmpeg.mp3", data=sound() * 9)
        self.write("VBRI.mp3", self.with_vbri((self.music / "variable without header.mp3")
                                              .read_bytes()))
        for name in ("constant", "variable", "variable without header", "VBRI"):
            data = (self.music / f"{name}.mp3").read_bytes()
            self.write(f"{name}, tags.mp3", self.tag(900000) + data + self.ape(data[:9000]) +
                       b"TAG" + bytes(125))

    @staticmethod
    def with_vbri(stream):
        """The stream behind a frame such as Fraunhofer's encoder writes it."""
        frames = sum(1 for _ in frames_of(stream))
        head = b"VBRI" + bytes.fromhex("0001 0000 004b".replace(" ", ""))
        head += (len(stream) + 417).to_bytes(4, "big") + frames.to_bytes(4, "big")
        return (b"\xff\xfb\x90\xc0" + bytes(32) + head).ljust(417, b"\0") + stream

    @staticmethod
    def tag(size):
        frame = b"APIC" + size.to_bytes(4, "big") + b"\0\0" + b"\xff\xfb\x90\0" * (size // 4)
        return b"ID3\3\0\0" + bytes(len(frame) >> shift & 127 for shift in (21, 14, 7, 0)) + frame

    @staticmethod
    def ape(data):
        item = len(data).to_bytes(4, "little") + bytes(4) + b"Cover\0" + data
        ends = [b"APETAGEX" + b"".join(number.to_bytes(4, "little") for number in
                                       (2000, len(item) + 32, 1, flags, 0, 0))
                for flags in (0xA0000000, 0x80000000)]
        return ends[0] + item + ends[1]

    def test_lengths_as_sox_and_ffprobe_find_them(self):
        paths = sorted(self.music.glob("*.mp3"))
        self.assertEqual(len(paths), 14)
        for path, line in zip(paths, self.measured(*paths), strict=True):
            name = path.name.replace(", tags", "")
            plain = self.music / name
            with self.subTest(path.name):
                self.assertEqual((line["bpm"], line["key"], line["guess"]), (0, "", False))
                wave = self.folder / "decoded.wav"
                tool("sox", plain, wave)
                self.assertAlmostEqual(line["length"], float(tool("soxi", "-D", wave)), delta=0.05)
                if any(kind in name for kind in ("without", "VBRI", "free")):
                    continue  # ffprobe only estimates it, or does not read it
                probed = tool("ffprobe", "-v", "error", "-show_entries", "format=duration", "-of",
                              "csv=p=0", plain)
                self.assertAlmostEqual(line["length"], float(probed), delta=0.05)

    def test_length_is_filled_in(self):
        path = self.music / "variable.mp3"
        line, = self.measured("--apply", path)
        self.assertEqual(line["filled"], ["length"])
        shown, = self.run_kavena("show", "--json", path, status=0).lines
        self.assertEqual(shown["length"], round(line["length"]))
        self.assertEqual(self.measured("--apply", path)[0]["length"], line["length"])

    def test_a_song_that_is_cut_off_has_what_is_left(self):
        whole, = self.measured(self.music / "variable.mp3")
        data = (self.music / "variable.mp3").read_bytes()
        half, = self.measured(self.write("half.mp3", data[:len(data) // 2]))
        self.assertAlmostEqual(half["length"], whole["length"] / 2, delta=0.5)


def frames_of(stream):
    """The frames of a stream of MPEG 1, Layer III, at 44.1 kHz."""
    rates = [0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320]
    place = 0
    while place + 4 <= len(stream):
        size = 144000 * rates[stream[place + 2] >> 4] // 44100 + (stream[place + 2] >> 1 & 1)
        yield stream[place:place + size]
        place += size


def all_keys():
    return {key_name(sharps, minor) for sharps in range(-7, 8) for minor in (False, True)}


if __name__ == "__main__":
    songs.main()
