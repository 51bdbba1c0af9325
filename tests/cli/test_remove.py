#!/usr/bin/env python3
"""test_remove.py KAVENA: songs that lie on a memory twice, removals and ejection."""
import fcntl
import json
import os
import pty
import select
import signal
import subprocess
import time

import songs
from songs import CliTest, mp3, song


class MemoryTest(CliTest):
    def setUp(self):
        super().setUp()
        self.write("a.mid", song("Alpha", "Zoe"), self.card)
        self.write("x/b.mp3", mp3("Beta"), self.card)
        self.write("x/b.cdg", b"pictures", self.card)
        self.write("x/c.mid", song("Gamma", "Zoe"), self.card)
        self.run_kavena("index", "update", self.card, status=0)

    def listed(self):
        return {line["path"]: line["id"]
                for line in self.run_kavena("list", "--json", self.card, status=0).lines}


class Remove(MemoryTest):
    def test_songs_go_with_their_pictures_and_the_others_keep_their_ids(self):
        before = self.listed()
        result = self.run_kavena("remove", "--confirm", "yes", self.card, "/x/b.mp3", status=0)
        self.assertEqual((result.out, result.err), ("", ""))
        self.assertFalse((self.card / "x" / "b.mp3").exists())
        self.assertFalse((self.card / "x" / "b.cdg").exists())
        del before["/x/b.mp3"]
        self.assertEqual(self.listed(), before)
        self.assertEqual(self.judge_memory(), "")

    def test_paths_of_the_computer_and_of_the_memory(self):
        result = self.run_kavena("remove", "--json", "--confirm", "yes", str(self.card) + "/",
                                 self.card / "a.mid", "x/c.mid", status=0)
        self.assertEqual(result.lines, [{"path": "/a.mid", "removed": True},
                                        {"path": "/x/c.mid", "removed": True}])
        self.assertEqual(set(self.listed()), {"/x/b.mp3"})
        self.assertEqual(self.judge_memory(), "")

    def test_names_from_standard_input(self):
        self.run_kavena("remove", "-0", "--confirm", "yes", self.card, stdin=b"/a.mid\0x/c.mid\0",
                        status=0)
        self.assertEqual(set(self.listed()), {"/x/b.mp3"})

    def test_without_an_answer_nothing_is_removed(self):
        before = self.snapshot()
        result = self.run_kavena("remove", self.card, "/a.mid", status=3)
        self.assertIn("--confirm yes", result.err)
        self.assertEqual(self.run_kavena("remove", "--confirm", "no", self.card, "/a.mid",
                                         status=3).err, "")
        self.assertEqual(self.snapshot(), before)

    def test_a_terminal_is_asked_with_the_count(self):
        for answer, removed in ((b"n\n", False), (b"\n", False), (b"y\n", True)):
            ours, theirs = pty.openpty()
            with subprocess.Popen([songs.KAVENA, "remove", str(self.card), "/a.mid", "/x/c.mid"],
                                  stdin=theirs, stderr=theirs, env=self.environment) as process:
                os.close(theirs)
                said = b""
                end = time.monotonic() + 30
                while b"[" not in said and time.monotonic() < end:
                    if select.select([ours], [], [], 0.1)[0]:
                        said += os.read(ours, 4096)
                self.assertIn(b"2 songs", said)
                os.write(ours, answer)
                self.assertEqual(process.wait(30), 0 if removed else 3)
            os.close(ours)
            self.assertNotEqual((self.card / "a.mid").exists(), removed)

    def test_failures_are_named_and_the_others_go(self):
        result = self.run_kavena("remove", "--json", "--confirm", "yes", self.card, "/gone.mid",
                                 "/a.mid", status=1)
        self.assertEqual(result.lines[0], {"path": "/a.mid", "removed": True})
        self.assertEqual((result.lines[1]["path"], result.lines[1]["removed"]),
                         ("/gone.mid", False))
        self.assertNotEqual(result.lines[1]["error"], "")
        self.assertIn("gone.mid", result.err)
        self.assertEqual(self.judge_memory(), "")

    def test_what_is_no_song_of_the_memory_stays(self):
        outside = self.write("outside.mid", song("Outside"))
        (self.card / "link").symlink_to(self.music)
        (self.card / "one.mid").symlink_to(outside)
        self.write("playlist/p.mid", song("P"), self.card)
        self.write("notes.txt", b"text", self.card)
        before = self.snapshot()
        for path in ("/../../music/outside.mid", outside, "/link/outside.mid", "/one.mid", "/x",
                     "/playlist/p.mid", "/notes.txt", "/index.idx", "/", ".", b"/a\nb.mid"):
            result = self.run_kavena("remove", "--confirm", "yes", self.card, path, status=1)
            self.assertNotEqual(result.err, "", path)
            self.assertEqual(self.snapshot(), before, path)
        self.run_kavena("remove", "--confirm", "yes", self.card, b"/\xff.mid", status=3)
        self.assertEqual(self.snapshot(), before)

    def test_folder_inside_the_memory_is_refused(self):
        self.write("x/a.mid", song("Other"), self.card)
        before = self.snapshot()
        result = self.run_kavena("remove", "--confirm", "yes", self.card / "x", "a.mid", status=3)
        self.assertEqual(result.err, f"kavena: {self.card}/x: The folder lies on a memory: name "
                                     f"the memory itself, {self.card}\n")
        self.assertEqual(self.snapshot(), before)
        self.run_kavena("remove", "--confirm", "yes", self.card / "x" / "..", "a.mid", status=0)
        self.assertFalse((self.card / "a.mid").exists())

    def test_folder_that_is_no_memory_is_refused(self):
        self.write("mine.mid", song("Mine"))
        before = self.snapshot()
        result = self.run_kavena("remove", "--confirm", "yes", self.music, "mine.mid", status=3)
        self.assertEqual(result.err, f"kavena: {self.music}: The folder lies on no connected "
                                     "memory and has no song index (--any-folder takes it all "
                                     "the same)\n")
        self.assertEqual(self.snapshot(), before)
        self.write("other.mid", song("Other"))
        self.run_kavena("remove", "--any-folder", "--confirm", "yes", self.music, "mine.mid",
                        status=0)
        self.assertFalse((self.music / "mine.mid").exists())

    def test_memory_in_use_is_left_alone(self):
        with (self.card / ".kavena-lock").open("wb") as lock:
            lock.write(b"pid 1\n")
            lock.flush()
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.run_kavena("remove", "--confirm", "yes", self.card, "/a.mid", status=3)
        self.assertTrue((self.card / "a.mid").exists())

    def test_damaged_index_keeps_its_songs(self):
        (self.card / "title.idx").write_bytes(b"damaged")
        before = self.snapshot()
        self.run_kavena("remove", "--confirm", "yes", self.card, "/a.mid", status=3)
        self.assertEqual(self.snapshot(), before)

    def test_removal_that_is_killed_leaves_no_index_or_a_true_one(self):
        for number in range(300):
            self.write(f"many/s{number}.mid", song(f"S{number}"), self.card)
        self.run_kavena("index", "update", self.card, status=0)
        everything = [f"/many/s{number}.mid" for number in range(300)]

        def songs_left():
            return len(list((self.card / "many").glob("*.mid")))

        kills = 0
        for left in (300, 299, 200, 100, 10):
            with subprocess.Popen([songs.KAVENA, "remove", "--confirm", "yes", str(self.card),
                                   *everything], stderr=subprocess.DEVNULL,
                                  env=self.environment) as process:
                if left == 300:  # before the first song goes, the index does
                    self.wait_until(lambda: not (self.card / "fsinfos.idx").exists(), process)
                else:
                    self.wait_until(lambda: songs_left() <= left, process)
                process.send_signal(signal.SIGKILL)
            kills += process.returncode == -signal.SIGKILL
            if (self.card / "fsinfos.idx").exists():
                self.assertEqual(self.judge_memory(), "")
            self.run_kavena("index", "update", self.card, status=0)
            self.assertEqual(self.judge_memory(), "")
        self.assertGreater(kills, 0)

    def wait_until(self, condition, process):
        """Also ends with the process."""
        end = time.monotonic() + 60
        while not condition() and process.poll() is None:
            self.assertLess(time.monotonic(), end, "nothing happens")

    def test_wrong_use(self):
        for arguments in (["remove"], ["remove", self.card], ["remove", "--confirm", "maybe",
                                                              self.card, "/a.mid"]):
            self.run_kavena(*arguments, status=2)
        self.run_kavena("remove", "--confirm", "yes", self.folder / "gone", "/a.mid", status=3)


class Duplicates(MemoryTest):
    def test_same_bytes_and_same_titles(self):
        self.write("x/copy.mid", song("Alpha", "Zoe"), self.card)  # not in the index
        self.write("x/other.mp3", mp3("Beta"), self.card)
        self.write("x/second.kar", song("GAMMA", "zoe"), self.card)
        before = self.snapshot()
        lines = self.run_kavena("list", "--duplicates", "--json", self.card, status=0).lines
        self.assertEqual(self.snapshot(), before)
        self.assertEqual(set(lines[0]), {"group", "same", "path", "title", "artist", "bytes"})
        groups = {}
        for line in lines:
            groups.setdefault((line["group"], line["same"]), set()).add(line["path"])
        self.assertEqual(groups, {
            (1, "bytes"): {"/a.mid", "/x/copy.mid"},
            (2, "bytes"): {"/x/b.mp3", "/x/other.mp3"},
            (3, "title-and-artist"): {"/a.mid", "/x/copy.mid"},
            (4, "title-and-artist"): {"/x/b.mp3", "/x/other.mp3"},
            (5, "title-and-artist"): {"/x/c.mid", "/x/second.kar"}})
        out = self.run_kavena("list", "--duplicates", self.card, status=0).out
        self.assertIn("The same bytes:\n  /a.mid\n  /x/copy.mid\n", out)

    def test_memory_without_duplicates_or_index(self):
        self.assertEqual(self.run_kavena("list", "--duplicates", self.card, status=0).out, "")
        (self.card / "fsinfos.idx").unlink()
        self.assertEqual(self.run_kavena("list", "--duplicates", self.card, status=0).out, "")
        self.run_kavena("list", "--duplicates", "--csv", self.card, status=2)
        self.run_kavena("list", "--duplicates", self.folder / "gone", status=3)


class Eject(CliTest):
    def test_folder_that_is_no_memory_is_not_ejected(self):
        for folder in (self.card, self.music, "/"):
            result = self.run_kavena("eject", "--json", folder, status=3)
            self.assertFalse(result.lines[0]["ejected"])
            self.assertEqual(set(result.lines[0]), {"memory", "ejected", "text"})
            self.assertNotEqual(result.err, "")
        self.run_kavena("eject", self.folder / "gone", status=3)
        self.run_kavena("eject", status=2)
        self.run_kavena("eject", self.card, self.card, status=2)

    def test_without_the_service_the_memory_stays_and_it_is_said(self):
        if os.geteuid() != 0:
            self.skipTest("needs root to mount a memory")
        subprocess.run(["mount", "-t", "tmpfs", "none", self.card], check=True)
        self.addCleanup(subprocess.run, ["umount", self.card], check=True)
        result = self.run_kavena("eject", "--json", self.card, status=3,
                                 DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={self.folder}/no-bus")
        self.assertFalse(result.lines[0]["ejected"])
        self.assertIn("UDisks2", result.err)
        self.assertTrue(os.path.ismount(self.card))

    def test_memory_may_be_unplugged_when_the_service_says_so(self):
        if os.geteuid() != 0:
            self.skipTest("needs root to mount a memory")
        subprocess.run(["mount", "-t", "tmpfs", "none", self.card], check=True)
        self.addCleanup(subprocess.run, ["umount", self.card], check=True)
        address = f"unix:path={self.folder}/bus"
        rules = self.write("bus.conf", (
            f"<busconfig><listen>{address}</listen><policy context='default'>"
            "<allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/>"
            "<allow own='*'/></policy></busconfig>").encode())
        self.start("dbus-daemon", f"--config-file={rules}", "--nofork")
        environment = {"DBUS_SYSTEM_BUS_ADDRESS": address}
        for error, status in ((None, 0), ("org.freedesktop.UDisks2.Error.DeviceBusy", 3)):
            service = self.start("/usr/bin/python3", "-m", "dbusmock", "--system", "--template",
                                 songs.HERE.parent / "support" / "mockudisks.py", "--parameters",
                                 json.dumps({"mountpoint": str(self.card), "unmount": error}),
                                 **environment)
            end = time.monotonic() + 20
            result = self.run_kavena("eject", "--json", self.card, **environment)
            while "(UDisks2)" in result.err and time.monotonic() < end:
                time.sleep(0.1)
                result = self.run_kavena("eject", "--json", self.card, **environment)
            self.assertEqual(result.status, status, result.err)
            self.assertEqual(result.lines[0]["ejected"], error is None)
            self.assertEqual("You can unplug" in result.err, error is None)
            self.assertEqual("words of the service" in result.err, error is not None)
            service.kill()
            service.wait()

    def start(self, *command, **environment):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env={**self.environment, **environment})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process


if __name__ == "__main__":
    songs.main()
