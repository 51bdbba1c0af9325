#!/usr/bin/env python3
"""test_tags.py KAVENA: MP3 files of all makers get texts that the player shows, and lose nothing."""
import importlib.util
import os
import pathlib
import random
import shutil
import struct
import subprocess
import sys
import tempfile

# Debian's Python, where its packages lie; another one may come first in the path.
if sys.executable != "/usr/bin/python3" and not importlib.util.find_spec("mutagen"):
    os.execv("/usr/bin/python3", ["/usr/bin/python3", *sys.argv])

from mutagen import id3
from mutagen.apev2 import APEv2
from mutagen.id3._util import unsynch

import songs

TOOLS = pathlib.Path(__file__).resolve().parent.parent / "tools"
TEXTS = {"title": "Čárový “zvon”", "artist": "Łukasz", "genre": "Città", "author": "Чайковский"}
SPELLED = {"title": "Cárový \"zvon\"", "artist": "Lukasz", "genre": "Città",
           "author": "Chaykovskiy"}
WRITTEN = "TIT2 TPE1 TCON TCOM TKEY TBPM TLEN".split()
PICTURE = random.Random(1).randbytes(2_000_000)


def tool(*arguments):
    subprocess.run([str(argument) for argument in arguments], check=True,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)


def groups(size):
    return bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0))


def tag_size(data):
    """Of the tag at the start, footer included."""
    if not data.startswith(b"ID3"):
        return 0
    size = sum((byte & 0x7F) << shift for byte, shift in zip(data[6:10], (21, 14, 7, 0)))
    return 10 + size + (10 if data[3] == 4 and data[5] & 0x10 else 0)


def remade(data, flags, encode):
    """The same tag with other flags and other bytes of its frames."""
    body = encode(data[10:tag_size(data)])
    return data[:5] + bytes([flags]) + groups(len(body)) + body + data[tag_size(data):]


class TagsTest(songs.CliTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.sources = pathlib.Path(tempfile.mkdtemp(prefix="kavena-tags."))
        wave = cls.sources / "tone.wav"
        samples = b"".join(struct.pack("<h", (number * 37) % 9000) for number in range(44100))
        wave.write_bytes(b"RIFF" + struct.pack("<I", 36 + len(samples)) + b"WAVEfmt " +
                         struct.pack("<IHHIIHH", 16, 1, 1, 44100, 88200, 2, 16) +
                         b"data" + struct.pack("<I", len(samples)) + samples)
        cls.wave = wave
        tool("lame", "--quiet", "-t", wave, cls.sources / "plain.mp3")
        cls.audio = (cls.sources / "plain.mp3").read_bytes()
        (cls.sources / "dot.png").write_bytes(bytes.fromhex(
            "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b550000000a494441"
            "54789c636000000002000148afa4710000000049454e44ae426082"))

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.sources, ignore_errors=True)
        super().tearDownClass()

    def frames(self, encoding):
        return [id3.TIT2(encoding, TEXTS["title"]), id3.TPE1(encoding, TEXTS["artist"]),
                id3.TCON(encoding, TEXTS["genre"]), id3.TCOM(encoding, TEXTS["author"]),
                id3.TALB(encoding, "Čárový " * 50), id3.TDRC(encoding, "1987-06-05"),
                id3.COMM(encoding, "ita", "nota", "Città " * 40), id3.TXXX(encoding, "X", ["a", "ž"]),
                id3.PRIV("owner", b"\xff\xfb\x90\0\0\xff" * 40), id3.POPM("me@x", 200, 7),
                id3.APIC(encoding, "image/png", 3, "vorne ž", PICTURE),
                id3.APIC(encoding, "image/jpeg", 4, "dietro", PICTURE[::-1][:3000])]

    def mutagen(self, name, version, encoding, without=()):
        path = self.write(name, self.audio)
        tag = id3.ID3()
        for frame in self.frames(encoding):
            if frame.FrameID not in without:
                tag.add(frame)
        if version == 3:
            tag.update_to_v23()
        tag.save(path, v1=0, v2_version=version, v23_sep=None)
        return path

    def check(self, path, texts=None, audio=None):
        """Prepares the file and holds it against what it was. Returns the line of the report."""
        before = path.with_suffix(".before")
        shutil.copy(path, before)
        old = path.read_bytes()
        preview = self.run_kavena("tags", "--json", path, status=0).lines
        self.assertEqual(path.read_bytes(), old)
        self.assertFalse(preview[0]["written"])
        report = self.run_kavena("tags", "--apply", "--json", path, status=0).lines
        self.assertEqual(report, [dict(preview[0], written=True)])
        new = path.read_bytes()
        self.assertEqual(new[tag_size(new):], old[tag_size(old):])
        if audio is not None:
            self.assertEqual(new[tag_size(new):], audio)
        same = subprocess.run([sys.executable, TOOLS / "same_frames.py", before, path, *WRITTEN],
                              capture_output=True, text=True, check=False)
        self.assertEqual((same.stdout, same.stderr), ("", ""))
        listed = id3.ID3(path, translate=False, load_v1=False)
        for name, frame in {"title": "TIT2", "artist": "TPE1", "genre": "TCON",
                            "author": "TCOM"}.items():
            text = (SPELLED if texts is None else texts).get(name)
            if text is not None:
                self.assertEqual((listed[frame].encoding, listed[frame].text), (0, [text]))
        again = self.run_kavena("tags", "--json", path, status=0).lines
        self.assertEqual((again[0]["troubles"], again[0]["changes"]), ([], []))
        unchanged = path.read_bytes()
        self.run_kavena("tags", "--apply", path, status=3)
        self.assertEqual(path.read_bytes(), unchanged)
        self.run_kavena("undo", status=0)
        self.assertEqual(path.read_bytes(), old)
        path.write_bytes(new)
        return report[0]

    def judge_with_id3v2(self, path, title):
        """Another reader of version 3."""
        listed = subprocess.run(["id3v2", "-l", path], capture_output=True, check=True).stdout
        lines = [line for line in listed.decode("utf-8", "replace").splitlines()
                 if line.startswith("TIT2")]
        self.assertEqual([line.rpartition("): ")[2] for line in lines], [title])

    def test_tags_of_mutagen_keep_every_frame(self):
        for version, encoding in ((3, 1), (4, 1), (4, 2), (4, 3)):
            with self.subTest(version=version, encoding=encoding):
                path = self.mutagen("song.mp3", version, encoding)
                report = self.check(path, audio=self.audio)
                self.assertEqual(report["troubles"], ["encoding"])
                self.assertEqual({name: report[name] for name in TEXTS}, TEXTS)
                self.assertEqual(path.read_bytes()[3], 3)
                self.judge_with_id3v2(path, SPELLED["title"])

    def test_unsynchronised_tags_keep_every_frame(self):
        path = self.mutagen("three.mp3", 3, 1)
        path.write_bytes(remade(path.read_bytes(), 0x80, unsynch.encode))
        self.assertIn("unsynchronised", self.check(path, audio=self.audio)["troubles"])
        path = self.mutagen("four.mp3", 4, 1)

        def each_frame(body):
            out, pos = b"", 0
            while pos < len(body) and body[pos]:
                size = sum(byte << shift for byte, shift in zip(body[pos + 4:pos + 8],
                                                               (21, 14, 7, 0)))
                content = unsynch.encode(body[pos + 10:pos + 10 + size])
                out += body[pos:pos + 4] + groups(len(content) + 4) + b"\0\3"
                out += groups(size) + content
                pos += 10 + size
            return out

        path.write_bytes(remade(path.read_bytes(), 0x80, each_frame))
        self.check(path, audio=self.audio)
        self.assertEqual(path.read_bytes()[3], 3)

    def test_footers_and_extended_headers_go(self):
        path = self.mutagen("footer.mp3", 4, 3)
        data = remade(path.read_bytes(), 0x10, bytes.strip)
        end = tag_size(data) - 10
        path.write_bytes(data[:end] + b"3DI" + data[3:10] + data[end:])
        self.check(path, audio=self.audio)
        path = self.mutagen("extended.mp3", 4, 3)
        path.write_bytes(remade(path.read_bytes(), 0x40, lambda body: groups(6) + b"\1\0" + body))
        self.check(path, audio=self.audio)

    def test_frames_that_version_3_does_not_know_keep_version_4(self):
        path = self.mutagen("song.mp3", 4, 3)
        tag = id3.ID3(path)
        tag.add(id3.TMOO(3, "allegro ž"))
        tag.add(id3.RVA2("x", 1, -3.0, 0.5))
        tag.save(path, v1=0)
        self.check(path, audio=self.audio)
        self.assertEqual(path.read_bytes()[3], 4)

    def test_tags_of_version_2_become_version_3(self):
        def frame(name, content):
            return name + len(content).to_bytes(3, "big") + content

        def utf16(text):
            return b"\1" + text.encode("utf-16")

        body = b"".join([frame(b"TT2", utf16(TEXTS["title"])), frame(b"TP1", utf16("Łukasz")),
                         frame(b"TAL", utf16("Čárový " * 30)), frame(b"TYE", b"\x001987"),
                         frame(b"COM", b"\0ita\0nota"), frame(b"ULT", b"\0ita\0Via via"),
                         frame(b"PIC", b"\0PNG\3\0" + PICTURE), frame(b"TXX", b"\0a\0b")])
        for flags, encode in ((0, bytes), (0x80, unsynch.encode)):
            with self.subTest(flags=flags):
                path = self.write("song.mp3", remade(b"ID3\2\0\0\0\0\0\0" + self.audio, flags,
                                                     lambda _, encode=encode: encode(body)))
                report = self.check(path, {"title": SPELLED["title"], "artist": "Lukasz"},
                                    self.audio)
                self.assertIn("version", report["troubles"])
                self.judge_with_id3v2(path, SPELLED["title"])

    def test_tags_of_ffmpeg(self):
        for version in (3, 4):
            for v1 in (0, 1):
                with self.subTest(version=version, v1=v1):
                    path = self.folder / "song.mp3"
                    metadata = []
                    for name, text in dict(TEXTS, composer=TEXTS["author"], album="Čárový",
                                           date="1987", comment="ž", TKEY="Am").items():
                        metadata += ["-metadata", f"{name}={text}"]
                    tool("ffmpeg", "-y", "-v", "error", "-i", self.sources / "plain.mp3", "-i",
                         self.sources / "dot.png", "-map", "0", "-map", "1", "-c", "copy",
                         "-id3v2_version", version, "-write_id3v1", v1, *metadata, path)
                    self.check(path)
                    probed = subprocess.run(["ffprobe", "-v", "error", "-show_entries",
                                             "format_tags=title,album", "-of", "csv=p=0", path],
                                            capture_output=True, check=True).stdout.decode()
                    self.assertIn("Čárový", probed)

    def test_tags_of_lame(self):
        path = self.folder / "song.mp3"
        tool("lame", "--quiet", "--add-id3v2", "--id3v2-utf16", "--tt", TEXTS["title"], "--ta",
             "Łukasz", "--tl", "Čárový", "--tv", "TKEY=Am", "--ti", self.sources / "dot.png",
             self.wave, path)
        self.check(path, {"title": SPELLED["title"], "artist": "Lukasz"})
        self.judge_with_id3v2(path, SPELLED["title"])

    def test_tags_of_eyed3(self):
        for version in ("2.3", "2.4"):
            for encoding in ("utf16", "utf8"):
                if (version, encoding) == ("2.3", "utf8"):
                    continue
                with self.subTest(version=version, encoding=encoding):
                    path = self.write("song.mp3", self.audio)
                    tool("eyeD3", "-Q", f"--to-v{version}", "--encoding", encoding, "-t",
                         TEXTS["title"], "-a", "Łukasz", "-A", "Čárový", "--composer",
                         TEXTS["author"], "-G", "Polka", "--add-image",
                         f"{self.sources / 'dot.png'}:FRONT_COVER:ž", path)
                    self.check(path, {"title": SPELLED["title"], "artist": "Lukasz",
                                      "author": SPELLED["author"]})

    def test_tags_behind_the_audio_are_brought_to_the_front(self):
        old = (b"TAG" + "Città".encode("latin-1").ljust(30, b"\0") + b"Someone".ljust(30, b"\0") +
               bytes(64) + b"\x11")
        path = self.write("one.mp3", self.audio + old)
        report = self.check(path, {"title": "Città", "artist": "Someone", "genre": "Rock"},
                            self.audio + old)
        self.assertEqual(report["troubles"], ["id3v1"])
        path = self.write("ape.mp3", self.audio)
        tag = APEv2()
        tag["Title"], tag["Artist"], tag["Composer"] = TEXTS["title"], "Łukasz", TEXTS["author"]
        tag.save(path)
        behind = path.read_bytes()
        report = self.check(path, {"title": SPELLED["title"], "artist": "Lukasz",
                                   "author": SPELLED["author"]}, behind)
        self.assertEqual(report["troubles"], ["ape"])

    def test_only_what_needs_it_is_written(self):
        plain = self.write("plain.mp3", songs.mp3("Blue Moon"))
        midi = self.write("song.mid", songs.song("Č".encode("utf-8").decode("latin-1")))
        other = self.mutagen("Other/song.mp3", 3, 1, without=["APIC"])
        before = [path.read_bytes() for path in (plain, midi)]
        lines = self.run_kavena("tags", "--apply", "--json", self.folder, status=0).lines
        self.assertEqual({pathlib.Path(line["path"]).name: line["written"] for line in lines},
                         {"plain.mp3": False, "song.mp3": True})
        self.assertEqual([path.read_bytes() for path in (plain, midi)], before)
        self.assertEqual(id3.ID3(other)["TIT2"].text, [SPELLED["title"]])
        jobs = self.run_kavena("history", "--json").lines
        self.assertEqual([(job["kind"], job["songs"]) for job in jobs], [("tags", 1)])

    def test_preview_for_people_names_reason_and_texts(self):
        path = self.mutagen("song.mp3", 3, 1, without=["APIC"])
        before = path.read_bytes()
        out = self.run_kavena("tags", path, status=0).out
        self.assertIn("Lukasz", out)
        self.assertIn("song.mp3: ", out)
        self.assertEqual(path.read_bytes(), before)

    def test_failures_are_named(self):
        self.write("text.mp3", b"no song")
        damaged = self.write("damaged.mp3", b"ID3\2\0\0\0\0\0\x0e" + b"TT2\0\0\2\0AXX\xff\xff\xff\xff"
                             + self.audio)
        old = damaged.read_bytes()
        result = self.run_kavena("tags", "--apply", "missing.mp3", "text.mp3", "damaged.mp3",
                                 status=1)
        for name in ("missing.mp3", "text.mp3", "damaged.mp3"):
            self.assertIn(name, result.err)
        self.assertEqual(damaged.read_bytes(), old)
        self.run_kavena("tags", status=2)
        self.run_kavena("tags", "--apply=1", "x.mp3", status=2)

    def test_without_a_history_nothing_is_written_unless_it_is_wished(self):
        store = self.folder / "data" / "kavena_pc" / "kravo" / "history.sqlite"
        store.parent.mkdir(parents=True)
        store.write_bytes(b"x" * 5000)
        path = self.mutagen("song.mp3", 3, 1, without=["APIC"])
        before = path.read_bytes()
        self.run_kavena("tags", path, status=0)
        self.run_kavena("tags", "--apply", path, status=3)
        self.assertEqual(path.read_bytes(), before)
        self.run_kavena("tags", "--apply", "--without-history", "yes", path, status=0)
        self.assertNotEqual(path.read_bytes(), before)


if __name__ == "__main__":
    songs.main()
