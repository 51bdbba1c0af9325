#!/usr/bin/env python3
"""test_history.py KAVENA: what commands change in songs is kept, listed and taken back."""
import datetime
import random
import subprocess
import time

import songs


class HistoryTest(songs.CliTest):
    def setUp(self):
        super().setUp()
        self.store = self.folder / "data" / "kavena_pc" / "kravo" / "history.sqlite"

    def jobs(self):
        return self.run_kavena("history", "--json", status=0).lines

    def test_a_set_is_one_job_and_is_taken_back_to_the_byte(self):
        files = [self.write("a.mid", songs.song("Old", "Someone")),
                 self.write("b.mp3", songs.mp3("Old too"))]
        before = [path.read_bytes() for path in files]
        self.run_kavena("set", "--title", "New", "a.mid", "b.mp3", status=0)
        self.assertNotEqual([path.read_bytes() for path in files], before)
        jobs = self.jobs()
        self.assertEqual([(job["kind"], job["songs"], job["takenBack"]) for job in jobs],
                         [("edit", 2, False)])
        time = datetime.datetime.strptime(jobs[0]["time"], "%Y-%m-%dT%H:%M:%SZ")
        now = datetime.datetime.now(datetime.timezone.utc).replace(tzinfo=None)
        self.assertLess(abs((now - time).total_seconds()), 300)
        undone = self.run_kavena("undo", "--json", status=0).lines
        self.assertEqual(sorted(line["path"] for line in undone), sorted(map(str, files)))
        self.assertTrue(all(line["takenBack"] for line in undone))
        self.assertEqual([path.read_bytes() for path in files], before)
        back, first = self.jobs()
        self.assertEqual((back["kind"], back["takesBack"]), ("take-back", first["job"]))
        self.assertTrue(first["takenBack"])
        self.run_kavena("undo", status=3)
        self.run_kavena("undo", str(back["job"]), status=0)
        self.assertNotEqual([path.read_bytes() for path in files], before)

    def test_a_synchronisation_is_taken_back(self):
        path = self.write("sync.mid", songs.song("O SOLE MIO"))
        before = path.read_bytes()
        self.run_kavena("sync", "--dry-run", "sync.mid")
        self.assertFalse(self.store.exists())
        self.run_kavena("sync", "--unsigned", "yes", "sync.mid", status=0)
        if path.read_bytes() == before:
            self.fail("the catalogue does not know the song")
        self.assertEqual([job["kind"] for job in self.jobs()], ["synchronise"])
        self.run_kavena("undo", status=0)
        self.assertEqual(path.read_bytes(), before)

    def test_files_restrict_what_is_taken_back(self):
        a, b = (self.write(name, songs.song("Old")) for name in ("a.mid", "b.mid"))
        before = a.read_bytes()
        self.run_kavena("set", "--title", "New", "a.mid", "b.mid", status=0)
        changed = b.read_bytes()
        self.run_kavena("undo", "c.mid", status=1)
        self.assertEqual(a.read_bytes(), changed)
        self.run_kavena("undo", "1", "./a.mid", status=0)
        self.assertEqual((a.read_bytes(), b.read_bytes()), (before, changed))
        self.run_kavena("undo", "77", status=3)

    def test_a_song_that_was_changed_since_stays_unless_it_is_wished(self):
        path = self.write("a.mid", songs.song("Old"))
        before = path.read_bytes()
        self.run_kavena("set", "--title", "New", "a.mid", status=0)
        self.write("a.mid", songs.song("Mine"))
        lines = self.run_kavena("undo", "--json", status=1).lines
        self.assertEqual([line["takenBack"] for line in lines], [False])
        self.assertTrue(lines[0]["error"])
        self.assertEqual(path.read_bytes(), songs.song("Mine"))
        self.run_kavena("undo", "--changed", "yes", status=0)
        self.assertEqual(path.read_bytes(), before)

    def test_a_song_that_got_another_name_since_is_found(self):
        path = self.write("a.mid", songs.song("Old"))
        before = path.read_bytes()
        self.run_kavena("set", "--title", "New", "a.mid", status=0)
        self.run_kavena("edit", "--rename", "%title", "--apply", "a.mid", status=0)
        renamed = path.with_name("New.mid")
        self.assertNotEqual(renamed.read_bytes(), before)
        self.run_kavena("undo", "1", status=0)
        self.assertEqual(renamed.read_bytes(), before)
        self.assertFalse(path.exists())

    def test_without_a_history_nothing_is_changed_unless_it_is_wished(self):
        self.store.parent.mkdir(parents=True)
        self.store.write_bytes(b"x" * 5000)
        path = self.write("a.mid", songs.song("O SOLE MIO"))
        before = path.read_bytes()
        for command in (["set", "--title", "New"], ["sync", "--unsigned", "yes"]):
            with self.subTest(command=command):
                result = self.run_kavena(*command, "a.mid", status=3)
                self.assertIn("--without-history yes", result.err)
                self.assertEqual(path.read_bytes(), before)
                self.run_kavena(*command, "--without-history", "no", "a.mid", status=3)
                self.assertEqual(path.read_bytes(), before)
                self.run_kavena(*command, "--without-history", "yes", "a.mid", status=0)
                self.assertNotEqual(path.read_bytes(), before)
                path.write_bytes(before)
        self.run_kavena("history", status=3)
        self.run_kavena("undo", status=3)
        self.assertEqual(self.store.read_bytes(), b"x" * 5000)

    def test_nothing_is_kept_of_songs_that_did_not_change(self):
        self.write("a.mid", songs.song("Same"))
        self.run_kavena("set", "--title", "Same", "a.mid")
        self.run_kavena("set", "--title", "Same", "a.mid", "missing.mid", status=1)
        self.assertLessEqual(len(self.run_kavena("history", "--json").lines), 1)

    def test_history_without_jobs_is_empty(self):
        result = self.run_kavena("history", "--json", status=3)
        self.assertEqual(result.out, "")
        self.assertFalse(self.store.exists())
        self.run_kavena("history", "more", status=2)
        self.run_kavena("undo", "--changed", "perhaps", status=2)

    def test_twenty_programs_at_once_share_one_history(self):
        paths = [self.write(f"{number}.mid", songs.song("Old")) for number in range(20)]
        running = [subprocess.Popen([songs.KAVENA, "set", "--title", f"New {path.stem}", str(path)],
                                    env=self.environment, stdin=subprocess.DEVNULL,
                                    stderr=subprocess.PIPE) for path in paths]
        for process in running:
            self.assertEqual(process.communicate(timeout=120)[1], b"")
            self.assertEqual(process.returncode, 0)
        jobs = self.jobs()
        self.assertEqual([job["songs"] for job in jobs], [1] * 20)
        for job in jobs:
            self.run_kavena("undo", str(job["job"]), status=0)
        self.assertEqual({path.read_bytes() for path in paths}, {songs.song("Old")})

    def test_killed_at_any_point_the_history_tells_the_truth(self):
        names = [f"{number:03}.mid" for number in range(200)]
        old = songs.song("Old")
        cut = 0
        for milliseconds in (15, 30, 50, 80, 120, 200, 300, 500):
            for name in names:
                self.write(name, old)
            listed = {job["job"] for job in self.run_kavena("history", "--json").lines}
            process = subprocess.Popen([songs.KAVENA, "set", "--title", "New", *names],
                                       env=self.environment, cwd=self.music,
                                       stdin=subprocess.DEVNULL)
            time.sleep(milliseconds / 1000)
            process.kill()
            process.wait()
            self.run_kavena("show", *names, status=0)  # puts back a save that was cut off
            changed = {name for name in names if (self.music / name).read_bytes() != old}
            cut += 0 < len(changed) < len(names)
            jobs = [job for job in self.run_kavena("history", "--json").lines
                    if job["job"] not in listed]
            self.assertEqual(sum(job["songs"] for job in jobs), len(changed))
            for job in jobs:
                # Who wrote the songs of the last batch, nothing tells.
                self.run_kavena("undo", str(job["job"]), "--changed", "yes", status=0)
            self.assertEqual({(self.music / name).read_bytes() for name in names}, {old})
        self.assertGreater(cut, 0, "no run was cut off between two songs")

    def test_a_full_disk_asks_and_changes_nothing(self):
        full = self.folder / "full"
        full.mkdir()
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "none", full], check=False,
                          stderr=subprocess.DEVNULL).returncode:
            self.skipTest("mounting is not allowed here")
        self.addCleanup(subprocess.run, ["umount", full], check=True)
        with open(full / "filler", "wb") as filler:
            try:
                filler.write(bytes(1 << 17))
                filler.flush()
            except OSError:
                pass
        path = self.write("a.mid", songs.song("Old"))
        before = path.read_bytes()
        result = self.run_kavena("set", "--title", "New", "a.mid", status=3,
                                 XDG_DATA_HOME=str(full / "data"))
        self.assertIn("--without-history yes", result.err)
        self.assertEqual(path.read_bytes(), before)
        self.run_kavena("set", "--title", "New", "--without-history", "yes", "a.mid", status=0,
                        XDG_DATA_HOME=str(full / "data"))
        self.assertNotEqual(path.read_bytes(), before)

    def test_hostile_files_in_its_place_harm_nothing(self):
        self.write("a.mid", songs.song("Old"))
        self.run_kavena("set", "--title", "New", "a.mid", status=0)
        good = self.store.read_bytes()
        changed = (self.music / "a.mid").read_bytes()
        for suffix in ("-wal", "-shm"):
            self.store.with_name(self.store.name + suffix).unlink(missing_ok=True)
        random.seed(1)
        for _ in range(150):
            bad = bytearray(good)
            for _ in range(random.randint(1, 30)):
                bad[random.randrange(len(bad))] = random.randrange(256)
            if random.random() < 0.2:
                del bad[random.randrange(len(bad)):]
            self.store.write_bytes(bad)
            for command in (["history", "--json"], ["undo", "--json"]):
                self.assertIn(self.run_kavena(*command).status, (0, 1, 3))
            self.assertIn((self.music / "a.mid").read_bytes(), (changed, songs.song("Old")))
            self.write("a.mid", changed)
            for suffix in ("-wal", "-shm"):
                self.store.with_name(self.store.name + suffix).unlink(missing_ok=True)

    def test_names_with_any_characters_are_taken_back(self):
        name = "a '\"; DROP TABLE songs; --\n\u00e8.mid"
        path = self.write(name, songs.song("Old"))
        self.run_kavena("set", "--title", "New", "--", name, status=0)
        self.run_kavena("undo", "--", name, status=0)
        self.assertEqual(path.read_bytes(), songs.song("Old"))


if __name__ == "__main__":
    songs.main()
