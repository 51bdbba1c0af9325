#!/usr/bin/env python3
"""Lets a synchronisation that is kept in a history fail at its steps, and taking it back as well.

    run_history_faults.py [--every N] DRIVER LIBRARY

As run_faults.py, which does the same with the other jobs: the job is done once without a fault, then
again for each N-th of its calls on songs and on the history, once for each way in which that call
can fail. After each time:

- every song is byte for byte the old one or the whole new one;
- what the history then names as changed by the job is just what was changed;
- taking that back succeeds, and every song is the old one again;
- the program has said that something failed, unless the job was done all the same.

Without a fault no song is written before what was kept of it is flushed.
"""

import argparse
import os
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tools"))
sys.dont_write_bytecode = True
sys.path.insert(0, HERE)
import check_order  # noqa: E402
from outcome import Wrong, read_tree, songs_of, write_tree  # noqa: E402
from run_faults import CAN_FAIL, FAILURE, Driver  # noqa: E402

SONGS = ("s03.mid", "s04.mid", "p4.mf4", "a2.mp3")
WAL = "history.sqlite-wal"


class Run:
    def __init__(self, driver, root, job, before, old, new):
        """before: the tree in which the job begins; old and new: the songs of both states."""
        self.driver = driver
        self.root = root
        self.job = job
        self.before = before
        self.old = old
        self.new = new
        self.done = 0
        write_tree(before, root)
        end, said, trace = driver.run(job, root)
        if end != "exit 0" or "result 1" not in said:
            raise Wrong(f"{job} fails without a fault: {end}\n{said}")
        self.after = read_tree(root)
        self.calls = check_order.counted(trace)
        if not any(call.startswith("write ") and WAL in call for call in self.calls):
            raise Wrong(f"{job} writes no history")
        self.judge_order(trace)

    def judge_order(self, trace):
        """A song is only touched while everything that was written to the history is flushed."""
        is_flushed = False
        songs = 0
        for line in trace:
            call, path, target, _ = check_order.LINE.match(line).groups()
            if path.endswith(WAL) and call in ("write", "flush"):
                is_flushed = call == "flush"
            elif call in ("write", "truncate", "rename") and \
                    check_order.SONG.search(target if call == "rename" else path):
                songs += 1
                if not is_flushed:
                    raise Wrong(f"{self.job}: what is kept is not flushed yet: {line}")
        if songs < len(SONGS):
            raise Wrong(f"{self.job}: only {songs} songs were written")

    def one(self, number, mode):
        write_tree(self.before, self.root)
        library = os.path.join(self.root, "library")
        end, said, trace = self.driver.run(self.job, self.root, number, mode, library)
        calls = check_order.counted(trace)
        line = calls[number - 1] if number <= len(calls) else "?"
        try:
            if mode == "gone" and os.path.exists(library + ".gone"):
                os.rename(library + ".gone", library)
            if end != ("signal 9" if mode == "kill" else "exit 0"):
                raise Wrong(f"the program ended with {end}")
            self.judge(mode, said)
        except Wrong as wrong:
            raise Wrong(f"{self.job}, {mode} at call {number} ({line}): {wrong}\n{said}") from None

    def judge(self, mode, said):
        end, told, _ = self.driver.run("import", self.root)  # saves that were cut off are undone
        if end != "exit 0":
            raise Wrong(f"the import after it ended with {end}\n{told}")
        songs = songs_of(read_tree(self.root))
        if songs.keys() != self.old.keys():
            raise Wrong(f"other songs are there: {sorted(songs)}")
        for path, content in songs.items():
            if content not in (self.old[path], self.new[path]):
                raise Wrong(f"{path} is neither the old song nor the whole new one")
        done = songs == songs_of(self.after)
        self.done += done
        if mode != "kill" and not done and not FAILURE.search(said):
            raise Wrong("the program does not say that something failed")

        end, told, _ = self.driver.run("histundo", self.root)
        if end != "exit 0" or "result 1" not in told:
            raise Wrong(f"taking it back fails: {end}\n{told}")
        if self.job == "histsync":
            kept = {os.path.relpath(line[5:], self.root) for line in told.splitlines()
                    if line.startswith("kept ")}
            changed = {path for path in songs if songs[path] != self.old[path]}
            if kept != changed:
                raise Wrong(f"the history names {sorted(kept)}, changed are {sorted(changed)}")
        now = songs_of(read_tree(self.root))
        if now != self.old:
            wrong = [path for path in now if now[path] != self.old[path]]
            raise Wrong(f"not as before: {wrong}\n{told}")

    def all_modes(self, every):
        runs = 0
        for offset, (mode, can_fail) in enumerate(CAN_FAIL.items()):
            for number, call in enumerate(self.calls, 1):
                if (number + offset) % every == 0 and call.split(" ", 1)[0] in can_fail:
                    self.one(number, mode)
                    runs += 1
        return runs


def test(options, work):
    driver = Driver(options.driver, options.library, work)
    root = os.path.join(work, "root")
    os.makedirs(root)
    end, said, _ = driver.run("make", root)
    if end != "exit 0" or "result 1" not in said:
        raise Wrong(f"cannot make the songs: {end}\n{said}")
    before = {path: item for path, item in read_tree(root).items()
              if path == "library/" or os.path.basename(path) in SONGS}
    old = songs_of(before)
    if len(old) != len(SONGS):
        raise Wrong(f"not all songs are there: {sorted(old)}")
    new = None
    for job in ("histsync", "histundo"):
        start = time.monotonic()
        run = Run(driver, root, job, before, old, new or old)
        if job == "histsync":
            before = run.after
            new = run.new = songs_of(before)
            if any(new[path] == old[path] for path in old):
                raise Wrong("the synchronisation changes nothing")
        elif songs_of(run.after) != old:
            raise Wrong("taking back without a fault does not give the old songs")
        runs = run.all_modes(options.every)
        print(f"{job}: {len(run.calls)} calls, {runs} faults, {run.done} times done all the same, "
              f"{time.monotonic() - start:.1f} s")
        sys.stdout.flush()
    driver.close()


def main():
    parser = argparse.ArgumentParser(description="Lets steps fail that are kept in a history.")
    parser.add_argument("--every", type=int, default=7, help="of so many calls one fails (7)")
    parser.add_argument("driver")
    parser.add_argument("library")
    options = parser.parse_args()
    folder = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=folder) as work:
        try:
            test(options, work)
        except Wrong as wrong:
            print(f"WRONG: {wrong}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
