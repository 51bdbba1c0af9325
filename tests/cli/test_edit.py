#!/usr/bin/env python3
"""test_edit.py KAVENA: the edit of several songs and the names made of their data."""
import os
import resource
import subprocess

import songs


def changes(line):
    return {change["field"]: (change["old"], change["new"]) for change in line["changes"]}


class EditTest(songs.CliTest):
    def title(self, name):
        return self.run_kavena("show", "--json", "--", name, status=0).lines[0]["title"]

    def test_without_apply_nothing_is_written(self):
        path = self.write("Mina - Volare.mid", songs.song("Old"))
        before = self.snapshot()
        result = self.run_kavena("edit", "--pattern", "%artist - %title", path.name, status=0)
        self.assertIn("Old -> Volare", result.out)
        self.assertEqual(self.snapshot(), before)
        line = self.run_kavena("edit", "--json", "--pattern=%artist - %title", path.name,
                               status=0).lines[0]
        self.assertEqual(line["path"], path.name)
        self.assertEqual(changes(line), {"title": ("Old", "Volare"), "artist": ("", "Mina")})
        self.assertEqual(self.snapshot(), before)

    def test_what_was_shown_is_written_and_can_be_taken_back(self):
        names = ["Mina - Volare.mid", "Verdi - Aida.mp3", "Bach - Air.mf5"]
        for name, data in zip(names, (songs.song("Old"), songs.mp3("Old"), songs.mf5())):
            self.write(name, data)
        before = {name: (self.music / name).read_bytes() for name in names}
        shown = self.run_kavena("edit", "--json", "--pattern", "%artist - %title", "--value", "bpm",
                                "96", *names, status=0).lines
        written = self.run_kavena("edit", "--json", "--pattern", "%artist - %title", "--value",
                                  "bpm", "96", "--apply", *names, status=0).lines
        self.assertEqual(shown, written)
        now = self.run_kavena("show", "--json", *names, status=0).lines
        for line, song in zip(shown, now):
            for field, (_, new) in changes(line).items():
                self.assertEqual(str(song[field]), new)
        job = self.run_kavena("history", "--json", status=0).lines[0]
        self.assertEqual((job["kind"], job["songs"]), ("edit-several", 3))
        self.run_kavena("undo", status=0)
        self.assertEqual({name: (self.music / name).read_bytes() for name in names}, before)

    def test_steps_work_in_the_order_given(self):
        self.write("a.mid", songs.song("nel_blu"))
        line = self.run_kavena("edit", "--json", "--strip", "title", "--case", "title", "title",
                               "--replace", "title", "Blu", "-blue", "a.mid", status=0).lines[0]
        self.assertEqual(changes(line)["title"], ("nel_blu", "Nel -blue"))
        line = self.run_kavena("edit", "--json", "--replace", "title", "Blu", "-blue", "--strip",
                               "title", "--case", "title", "title", "a.mid", status=0).lines[0]
        self.assertEqual(changes(line)["title"], ("nel_blu", "Nel Blu"))

    def test_each_kind_of_step(self):
        cases = (
            (["--value", "title", "New"], "New"),
            (["--replace", "title,artist", "Old", "New"], "New (live)"),
            (["--replace", "title", "OLD", "x"], None),
            (["--ignore-case", "--replace", "title", "OLD", "x"], "x (live)"),
            (["--regex", "all", r"\s*\(.*\)", ""], "Old"),
            (["--case", "all", "upper"], "OLD (LIVE)"),
            (["--case", "title", "lower"], "old (live)"),
            (["--swap", "title", "artist"], "Mina"),
            (["--from-csv", "list.csv"], "Listed"),
        )
        self.write("a.mid", songs.song("Old (live)", "Mina"))
        self.write("list.csv", b"FILE;TITLE\na.mid;Listed\n")
        for arguments, title in cases:
            with self.subTest(arguments=arguments):
                line = self.run_kavena("edit", "--json", *arguments, "a.mid", status=0).lines[0]
                self.assertEqual(changes(line).get("title", (0, None))[1], title)

    def test_a_list_of_the_player_comes_back(self):
        self.write("VOLARE.MID", songs.song("Old"))
        self.write("list.csv", "TITOLO;ARTISTA;GENERE;FILE;\nCITTÀ;MINA;POP;/songs/VOLARE.MID;\n"
                   .encode("latin-1"))
        self.run_kavena("edit", "--from-csv", "list.csv", "--apply", "VOLARE.MID", status=0)
        self.assertEqual(self.title("VOLARE.MID"), "CITTÀ")

    def test_songs_that_do_not_fit_are_named(self):
        self.write("Mina - Volare.mid", songs.song("Old"))
        self.write("Other.mid", songs.song("Old"))
        result = self.run_kavena("edit", "--json", "--apply", "--pattern", "%artist - %title",
                                 "Mina - Volare.mid", "Other.mid", status=1)
        self.assertIn("Other.mid", result.err)
        self.assertTrue([line for line in result.lines if "error" in line])
        self.assertEqual(self.title("Mina - Volare.mid"), "Volare")
        self.assertEqual((self.music / "Other.mid").read_bytes(), songs.song("Old"))
        self.run_kavena("edit", "--pattern", "%artist - %title", "Other.mid", "--apply", status=1)

    def test_files_that_are_no_songs_are_named(self):
        self.write("a.mid", songs.song("Old"))
        self.write("b.mid", b"no song")
        result = self.run_kavena("edit", "--value", "title", "New", "--apply", "b.mid", "a.mid",
                                 "missing.mid", status=1)
        self.assertIn("b.mid", result.err)
        self.assertIn("missing.mid", result.err)
        self.assertEqual(self.title("a.mid"), "New")
        self.assertEqual((self.music / "b.mid").read_bytes(), b"no song")

    def test_cut_texts_and_lost_characters_are_told(self):
        self.write("a.mf5", songs.mf5())
        result = self.run_kavena("edit", "--value", "title", "x" * 40, "--value", "artist",
                                 "Dvořák", "a.mf5", status=0)
        self.assertIn("x" * 32, result.err)
        self.assertIn("ř", result.err)

    def test_wrong_use_is_named(self):
        before = self.snapshot()
        for arguments in ([], ["--pattern"], ["--pattern", "abc", "a.mid"],
                          ["--pattern", "%titel", "a.mid"], ["--value", "colour", "x", "a.mid"],
                          ["--value", "bpm", "x", "a.mid"], ["--value", "title,artist", "x", "a"],
                          ["--case", "title", "x", "a.mid"], ["--regex", "title", "(", "", "a.mid"],
                          ["--swap", "title", "title", "a.mid"], ["--replace", "title", "x"],
                          ["--value", "title", "x"], ["--rename", "%track", "a.mid"],
                          ["--rename", "../%title", "a.mid"], ["--apply", "a.mid"],
                          ["--value", "title", b"\xff", "a.mid"],
                          ["--value", "title", "x", "--nothing", "a.mid"]):
            with self.subTest(arguments=arguments):
                result = self.run_kavena("edit", *arguments, status=2)
                self.assertIn("kavena edit --help", result.err)
                self.assertEqual(result.out, "")
        self.run_kavena("edit", "--help", status=0)
        self.write("a.mid", songs.song("Old"))
        before = self.snapshot()
        for arguments in (["--from-csv", "missing.csv"], ["--from-csv", "a.mid"]):
            self.run_kavena("edit", *arguments, "--apply", "a.mid", status=3)
        self.assertEqual(self.snapshot(), before)

    def test_an_expression_that_takes_too_long_changes_nothing(self):
        self.write("a.mid", songs.song("a" * 100 + "!"))
        before = self.snapshot()
        self.run_kavena("edit", "--regex", "title", "(a+)+$", "x", "--apply", "a.mid", status=3)
        self.assertEqual(self.snapshot(), before)

    def test_files_get_names_made_of_their_data(self):
        self.write("1.mid", songs.song("Volare", "Mina"))
        self.write("2.mp3", songs.mp3("AC/DC: live?"))
        self.write("2.cdg", b"pictures")
        self.write("3.mid", songs.song("Volare", "Mina"))
        result = self.run_kavena("edit", "--rename", "%artist - %title", "1.mid", "3.mid", "2.mp3",
                                 status=1)
        self.assertIn("1.mid -> Mina - Volare.mid", result.out)
        self.assertIn("2.mp3", result.err)
        self.assertTrue((self.music / "1.mid").exists())
        lines = self.run_kavena("edit", "--json", "--rename", "%title", "--apply", "1.mid", "3.mid",
                                "2.mp3", status=0).lines
        self.assertEqual([line["newName"] for line in lines],
                         ["Volare.mid", "Volare (2).mid", "AC-DC- live-.mp3"])
        self.assertEqual(sorted(os.listdir(self.music)),
                         ["AC-DC- live-.cdg", "AC-DC- live-.mp3", "Volare (2).mid", "Volare.mid"])
        self.run_kavena("undo", status=0)
        self.assertEqual(sorted(os.listdir(self.music)), ["1.mid", "2.cdg", "2.mp3", "3.mid"])

    def test_new_data_lead_to_the_new_names(self):
        self.write("1.mid", songs.song("Old"))
        result = self.run_kavena("edit", "--json", "--value", "title", "Volare", "--rename",
                                 "%title", "1.mid", status=0)
        self.assertEqual(result.lines[1]["newName"], "Volare.mid")
        self.run_kavena("edit", "--value", "title", "Volare", "--rename", "%title", "--apply",
                        "1.mid", status=0)
        self.assertEqual(os.listdir(self.music), ["Volare.mid"])
        self.assertEqual(self.title("Volare.mid"), "Volare")

    def test_songs_that_do_not_fit_keep_their_names(self):
        self.write("Mina - Volare.mid", songs.song("Old"))
        self.write("Other.mid", songs.song("Wrong"))
        arguments = ["edit", "--json", "--pattern", "%artist - %title", "--value", "genre", "Pop",
                     "--rename", "%title", "Mina - Volare.mid", "Other.mid"]
        for more in [], ["--apply"]:
            result = self.run_kavena(*arguments, *more, status=1)
            self.assertEqual([(line["path"], line["newName"]) for line in result.lines
                              if "newName" in line], [("Mina - Volare.mid", "Volare.mid")])
            self.assertEqual(result.err.count("Other.mid"), 1)
        self.assertEqual(sorted(os.listdir(self.music)), ["Other.mid", "Volare.mid"])

    def test_songs_that_cannot_be_saved_keep_their_names(self):
        def set_limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (20, 20))
        self.write("orig.mid", songs.song("X" * 100))
        before = self.snapshot(self.music)
        # A program that was built to count its lines tells in lines of its own that it cannot.
        result = subprocess.run(
            [songs.KAVENA, "edit", "--without-history", "yes", "--value", "title", "New",
             "--rename", "%title", "--apply", "orig.mid"], cwd=self.music, capture_output=True,
            env={**self.environment, "GCOV_PREFIX": "/dev/null"}, timeout=60, check=False,
            preexec_fn=set_limit)
        told = [line for line in result.stderr.decode().splitlines()
                if not line.startswith("profiling:")]
        self.assertEqual(told, ["kavena: orig.mid: No room left"])
        self.assertEqual(result.stdout, b"")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.snapshot(self.music), before)

    def test_the_help_names_each_option_once(self):
        for command in ["edit"], ["tags"], ["measure"], []:
            out = self.run_kavena(*command, "--help", status=0).out
            options = [line.split("  ")[1] for line in out.splitlines() if line.startswith("  -")]
            self.assertEqual(len([line for line in options if line.startswith("--apply")]), 1, out)

    def test_short_names_are_those_of_the_player(self):
        self.write("1.mid", songs.song("Nel blu dipinto di blu"))
        self.run_kavena("edit", "--rename", "%title", "--short", "--apply", "1.mid", status=0)
        self.assertEqual(os.listdir(self.music), ["Nelblu-1.mid"])

    def test_a_file_is_never_replaced(self):
        self.write("1.mid", songs.song("Volare"))
        self.write("volare.MID", b"somebody else's")
        self.run_kavena("edit", "--rename", "%title", "--apply", "1.mid", status=0)
        self.assertEqual((self.music / "volare.MID").read_bytes(), b"somebody else's")
        self.assertTrue((self.music / "Volare (2).mid").exists())

    def test_odd_names_and_zero_separated_lists(self):
        names = ["-x.mid", "--apply", "a\nb - c.mid", ":odd - n.mid", "%title.mid"]
        for name in names:
            self.write(name if name != "--apply" else "--apply", songs.song("Old"))
        self.run_kavena("edit", "--value", "title", "New", "--apply", "--", *names, status=0)
        for name in names:
            self.assertEqual(self.title(name), "New")
        self.run_kavena("edit", "--value", "title", "Newer", "--apply", "-0",
                        stdin="\0".join(names).encode() + b"\0", status=0)
        for name in names:
            self.assertEqual(self.title(name), "Newer")
        self.run_kavena("edit", "--value", "title", "--title", "--apply", "--", "-x.mid", status=0)
        self.assertEqual(self.title("-x.mid"), "--title")

    def test_without_a_history_nothing_is_changed_unless_it_is_wished(self):
        store = self.folder / "data" / "kavena_pc" / "kravo" / "history.sqlite"
        store.parent.mkdir(parents=True)
        store.write_bytes(b"x" * 5000)
        path = self.write("a.mid", songs.song("Old"))
        for arguments in (["--value", "title", "New"], ["--rename", "%title"]):
            result = self.run_kavena("edit", *arguments, "--apply", "a.mid", status=3)
            self.assertIn("--without-history yes", result.err)
            self.assertEqual(path.read_bytes(), songs.song("Old"))
        self.run_kavena("edit", "--value", "title", "New", "--apply", "--without-history", "yes",
                        "a.mid", status=0)
        self.assertEqual(self.title("a.mid"), "New")

    def test_many_songs(self):
        count = 300
        for number in range(count):
            self.write(f"Artist {number % 7} - Title {number}.mid", songs.song("Old"))
        names = sorted(os.listdir(self.music))
        self.run_kavena("edit", "--pattern", "%artist - %title", "--apply", *names, status=0)
        lines = self.run_kavena("show", "--json", *names, status=0).lines
        self.assertEqual([f"{line['artist']} - {line['title']}.mid" for line in lines], names)

    def test_a_read_only_file_is_named(self):
        path = self.write("a.mid", songs.song("Old"))
        self.write("b.mid", songs.song("Old"))
        if subprocess.run(["chattr", "+i", path], check=False,
                          stderr=subprocess.DEVNULL).returncode:
            self.skipTest("no file can be protected here")
        self.addCleanup(subprocess.run, ["chattr", "-i", path], check=False)
        result = self.run_kavena("edit", "--value", "title", "New", "--apply", "a.mid", "b.mid",
                                 status=1)
        subprocess.run(["chattr", "-i", path], check=True)
        self.assertIn("a.mid", result.err)
        self.assertEqual(path.read_bytes(), songs.song("Old"))
        self.assertEqual(self.title("b.mid"), "New")


if __name__ == "__main__":
    songs.main()
