#!/usr/bin/env python3
"""Makes the first inputs and the dictionaries of the fuzzers: seeds.py FOLDER

FOLDER/<fuzzer>/ gets the seeds, FOLDER/<fuzzer>.dict the words. Everything is put together from the
formats' tables; nothing of the program is used. The inputs begin with the values that each fuzzer
takes in front of its file (see fuzzing.h).
"""
import hashlib
import os
import sys
import zlib


def be(value, size):
    return value.to_bytes(size, "big")


def le(value, size):
    return value.to_bytes(size, "little")


# Values in front of a file


def short(data):
    return be(len(data), 1) + data


def long(data):
    return be(len(data), 3) + data


def record(title=b"Blue Moon", artist=b"The Band", key=b"F#-", seconds=215, bpm=128, kravo=1,
           markers=((1, b"Intro"), (9, b"Verse"))):
    """title, artist, displayed artist, genre, author, key, length, tempo, publisher, markers"""
    texts = (title, artist, b"Band, The", b"Rock", "Größe".encode(), key)
    return (b"".join(map(short, texts)) + be(seconds, 4) + be(bpm, 4) + be(kravo, 1) +
            be(len(markers), 1) + b"".join(be(bar, 2) + short(text) for bar, text in markers))


EMPTY_RECORD = bytes(16)
EDITS = (record(), EMPTY_RECORD, record(title=b"T" * 200, key=b"H", seconds=0, bpm=0, markers=()))

# MIDI


def meta(kind, data):
    return b"\x00\xff" + be(kind, 1) + be(len(data), 1) + data


def maker(sub_type, payload):
    return meta(0x4B, be(sub_type, 1) + payload)


def midi(events, form=0, tracks=1, length=None):
    events += b"\x00\xff\x2f\x00"
    size = len(events) if length is None else length
    return b"MThd" + be(6, 4) + be(form, 2) + be(tracks, 2) + be(96, 2) + b"MTrk" + be(size, 4) + events


NOTES = b"\x00\x90\x3c\x64\x60\x80\x3c\x40\x00\xc0\x05\x81\x00\x90\x3c\x00"
HEAD = (meta(3, b"Blue Moon") + meta(2, b"(c) K-Ravo") + maker(1, b"Rock") + maker(2, b"The Band") +
        maker(3, b"Bach") + maker(4, b"215") + maker(5, b"128") + maker(6, b"\x00\x01Intro") +
        meta(0x59, b"\x03\x01") + meta(0x51, b"\x07\xa1\x20"))
MIDI_FILES = {
    "plain": midi(NOTES),
    "full": midi(HEAD + NOTES),
    "twotracks": midi(HEAD, 1, 2) + b"MTrk" + be(24, 4) + HEAD[:20] + b"\x00\xff\x2f\x00",
    "longdelta": midi(NOTES + b"\x83\x00\xff\x59\x02\x02\x00" + NOTES),
    "longrest": midi(NOTES + b"\xff\x03\x80\x3c\x40" + NOTES),
    "sysex": midi(b"\x00\xf0\x05\x7e\x7f\x09\x01\xf7" + HEAD),
    "longmarker": midi(maker(6, b"\x00\x01" + b"m" * 125) + NOTES),
    "hugelength": midi(HEAD, length=0xFFFFFFF0),
    "shortlength": midi(HEAD, length=3),
    "format2": midi(NOTES, 2),
}

TIMED_FILES = {
    "metres": midi(meta(0x58, b"\x03\x02\x18\x08") + meta(6, b"Intro") + b"\x81\x60\xff\x58\x04\x06\x03"
                   b"\x18\x08" + meta(7, b"Verse") + NOTES),
    "tempos": midi(meta(0x51, b"\0\0\0") + NOTES + meta(0x51, b"\0\0\1") + NOTES, 1, 3),
    "frames": midi(NOTES)[:12] + b"\xe7\x28" + midi(NOTES)[14:],
    "nodivision": midi(NOTES)[:12] + b"\0\0" + midi(NOTES)[14:],
}

# Songs for the ear: settings, system exclusive events, markers, a pause of two hours
HEARD_FILES = {
    "settings": midi(b"\x00\xc1\x05\x00\xb1\x07\x64\x00\xe1\x00\x40\x00\xd1\x20" + NOTES),
    "exclusive": midi(NOTES + b"\x10\xf0\x05\x7e\x7f\x09\x01\xf7" + NOTES),
    "markers": midi(maker(6, b"\x00\x02Two") + maker(6, b"\x00\x01One") + meta(7, b"Cue") +
                    b"\x87\x40\x91\x40\x40" + NOTES),
    "pause": midi(NOTES + b"\xd4\xc0\x00\x90\x3c\x64" + NOTES),
}

# Frames of MPEG 1, Layer III, 32 kbit/s, 44.1 kHz: 104 bytes
FRAME = b"\xff\xfb\x10\0" + bytes(100)
STREAMS = {
    "plain": FRAME * 4,
    "xing": FRAME[:36] + b"Xing" + be(3, 4) + be(9, 4) + be(416, 4) + bytes(52) + FRAME * 3,
    "vbri": FRAME[:36] + b"VBRI" + bytes(6) + be(416, 4) + be(9, 4) + bytes(50) + FRAME * 3,
    "between": FRAME * 2 + bytes(50) + FRAME * 2 + b"TAG" + bytes(125),
}

# LZHUF: a coder of literals only, so that MFX files with a sound payload can be made


class Literals:
    SYMBOLS = 283
    NODES = 2 * SYMBOLS - 1
    ROOT = NODES - 1

    def __init__(self):
        count = self.SYMBOLS
        self.freq = [1] * count + [0] * (count - 1) + [0xFFFF]
        self.son = [self.NODES + i for i in range(count)] + [0] * (count - 1)
        self.parent = [0] * self.NODES + list(range(count))
        for node in range(count, self.NODES):
            left = 2 * (node - count)
            self.freq[node] = self.freq[left] + self.freq[left + 1]
            self.son[node] = left
            self.parent[left] = self.parent[left + 1] = node
        self.bits = ""

    def code(self, symbol):
        node = self.parent[symbol + self.NODES]
        bits = ""
        while node != self.ROOT:
            bits = str(node & 1) + bits
            node = self.parent[node]
        self.bits += bits
        self.count(symbol)

    def adopt(self, node, child):
        self.son[node] = child
        self.parent[child] = node
        if child < self.NODES:
            self.parent[child + 1] = node

    def count(self, symbol):
        node = self.parent[symbol + self.NODES]
        while True:
            self.freq[node] += 1
            last = node
            while self.freq[last + 1] < self.freq[node]:
                last += 1
            if last != node:
                self.freq[node], self.freq[last] = self.freq[last], self.freq[node]
                mine, other = self.son[node], self.son[last]
                self.adopt(last, mine)
                self.adopt(node, other)
                node = last
            if node == self.ROOT:
                return
            node = self.parent[node]


def stream(text, stated=None):
    coder = Literals()
    for byte in text:
        coder.code(byte)
    bits = coder.bits + "0" * (-len(coder.bits) % 8)
    size = len(text) if stated is None else stated
    return le(size, 4) + bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8))


def mfx_header(magic, size=0, payload=0):
    header = bytearray(1024 if magic == b"_MF5" else 512)
    for offset, data in ((0, magic), (4, le(size, 4)), (12, le(payload, 4)), (38, le(120, 2)),
                         (42, b"LONGNAME.MF3\0"), (90, b"(c) somebody"), (122, b"Blue Moon"),
                         (154, b"e" * 31), (185, b"\x01"), (186, b"--"), (218, b"-"), (250, b"Rock")):
        header[offset:offset + len(data)] = data
    return bytes(header)


def mfx(magic, song):
    payload = song
    if magic == b"_MF4":
        start = song.index(b"MTrk") + 8
        payload = song[:start] + b"\xff\x00\xff" + song[start:]
    coded = stream(payload)
    size = 1024 if magic == b"_MF5" else 512
    return mfx_header(magic, size + len(coded), len(payload)) + coded


MFX_FILES = {
    "mf3": mfx(b"_MF3", midi(HEAD + NOTES)),
    "mf4": mfx(b"_MF4", midi(NOTES)),
    "mf5": mfx(b"_MF5", midi(NOTES)),
    "shortmf5": mfx_header(b"_MF5")[:800],
}

# MP3


def frame(name, text, encoding=0, size=None):
    return name + be(len(text) + 1 if size is None else size, 4) + b"\0\0" + be(encoding, 1) + text


def tag(frames, version=3, size=None):
    count = len(frames) if size is None else size
    groups = bytes(count >> shift & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3" + be(version, 1) + b"\0\0" + groups + frames


FRAMES = (frame(b"TIT2", b"Blue Moon") + frame(b"TPE1", b"The Band") + frame(b"TCON", b"Rock") +
          frame(b"TCOM", b"Bach") + frame(b"TKEY", b"E-") + frame(b"TBPM", b"96") +
          frame(b"TLEN", b"215999") + frame(b"TCOP", b"(c) K-Ravo") + frame(b"MEDT", b"\0\0\0"))
AUDIO = b"\xff\xfb\x90\x00" + b"\x55" * 60
MP3_FILES = {
    "full": tag(FRAMES + bytes(20)) + AUDIO,
    "notag": AUDIO,
    "zeros": bytes(40),
    "utf16": tag(frame(b"TIT2", "Blue".encode("utf-16"), 1)) + AUDIO,
    "twotitles": tag(frame(b"TIT2", b"One") + frame(b"TIT2", b"Two")) + AUDIO,
    "picture": tag(frame(b"APIC", b"image/png\0\3\0TIT2\0\0\0\4") + frame(b"TIT2", b"One")) + AUDIO,
    "version4": tag(b"TALB\0\0\1\x03\0\0\0" + b"a" * 130 + frame(b"TIT2", b"One"), 4) + AUDIO,
    "version2": tag(b"TT2\0\0\4\0OnePIC\0\0\x0a\0PNG\3\0abcdTAL\0\0\2\0A", 2) + AUDIO,
    "unsynchronised2": b"ID3\2\0\x80" + tag(b"TT2\0\0\4\0OneGEO\0\0\2\xff\0\xe0", 2)[6:] + AUDIO,
    "extended": b"ID3\3\0\x40" + tag(be(6, 4) + bytes(6) + FRAMES)[6:] + AUDIO,
    "extended4": b"ID3\4\0\x40" + tag(be(6, 4) + b"\1\0" + FRAMES)[6:] + AUDIO,
    "hugeframe": tag(frame(b"TIT2", b"One", size=0xFFFFFFF0)) + AUDIO,
    "unsynchronised": b"ID3\3\0\x80" + tag(FRAMES + frame(b"GEOB", b"\xff\0\xe0", size=3))[6:] + AUDIO,
    "footer": b"ID3\4\0\x10" + tag(FRAMES)[6:] + b"3DI\4\0\x10" + tag(FRAMES)[6:10] + AUDIO,
    "size80": b"ID3\3\0\0\0\0\0\x80" + bytes(128) + AUDIO,
    "size81": b"ID3\3\0\0\0\0\0\x81" + bytes(140) + AUDIO,
    "cut": tag(FRAMES, size=len(FRAMES) + 400),
}

# Tags that are put into the player's form


def frame4(name, content, flags=0):
    return name + be(len(content), 4) + be(flags, 2) + content


OTHER_TAGS = {
    "utf8": tag(frame4(b"TIT2", "\3Čárový".encode()) + frame4(b"TDRC", b"\x031987-06-05") +
                frame4(b"APIC", "\3image/png\0\3ž\0PNG".encode()) +
                frame4(b"COMM", "\3itaa\0ž".encode()), 4) + AUDIO,
    "bigendian": tag(frame4(b"TPE1", "\2Č".encode("utf-16-be")[1:])) + AUDIO,
    "packed": tag(frame4(b"TIT2", be(4, 4) + zlib.compress(b"\0abc"), 9), 4) + AUDIO,
    "unsynchronised4": tag(frame4(b"TIT2", b"\1\xff\0\xfea\0", 2), 4) + AUDIO,
    "old16": tag(b"TT2\0\0\x07\1\xff\xfea\0b\0CRM\0\0\1x", 2) + AUDIO,
}
APE_ITEMS = le(1, 4) + bytes(4) + b"Title\0A" + le(3, 4) + bytes(4) + "Artist\0Ž1".encode()
APE_TAG = (APE_ITEMS + b"APETAGEX" + le(2000, 4) + le(len(APE_ITEMS) + 32, 4) + le(2, 4) +
           bytes(12))
OLD_TAG = b"TAG" + b"Title".ljust(30, b"\0") + b"Artist".ljust(30, b"\0") + bytes(64) + b"\x11"

# A memory


def path_record(number, path, date=b"20130527", time=b"093005"):
    return be(number, 4) + path.ljust(46, b"\0") + date + time


def song_record(number, title, tempo=120, kind=8):
    return be(number, 4) + title.ljust(26, b"\0") + be(tempo, 1) + be(kind, 1)


def group_header(text, count, previous=0):
    return be(previous, 2) + be(count, 2) + text.ljust(26, b"\0") + b"\0\xff"


def playlist(*numbers):
    return b"".join(be(number, 4) + bytes(28) for number in numbers)


def memory(options, paths, titles, artists, genres, playlists=(b"", b"", b"", b"", b"")):
    return be(options, 1) + b"".join(map(long, (paths, titles, artists, genres) + playlists)) + b"\1"


SONGS = song_record(0, b"BLUE MOON") + song_record(1, b"ANOTHER", 90, 1)
PATHS = path_record(0, b"/A.MID") + path_record(1, b"/B.MP3")
GROUPS = group_header(b"ROCK", 1) + SONGS[:32] + group_header(b"\xdcBUNG", 1, 1) + SONGS[32:]
PLAYLISTS = (be(1, 2) + bytes(30) + be(0x0102, 2) + bytes(30), playlist(0, 1, 7), b"", playlist(1),
             b"/A.MID".ljust(64, b"\0") + b"/gone".ljust(64, b"\0"))

MARKERS = b"1;Intro;9;Verse;17;Chorus;"


def journal(song, old, new, start, end):
    """The journal of a save that was cut off, behind the song that it left. The fuzzer looks at it
    a second time with a checksum that it puts in behind the numbers; there it has none."""
    head = (b"KvSongJr" + be(2, 4) + be(len(old), 4) + be(len(new), 4) + be(start, 4) + be(end, 4))
    return long(song) + head + old + new[start:len(new) - end]


def first_journal(song, old, new_size):
    sizes = be(len(old), 4) + be(new_size, 4)
    digest = hashlib.sha256(sizes + old).digest()
    return long(song) + b"KvSongJr" + be(1, 4) + sizes + digest + old


OLD, NEW = MIDI_FILES["full"], midi(meta(3, b"A longer title") + NOTES)

# As the history keeps it: the size of the bytes, then one piece of literals
HISTORY_BLOB = (be(len(MIDI_FILES["plain"]), 4) + b"\xf0" + be(len(MIDI_FILES["plain"]) - 15, 1) +
                MIDI_FILES["plain"])

SEEDS = {
    "fuzz_lzhuffexpand": {
        "hello": stream(b"hello hello"), "empty": le(0, 4), "largest": le(500000, 4),
        "rebuilt": stream(MIDI_FILES["full"], 40192), "toolarge": stream(b"x", 500001), "short": b"\1\0", "midi": stream(MIDI_FILES["full"]),
        "matches": le(300, 4) + b"\xfe\xdc\xba\x98" * 12},
    "fuzz_lzhuffroundtrip": {
        "one": b"\0\0x", "blanks": b"\2\0" + b" " * 60, "midi": b"\1\1" + MIDI_FILES["full"],
        "long": b"\x30\x07" + bytes(range(256)), "bytes": b"\0\0" + bytes(range(256)) * 2,
        "largest": b"\xff\xff" + MIDI_FILES["full"] + b"LARGEST"},
    "fuzz_measure": {
        f"{kind}_{name}": be(number, 1) + data
        for number, (kind, files) in enumerate((("midi", {**MIDI_FILES, **TIMED_FILES}),
                                                ("mp3", STREAMS)))
        for name, data in files.items()},
    "fuzz_sound": {
        f"{kind}_{name}": be(number, 1) + data
        for number, kind, files in ((0x80, "midi", MIDI_FILES | TIMED_FILES | HEARD_FILES),
                                    (0x81, "mp3", STREAMS))
        for name, data in files.items()},
    "fuzz_mfxheader": {
        name: b"\1" + be(500, 4) + b"".join(map(short, (b"Title", b"A" * 40, b"-", b""))) + data
        for name, data in MFX_FILES.items()},
    "fuzz_rawmidi": {
        f"{name}{i}": edit + b"\x03" + be(22, 4) + short(b"payload") + data
        for name, data in MIDI_FILES.items() for i, edit in enumerate(EDITS)},
    "fuzz_mp3header": {
        f"{name}{i}": edit + short(b"TALB") + be(10, 4) + short(b"Album") + data
        for name, data in MP3_FILES.items() for i, edit in enumerate(EDITS)},
    "fuzz_mp3preparation": {
        f"{name}{i}{len(behind)}": edit + data + behind
        for name, data in (MP3_FILES | OTHER_TAGS).items() for i, edit in enumerate(EDITS)
        for behind in (b"", APE_TAG + OLD_TAG)},
    "fuzz_metasong": {
        f"{kind}_{name}{i}{manual}": be(options + manual, 1) + edit + data
        for kind, options, files in (("midi", 0, MIDI_FILES), ("mfx", 0, MFX_FILES),
                                     ("mp3", 2, MP3_FILES))
        for name, data in files.items() for i, edit in enumerate(EDITS) for manual in (0, 1)},
    "fuzz_songhead": {
        f"{kind}_{name}": be(number, 1) + data
        for number, (kind, files) in enumerate((("midi", MIDI_FILES), ("mp3", MP3_FILES),
                                                ("mfx", MFX_FILES)))
        for name, data in files.items()},
    "fuzz_memory": {
        "whole": memory(2, PATHS, SONGS, GROUPS, GROUPS, PLAYLISTS),
        "nocount": memory(3, PATHS, SONGS, GROUPS, GROUPS, PLAYLISTS),
        "nosongs": memory(0, PATHS, SONGS, GROUPS, GROUPS), "empty": memory(2, b"", b"", b"", b""),
        "cut": memory(2, PATHS[:100], SONGS, GROUPS, GROUPS),
        "strangeid": memory(2, PATHS, song_record(9, b"X"), GROUPS, GROUPS, PLAYLISTS),
        "outside": memory(2, path_record(0, b"/../x.mid"), SONGS[:32], b"", b"", PLAYLISTS)},
    "fuzz_songjournal": {
        "mixed": journal(NEW[:40] + OLD[40:], OLD, NEW, 0, 0),
        "common": journal(OLD, OLD, OLD[:30] + b"X" + OLD[30:], 30, len(OLD) - 30),
        "junk": journal(OLD + bytes(9), OLD, OLD + bytes(20), len(OLD), 0),
        "overflow": journal(OLD, OLD, NEW, 0xFFFFFFFF, 8),
        "first": first_journal(OLD, OLD, len(NEW))},
    "fuzz_history": {
        "empty": b"\0", "header": b"\0SQLite format 3\0\x40\0\x02\x02" + bytes(80),
        "patched": b"\1\2" + be(18, 4) + short(b"\1\1") + be(60, 4) + short(be(2, 4)),
        "table": b"\1\1" + be(100, 4) + short(b"\x05\0\0\0\xff"),
        "values": (b"\2\0" + be(9, 4) + short(b"a.mid") + b"\0" + short(b'{"title":"Blue Moon"}') +
                   short(b'{"length":[]}') + short(b"d" * 32) + short(b"e" * 32) + HISTORY_BLOB),
        "tag": (b"\2\1" + be(9, 4) + short(b"a.mp3") + b"\1" + short(b"b.mp3") + short(b"[") +
                short(b'{"bpm":1e99}') + short(b"") + short(b"") + be(0xFFFFFFFF, 4) + b"\x11a\1\0")},
    "fuzz_csvlist": {
        "own": short(b"%artist - %title") + short(b"m/Mina - Volare.mid") + short(b"x")
               + b"TITOLO;ARTISTA;GENERE;FILE;\nVOLARE;MINA;POP;/m/a.mid;\n",
        "quoted": short(b"(a+)+$") + short(b"\\1") + short(b"a" * 40 + b"!")
                  + b'file,title,key\r\n"a.mid","x ""y""\r\nz",C\r\n',
        "tabs": short(b"%genre/%track%%%any") + short(b"a/b/1%c") + short("é".encode())
                + b"\xef\xbb\xbfDateiname\tTitel\na\tb\n"},
    "fuzz_lists": {
        "m3u8": b"\xef\xbb\xbf#EXTM3U\r\n#EXTINF:1,A\r\na.mid\r\n../b c.mp3\n/x/\xc3\xbc.kar\n"
                b"file:///y/%C3%BC%20%0A.mid\nhttp://example.org/z.mp3\nC:\\d.mid\n:e.mid\nF\xfc.mid",
        "tsv": b"title\tartist\tgenre\tauthor\tlength\tbpm\tkey\tfilename\tmarkers\taltartist\n"
               b"T\tA\tG\tW\t60\t120\tC#\tfile\t1;Intro;9;A%3B%25;12;%;\tA\\tB\\n\\\\\n",
        "plain-tsv": b"T\tA\tG\tW\t\t\tC\tfile\tNULL\tA\nT\tA\tG\tW\tx\t\tC\tother\t\tA\n",
    },
    "fuzz_catalogue": {
        "title": short(b"BLUE MOON") + MARKERS, "wild": short(b"%a%_%") + b"70000;x;;-1;y;3",
        "quote": short(b'a"b') + "1;Größe;".encode(), "many": short(b"%" * 60) + b"1;a;" * 40},
}

CHUNKS = [b"MThd", b"MTrk", b"\x00\xff\x03", b"\x00\xff\x02", b"\x00\xff\x59\x02", b"\x00\xff\x51\x03",
          b"\x00\xff\x2f\x00", b"\x00\xff\x06", b"\x83\x00\xff"]
MAKER_EVENTS = [b"\x00\xff\x4b\x05" + be(kind, 1) for kind in range(1, 7)]
MAGICS = [b"_MF3", b"_MF4", b"_MF5", b"\xff\x00\xff"]
TAG_NAMES = [b"ID3\x02\x00", b"ID3\x03\x00", b"ID3\x04\x00", b"TIT2", b"TPE1", b"TCON", b"TCOM",
             b"TKEY", b"TBPM", b"TLEN", b"TCOP", b"MEDT", b"APIC", b"TT2\0\0\4", b"PIC\0\0\6",
             b"COM\0\0\1", be(6, 4) + bytes(6), b"\0\0\0\5\0\0\0"]
PUBLISHERS = [b"K-Ravo", b"TORVELIX"]
KEYS = [b"C", b"F#-", b"Bb", b"G#", b"A -"]
SONG_WORDS = CHUNKS + MAKER_EVENTS + PUBLISHERS + KEYS
WORDS = {
    "fuzz_lzhuffexpand": [le(500000, 4), le(500001, 4), le(1, 4)],
    "fuzz_lzhuffroundtrip": [b"    ", b"MTrk"],
    "fuzz_measure": CHUNKS + [b"\x00\xff\x07", b"\x00\xff\x58\x04", b"Xing", b"Info", b"VBRI",
                             b"APETAGEX", b"TAG", b"\xff\xfb\x10\0", b"\xff\xf3\x80\0"],
    "fuzz_sound": CHUNKS + [b"\x00\xff\x07", b"\x00\xff\x58\x04", b"\x00\xff\x4b\x05\x06\x00",
                            b"\x00\xf0\x03", b"\xff\xfb\x10\0", b"\xff\xf3\x80\0"],
    "fuzz_mfxheader": MAGICS,
    "fuzz_rawmidi": SONG_WORDS,
    "fuzz_mp3header": TAG_NAMES + PUBLISHERS + KEYS,
    "fuzz_mp3preparation": TAG_NAMES + [b"TDRC", b"APIC", b"COMM", b"TXXX", b"TT2", b"TP1", b"PIC",
                                        b"\xff\xfe", b"\xff\0", b"APETAGEX", b"TAG", b"Title\0"],
    "fuzz_metasong": SONG_WORDS + MAGICS + TAG_NAMES + [b"-", b"--"],
    "fuzz_songhead": CHUNKS + MAKER_EVENTS + MAGICS + TAG_NAMES,
    "fuzz_memory": [b"/A.MID", b"/B.MP3", b"/../", b"20130527093005", b"\0\xff", be(0xFFFFFFFF, 4)],
    "fuzz_songjournal": [b"KvSongJr" + be(1, 4), b"KvSongJr" + be(2, 4), b"MThd", b"_MF4",
                         be(0xFFFFFFFF, 4), be(65 << 20, 4)],
    "fuzz_history": [b"SQLite format 3\0", b'{"title":"', be(0x40000000, 4), b"\x11a\1\0", b"MThd",
                     b"ID3\x03\0"],
    "fuzz_csvlist": [b"%title", b"%artist", b"%track", b"%any", b"%%", b"file;title", b'""',
                     b"\xff\xfe", b"(a*)*", b"\\1"],
    "fuzz_lists": [b"file://", b"#EXTM3U", b"\xef\xbb\xbf", b"%00", b"%0A", b"../", b"\t", b"\\t",
                   b"filename", b"altartist", b"markers", b"%3B", b"%25", b"NULL"],
    "fuzz_catalogue": [b";", b"%", b"_", b'"', b"65535;", b"65536;", b"%_%_"],
}


def main(folder):
    for fuzzer, seeds in SEEDS.items():
        os.makedirs(os.path.join(folder, fuzzer), exist_ok=True)
        for name, data in seeds.items():
            with open(os.path.join(folder, fuzzer, name), "wb") as file:
                file.write(data)
    for fuzzer, words in WORDS.items():
        with open(os.path.join(folder, fuzzer + ".dict"), "w", encoding="ascii") as file:
            for word in words:
                file.write('"' + "".join(f"\\x{byte:02x}" for byte in word) + '"\n')


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
