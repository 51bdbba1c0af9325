#!/usr/bin/env python3
"""test_owncatalogue.py KAVENA: the user's own catalogue is filled, searched, used, exported and
imported; one that cannot be used leaves the built-in catalogue at work."""
import sqlite3
import subprocess

import songs

COLUMNS = "title artist genre author length bpm key filename markers altartist".split()


class OwnCatalogueTest(songs.CliTest):
    def setUp(self):
        super().setUp()
        self.store = self.folder / "data" / "kavena_pc" / "kravo" / "catalogue.sqlite"

    def rows(self):
        with sqlite3.connect(self.store) as store:
            return store.execute("select filename, title, artist from Songs order by filename") \
                .fetchall()

    def add(self, *names, status=0):
        for name in names:
            self.write(name, songs.song("Song " + name, "Artist " + name))
        return self.run_kavena("catalogue", "add", *names, status=status)

    def test_without_one_everything_is_as_ever(self):
        self.write("sync.mid", songs.song("O SOLE MIO"))
        line = self.run_kavena("sync", "--dry-run", "--json", "sync.mid", status=0).lines[0]
        self.assertEqual(sorted(line), ["changes", "found", "path"])
        self.assertTrue(line["found"])
        text = self.run_kavena("sync", "--dry-run", "sync.mid", status=0).out
        self.assertNotIn("atalogue", text)
        line = self.run_kavena("catalogue", "find", "--json", "O SOLE MIO", status=0).lines[0]
        self.assertNotIn("catalogue", line)
        self.run_kavena("catalogue", "export", "mine.tsv", status=3)
        self.assertFalse(self.store.exists())
        self.assertFalse((self.music / "mine.tsv").exists())

    def test_songs_are_added_and_found(self):
        result = self.add("mine.mid", "two.mid")
        self.assertEqual((result.out, result.err), ("", ""))
        self.assertEqual(self.rows(), [("MINE", "Song mine.mid", "Artist mine.mid"),
                                       ("TWO", "Song two.mid", "Artist two.mid")])
        lines = self.run_kavena("catalogue", "find", "--json", "song MINE", status=0).lines
        self.assertEqual([(line["catalogue"], line["filename"]) for line in lines],
                         [("own", "MINE")])
        lines = self.run_kavena("catalogue", "find", "--json", "O SOLE MIO", status=0).lines
        self.assertEqual({line["catalogue"] for line in lines}, {"built-in"})
        self.assertIn("my catalogue", self.run_kavena("catalogue", "find", "mine", status=0).out)

    def test_own_entries_come_before_the_built_in_catalogue(self):
        self.write("olesomio.mid", songs.song("O SOLE MIO", "My band"))
        self.run_kavena("catalogue", "add", "olesomio.mid", status=0)
        # Another song of that title, in another folder, without an artist.
        path = self.write("copy.mid", songs.song("O SOLE MIO"))
        other = self.write("other.mid", songs.song("SANTA LUCIA"))
        lines = self.run_kavena("sync", "--dry-run", "--json", "copy.mid", "other.mid",
                                status=0).lines
        self.assertEqual(lines[0]["catalogue"], "own")
        self.assertEqual([(change["field"], change["new"]) for change in lines[0]["changes"]],
                         [("artist", "My band")])
        self.assertEqual(lines[1].get("catalogue"), "built-in")
        text = self.run_kavena("sync", "--dry-run", "copy.mid", "other.mid", status=0).out
        self.assertIn("my catalogue", text)
        self.assertIn("program's catalogue", text)
        self.assertEqual(path.read_bytes(), songs.song("O SOLE MIO"))
        self.run_kavena("sync", "--unsigned", "yes", "copy.mid", status=0)
        shown = self.run_kavena("show", "--json", "copy.mid", status=0).lines[0]
        self.assertEqual(shown["artist"], "My band")
        self.assertEqual(other.read_bytes(), songs.song("SANTA LUCIA"))

    def test_a_song_is_not_changed_by_its_own_entry(self):
        path = self.write("mine.mid", songs.song("Mine; 100%", "Me"))
        self.write("mine.mp3", songs.mp3("Title"))
        self.run_kavena("catalogue", "add", "mine.mid", status=0)
        lines = self.run_kavena("sync", "--dry-run", "--json", "mine.mid", status=0).lines
        self.assertEqual(lines[0]["changes"], [])
        self.run_kavena("sync", "--unsigned", "yes", "mine.mid")
        shown = self.run_kavena("show", "--json", path, status=0).lines[0]
        self.assertEqual((shown["title"], shown["artist"]), ("Mine; 100%", "Me"))

    def test_entries_are_replaced_only_if_that_is_wished(self):
        self.add("mine.mid")
        self.write("mine.mid", songs.song("New"))
        result = self.run_kavena("catalogue", "add", "mine.mid", status=3)
        self.assertIn("--replace", result.err)
        self.assertEqual(self.rows()[0][1], "Song mine.mid")
        self.run_kavena("catalogue", "add", "--replace", "yes", "mine.mid", status=0)
        self.assertEqual(self.rows()[0][1], "New")

    def test_what_cannot_be_added_is_named(self):
        self.write("bad.mid", b"no song")
        self.write("a/x.mid", songs.song("A"))
        self.write("b/x.mid", songs.song("B"))
        result = self.run_kavena("catalogue", "add", "bad.mid", "missing.mid", "a/x.mid",
                                 "b/x.mid", status=1)
        for name in ("bad.mid", "missing.mid", "b/x.mid"):
            self.assertIn(name, result.err)
        self.assertEqual(self.rows(), [("X", "A", "")])
        self.run_kavena("catalogue", "add", status=2)
        self.run_kavena("catalogue", "add", "--json", "a/x.mid", status=2)
        self.run_kavena("catalogue", "forget", "a/x.mid", status=2)

    def test_a_table_goes_out_and_comes_back(self):
        self.add("mine.mid", "two.mid")
        self.run_kavena("catalogue", "export", "mine.tsv", status=0)
        table = (self.music / "mine.tsv").read_bytes()
        lines = table.decode().splitlines()
        self.assertEqual(lines[0].split("\t"), COLUMNS)
        self.assertEqual(len(lines), 3)
        before = self.rows()
        self.store.unlink()
        self.run_kavena("catalogue", "import", "mine.tsv", status=0)
        self.assertEqual(self.rows(), before)
        self.run_kavena("catalogue", "export", "mine.tsv", status=3)
        self.run_kavena("catalogue", "export", "--replace", "yes", "mine.tsv", status=0)
        self.assertEqual((self.music / "mine.tsv").read_bytes(), table)
        result = self.run_kavena("catalogue", "import", "mine.tsv", status=3)
        self.assertIn("--replace", result.err)

    def test_a_table_is_never_written_over_a_song(self):
        self.add("mine.mid")
        before = (self.music / "mine.mid").read_bytes()
        named = self.write("song.tsv", songs.song("A"))
        for name in ("mine.mid", "song.tsv", "new.mp3"):
            self.run_kavena("catalogue", "export", "--replace", "yes", name, status=3)
        self.assertEqual((self.music / "mine.mid").read_bytes(), before)
        self.assertEqual(named.read_bytes(), songs.song("A"))
        self.assertFalse((self.music / "new.mp3").exists())

    def test_a_table_is_never_written_over_a_database_or_a_picture(self):
        self.add("mine.mid")
        before = self.store.read_bytes()
        picture = self.write("mine.cdg", b"picture")
        (self.music / "link.tsv").symlink_to(self.store)
        (self.music / "picture.tsv").symlink_to(picture)
        for name in (str(self.store), "link.tsv", "mine.cdg", "picture.tsv", "new.CDG"):
            result = self.run_kavena("catalogue", "export", "--replace", "yes", name, status=3)
            self.assertIn("another kind", result.err, name)
        self.assertEqual(self.store.read_bytes(), before)
        self.assertEqual(picture.read_bytes(), b"picture")
        self.assertFalse((self.music / "new.CDG").exists())
        text = self.write("mine.tsv", b"SQLite format 2")
        self.run_kavena("catalogue", "export", "--replace", "yes", "mine.tsv", status=0)
        self.assertIn(b"Song mine.mid", text.read_bytes())

    def test_hostile_tables_are_told_line_by_line(self):
        good = "\t".join(["Good", "A", "G", "W", "60", "100", "C", "good", "1;Intro;", "A"])
        bad = "\t".join(["'); DROP TABLE Songs; --", "A", "G", "W", "x", "1", "C", "bad", "", ""])
        self.write("t.tsv", ("\n".join([good, bad, "only one cell", "x" * 600000])).encode())
        result = self.run_kavena("catalogue", "import", "t.tsv", status=1)
        self.assertEqual(len(result.err.splitlines()), 3)
        self.assertIn("line 2", result.err)
        self.assertEqual(self.rows(), [("GOOD", "Good", "A")])
        self.write("empty.tsv", b"")
        self.write("zero.tsv", b"\0" * 100000)
        for name in ("empty.tsv", "missing.tsv", ".", "/dev/zero", "zero.tsv"):
            self.assertIn(self.run_kavena("catalogue", "import", name).status, (1, 3), name)
        self.assertEqual(self.rows(), [("GOOD", "Good", "A")])

    def test_an_unusable_catalogue_leaves_the_built_in_one(self):
        self.write("sync.mid", songs.song("O SOLE MIO"))
        self.store.parent.mkdir(parents=True)
        newer = self.folder / "newer.sqlite"
        with sqlite3.connect(newer) as store:
            store.execute("create table Songs (a)")
            store.execute("pragma user_version = 7")
        for content in (b"x" * 5000, newer.read_bytes()):
            self.store.write_bytes(content)
            result = self.run_kavena("sync", "--dry-run", "--json", "sync.mid", status=1)
            self.assertTrue(result.lines[0]["found"])
            self.assertIn("My catalogue", result.err)
            result = self.run_kavena("catalogue", "find", "O SOLE MIO", status=0)
            self.assertIn("My catalogue", result.err)
            self.run_kavena("catalogue", "add", "sync.mid", status=3)
            self.run_kavena("catalogue", "export", "t.tsv", status=3)
            self.assertEqual(self.store.read_bytes(), content)
        self.store.unlink()
        self.store.mkdir()
        self.run_kavena("catalogue", "add", "sync.mid", status=3)
        self.run_kavena("sync", "--dry-run", "sync.mid", status=1)

    def test_no_song_is_synchronised_without_an_own_catalogue_that_is_there(self):
        song = self.write("sync.mid", songs.song("O SOLE MIO"))
        self.write_damaged()
        for content in (self.store.read_bytes(), b"x" * 5000):
            self.store.write_bytes(content)
            result = self.run_kavena("sync", "--unsigned", "yes", "--backup", "saved", "sync.mid",
                                     status=3)
            self.assertIn("My catalogue is damaged", result.err)
            self.assertIn("the program's catalogue only", result.err)
            self.assertEqual(song.read_bytes(), songs.song("O SOLE MIO"))
            self.assertFalse((self.music / "saved").exists())
            self.run_kavena("sync", "--dry-run", "sync.mid", status=1)
        self.store.unlink()
        self.run_kavena("sync", "--unsigned", "yes", "sync.mid", status=0)
        self.assertNotEqual(song.read_bytes(), songs.song("O SOLE MIO"))

    def write_damaged(self):
        """The first page, with the table's layout, is whole; those with the entries are not."""
        self.add("mine.mid")
        with sqlite3.connect(self.store) as store:
            store.executemany("insert into Songs (title, filename) values (?, ?)",
                              [(f"Title {number} " + "t" * 100, f"S{number}")
                               for number in range(200)])
        store.close()
        content = self.store.read_bytes()
        self.store.write_bytes(content[:4096] + b"U" * (len(content) - 4096))

    def test_a_catalogue_with_a_damaged_page_is_refused(self):
        self.write_damaged()
        content = self.store.read_bytes()
        backup = self.write("mine.tsv", b"Saved\t\t\t\t\t\t\tMINE\t\t\n")
        for command in (("export",), ("export", "--replace", "yes"), ("import",),
                        ("import", "--replace", "yes")):
            result = self.run_kavena("catalogue", *command, "mine.tsv", status=3)
            self.assertIn("My catalogue is damaged", result.err)
        result = self.run_kavena("catalogue", "add", "mine.mid", status=3)
        self.assertIn("My catalogue is damaged", result.err)
        result = self.run_kavena("catalogue", "find", "O SOLE MIO", status=0)
        self.assertIn("My catalogue is damaged", result.err)
        self.assertEqual(backup.read_bytes(), b"Saved\t\t\t\t\t\t\tMINE\t\t\n")
        self.assertEqual(self.store.read_bytes(), content)

    def test_a_folder_that_cannot_be_written_is_told(self):
        (self.folder / "data").write_bytes(b"a file in its place")
        self.write("a.mid", songs.song("A"))
        result = self.run_kavena("catalogue", "add", "a.mid", status=3)
        self.assertIn("My catalogue", result.err)

    def test_many_programs_add_at_once(self):
        names = [f"s{number}.mid" for number in range(8)]
        for name in names:
            self.write(name, songs.song(name))
        runs = [subprocess.Popen([songs.KAVENA, "catalogue", "add", name], cwd=self.music,
                                 env=self.environment) for name in names]
        self.assertEqual([run.wait(60) for run in runs], [0] * len(runs))
        self.assertEqual(len(self.rows()), len(names))


if __name__ == "__main__":
    songs.main()
