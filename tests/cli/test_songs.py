#!/usr/bin/env python3
"""test_songs.py KAVENA: show, set, sync and catalogue, as a script sees them."""
import fcntl
import os
import resource
import subprocess
import unittest

import songs
from songs import CliTest, meta, mf5, midi, mp3, song

# A song of the catalogue: file name, title, artist as it is displayed.
FILE, TITLE, ARTIST = "BIRGILCA", "A BIRD IN A GILDED CAGE", "JERE MAHONEY"


class Show(CliTest):
    def test_json_has_the_documented_names(self):
        self.write("s.mid", midi(meta(3, b"Tit\xe8l"), meta(2, b"K-RAVO"), meta(0x4B, b"\x02Art"),
                                 meta(0x4B, b"\x01Gen"), meta(0x4B, b"\x03Aut"),
                                 meta(0x4B, b"\x04125"), meta(0x4B, b"\x0597"),
                                 meta(0x4B, b"\x06\0\x05Verse"), meta(0x59, b"\0\x01")))
        shown = self.run_kavena("show", "--json", "s.mid", status=0)
        self.assertEqual(shown.lines, [{
            "path": "s.mid", "format": "MIDI", "title": "Titèl", "artist": "Art", "genre": "Gen",
            "author": "Aut", "length": 125, "bpm": 97, "key": "A-", "signed": True,
            "markers": [{"bar": 5, "text": "Verse"}]}])
        self.assertEqual(list(shown.lines[0])[:2], ["path", "format"])
        self.assertEqual(shown.err, "")

    def test_people_read_words(self):
        self.write("s.mid", song("Blue", "Green", signed=True))
        out = self.run_kavena("show", "s.mid", status=0).out
        self.assertIn("s.mid\n", out)
        for label, text in (("Title", "Blue"), ("Artist", "Green"), ("Signature", "yes")):
            self.assertRegex(out, rf"\n  {label}: +{text}\n")

    def test_unreadable_files_have_a_reason_and_the_others_are_shown(self):
        self.write("good.mid", song())
        self.write("bad.mid", b"MThd and nothing else")
        self.write("empty.mid", b"")
        shown = self.run_kavena("show", "--json", "gone.mid", "bad.mid", "good.mid", "empty.mid",
                                ".", status=1)
        errors = {line["path"]: line.get("error") for line in shown.lines}
        self.assertEqual(errors, {
            "gone.mid": "The file does not exist", "bad.mid": "The file is damaged",
            "good.mid": None, "empty.mid": "The file is empty", ".": "Not a regular file"})
        for line in shown.lines:
            if "error" in line:
                self.assertEqual(set(line), {"path", "error"})
                self.assertIn(f"kavena: {line['path']}: {line['error']}\n", shown.err)

    def test_odd_names(self):
        names = ["[a,b].mid", "a b.mid", "-x.mid", "--json", "set", "'q\".mid", "n\new.mid", "[]",
                 "{x}", "a=b.mid", "è♥.mid", "-0"]
        for name in names:
            self.write(name, song(name.encode("ascii", "replace").decode()))
        shown = self.run_kavena("show", "--json", "--", *names, status=0)
        self.assertEqual([line["path"] for line in shown.lines], names)
        plain = [name for name in names if not name.startswith("-")]
        shown = self.run_kavena("show", "--json", *plain, status=0)
        self.assertEqual([line["path"] for line in shown.lines], plain)

    def test_names_from_standard_input(self):
        for name in ("one.mid", "two\nlines.mid", "-3.mid"):
            self.write(name, song())
        listed = b"two\nlines.mid\0-3.mid\0"
        shown = self.run_kavena("show", "-0", "--json", "one.mid", stdin=listed, status=0)
        self.assertEqual([line["path"] for line in shown.lines],
                         ["one.mid", "two\nlines.mid", "-3.mid"])
        self.run_kavena("show", "-0", stdin=b"", status=3)

    def test_list_that_cannot_be_read_stops_it(self):
        self.write("one.mid", song())
        folder = os.open(self.music, os.O_RDONLY)
        shown = subprocess.run([songs.KAVENA, "show", "-0", "one.mid"], stdin=folder,
                               cwd=self.music, env=self.environment, capture_output=True,
                               check=False)
        os.close(folder)
        self.assertEqual((shown.returncode, shown.stdout), (1, b""))
        self.assertIn(b"-0", shown.stderr)
        self.run_kavena("show", "-0", stdin=b"x" * 100000, status=1)

    def test_names_mean_no_other_file(self):
        self.write("a.mid", song("Other"))
        for name in ("\ufeffa.mid", ":a.mid"):
            shown = self.run_kavena("show", "--json", name, status=1)
            self.assertEqual(shown.lines[0]["path"], name)
            self.assertEqual(shown.err, f"kavena: {name}: The file does not exist\n")
            self.write(name, song("Own"))
            shown = self.run_kavena("show", "--json", name, status=0)
            self.assertEqual((shown.lines[0]["title"], shown.lines[0]["path"]), ("Own", name))
            self.assertEqual(self.run_kavena("show", name).out.splitlines()[0], name)

    def test_paths_are_printed_as_they_were_given(self):
        self.write(":f/a.mid", song("A"))
        self.write(":c.mid", song("C"))
        self.assertEqual(self.paths(":f", ":c.mid", "./:c.mid", ":f/a.mid"),
                         [":f/a.mid", ":c.mid", "./:c.mid"])
        result = self.run_kavena("set", "--title", "\u2665", ":c.mid", status=0)
        self.assertTrue(result.err.startswith("kavena: :c.mid: "), result.err)
        plan = self.run_kavena("transfer", "--dry-run", "--json", ":c.mid", ":gone.mid", "--to",
                               self.card, status=1)
        self.assertEqual([line["path"] for line in plan.lines[:-1]], [":c.mid", ":gone.mid"])
        self.assertIn("kavena: :gone.mid: ", plan.err)
        self.run_kavena("transfer", ":c.mid", "--to", self.card, status=0)
        self.assertTrue((self.card / "songs" / ":c.mid").exists())

    def paths(self, *given):
        run = self.run_kavena("sync", "--dry-run", "--json", "--unsigned", "no", *given, status=0)
        return [line["path"] for line in run.lines]

    def test_names_that_are_no_utf8_keep_the_line_valid(self):
        (self.music / os.fsdecode(b"x\xff\xe8.mid")).write_bytes(song())
        shown = self.run_kavena("show", "--json", b"x\xff\xe8.mid", status=1)
        self.assertEqual(shown.lines[0]["path"], "x\\xff\\xe8.mid")
        self.assertEqual(set(shown.lines[0]), {"path", "error"})
        self.assertIn("kavena: x\\xff\\xe8.mid: ", shown.err)

    @unittest.skipUnless(os.access("/proc/kmsg", os.R_OK), "only root may read the kernel's log")
    def test_files_that_wait_for_ever_are_not_read(self):
        """The system has files without a size, the reading of which waits."""
        (self.music / "s.mid").symlink_to("/proc/kmsg")
        self.run_kavena("show", "s.mid", status=1)
        self.run_kavena("set", "--title", "x", "s.mid", status=1)
        self.run_kavena("sync", "--unsigned", "yes", "s.mid", status=1)

    def test_terminals_are_not_commanded_by_songs(self):
        self.write("s.mid", midi(meta(3, b"a\x1b[2Jb\nc")))
        self.assertNotIn("\x1b", self.run_kavena("show", "s.mid", status=0).out)
        shown = self.run_kavena("show", "--json", "s.mid", status=0)
        self.assertEqual(shown.lines[0]["title"], "a\x1b[2Jb\nc")


class Set(CliTest):
    def test_every_item(self):
        self.write("s.mid", song("Old", "Keep"))
        self.write("s.mp3", mp3("Old"))
        changed = self.run_kavena("set", "--title", " [New] ", "--genre=G", "--author", "W",
                                  "--key", "F#", "--bpm", "99", "--length", "2:05", "s.mid",
                                  "s.mp3", status=0)
        self.assertEqual((changed.out, changed.err), ("", ""))
        for line in self.run_kavena("show", "--json", "s.mid", "s.mp3", status=0).lines:
            for name, value in (("title", "[New]"), ("genre", "G"), ("author", "W"), ("key", "F#"),
                                ("bpm", 99), ("length", 125)):
                self.assertEqual(line[name], value, line)
        self.assertEqual(self.run_kavena("show", "--json", "s.mid").lines[0]["artist"], "Keep")

    def test_music_stays_byte_for_byte(self):
        self.write("s.mp3", mp3("Old"))
        self.run_kavena("set", "--title", "New", "s.mp3", status=0)
        self.assertTrue((self.music / "s.mp3").read_bytes().endswith(b"\xff\xfb\x90\0" * 300))

    def test_failures_do_not_stop_it_and_are_named(self):
        self.write("good.mid", song("Old"))
        bad = self.write("bad.mid", b"no song")
        result = self.run_kavena("set", "--title", "New", "bad.mid", "gone.mid", "good.mid",
                                 status=1)
        self.assertIn("kavena: bad.mid: ", result.err)
        self.assertIn("kavena: gone.mid: ", result.err)
        self.assertEqual(bad.read_bytes(), b"no song")
        self.assertEqual(self.run_kavena("show", "--json", "good.mid").lines[0]["title"], "New")

    def test_empty_text_takes_an_item_away(self):
        for name in ("a.mid", "b.mid"):
            self.write(name, song("Old"))
        self.run_kavena("set", "--title=", "a.mid", "b.mid", status=0)
        for line in self.run_kavena("show", "--json", "a.mid", "b.mid", status=0).lines:
            self.assertEqual(line["title"], "")

    def test_lost_characters_are_told(self):
        self.write("s.mid", song())
        self.assertIn("♥", self.run_kavena("set", "--title", "♥", "s.mid", status=0).err)

    def test_cut_texts_are_told(self):
        self.write("s.mid", song())
        self.write("s.mf5", mf5())
        self.write("s.mp3", mp3("Title"))
        text = "x" * 20 + " " + "y" * 200
        for name, kept in (("s.mid", text[:125]), ("s.mf5", text[:32])):
            result = self.run_kavena("set", "--author", text, "--title", "short", name, status=0)
            self.assertEqual(result.err, f"kavena: {name}: Author cut to {len(kept)} characters: "
                                         f"{kept}\n")
            shown = self.run_kavena("show", "--json", name).lines[0]
            self.assertEqual((shown["author"], shown["title"]), (kept, "short"))
        for name, size in (("s.mid", 125), ("s.mf5", 32), ("s.mp3", 200)):
            result = self.run_kavena("set", "--genre", "g" * size, name, status=0)
            self.assertEqual(result.err, "")

    def test_wrong_values_change_nothing(self):
        path = self.write("s.mid", song())
        before = path.read_bytes()
        for wrong in (["--bpm", "1000"], ["--bpm", "-1"], ["--bpm", "x"], ["--length", "2:5"],
                      ["--length", "2:60"], ["--length", "125"], ["--key", "H"], ["--title"], [],
                      ["--titel", "x"], [b"--title", b"\xff"], ["--title", "a", "--title", "b"]):
            result = self.run_kavena("set", *wrong, *([] if wrong == ["--title"] else ["s.mid"]),
                                     status=2)
            self.assertEqual(result.out, "")
            self.assertIn("kavena set --help", result.err, wrong)
        self.assertEqual(path.read_bytes(), before)


class SizeLimit(CliTest):
    """A file that reaches the user's size limit is a write that fails, not the program's end."""

    def setUp(self):
        super().setUp()
        # A program that was built to count its lines would leave counts that are cut off; that it
        # cannot leave them it tells in lines of its own.
        self.environment = {**self.environment, "GCOV_PREFIX": "/dev/null"}

    def limited(self, *arguments, limit):
        def set_limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))
        return subprocess.run([songs.KAVENA, *arguments], cwd=self.music, env=self.environment,
                              capture_output=True, timeout=60, check=False, preexec_fn=set_limit)

    def test_songs_stay_and_the_reason_is_told(self):
        for name, data in (("s.mid", song("X" * 100)), ("s.mp3", mp3("Old")), ("s.mf5", mf5())):
            path = self.write(name, data)
            before = self.snapshot(self.music)
            # No history has room either.
            result = self.limited("set", "--without-history", "yes", "--title", "New", name,
                                  limit=20)
            self.assertEqual(result.returncode, 1, result)
            told = [line for line in result.stderr.decode().splitlines()
                    if not line.startswith("profiling:")]
            self.assertEqual(told, [f"kavena: {name}: No room left"])
            self.assertEqual(self.snapshot(self.music), before)
            path.unlink()

    def test_copies_fail_and_the_memory_stays_in_order(self):
        self.write("a.mid", song("Alpha"))
        self.run_kavena("transfer", "a.mid", "--to", self.card, status=0)
        before = self.snapshot(self.card)
        self.write("b.mp3", mp3("Beta") * 200)
        result = self.limited("transfer", "b.mp3", "--to", self.card, limit=30000)
        self.assertEqual(result.returncode, 1, result)
        self.assertIn(b"b.mp3", result.stderr)
        self.assertEqual(self.snapshot(self.card), before)
        self.assertEqual(self.judge_memory(), "")

    def test_output_that_cannot_be_written_is_a_failure(self):
        self.write("s.mid", song("X" * 100))
        with open(self.folder / "out", "wb") as out:
            result = subprocess.run(
                ["sh", "-c", 'ulimit -f 0; exec "$0" show s.mid', songs.KAVENA], stdout=out,
                stderr=subprocess.PIPE, cwd=self.music, env=self.environment, check=False)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"standard output", result.stderr)


class InUse(CliTest):
    """While another program saves a song it is neither shown nor changed."""

    def setUp(self):
        super().setUp()
        self.song = self.write("s.mid", song("Old", signed=True))
        journal = self.write(".s.mid.kavena-journal", b"being written")
        self.held = journal.open("rb")
        self.addCleanup(self.held.close)
        fcntl.flock(self.held, fcntl.LOCK_EX)

    def test_every_command_says_so(self):
        before = self.song.read_bytes()
        for command in (["show"], ["set", "--title", "New"], ["sync"], ["sync", "--dry-run"]):
            result = self.run_kavena(*command, "s.mid", status=1)
            self.assertEqual(result.err,
                             "kavena: s.mid: Another program is using the file\n", command)
        self.assertEqual(self.song.read_bytes(), before)
        self.held.close()
        self.run_kavena("set", "--title", "New", "s.mid", status=0)

    def test_saves_that_race_are_done_or_refused(self):
        self.held.close()
        text = "x" * 100
        runs = [subprocess.Popen([songs.KAVENA, "set", "--title", text, "--author", text, "s.mid"],
                                 cwd=self.music, env=self.environment, stderr=subprocess.PIPE)
                for _ in range(60)]
        for run in runs:
            error = run.communicate(timeout=60)[1].decode()
            self.assertIn(error, ("", "kavena: s.mid: Another program is using the file\n"))
            self.assertEqual(run.returncode, 1 if error else 0)
        self.assertEqual(self.run_kavena("show", "--json", "s.mid").lines[0]["title"], text)


class Sync(CliTest):
    def setUp(self):
        super().setUp()
        self.known = self.write(FILE + ".mid", song("X", signed=True))
        self.unsigned = self.write("sub/" + FILE + ".MID", song("Y"))
        self.unknown = self.write("sub/zzqqxx.mid", song("Zzqq Xx", signed=True))

    def test_dry_run_prints_the_changes_and_writes_nothing(self):
        before = self.snapshot()
        run = self.run_kavena("sync", "--dry-run", "--json", ".", status=0)
        self.assertEqual(self.snapshot(), before)
        lines = {line["path"]: line for line in run.lines}
        self.assertEqual(set(lines), {f"./{FILE}.mid", f"./sub/{FILE}.MID", "./sub/zzqqxx.mid"})
        found = lines[f"./{FILE}.mid"]
        self.assertEqual(set(found), {"path", "found", "changes"})
        self.assertIs(found["found"], True)
        self.assertIn({"field": "artist", "old": "", "new": ARTIST}, found["changes"])
        self.assertEqual(lines["./sub/zzqqxx.mid"],
                         {"path": "./sub/zzqqxx.mid", "found": False, "changes": []})
        self.assertIn(ARTIST, self.run_kavena("sync", "--dry-run", ".", status=0).out)

    def test_dry_run_changes_unsigned_songs_as_the_run_will(self):
        name = f"sub/{FILE}.MID"
        run = self.run_kavena("sync", "--dry-run", "--json", "--unsigned", "no", "sub", status=0)
        lines = {line["path"]: line for line in run.lines}
        self.assertEqual(lines[name], {"path": name, "found": True, "changes": []})
        self.assertEqual(run.err, f"kavena: {name}: not changed, without the publisher's "
                                  "signature\n")
        run = self.run_kavena("sync", "--dry-run", "--json", "sub", status=0)
        self.assertIn(ARTIST, run.out)
        self.assertEqual(run.err, f"kavena: {name}: without the publisher's signature, changed "
                                  "only if the answer is yes (--unsigned yes)\n")
        run = self.run_kavena("sync", "--dry-run", "--json", "--unsigned", "yes", "sub", status=0)
        self.assertIn(ARTIST, run.out)
        self.assertEqual(run.err, "")
        self.assertNotIn(ARTIST, self.run_kavena("sync", "--dry-run", "--unsigned", "no",
                                                 "sub").out)

    def test_each_song_has_its_line(self):
        for options in ([], ["--unsigned", "no"]):
            before = self.unsigned.read_bytes()
            lines = self.run_kavena("sync", "--json", *options, ".").lines
            self.assertEqual({line["path"] for line in lines},
                             {f"./{FILE}.mid", f"./sub/{FILE}.MID", "./sub/zzqqxx.mid"})
            self.assertIn({"path": f"./sub/{FILE}.MID", "found": True, "changes": []}, lines)
            self.assertEqual(self.unsigned.read_bytes(), before)

    def test_unsigned_songs_are_left_alone_without_a_terminal(self):
        before = self.unsigned.read_bytes()
        run = self.run_kavena("sync", ".", status=0)
        self.assertEqual(self.unsigned.read_bytes(), before)
        self.assertIn("--unsigned yes", run.err)
        self.assertEqual(self.shown(self.known)["artist"], ARTIST)

    def test_options_decide_about_unsigned_songs(self):
        before = self.unsigned.read_bytes()
        self.run_kavena("sync", "--unsigned", "no", "sub", status=3)
        self.assertEqual(self.unsigned.read_bytes(), before)
        self.run_kavena("sync", "--unsigned", "yes", "sub", status=0)
        self.assertEqual(self.shown(self.unsigned)["artist"], ARTIST)

    def test_changes_are_those_of_the_dry_run(self):
        preview = self.run_kavena("sync", "--dry-run", "--json", ".").lines
        self.assertEqual(self.run_kavena("sync", "--unsigned", "yes", "--json", ".").lines, preview)

    def test_backup_holds_the_old_bytes(self):
        old = {path.read_bytes() for path in (self.known, self.unsigned, self.unknown)}
        backups = self.folder / "backups"
        backups.mkdir()
        self.run_kavena("sync", "--unsigned", "yes", "--backup", backups, ".", status=0)
        self.assertEqual(set(self.snapshot(backups).values()), old)

    def test_nothing_is_changed_without_the_backup(self):
        before = self.snapshot()
        run = self.run_kavena("sync", "--unsigned", "yes", "--backup", "nowhere/at/all", ".",
                              status=3)
        self.assertIn("Backup", run.err)
        self.assertEqual(self.snapshot(), before)

    def test_songs_of_unusable_names_are_failures(self):
        (self.music / os.fsdecode(b"sub/z\xff.mid")).write_bytes(song())
        self.assertIn("sub/z\\xff.mid", self.run_kavena("sync", ".", status=1).err)

    def test_nothing_to_do(self):
        (self.music / "empty").mkdir()
        self.run_kavena("sync", "empty", status=3)
        self.run_kavena("sync", "sub/zzqqxx.mid", status=3)

    def shown(self, path):
        return self.run_kavena("show", "--json", path, status=0).lines[0]


class Catalogue(CliTest):
    def test_songs_are_found_by_every_text(self):
        for text in ("gilded cage", "Jere Mahoney", "birgilca", "von tilzer"):
            found = self.run_kavena("catalogue", "find", "--json", text, status=0).lines
            self.assertIn(TITLE, [line["title"] for line in found], text)
        line = self.run_kavena("catalogue", "find", "--json", "birgilca").lines[0]
        self.assertEqual(set(line), {"title", "artist", "altartist", "genre", "author", "length",
                                     "bpm", "key", "filename", "markers"})
        self.assertIn({"bar": 9, "text": "Verse1"}, line["markers"])
        self.assertIn(TITLE, self.run_kavena("catalogue", "find", "birgilca", status=0).out)

    def test_wild_cards_are_characters(self):
        self.run_kavena("catalogue", "find", "%", status=3)

    def test_nothing_found(self):
        result = self.run_kavena("catalogue", "find", "no such song at all", status=3)
        self.assertEqual(result.out, "")


if __name__ == "__main__":
    songs.main()
