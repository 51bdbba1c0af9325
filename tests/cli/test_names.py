#!/usr/bin/env python3
"""test_names.py KAVENA: file names that are no UTF-8 are named, and nothing else happens."""
import os

import songs
from songs import CliTest, song

LATIN1 = b"Caff\xe8.mid"
SHOWN = "Caff\\xe8.mid"


class NamesThatAreNoUtf8(CliTest):
    def setUp(self):
        super().setUp()
        self.environment["LC_ALL"] = "en_GB.ISO-8859-1"
        self.bytes = song("Coffee", signed=True)
        for folder in (self.music, self.card):
            with open(os.path.join(os.fsencode(folder), LATIN1), "wb") as file:
                file.write(self.bytes)
            # What a program would touch that takes the bytes for something else.
            for name in ("Caff.mid", "Caff?.mid", "Caff\ufffd.mid", "Caffè.mid"):
                self.write(name, self.bytes, folder)

    def test_every_command_names_them_and_touches_nothing(self):
        before = self.snapshot()
        on_card = os.path.join(os.fsencode(self.card), LATIN1)
        folder = os.path.join(os.fsencode(self.card), b"Pi\xf9")
        for words, status in ((["show", LATIN1], 1),
                              (["set", "--title", "x", LATIN1], 1),
                              (["sync", LATIN1], 1),
                              (["transfer", LATIN1, "--to", self.card], 1),
                              (["transfer", "--dry-run", LATIN1, "--to", self.card], 1),
                              (["transfer", "Caff.mid", "--to", folder], 3),
                              (["sync", "--backup", folder, "Caff.mid"], 3),
                              (["index", "update", folder], 3),
                              (["index", "rebuild", folder], 3),
                              (["index", "check", folder], 3),
                              (["list", folder], 3),
                              (["eject", folder], 3),
                              (["remove", "--confirm", "yes", self.card, on_card], 3)):
            result = self.run_kavena(*words)
            self.assertEqual(result.status, status, (words, result.err))
            name = "Pi\\xf9" if folder in words else SHOWN
            self.assertIn(name, result.err, words)
            after = {path: data for path, data in self.snapshot().items()
                     if path.suffix == ".mid"}
            self.assertEqual(after, before, words)

    def test_the_others_are_done(self):
        self.write("good.mid", song("Good"))
        result = self.run_kavena("transfer", LATIN1, "good.mid", "--to", self.card, status=1)
        self.assertIn(SHOWN, result.err)
        self.assertEqual([path.name for path in (self.card / "songs").iterdir()], ["good.mid"])


class EmptyNames(CliTest):
    def test_every_command_refuses_them(self):
        self.write("a.mid", song())
        (self.card / "songs").mkdir()
        before = self.snapshot()
        for words in (["show", ""], ["show", "a.mid", ""], ["set", "--title", "x", ""],
                      ["sync", ""], ["sync", "--backup", "", "a.mid"],
                      ["sync", "--backup=", "a.mid"],
                      ["transfer", "", "--to", self.card], ["transfer", "a.mid", "--to", ""],
                      ["transfer", "--in-line", "--", "", "--to", self.card],
                      ["index", "update", ""], ["index", "rebuild", ""], ["index", "check", ""],
                      ["list", ""], ["remove", "--confirm", "yes", self.card, ""],
                      ["remove", "--confirm", "yes", "", "a.mid"], ["eject", ""]):
            result = self.run_kavena(*words, status=2)
            self.assertNotEqual(result.err, "", words)
            self.assertEqual(self.snapshot(), before, words)

    def test_lists_must_not_hold_them(self):
        self.write("a.mid", song())
        result = self.run_kavena("show", "--json", "-0", stdin=b"\0a.mid\0\0", status=1)
        self.assertEqual([line["path"] for line in result.lines], ["a.mid"])
        self.assertEqual(result.err, "kavena: -0: A name is empty\n" * 2)


class FilesForFolders(CliTest):
    def test_they_are_told_from_missing_folders(self):
        self.write("a.mid", song())
        for words in (["index", "update"], ["index", "rebuild"], ["index", "check"], ["list"],
                      ["eject"], ["transfer", "a.mid", "--to"]):
            result = self.run_kavena(*words, "a.mid", status=3)
            self.assertEqual(result.err, "kavena: a.mid: This is a file, not a folder\n", words)
            result = self.run_kavena(*words, "gone", status=3)
            self.assertEqual(result.err, "kavena: gone: The selected folder does not exist\n")


if __name__ == "__main__":
    songs.main()
