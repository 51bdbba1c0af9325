#!/usr/bin/env python3
"""test_plan.py KAVENA: what a transfer would do, bringing a memory in line, and reading back."""
import fcntl
import os
import pty
import select
import shutil
import subprocess
import time

import songs
from songs import CliTest, mp3, song

LOCK_FILE = ".kavena-lock"
STATES = {"new", "same", "differs", "renamed", "collides", "unreadable", "too-long", "remove"}


class PlanTest(CliTest):
    def plan(self, *arguments, status=0):
        """The lines of a plan: the songs by path, and the sum."""
        lines = self.run_kavena("transfer", "--dry-run", "--json", *arguments, "--to", self.card,
                                status=status).lines
        for line in lines[:-1]:
            self.assertEqual(list(line), ["path", "target", "state", "bytes"])
            self.assertIn(line["state"], STATES)
        self.assertEqual(list(lines[-1]), ["needed", "free", "songs"])
        return {line["path"]: line for line in lines[:-1]}, lines[-1]

    def states(self, *arguments, status=0):
        return {path: line["state"]
                for path, line in self.plan(*arguments, status=status)[0].items()}

    def on_card(self, name, data):
        return self.write("songs/" + name, data, self.card)


class DryRun(PlanTest):
    def test_states(self):
        self.write("new.mid", song("New"))
        self.write("same.mid", song("Same"))
        self.on_card("same.mid", song("Same"))
        self.write("differs.mid", song("Differs"))
        self.on_card("differs.mid", song("Differz"))
        self.write("a very long name.mid", song("Long"))
        self.on_card("averyl-1.mid", song("Long"))
        self.write("sub/NEW.mid", song("Another"))
        deep = self.card / "songs"
        states = self.states("new.mid", "same.mid", "differs.mid", "a very long name.mid",
                             "sub/NEW.mid", "gone.mid", status=1)
        self.assertEqual(states, {
            "new.mid": "new", "same.mid": "same", "differs.mid": "differs",
            "a very long name.mid": "renamed", "sub/NEW.mid": "collides",
            "gone.mid": "unreadable"})
        plan = self.plan("new.mid", "same.mid", "sub/NEW.mid", "a very long name.mid")[0]
        self.assertEqual({path: line["target"] for path, line in plan.items()}, {
            "new.mid": f"{deep}/new.mid", "same.mid": f"{deep}/same.mid",
            "sub/NEW.mid": f"{deep}/NEW-1.mid", "a very long name.mid": f"{deep}/averyl-1.mid"})

    def test_paths_that_the_player_cannot_hold(self):
        self.write("a.mid", song())
        folder = self.card / "12345678" / "12345678" / "12345678" / "12345678" / "12345678"
        folder.mkdir(parents=True)
        result = self.run_kavena("transfer", "--dry-run", "--json", "a.mid", "--to", folder,
                                 status=1)
        self.assertEqual(result.lines[0]["state"], "too-long")
        self.assertIn("a.mid: the names of its folders are too long", result.err)

    def test_sum(self):
        cluster = os.statvfs(self.card).f_bsize
        self.write("a.mid", song("A"))
        self.write("k.mp3", mp3("K"))
        self.write("k.cdg", bytes(cluster + 1))
        self.on_card("other.mid", song("Other"))
        plan, total = self.plan("a.mid", "k.mp3")
        self.assertEqual(plan["a.mid"]["bytes"], cluster)
        self.assertEqual(plan["k.mp3"]["bytes"], 3 * cluster)
        self.assertEqual(total["needed"], 4 * cluster)
        self.assertEqual(total["songs"], 3)
        self.assertGreater(total["free"], 0)
        shutil.copytree(self.music, self.card / "songs", dirs_exist_ok=True)
        plan, total = self.plan("a.mid", "k.mp3")
        self.assertEqual({line["bytes"] for line in plan.values()}, {0})
        self.assertEqual((total["needed"], total["songs"]), (0, 3))

    def test_nothing_is_touched(self):
        self.write("a.mid", song("New"))
        self.on_card("a.mid", song("Old"))
        self.on_card("a very long name.mid", song("Long"))
        before = self.snapshot(), sorted(self.folder.rglob("*"))
        for options in ([], ["--in-line"], ["--in-line", "--remove"], ["--verify"],
                        ["--replace", "yes", "--rename", "yes"]):
            self.run_kavena("transfer", "--dry-run", *options, ".", "--to", self.card, status=0)
            self.assertEqual((self.snapshot(), sorted(self.folder.rglob("*"))), before)

    def test_memory_in_use_can_be_planned(self):
        self.write("a.mid", song())
        with (self.card / LOCK_FILE).open("wb") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.assertEqual(self.states("a.mid"), {"a.mid": "new"})

    def test_for_people(self):
        self.write("a\nb.mid", song("New"))
        self.on_card("c.mid", song("C"))
        out = self.run_kavena("transfer", "--dry-run", "--in-line", ".", "--to", self.card,
                              status=0).out
        lines = out.splitlines()
        self.assertEqual(len(lines), 3)
        self.assertTrue(lines[0].startswith("new: ") and " -> " in lines[0], out)
        self.assertEqual(lines[1], f"not in the list: {self.card}/songs/c.mid")
        self.assertRegex(lines[2], r"^To copy: .*; free: .*; songs on the memory afterwards: 2$")

    def test_pictures_of_no_song_are_told(self):
        self.write("k.mp3", mp3("K"))
        self.on_card("k.cdg", b"of another song")
        self.assertEqual(self.states("k.mp3"), {"k.mp3": "differs"})
        out = self.run_kavena("transfer", "--dry-run", "k.mp3", "--to", self.card, status=0).out
        self.assertIn("other karaoke pictures with its name", out.splitlines()[0])

    def test_refused_folders(self):
        self.write("a.mid", song())
        (self.card / "sfx").mkdir()
        for folder in (self.music, self.card / "sfx", self.card / "gone", "/"):
            result = self.run_kavena("transfer", "--dry-run", "a.mid", "--to", folder, status=3)
            self.assertEqual(result.out, "")

    def test_wrong_use(self):
        for options in (["--json"], ["--remove"], ["--dry-run", "--remove"], ["--in-line=x"],
                        ["--verify", "--remove"]):
            result = self.run_kavena("transfer", *options, "a.mid", "--to", self.card, status=2)
            self.assertIn("--help", result.err)

    def test_replace_decides_about_songs_that_differ(self):
        self.write("a.mid", song("New") * 1000)
        self.on_card("a.mid", song("Old"))
        self.assertGreater(self.plan("a.mid")[1]["needed"], 0)
        self.assertEqual(self.plan("--replace", "no", "a.mid")[1]["needed"], 0)


class InLine(PlanTest):
    def in_line(self, *arguments, status=0):
        return self.run_kavena("transfer", "--in-line", *arguments, "--to", self.card,
                               status=status)

    def names(self):
        return sorted(str(path.relative_to(self.card / "songs"))
                      for path in (self.card / "songs").rglob("*") if path.is_file())

    def test_new_and_different_songs_are_copied(self):
        self.write("a.mid", song("New"))
        self.write("sub/a.mid", song("Same name"))
        self.write("b.mid", song("New B"))
        self.on_card("b.mid", song("Old B"))
        self.in_line(".")
        self.assertEqual(self.names(), ["a-1.mid", "a.mid", "b.mid"])
        self.assertEqual((self.card / "songs/b.mid").read_bytes(), song("New B"))
        self.assertEqual(self.judge_memory(), "")
        before = self.snapshot(self.card)
        self.in_line(".", status=3)
        self.assertEqual(self.snapshot(self.card), before)

    def test_songs_that_were_renamed_are_not_copied_again(self):
        for number in range(12):
            self.write(f"Karaoke song {number}.mid", song(f"Number {number}"))
        self.in_line("--rename", "yes", ".")
        self.assertEqual(len(self.names()), 12)
        self.assertIn("Karao-12.mid", self.names())
        self.assertEqual(set(self.states(".").values()), {"renamed"})
        self.in_line("--rename", "yes", ".", status=3)
        self.assertEqual(len(self.names()), 12)
        self.assertEqual(self.judge_memory(), "")

    def test_other_songs_are_named_and_stay(self):
        self.write("a.mid", song("A"))
        other = self.on_card("other.mid", song("Other"))
        result = self.in_line("--json", ".")
        self.assertEqual([(line["path"], line["state"]) for line in result.lines[:-1]],
                         [("./a.mid", "new"), (str(other), "remove")])
        self.assertEqual(list(result.lines[-1]), ["needed", "free", "songs"])
        self.assertEqual(result.lines[-1]["songs"], 2)
        self.assertIn("not in the list: 1", result.err)
        self.assertIn("--remove", result.err)
        self.assertEqual(self.names(), ["a.mid", "other.mid"])

    def test_remove(self):
        self.write("a.mid", song("A"))
        self.write("own.mid", song("Own"), self.card)  # not in the folder
        self.on_card("k.mp3", mp3("K"))
        self.on_card("k.cdg", b"pictures")
        self.on_card("sub/o.mid", song("O"))
        self.on_card("notes.txt", b"no song")
        outside = self.write("outside/x.mid", song("X"), self.folder)
        (self.card / "songs" / "link").symlink_to(outside.parent)
        plan, total = self.plan("--in-line", "--remove", ".")
        self.assertEqual(sorted(path for path, line in plan.items()
                                if line["state"] == "remove"),
                         [f"{self.card}/songs/k.mp3", f"{self.card}/songs/sub/o.mid"])
        self.run_kavena("index", "update", self.card, status=0)
        result = self.in_line("--remove", ".")
        self.assertIn("k.mp3", result.out)
        self.assertEqual(self.names(), ["a.mid", "notes.txt"])
        self.assertTrue(outside.exists())
        self.assertTrue((self.card / "own.mid").exists())
        (self.card / "songs" / "link").unlink()
        self.run_kavena("index", "update", self.card, status=0)
        self.assertEqual(self.judge_memory(), "")

    def test_sum_counts_what_is_removed(self):
        self.write("a.mid", song("A"))
        self.on_card("other.mid", song("Other"))
        lines = self.in_line("--remove", "--json", ".").lines
        self.assertEqual([line["state"] for line in lines[:-1]], ["new", "remove"])
        self.assertEqual(lines[-1]["songs"], 1)
        self.assertEqual(self.names(), ["a.mid"])
        lines = self.in_line("--json", ".", status=3).lines
        self.assertEqual([line["state"] for line in lines[:-1]], ["same"])
        self.assertEqual((lines[-1]["needed"], lines[-1]["songs"]), (0, 1))

    def test_nothing_is_removed_for_a_list_that_is_not_whole(self):
        self.write("a.mid", song("A"))
        (self.music / os.fsdecode(b"\xff.mid")).write_bytes(song("Not UTF-8"))
        other = self.on_card("other.mid", song("Other"))
        result = self.in_line("--remove", ".", status=1)
        self.assertIn("No song is removed", result.err)
        self.assertTrue(other.exists())
        result = self.in_line("--remove", "a.mid", "gone.mid", status=1)
        self.assertTrue(other.exists())
        self.assertIn("gone.mid: the file is no longer there", result.err)
        self.assertEqual(self.judge_memory(), "")

    def test_nothing_is_removed_beside_a_folder_that_cannot_be_read(self):
        self.write("songs/a.mid", song("A"))
        self.write("songs/closed/b.mid", song("B"))
        self.on_card("a.mid", song("A"))
        self.on_card("b.mid", song("B"))
        for path in [self.folder, *self.folder.rglob("*")]:
            path.chmod(0o777)
        closed = self.music / "songs/closed"
        closed.chmod(0)
        nobody = {"user": 65534} if os.geteuid() == 0 else {}
        done = subprocess.run(
            [songs.KAVENA, "transfer", "songs", "--in-line", "--remove", "--to",
             self.card / "songs"], cwd=self.music, env=self.environment, stdin=subprocess.DEVNULL,
            capture_output=True, timeout=60, check=False, **nobody)
        closed.chmod(0o777)
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertIn(str(closed).encode(), done.stderr)
        self.assertTrue((self.card / "songs/b.mid").exists())

    def test_nothing_is_removed_for_an_empty_list(self):
        other = self.on_card("other.mid", song("Other"))
        self.in_line("--remove", ".", status=3)
        self.assertTrue(other.exists())

    def test_skipped_songs_are_named_with_the_reason(self):
        self.write("a.mid", song("New"))
        self.on_card("a.mid", song("Old"))
        result = self.in_line("--replace", "no", ".", status=3)
        self.assertIn("a.mid: was there already and was not replaced", result.err)
        result = self.run_kavena("transfer", "--replace", "no", ".", "--to", self.card, status=3)
        self.assertIn("a.mid: was there already and was not replaced", result.err)

    def test_memory_in_use_is_left_alone(self):
        self.write("a.mid", song())
        other = self.on_card("other.mid", song("Other"))
        with (self.card / LOCK_FILE).open("wb") as lock:
            lock.write(b"pid 1\n")
            lock.flush()
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.in_line("--remove", ".", status=3)
        self.assertEqual(self.names(), ["other.mid"])
        self.assertTrue(other.exists())

    def test_hostile_index_is_no_reason_to_lose_songs(self):
        self.write("a.mid", song("A"))
        self.on_card("b.mid", song("B"))
        self.run_kavena("index", "update", self.card, status=0)
        (self.card / "index.idx").write_bytes(b"\xff" * 6400)
        result = self.in_line("--remove", ".", status=1)
        self.assertIn("song index", result.err)
        self.assertEqual(self.names(), ["a.mid"])
        self.run_kavena("index", "update", self.card, status=0)
        self.assertEqual(self.judge_memory(), "")

    def converse(self, arguments, answer):
        """Runs on a terminal; returns the exit status and what it said."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([songs.KAVENA, *arguments], stdin=theirs, stderr=theirs,
                                   stdout=theirs, cwd=self.music, env=self.environment)
        os.close(theirs)
        said = b""
        end = time.monotonic() + 60
        while time.monotonic() < end:
            if select.select([ours], [], [], 0.1)[0]:
                try:
                    said += os.read(ours, 4096)
                except OSError:  # the program has closed its side
                    break
            if answer is not None and said.rstrip().endswith(b"]"):
                os.write(ours, answer)
                answer = None
        os.close(ours)
        return process.wait(60), said.decode()

    def test_a_terminal_is_asked_before_songs_go(self):
        self.write("a.mid", song("A"))
        other = self.on_card("other.mid", song("Other"))
        arguments = ["transfer", "--in-line", "--remove", ".", "--to", str(self.card)]
        for answer, expected in ((b"n\n", 0), (b"\n", 3)):  # the second has nothing to copy
            status, said = self.converse(arguments, answer)
            self.assertEqual(status, expected, said)
            self.assertLess(said.index("other.mid"), said.index("Remove these songs"))
            self.assertIn("not in the list: 1", said)
            self.assertTrue(other.exists())
        status, said = self.converse(arguments, b"y\n")
        self.assertEqual(status, 0, said)
        self.assertFalse(other.exists())
        self.assertEqual(self.judge_memory(), "")


class Plain(PlanTest):
    """Without --in-line each song is copied under its own name, and asked about."""

    def names(self):
        return sorted(path.name for path in (self.card / "songs").iterdir())

    def test_shortened_songs_are_not_copied_again(self):
        for number in range(3):
            self.write(f"Karaoke song {number}.mid", song(f"Number {number}"))
        transfer = ["transfer", "--rename", "yes", ".", "--to", self.card]
        first = self.run_kavena(*transfer, status=0)
        self.assertNotIn("shortened", first.err)
        shortened = ["Karaok-1.mid", "Karaok-2.mid", "Karaok-3.mid"]
        self.assertEqual(self.names(), shortened)
        self.write("new.mid", song("New"))
        second = self.run_kavena(*transfer, status=0)
        self.assertEqual(self.names(), [*shortened, "new.mid"])
        self.assertIn("not copied again: 3", second.err)
        self.assertIn("Karaoke song 1.mid: is on the memory already as /songs/Karaok-2.mid",
                      second.err)
        self.assertIn("Songs copied: 1", second.err)
        self.run_kavena(*transfer, status=3)
        self.assertEqual(self.names(), [*shortened, "new.mid"])
        self.assertEqual(self.judge_memory(), "")

    def test_equal_names_are_told_and_asked_about(self):
        self.write("a.mid", song("A"))
        self.write("sub/a.mid", song("Other"))
        result = self.run_kavena("transfer", "a.mid", "sub/a.mid", "--to", self.card, status=0)
        self.assertIn("name of another given song: 1. With --in-line", result.err)
        self.assertIn("--replace yes", result.err)
        self.assertEqual((self.card / "songs/a.mid").read_bytes(), song("A"))

    def test_names_of_other_case_are_equal_names(self):
        self.write("1/a.mid", song("Lower"))
        self.write("2/A.mid", song("Upper"))
        self.write("3/Long name of one.mid", song("One"))
        self.write("4/LONG NAME OF ANOTHER.mid", song("Another"))
        result = self.run_kavena("transfer", "--rename", "yes", ".", "--to", self.card, status=0)
        self.assertIn("Songs copied: 3. Songs skipped: 1. Not copied (errors): 0", result.err)
        self.assertIn("A.mid: was there already and was not replaced", result.err)
        names = sorted(name.lower() for name in self.names())
        self.assertEqual(names, ["a.mid", "longna-1.mid", "longna-2.mid"])
        listed = self.run_kavena("list", self.card, status=0).out.splitlines()
        self.assertEqual(len(listed), 3)
        self.run_kavena("index", "check", self.card, status=0)
        # The other one is brought onto the memory under a name of its own.
        self.run_kavena("transfer", "--in-line", "--rename", "yes", ".", "--to", self.card,
                        status=0)
        self.assertEqual(len(self.names()), 4)
        listed = self.run_kavena("list", self.card, status=0).out.splitlines()
        self.assertEqual(len(listed), 4)

    def test_songs_hidden_by_one_of_their_name_are_named(self):
        self.on_card("a.mid", song("Lower"))
        self.on_card("A.mid", song("Upper"))
        update = self.run_kavena("index", "update", self.card)
        self.assertIn("differs from another one only in upper and lower case", update.err)
        check = self.run_kavena("index", "check", "--json", self.card, status=1)
        self.assertEqual([line["finding"] for line in check.lines], ["unlisted-song"])
        self.assertIn(check.lines[0]["path"].lower(), "/songs/a.mid")
        self.assertIn("upper and lower case", check.lines[0]["text"])

    def test_nothing_is_told_where_nothing_is_lost_or_doubled(self):
        self.write("a.mid", song("A"))
        self.write("b.mid", song("New"))
        self.on_card("b.mid", song("Old"))
        result = self.run_kavena("transfer", "--replace", "yes", ".", "--to", self.card, status=0)
        self.assertEqual(len(result.err.splitlines()), 1, result.err)


class Verify(PlanTest):
    def test_plan_of_a_verified_transfer(self):
        self.write("a.mid", song("A"))
        self.write("b.mid", song("New"))
        self.on_card("b.mid", song("Old"))
        transfer = ["transfer", "--verify", "--json", ".", "--to", self.card]
        result = self.run_kavena(*transfer, status=0)
        self.assertEqual([(line["path"], line["state"]) for line in result.lines[:-1]],
                         [("./a.mid", "new"), ("./b.mid", "differs")])
        self.assertEqual(list(result.lines[-1]), ["needed", "free", "songs"])
        self.assertEqual(result.lines[-1]["songs"], 2)
        self.assertIn("--replace yes", result.err)
        self.assertEqual((self.card / "songs/a.mid").read_bytes(), song("A"))
        self.assertEqual((self.card / "songs/b.mid").read_bytes(), song("Old"))
        self.run_kavena(*transfer, "--replace", "yes", status=0)
        self.assertEqual((self.card / "songs/b.mid").read_bytes(), song("New"))
        self.assertEqual(self.judge_memory(), "")

    def test_good_copies_are_verified(self):
        for number in range(3):
            self.write(f"{number}.mid", song(f"Number {number}"))
        self.write("k.mp3", mp3("K"))
        self.write("k.cdg", b"pictures")
        self.run_kavena("transfer", "--verify", ".", "--to", self.card, status=0)
        self.assertEqual(len(list((self.card / "songs").iterdir())), 5)
        self.assertEqual(self.judge_memory(), "")
        self.write("new.mid", song("New"))
        self.run_kavena("transfer", "--verify", "--in-line", ".", "--to", self.card, status=0)
        self.assertTrue((self.card / "songs/new.mid").exists())


if __name__ == "__main__":
    songs.main()
