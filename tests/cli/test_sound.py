#!/usr/bin/env python3
"""test_sound.py KAVENA: the sound of songs as the program writes it, judged by sox and by the
strengths of the notes in it, and what the user is told where there is none.
"""
import array
import math
import os
import pathlib
import subprocess
import wave

import songs
from songs import CliTest
from test_measure import event, midi, tempo
from test_realsongs import tool

import seeds  # found by songs

A4 = 440.0


def frequency(key):
    return A4 * 2 ** ((key - 69) / 12)


def notes(keys, ticks=96, program=73):
    """One note after the other, by a flute."""
    return [(0, bytes([0xC0, program]))] + [
        (wait, bytes([status, key, 100])) for key in keys for wait, status in ((0, 0x90), (ticks, 0x80))]


def samples(path):
    """The left side, and how many samples make a second."""
    with wave.open(str(path), "rb") as file:
        data = array.array("h", file.readframes(file.getnframes()))
        return data[::file.getnchannels()], file.getframerate()


def strength(part, hertz, rate):
    """How much of this frequency is in the samples (Goertzel)."""
    factor = 2 * math.cos(2 * math.pi * hertz / rate)
    before = last = 0.0
    for sample in part:
        before, last = last, sample + factor * last - before
    return last * last + before * before - factor * last * before


def key_at(path, second, length=0.25):
    """The MIDI key that sounds strongest."""
    data, rate = samples(path)
    part = data[int(second * rate):int((second + length) * rate)]
    return max(range(48, 97), key=lambda key: strength(part, frequency(key), rate))


def loudness(path, start=None, length=None):
    """Root mean square, by sox; full scale is 1."""
    trim = [] if start is None else ["trim", start, length]
    words = ["sox", str(path), "-n", *map(str, trim), "stat"]
    text = subprocess.run(words, stderr=subprocess.PIPE, check=True).stderr.decode()
    return float(next(line.split(":")[1] for line in text.splitlines()
                      if line.startswith("RMS     amplitude")))


class Sound(CliTest):
    def render(self, song, *arguments, status=0, **environment):
        out = self.folder / "out.wav"
        result = self.run_kavena("render", song, "--to", out, "--replace", "yes", *arguments,
                                 status=status, **environment)
        return out if status == 0 else result

    def seconds(self, path):
        return float(tool("soxi", "-D", path))


class Midi(Sound):
    def test_pitch_of_each_note(self):
        scale = [67, 69, 72, 76, 79, 84]
        out = self.render(self.write("scale.mid", midi([(0, tempo(60))], notes(scale))))
        self.assertEqual([key_at(out, place + 0.4) for place in range(len(scale))], scale)

    def test_length_is_the_measured_one_and_the_fading_of_the_last_note(self):
        song = self.write("scale.mid", midi([(0, tempo(90))], notes([60, 64, 67, 72])))
        out = self.render(song)
        line, = self.run_kavena("measure", "--json", song, status=0).lines
        self.assertAlmostEqual(line["length"], 4 * 60 / 90, delta=0.01)
        self.assertTrue(0 <= self.seconds(out) - line["length"] <= 3.2, self.seconds(out))
        self.assertEqual(tool("soxi", "-r", out).strip(), b"44100")
        self.assertEqual(tool("soxi", "-c", out).strip(), b"2")

    def test_changes_of_tempo_are_heard(self):
        # The second note begins behind two seconds, the third half a second later.
        song = midi([(0, tempo(30)), (96, tempo(120))], notes([72, 79, 69]))
        out = self.render(self.write("tempi.mid", song))
        self.assertEqual([key_at(out, second) for second in (0.5, 1.6, 2.15, 2.65)],
                         [72, 72, 79, 69])

    def test_loudness_follows_the_velocity(self):
        def tone(velocity):
            song = midi([(0, tempo(60))], [(0, bytes([0xC0, 16])), (0, bytes([0x90, 60, velocity])),
                                           (192, bytes([0x80, 60, 0]))])
            return loudness(self.render(self.write("tone.mid", song)), 0.5, 1)
        loud, quiet = tone(120), tone(40)
        self.assertTrue(0.01 < loud < 0.5, loud)
        self.assertLess(quiet, loud / 4)

    def test_silence_between_notes(self):
        song = midi([(0, tempo(60))], [
            (0, bytes([0x90, 60, 100])), (48, bytes([0x80, 60, 0])),
            (960, bytes([0x90, 60, 100])), (48, bytes([0x80, 60, 0]))])
        out = self.render(self.write("gap.mid", song))
        self.assertGreater(loudness(out, 0.1, 0.3), 0.005)
        self.assertLess(loudness(out, 6, 3), 0.001)

    def test_mfx_songs_sound_as_their_midi_file(self):
        tune = midi([(0, tempo(60))], notes([69, 60]))
        for kind in ("mf3", "mf4", "mf5"):
            with self.subTest(kind):
                song = self.write(f"song.{kind}", seeds.mfx(b"_" + kind.upper().encode(), tune))
                self.assertEqual(key_at(self.render(song), 0.4), 69)

    def test_song_of_abc2midi(self):
        abc = self.write("tune.abc", b"X:1\nT:Tune\nM:4/4\nL:1/4\nQ:1/4=60\nK:C\n"
                                     b"%%MIDI program 73\nc e g c' |\n")
        tool("abc2midi", abc, "-o", self.music / "tune.mid")
        out = self.render("tune.mid")
        self.assertEqual([key_at(out, place + 0.4) for place in range(4)], [72, 76, 79, 84])

    def test_real_songs(self):
        folder = pathlib.Path("/usr/share/games/openttd/baseset/openmsx")
        found = sorted(folder.glob("*.mid"))[:3]
        self.assertEqual(len(found), 3)
        for song in found:
            with self.subTest(song.name):
                out = self.render(song)
                line, = self.run_kavena("measure", "--json", song, status=0).lines
                self.assertTrue(-0.01 <= self.seconds(out) - line["length"] <= 3.2)
                self.assertTrue(0.01 < loudness(out) < 0.5, loudness(out))


class Mp3(Sound):
    def tone(self, name, hertz, seconds, *options):
        tone = self.folder / "tone.wav"
        tool("sox", "-n", "-r", "44100", "-c", "1", tone, "synth", str(seconds), "sine",
             str(hertz), "vol", "0.5")
        tool("lame", "--quiet", *options, tone, self.music / name)
        return self.music / name

    def test_pitch_length_and_loudness(self):
        for options in (["-b", "128"], ["-V", "4"], ["-b", "64", "--resample", "22.05"]):
            with self.subTest(options):
                out = self.render(self.tone("tone.mp3", A4, 4, *options))
                self.assertEqual(key_at(out, 2), 69)
                self.assertAlmostEqual(self.seconds(out), 4, delta=0.15)
                self.assertAlmostEqual(loudness(out, 1, 2), 0.5 / math.sqrt(2), delta=0.03)

    def test_song_that_is_cut_off_sounds_as_far_as_it_goes(self):
        song = self.tone("tone.mp3", A4, 4, "-b", "128")
        data = song.read_bytes()
        out = self.render(self.write("cut.mp3", data[:len(data) // 2]))
        self.assertAlmostEqual(self.seconds(out), 2, delta=0.2)

    def test_bytes_that_are_no_sound(self):
        song = self.write("noise.mp3", b"ID3\4\0\0\0\0\0\0" + bytes(range(1, 200)) * 200)
        result = self.render(song, status=3)
        self.assertIn("The song is damaged", result.err)
        self.assertFalse((self.folder / "out.wav").exists())


class Files(Sound):
    def setUp(self):
        super().setUp()
        self.song = self.write("song.mid", midi([(0, tempo(120))], notes([60])))

    def test_song_is_never_written(self):
        before = self.snapshot(self.music)
        for target in ("song.mid", "new.mid", "./song.mid"):
            with self.subTest(target):
                self.run_kavena("render", "song.mid", "--to", target, "--replace", "yes", status=3)
                self.assertEqual(self.snapshot(self.music), before)
        os.symlink("song.mid", self.music / "link.wav")
        self.run_kavena("render", "song.mid", "--to", "link.wav", "--replace", "yes", status=3)
        self.assertEqual(self.song.read_bytes(), before[self.song])

    def test_file_that_is_there_is_only_replaced_when_wished(self):
        out = self.write("out.wav", b"old")
        result = self.run_kavena("render", "song.mid", "--to", out, status=3)
        self.assertIn("--replace", result.err)
        self.assertEqual(out.read_bytes(), b"old")
        self.run_kavena("render", "song.mid", "--to", out, "--replace", "no", status=3)
        self.assertEqual(out.read_bytes(), b"old")
        self.run_kavena("render", "song.mid", "--to", out, "--replace", "yes", status=0)
        self.assertEqual(out.read_bytes()[:4], b"RIFF")

    def test_folder_that_is_not_there(self):
        result = self.run_kavena("render", "song.mid", "--to", "no/out.wav", status=3)
        self.assertIn("folder", result.err)

    def test_nothing_is_left_beside_the_file(self):
        self.run_kavena("render", "song.mid", "--to", "out.wav", status=0)
        self.assertEqual(sorted(os.listdir(self.music)), ["out.wav", "song.mid"])

    def test_wrong_use(self):
        self.run_kavena("render", "song.mid", status=2)
        self.run_kavena("render", "song.mid", "song.mid", "--to", "out.wav", status=2)
        self.run_kavena("play", status=2)

    def test_help(self):
        for command in ("play", "render"):
            self.assertIn("--sound-font F", self.run_kavena(command, "--help", status=0).out)


class Trouble(Sound):
    def test_broken_songs(self):
        note = bytes([0x90, 60, 100])
        late = midi([(0, note), (0x0FFFFFFF, bytes([0x80, 60, 0]))])
        for name, data, word in (("empty.mid", b"", "not a song"), ("head.mid", b"MThd", "damaged"),
                                 ("late.mid", late, "longer than 6 hours"),
                                 ("mute.mid", midi([(0, tempo(60))]), "nothing to hear"),
                                 ("text.wav", b"RIFF", "not a song")):
            with self.subTest(name):
                result = self.render(self.write(name, data), status=3)
                self.assertIn(word, result.err)
        self.assertFalse((self.folder / "out.wav").exists())

    def test_missing_file(self):
        self.assertIn("cannot be read", self.render("gone.mid", status=3).err)

    def test_tempo_zero(self):
        song = midi([(0, event(0x51, b"\0\0\0"))], notes([60]))
        self.assertLess(self.seconds(self.render(self.write("zero.mid", song))), 4)

    def test_song_of_four_hours_is_played_and_stops_when_told(self):
        """Only its beginning is of interest; but it is not refused."""
        song = midi([(0, tempo(60))], [(0, bytes([0x90, 60, 100])), (96, bytes([0x80, 60, 0])),
                                       (4 * 3600 * 96, bytes([0x90, 60, 100])),
                                       (96, bytes([0x80, 60, 0]))])
        result = self.run_kavena("play", self.write("long.mid", song), status=3)
        self.assertIn("no sound device", result.err)

    def test_broken_and_missing_sound_font(self):
        song = self.write("song.mid", midi([(0, tempo(60))], notes([60])))
        whole = pathlib.Path("/usr/share/sounds/sf2/TimGM6mb.sf2").read_bytes()
        for name, data in (("my", b"RIFF" + bytes(100)), ("empty", b""), ("text", b"no font" * 99),
                           ("half", whole[:len(whole) // 2]), ("head", whole[:200])):
            with self.subTest(name):
                font = self.write(f"{name}.sf2", data)
                # The only word is ours: the libraries behind it have their own.
                self.assertEqual(self.render(song, "--sound-font", font, status=3).err,
                                 f"kavena: {song}: The sound font cannot be read\n")
        self.assertIn("sound font", self.render(song, "--sound-font", "gone.sf2", status=3).err)
        result = self.render(song, status=3, XDG_DATA_DIRS=str(self.folder))
        self.assertIn("no sound font", result.err)
        self.assertFalse((self.folder / "out.wav").exists())

    def test_chosen_sound_font(self):
        installed = pathlib.Path("/usr/share/sounds/sf2/TimGM6mb.sf2")
        song = self.write("song.mid", midi([(0, tempo(60))], notes([69])))
        out = self.render(song, "--sound-font", installed, XDG_DATA_DIRS=str(self.folder))
        self.assertEqual(key_at(out, 0.4), 69)

    def test_no_device(self):
        song = self.write("song.mid", midi([(0, tempo(60))], notes([60])))
        result = self.run_kavena("play", song, status=3, PULSE_SERVER="unix:/nonexistent")
        self.assertIn("no sound device", result.err)


if __name__ == "__main__":
    songs.main()
