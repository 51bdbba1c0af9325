#!/usr/bin/env python3
"""test_terminal.py KAVENA: languages, help, wrong use, terminals, signals and full disks."""
import os
import pathlib
import pty
import select
import signal
import subprocess
import time
import tty

import songs
from songs import CliTest, song

ITEM = "BIRGILCA.mid"


class Words(CliTest):
    def test_languages(self):
        for locale, text in (("de_DE.UTF-8", "Die Datei gibt es nicht"), ("de", "Die Datei"),
                             ("it_IT.UTF-8", "Il file non esiste"), ("en_US", "The file does"),
                             ("fr_FR.UTF-8", "The file does"), ("C", "The file does"),
                             ("POSIX", "The file does"), ("ital", "The file does")):
            self.assertIn(text, self.run_kavena("show", "x", LC_ALL=locale).err, locale)
        self.environment["LC_ALL"] = ""
        self.assertIn("Il file", self.run_kavena("show", "x", LANG="it_IT.UTF-8").err)
        self.assertIn("Die Datei", self.run_kavena("show", "x", LANG="it_IT.UTF-8",
                                                   LC_MESSAGES="de_AT.UTF-8").err)

    def test_file_names_are_utf8_in_every_locale(self):
        self.write("è.mid", song())
        for locale in ("C", "POSIX", "de_DE.UTF-8"):
            shown = self.run_kavena("show", "--json", "è.mid", status=0, LC_ALL=locale)
            self.assertEqual(shown.lines[0]["path"], "è.mid")
            self.assertEqual(shown.err, "")

    def test_help_leads_with_examples(self):
        for words in ([], ["show"], ["set"], ["sync"], ["transfer"], ["index", "update"],
                      ["index", "rebuild"], ["index", "check"], ["list"], ["remove"],
                      ["eject"], ["catalogue", "find"]):
            shown = self.run_kavena(*words, "--help", status=0)
            self.assertEqual(shown.err, "")
            lines = shown.out.splitlines()
            self.assertEqual(lines[0], "Examples:")
            self.assertIn(" ".join(["kavena", *words]), lines[1])
        self.assertTrue(self.run_kavena("-h", status=0, LC_ALL="de").out.startswith("Beispiele:"))

    def test_version(self):
        self.assertRegex(self.run_kavena("--version", status=0).out, r"^kavena \d+\.\d+\n$")

    def test_wrong_use(self):
        for words in ([], ["bogus"], ["show"], ["show", "--bogus", "x"], ["index"],
                      ["index", "bogus", "x"], ["index", "check"], ["index", "check", "a", "b"],
                      ["sync", "--unsigned", "maybe", "x"], ["catalogue", "find"], ["-x"],
                      ["set", "--json", "--title", "x", "s.mid"], ["list", "--sort", "x", "."]):
            result = self.run_kavena(*words, status=2)
            self.assertEqual(result.out, "")
            self.assertIn("--help", result.err, words)


    def test_wrong_use_is_told_in_the_users_language(self):
        for words, text in ((["show", "--json=maybe", "x"], "senza valore: --json"),
                            (["show", "--json=", "x"], "senza valore: --json"),
                            (["list", "--csv=false", "x"], "senza valore: --csv"),
                            (["show", "--foo", "--bar=1", "-x", "y"],
                             "sconosciuto: --foo --bar=1 -x"),
                            (["index", "bogus", "more words", b"\xe8"],
                             "sconosciuto: bogus more words \\xe8"),
                            (["catalogue", "find", b"\xe8"], "valore non valido per TEXT: \\xe8")):
            result = self.run_kavena(*words, status=2, LC_ALL="it_IT")
            self.assertIn(text.lower(), result.err.lower().replace("non vuole un ", "senza "))

    def test_help_keeps_its_columns(self):
        for words in ([], ["list"], ["set"], ["edit"]):
            shown = self.run_kavena(*words, "--help", status=0).out
            options = shown[shown.index("Options:\n"):].split("\n\n", maxsplit=1)[0]
            lines = options.splitlines()[1:]
            for line, following in zip(lines, lines[1:] + [""]):
                # What an option too long for its column means stands on the next line.
                isAlone = line.startswith("  -") and following.startswith(" " * 23)
                if len(line.rstrip()) > 23 and not isAlone:
                    self.assertRegex(line, r"^.{22} \S", words)

    def test_closed_standard_handles_are_never_given_to_a_file(self):
        for closed in (">&-", "2>&-", ">&- 2>&-"):
            process = subprocess.Popen(["sh", "-c", 'exec "$0" show -0 ' + closed, songs.KAVENA],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE, cwd=self.music,
                                       env=self.environment)
            process.stdin.write(b"x\0" * 40000)  # more than the pipe takes: it reads by now
            process.stdin.flush()
            links = [os.readlink(f"/proc/{process.pid}/fd/{handle}") for handle in (1, 2)]
            self.assertEqual([link == "/dev/null" for link in links],
                             [">&- " in closed + " " and not closed.startswith("2"),
                              "2>&-" in closed], closed)
            process.communicate(timeout=60)

    def test_output_that_is_closed_is_a_failure(self):
        path = self.write("s.mid", song("X"))
        before = path.read_bytes()
        process = subprocess.run(["sh", "-c", 'exec "$0" show s.mid <&- >&-', songs.KAVENA],
                                 stderr=subprocess.PIPE, cwd=self.music, check=False,
                                 env=self.environment)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"standard output", process.stderr)
        self.assertEqual(path.read_bytes(), before)


class Terminals(CliTest):
    def setUp(self):
        super().setUp()
        self.path = self.write(ITEM, song("X"))

    def converse(self, arguments, answer):
        """Runs with a terminal as input and error output; returns exit status and what it said."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([songs.KAVENA, *arguments], stdin=theirs, stderr=theirs,
                                   stdout=subprocess.PIPE, cwd=self.music, env=self.environment)
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
        process.communicate(timeout=60)
        return process.returncode, said.decode()

    def test_questions_are_asked_on_a_terminal(self):
        before = self.path.read_bytes()
        status, said = self.converse(["sync", ITEM], b"n\n")
        self.assertIn("signature", said)
        self.assertEqual((status, self.path.read_bytes()), (3, before))
        status, said = self.converse(["sync", ITEM], b"y\n")
        self.assertEqual(status, 0, said)
        self.assertNotEqual(self.path.read_bytes(), before)

    def test_other_answers_and_the_end_of_input_are_no(self):
        before = self.path.read_bytes()
        for answer in (b"maybe\n", b"\n", b"\x04"):
            status, _ = self.converse(["sync", ITEM], answer)
            self.assertEqual((status, self.path.read_bytes()), (3, before))

    def test_answer_to_all_is_asked_once(self):
        other = self.write("sub/" + ITEM, song("Y"))
        before = other.read_bytes()
        status, said = self.converse(["sync", "."], b"Y\n")
        self.assertEqual(status, 0, said)
        self.assertEqual(said.count("signature. Change it?"), 1)
        self.assertNotEqual(other.read_bytes(), before)

    def test_an_option_asks_nothing(self):
        _, said = self.converse(["sync", "--unsigned", "no", ITEM], None)
        self.assertNotIn("Change it?", said)

    def test_progress_is_on_terminals_only(self):
        names = [f"{number}.mid" for number in range(50)]
        for name in names:
            self.write(name, song())
        _, said = self.converse(["show", *names], None)
        self.assertIn("/50", said)
        self.assertEqual(self.run_kavena("show", *names, status=0).err, "")


class Interruptions(CliTest):
    def test_interrupt_stops_between_two_files(self):
        for signum in (signal.SIGINT, signal.SIGTERM):
            self.stop_with(signum)

    def test_interrupt_stops_the_wait_for_a_list(self):
        reader, writer = os.pipe()
        for signum in (signal.SIGINT, signal.SIGTERM):
            process = subprocess.Popen([songs.KAVENA, "show", "-0"], stdin=reader,
                                       stderr=subprocess.PIPE, cwd=self.music,
                                       env=self.environment)
            os.write(writer, b"a.mid\0")
            # Until it has taken what there is, and sleeps since it waits for more.
            deadline = time.monotonic() + 30
            state = pathlib.Path(f"/proc/{process.pid}/stat")
            while (select.select([reader], [], [], 0)[0] or
                   state.read_text().rsplit(")", 1)[1].split()[0] != "S"):
                self.assertLess(time.monotonic(), deadline, "it does not wait")
            process.send_signal(signum)
            self.assertIn(b"Stopped", process.communicate(timeout=30)[1])
            self.assertEqual(process.returncode, 3)
        os.close(reader)
        os.close(writer)

    def stop_with(self, signum):
        """Songs are done until the signal comes, and every song is the old or the new one."""
        paths = [self.write(f"{signum.value}/{number}/{ITEM}", song("X", signed=True))
                 for number in range(500)]
        old = song("X", signed=True)
        new_song = self.write(f"{signum.value}-new/{ITEM}", old)
        self.run_kavena("sync", new_song, status=0)
        new = new_song.read_bytes()
        self.assertNotEqual(new, old)
        # On a terminal each line comes as soon as its song is done.
        ours, theirs = pty.openpty()
        tty.setraw(theirs)
        process = subprocess.Popen(
            [songs.KAVENA, "sync", "--json", str(signum.value)], stdout=theirs,
            stderr=subprocess.PIPE, cwd=self.music, env=self.environment)
        os.close(theirs)
        out = os.read(ours, 4096)
        process.send_signal(signum)
        while chunk := self.read_on(ours):
            out += chunk
        os.close(ours)
        err = process.stderr.read()
        process.stderr.close()
        process.wait(60)
        done = out.count(b"\n")
        self.assertEqual(process.returncode, 1, err)
        self.assertIn(b"Stopped", err)
        self.assertLess(done, len(paths))
        contents = [path.read_bytes() for path in paths]
        self.assertEqual(contents.count(new), done)
        self.assertEqual(contents.count(old), len(paths) - done)
        self.assertEqual([path for path in self.snapshot(self.music / str(signum.value))
                          if path.name != ITEM], [])

    @staticmethod
    def read_on(terminal):
        try:
            return os.read(terminal, 4096)
        except OSError:  # the program has closed its side
            return b""

    def test_interrupt_stops_an_index_run(self):
        card = self.card
        for number in range(50):
            self.write(f"{number}.mid", song(f"T{number}"), card)
        self.write("averylongname.mid", song("Long"), card)
        for command, status in (("rebuild", 1), ("update", 3)):
            before = self.snapshot(card)
            ours, theirs = pty.openpty()
            process = subprocess.Popen([songs.KAVENA, "index", command, card], stdin=theirs,
                                       stderr=theirs, stdout=subprocess.PIPE,
                                       env=self.environment)
            os.close(theirs)
            said = b""
            while not said.endswith(b"] "):  # it asks whether to rename the song
                said += os.read(ours, 4096)
            process.send_signal(signal.SIGINT)
            while chunk := self.read_on(ours):
                said += chunk
            os.close(ours)
            process.communicate(timeout=60)
            self.assertEqual(process.returncode, status, said)
            self.assertIn(b"Stopped", said)
            if command == "rebuild":
                self.assertEqual([path.name for path in card.glob("*.idx")], [])
                self.assertIn(b"no complete song index", said)
                self.run_kavena("index", "update", "--rename", "no", card, status=0)
                self.assertEqual(self.judge_memory(), "")
            else:
                self.assertEqual(self.snapshot(card), before)
            self.write("new.mid", song("New"), card)

    def test_interrupt_stops_a_check(self):
        for number in range(4000):
            self.write(f"{number % 50}/{number}.mid", song(), self.card)
        self.run_kavena("index", "rebuild", self.card, status=0)
        # The signal may come too late on a busy machine, but not each time.
        results = [self.interrupted_check() for _ in range(10)]
        self.assertIn((3, b"kavena: Stopped\n"), results)
        self.assertLessEqual(set(results), {(3, b"kavena: Stopped\n"), (0, b"")})

    def interrupted_check(self):
        process = subprocess.Popen([songs.KAVENA, "index", "check", self.card],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=self.environment)
        caught = 0
        while not caught & (1 << (signal.SIGINT - 1)) and process.poll() is None:
            with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                caught = int(next(line for line in status
                                  if line.startswith("SigCgt")).split()[1], 16)
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=60)
        self.assertEqual(out, b"")
        return process.returncode, err

    def test_full_standard_output_is_a_failure(self):
        self.write("s.mid", song())
        with open("/dev/full", "wb") as full:
            process = subprocess.run([songs.KAVENA, "show", "s.mid"], stdout=full, check=False,
                                     stderr=subprocess.PIPE, cwd=self.music, env=self.environment)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"standard output", process.stderr)

    def test_reader_that_goes_stops_the_work(self):
        names = b"".join(b"s.mid\0" for _ in range(20000))
        self.write("s.mid", song())
        process = subprocess.Popen([songs.KAVENA, "show", "-0"], stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=self.music,
                                   env=self.environment)
        process.stdin.write(names)
        process.stdin.close()
        process.stdout.readline()
        process.stdout.close()
        self.assertEqual(process.wait(60), 1)
        process.stderr.close()


if __name__ == "__main__":
    songs.main()
