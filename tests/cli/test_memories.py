#!/usr/bin/env python3
"""test_memories.py KAVENA: transfer, index and list, as a script sees them."""
import fcntl
import os
import pathlib
import signal
import subprocess
import time

import songs
from songs import CliTest, mp3, song

LOCK_FILE = ".kavena-lock"


class Transfer(CliTest):
    def test_songs_arrive_and_are_found_by_the_player(self):
        self.write("a.mid", song("Alpha"))
        self.write("sub/b.mp3", mp3("Beta"))
        self.write("sub/b.cdg", b"pictures")
        self.write("sub/notes.txt", b"no song")
        result = self.run_kavena("transfer", ".", "--to", self.card, status=0)
        self.assertEqual(result.out, "")
        self.assertEqual({path.name for path in (self.card / "songs").iterdir()},
                         {"a.mid", "b.mp3", "b.cdg"})
        self.assertEqual(self.judge_memory(), "")
        self.run_kavena("index", "check", self.card, status=0)

    def test_refused_folders(self):
        self.write("a.mid", song())
        elsewhere = self.folder / "elsewhere"
        elsewhere.mkdir()
        (self.card / "sfx").mkdir()
        before = self.snapshot()
        for folder in (elsewhere, self.card.parent, self.card / "sfx", self.card / "gone", "/",
                       b"\xff"):
            result = self.run_kavena("transfer", "a.mid", "--to", folder, status=3)
            self.assertNotEqual(result.err, "")
            self.assertEqual(self.snapshot(), before, folder)
        self.assertFalse((self.card / "gone").exists())

    def test_relative_folder(self):
        self.write("a.mid", song())
        relative = os.path.relpath(self.card, self.music)
        self.run_kavena("transfer", "a.mid", "--to", relative, status=0)
        self.assertTrue((self.card / "songs" / "a.mid").exists())

    def test_replace(self):
        self.write("a.mid", song("New"))
        there = self.write("songs/a.mid", song("Old"), self.card)
        old, new = there.read_bytes(), song("New")
        # A transfer that has copied nothing has done nothing.
        for options, expected, status in (([], old, 3), (["--replace", "no"], old, 3),
                                          (["--replace", "yes"], new, 0)):
            result = self.run_kavena("transfer", *options, "a.mid", "--to", self.card,
                                     status=status)
            self.assertEqual("--replace yes" in result.err, options == [])
            self.assertEqual(there.read_bytes(), expected)

    def test_memory_that_is_in_line_already(self):
        self.write("a.mid", song("Alpha"))
        in_line = ["transfer", "--in-line", "a.mid", "--to", self.card]
        self.run_kavena(*in_line, status=0)
        self.run_kavena(*in_line, status=3)
        self.write("songs/old.mid", song("Old"), self.card)
        self.run_kavena(*in_line, "--remove", status=0)
        self.assertFalse((self.card / "songs" / "old.mid").exists())
        self.run_kavena(*in_line, "--remove", status=3)

    def test_failures_are_named_and_the_others_arrive(self):
        self.write("a.mid", song())
        result = self.run_kavena("transfer", "gone.mid", "a.mid", "--to", self.card, status=1)
        self.assertIn("gone.mid", result.err)
        self.assertTrue((self.card / "songs" / "a.mid").exists())
        self.assertEqual(self.judge_memory(), "")

    def test_files_that_are_no_songs_are_refused(self):
        self.write("a.mid", song())
        self.write("b.mp3", mp3("Beta"))
        for name in ("b.cdg", "other.cdg", "notes.txt"):
            self.write(name, b"x")
        self.run_kavena("transfer", "notes.txt", "--to", self.card, status=1)
        self.assertEqual(list(self.card.iterdir()), [])
        result = self.run_kavena("transfer", "a.mid", "b.cdg", "b.mp3", "notes.txt", "other.cdg",
                                 "gone", "--to", self.card, status=1)
        refused = [line.split(": ")[1] for line in result.err.splitlines()[:3]]
        self.assertEqual(refused, ["notes.txt", "other.cdg", "gone"])
        self.assertEqual({path.name for path in (self.card / "songs").iterdir()},
                         {"a.mid", "b.mp3", "b.cdg"})

    def test_memory_in_use_is_left_alone(self):
        self.write("a.mid", song())
        with (self.card / LOCK_FILE).open("wb") as lock:
            lock.write(b"pid 1\n")
            lock.flush()
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.run_kavena("transfer", "a.mid", "--to", self.card, status=3)
            self.run_kavena("index", "update", self.card, status=3)
            for command in (["index", "check"], ["list", "--duplicates"], ["list"]):
                result = self.run_kavena(*command, self.card, status=3)
                self.assertEqual(result.out, "")
                self.assertIn("Another program is writing to this memory", result.err)
        self.assertFalse((self.card / "songs").exists())

    def test_nothing_to_transfer(self):
        self.run_kavena("transfer", "-0", "--to", self.card, status=3)
        self.run_kavena("transfer", "a.mid", status=2)


class PulledMemory(CliTest):
    """The memory goes while it is read: what was found on it tells nothing."""

    def pull_while(self, is_busy, *arguments):
        """Runs the program and takes the card away once it is busy with it."""
        with subprocess.Popen([songs.KAVENA, *arguments, str(self.card)], env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            end = time.monotonic() + 30
            while not is_busy(process.pid):
                self.assertIsNone(process.poll(), "it ended too early")
                self.assertLess(time.monotonic(), end, "it never began")
            process.send_signal(signal.SIGSTOP)
            self.assertIsNone(process.poll())
            self.card.rename(self.folder / "pulled")
            process.send_signal(signal.SIGCONT)
            out, err = process.communicate(timeout=60)
        self.assertEqual((process.returncode, out), (3, b""), err)
        self.assertEqual(err.decode(),
                         f"kavena: {self.card}: The memory is no longer connected.\n")
        self.assertFalse(self.card.exists())

    def test_check(self):
        for number in range(2000):
            self.write(f"many/s{number}.mid", song(f"S{number}"), self.card)
        self.run_kavena("index", "update", self.card, status=0)
        self.pull_while(lambda _: (self.card / LOCK_FILE).exists(), "index", "check")

    def test_duplicates(self):
        for name in ("a.mid", "b.mid"):
            with (self.card / name).open("wb") as file:
                file.truncate(1 << 30)  # takes no room, but time to read

        def reads_a_song(pid):
            handles = pathlib.Path(f"/proc/{pid}/fd")
            try:
                return any(os.readlink(handle).endswith(".mid") for handle in handles.iterdir())
            except OSError:
                return False
        self.pull_while(reads_a_song, "list", "--duplicates")


class Index(CliTest):
    def setUp(self):
        super().setUp()
        self.write("a.mid", song("Alpha", "Zoe"), self.card)
        self.write("x/b.mp3", mp3("Beta"), self.card)

    def test_update_rebuild_and_check(self):
        self.assertEqual(self.run_kavena("index", "update", self.card, status=0).out, "")
        self.assertEqual(self.judge_memory(), "")
        self.write("x/c.mid", song("Gamma"), self.card)
        check = self.run_kavena("index", "check", "--json", self.card, status=1)
        self.assertEqual([(line["finding"], line["path"]) for line in check.lines],
                         [("unlisted-song", "/x/c.mid")])
        self.assertEqual(set(check.lines[0]), {"finding", "path", "text"})
        self.run_kavena("index", "update", self.card / "x", status=0)  # a folder of the memory
        self.assertEqual(self.judge_memory(), "")
        self.run_kavena("index", "rebuild", self.card, status=0)
        self.assertEqual(self.judge_memory(), "")
        check = self.run_kavena("index", "check", "--json", self.card, status=0)
        self.assertEqual((check.out, check.err), ("", ""))

    def test_check_changes_nothing(self):
        self.run_kavena("index", "update", self.card, status=0)
        (self.card / "title.idx").write_bytes(b"damaged")
        before = self.snapshot()
        check = self.run_kavena("index", "check", self.card, status=1)
        self.assertIn("title.idx: ", check.out)
        self.assertEqual(self.snapshot(), before)

    def test_memory_without_an_index(self):
        check = self.run_kavena("index", "check", "--json", self.card, status=1)
        self.assertEqual([line["finding"] for line in check.lines], ["no-index"])
        self.run_kavena("index", "check", self.folder / "gone", status=3)
        self.run_kavena("index", "update", self.folder / "gone", status=3)
        self.assertFalse((self.folder / "gone").exists())

    def test_damaged_index_is_told_as_such(self):
        told = "The song index of the memory is damaged: rebuild it."
        self.run_kavena("index", "update", self.card, status=0)
        (self.card / "title.idx").write_bytes(b"damaged")
        update = self.run_kavena("index", "update", self.card, status=1)
        self.assertEqual(update.err, f"kavena: {self.card}: {told}\n")
        self.write("new.mid", song("New"))
        copy = self.run_kavena("transfer", "new.mid", "--to", self.card, status=1)
        self.assertIn(told, copy.err)
        self.run_kavena("index", "rebuild", self.card, status=0)
        self.assertEqual(self.judge_memory(), "")

    def test_folder_that_is_no_memory_is_refused(self):
        self.write("averylongname.mid", song("Long"))
        before = self.snapshot(self.music)
        for command in ("update", "rebuild"):
            result = self.run_kavena("index", command, "--rename", "yes", self.music, status=3)
            self.assertEqual(result.err, f"kavena: {self.music}: The folder lies on no connected "
                                         "memory and has no song index (--any-folder takes it all "
                                         "the same)\n")
            self.assertEqual(self.snapshot(self.music), before)
        self.run_kavena("index", "rebuild", "--any-folder", self.music, status=0)
        self.assertTrue((self.music / "fsinfos.idx").exists())
        # It has an index now, whole or in part.
        self.run_kavena("index", "update", self.music, status=0)
        (self.music / "fsinfos.idx").unlink()
        self.run_kavena("index", "rebuild", self.music, status=0)
        self.run_kavena("index", "check", "--any-folder", self.music, status=2)

    def test_names_that_are_no_utf8_are_named(self):
        path = os.fsencode(self.card) + b"/Caff\xe8.mid"
        with open(path, "wb") as file:
            file.write(song("Coffee"))
        for command in ("update", "rebuild"):
            result = self.run_kavena("index", command, self.card, status=1)
            self.assertIn(f"{self.card}/Caff\\xe8.mid", result.err)
        check = self.run_kavena("index", "check", "--json", self.card, status=1)
        self.assertEqual([(line["finding"], line["path"]) for line in check.lines],
                         [("unusable-name", "/Caff\\xe8.mid")])

    def test_options_decide_about_long_names(self):
        long = self.write("averylongname.mid", song("Long"), self.card)
        for options in ([], ["--rename", "no"]):
            result = self.run_kavena("index", "update", *options, self.card, status=0)
            self.assertEqual("--rename yes" in result.err, options == [])
            self.assertTrue(long.exists())
        self.run_kavena("index", "update", "--rename", "yes", self.card, status=0)
        self.assertFalse(long.exists())
        self.assertTrue((self.card / "averyl-1.mid").exists())
        self.assertEqual(self.judge_memory(), "")

    def test_list(self):
        self.write("c.mf5", b"_MF5" + bytes(1100), self.card)
        self.run_kavena("index", "update", self.card, status=0)
        lines = self.run_kavena("list", "--json", self.card, status=0).lines
        self.assertEqual(lines[0], {
            "id": 0, "path": "/a.mid", "title": "ALPHA", "artist": "ZOE", "genre": "",
            "format": "MIDI", "bpm": 0, "markers": False})
        self.assertEqual({line["format"] for line in lines}, {"MIDI", "MP3", "MF5"})

    def test_orders_of_the_list(self):
        self.write("b.mid", song("Beta", "Adam"), self.card)
        self.run_kavena("index", "rebuild", self.card, status=0)
        artists = [line["artist"] for line in
                   self.run_kavena("list", "--json", "--sort", "artist", self.card).lines]
        self.assertEqual(artists, sorted(artists))
        titles = [line["title"] for line in
                  self.run_kavena("list", "--json", "--sort", "title", self.card).lines]
        self.assertEqual(titles, sorted(titles))
        self.run_kavena("list", "--sort", "length", self.card, status=2)
        self.run_kavena("list", "--csv", "--json", self.card, status=2)

    def test_csv(self):
        self.run_kavena("index", "update", self.card, status=0)
        out = self.run_kavena("list", "--csv", self.card, status=0).out
        self.assertEqual(out.splitlines(), ["TITLE;ARTIST;GENRE;FILE;",
                                            "ALPHA;ZOE;<UNKNOWN>;/a.mid;",
                                            "BETA;<UNKNOWN>;<UNKNOWN>;/x/b.mp3;"])
        self.assertIn("/x/b.mp3", self.run_kavena("list", self.card, status=0).out)

    def test_list_needs_an_index(self):
        self.assertNotEqual(self.run_kavena("list", self.card, status=3).err, "")
        self.run_kavena("index", "update", self.card, status=0)
        path = pathlib.Path(self.card / "title.idx")
        path.write_bytes(path.read_bytes()[:-1])
        self.run_kavena("list", self.card, status=3)


if __name__ == "__main__":
    songs.main()
