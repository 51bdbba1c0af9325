#!/usr/bin/env python3
"""Lets every job of the program fail at each of its steps, and judges what is left.

    run_faults.py [--job PREFIX] DRIVER LIBRARY

DRIVER does the jobs (driver.cpp), LIBRARY lets calls to the system fail (faultpreload.cpp). Each
job is done once without a fault; then again for each call that it made on songs and memories, once
for each way in which that call can fail. After each time:

- every song file is byte for byte the old one or the whole new one, and none is missing (where the
  program was killed, or the medium stayed dead: after the songs have been imported again);
- only the jobs that bring a memory in line and that remove songs take songs away, and only those
  that they are to remove: an index that is there lists none of them that is gone;
- a memory has its whole old index, a whole new one (check_memory.py is the judge) or none, and the
  next update makes a whole one; the playlists then mean the songs that they meant before;
- the program has said that something failed, unless the job was done all the same;
- no temporary file is left, unless the program was killed or could not remove it any more;
- unless the program was killed, its flushes came in the right order (check_order.py), and it did
  not call something done that was not flushed; a flush or a close that failed is never passed over.

Among the ways is that the memory is pulled in the middle. Last, each job is done on a disk with more
and more room; where nothing can be mounted, with files that can grow no further instead.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tools"))
sys.dont_write_bytecode = True
sys.path.insert(0, HERE)
import check_order  # noqa: E402
from full_disk import FullDisk, enter_own_mounts  # noqa: E402
from outcome import (INDEX, Judge, Wrong, checked_memory, index_of, read_tree,  # noqa: E402
                     write_tree)

SAVES = (
    "s03.mid:A_title_that_makes_the_file_longer",
    "s04.mid:x",
    "p3.mf3:A_longer_title",
    "p4.mf4:x",
    "p5.mf5:A_longer_title",
    "a0.mp3:A_title_that_makes_the_file_longer",
    "a2.mp3:x",
)
JOBS = ["save:" + save for save in SAVES] + ["sync", "create", "rebuild", "update", "transfer",
                                                 "inline", "remove", "rename",
                                                 "backup"]

INDEX_JOBS = ("create", "rebuild", "update", "transfer", "inline", "remove", "rename")

# Which calls can fail in which way. A flush writes nothing, so it cannot write too little.
CAN_FAIL = {
    "eio": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove", "close",
            "mkdir", "flushall"},
    "enospc": {"create", "write", "flush", "flushall", "truncate", "rename", "close", "mkdir"},
    "short": {"write"},
    "dead": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir", "flushall"},
    "kill": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir", "flushall"},
    "gone": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir", "flushall"},
}

FAILURE = re.compile(r"^(warning|failure) |Impossible|aborting|Aborting|creation failed", re.M)


class Driver:
    def __init__(self, program, library, work):
        self.work = work
        environment = dict(os.environ, LD_PRELOAD=library, XDG_CONFIG_HOME=work,
                           XDG_DATA_HOME=os.path.join(work, "data"), TZ="UTC")
        environment.pop("USER", None)
        self.process = subprocess.Popen(
            [program], cwd=work, env=environment, text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def run(self, job, root, at=0, mode="none", gone="-", limit=-1):
        """Returns how the job ended, what it said and which calls it made."""
        for name in ("report", "trace"):
            path = os.path.join(self.work, name)
            if os.path.exists(path):
                os.remove(path)
        self.process.stdin.write(f"{job} {root} {at} {mode} {gone} {limit}\n")
        self.process.stdin.flush()
        end = self.process.stdout.readline().strip()
        return end, self.read("report"), self.read("trace").splitlines()

    def read(self, name):
        try:
            with open(os.path.join(self.work, name), encoding="utf-8") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def close(self):
        self.process.stdin.close()
        if self.process.wait() != 0:
            raise Wrong("the driver failed")


class Run:
    """All faults of one job."""

    def __init__(self, driver, root, job, before, playlists):
        self.driver = driver
        self.root = root
        self.job = job
        write_tree(before, root)
        self.before = read_tree(root)
        self.existing = [os.path.join(root, path).rstrip("/") for path in self.before]
        self.order = check_order.Order(self.existing + [root])
        end, said, trace = driver.run(job, root)
        self.calls = check_order.counted(trace)
        self.must_be_noticed = check_order.must_be_noticed(trace)
        self.now = after = read_tree(root)
        removes = job in ("inline", "remove")
        self.judge = Judge(self.before, after, playlists, removes)
        if removes and len(self.judge.removed) < 3:
            raise Wrong("removes too little to be judged")
        self.done = 0
        self.made_room = 0  # runs in which an old song went first
        if end != "exit 0" or "result 1" not in said:
            raise Wrong(f"fails without a fault: {end}\n{said}")
        if len(self.calls) < 5 or after == self.before:
            raise Wrong("does nothing that could fail")
        if index_of(after) != index_of(self.before) and \
                self.judge.judge_index(after, root, "") != "new":
            raise Wrong("makes no index without a fault")
        self.judge_order(self.order, trace, True)

    def call_names(self):
        return [line.split(" ", 1)[0] for line in self.calls]

    def all_modes(self):
        runs = 0
        for mode, calls in CAN_FAIL.items():
            for number, name in enumerate(self.call_names(), 1):
                if name in calls:
                    self.one(number, mode)
                    runs += 1
        return runs

    def restore(self):
        write_tree(self.before, self.root, self.now)
        self.now = None

    def clear(self):
        shutil.rmtree(self.root)

    def without_room(self, room, limit=-1):
        order = check_order.Order(self.existing + [self.root])
        end, said, trace = self.driver.run(self.job, self.root, limit=limit)
        try:
            if end != "exit 0":
                raise Wrong(f"the program ended with {end}")
            self.judge_order(order, trace, False)
            self.made_room += any(line.startswith("remove ") and check_order.SONG.search(line)
                                  for line in trace)
            return self.judge_outcome("full", said)
        except Wrong as wrong:
            raise Wrong(f"{self.job}, {room}: {wrong}\n{said}") from None

    def one(self, number, mode):
        self.restore()
        gone = os.path.join(self.root, "library" if self.job[:4] in ("save", "sync") else
                            "backup" if self.job == "backup" else "mnt/CARD")
        order = check_order.Order(self.existing + [self.root])
        end, said, trace = self.driver.run(self.job, self.root, number, mode, gone)
        calls = check_order.counted(trace)
        try:
            if end != ("signal 9" if mode == "kill" else "exit 0"):
                raise Wrong(f"the program ended with {end}")
            if mode == "gone":
                if os.path.exists(gone):
                    raise Wrong(f"{gone} is back, but the memory is not")
                os.rename(gone + ".gone", gone)
            if mode in ("eio", "enospc", "short"):
                self.judge_order(order, trace, False)
                if number in self.must_be_noticed and not FAILURE.search(said):
                    raise Wrong("the failure is passed over")
            self.judge_outcome(mode, said)
            if self.job in INDEX_JOBS:
                self.judge_repair()
        except Wrong as wrong:
            line = calls[number - 1] if number <= len(calls) else "?"
            raise Wrong(f"{self.job}, {mode} at call {number} ({line}): {wrong}\n{said}") from None

    def judge_outcome(self, mode, said):
        ended_early = mode in ("kill", "dead", "gone")
        if ended_early:
            end, told, _ = self.driver.run("import", self.root)
            if end != "exit 0":
                raise Wrong(f"the import after it ended with {end}")
            self.judge_recovery(told)
        self.now = tree = read_tree(self.root)
        self.judge.judge_songs(tree)
        index = self.judge.judge_index(tree, self.root, said)
        if not ended_early:
            self.judge.judge_temporaries(tree)
        if any(path.endswith(".kavena-journal") for path in tree):
            raise Wrong("a journal outlives the import")
        done = self.judge.is_done(tree, index)
        self.done += done
        if mode != "kill" and not done and not FAILURE.search(said):
            raise Wrong("the program does not say that something failed")
        return done

    def judge_order(self, order, trace, every_claim):
        if self.job == "sync" and not every_claim:
            return  # its result does not tell about single songs
        try:
            order.check(trace, every_claim)
        except check_order.WrongOrder as wrong:
            raise Wrong(f"{self.job}, order of the flushes: {wrong}") from None

    def judge_repair(self):
        """The next update finds everything that it needs for a whole index."""
        end, said, _ = self.driver.run("update", self.root)
        self.now = read_tree(self.root)
        if end != "exit 0" or "result 1" not in said:
            raise Wrong(f"the update after it fails: {end}\n{said}")
        if self.judge.judge_index(self.now, self.root, said) != "new":
            raise Wrong("there is no new index after the next update")

    def judge_recovery(self, told):
        for line in told.splitlines():
            if "The last save was cut off" in line and not re.search(r"library/[sp]\d+\.m", line):
                raise Wrong(f"the log does not name the song: {line}")


def make_trees(driver, root):
    """The folders that the jobs start from."""
    os.makedirs(root)
    end, said, _ = driver.run("make", root)
    if end != "exit 0" or "result 1" not in said:
        raise Wrong(f"cannot make the songs: {end}\n{said}")
    tree = read_tree(root)
    for path, item in tree.items():
        if item:
            tree[path] = (item[0], item[1] // 10**9 * 10**9)
    library = {path: item for path, item in tree.items() if path.startswith("library/")}
    checker = checked_memory(os.path.join(root, "mnt/CARD"), True)  # the index is out of date
    if len(checker.playlists) != 1:
        raise Wrong("the memory has no playlist")
    return {"all": tree, "library": library, "playlists": checker.playlists,
            "no index": {path: item for path, item in tree.items()
                         if os.path.basename(path) not in INDEX}}


def one_song(tree, name):
    return {path: item for path, item in tree.items() if path in ("library/", "library/" + name)}


def start_of(job, trees):
    if job.startswith("save:"):
        return one_song(trees["library"], job.split(":")[1])
    if job == "sync":
        return trees["library"]
    if job == "create":
        return trees["no index"]
    return trees["all"]


def full_disk_runs(run, disk):
    """Gives the job a page more each time until it is done; returns how often it was not."""
    for pages in range(1000):
        run.restore()
        if not disk.leave_free(pages):
            raise Wrong(f"{run.job} needs more than the small disk has")
        if run.without_room(f"{pages} free pages"):
            return pages
    raise Wrong(f"{run.job} is never done, whatever room there is")


LIMITS = (0, 1, 30, 60, 100, 150, 200, 250, 300, 400, 600, 1000, 2000, 4000, 6000, 99999, 299999, 400000)


def limited_runs(run):
    failed = 0
    for limit in LIMITS:
        run.restore()
        if not run.without_room(f"files up to {limit} bytes", limit):
            failed += 1
            if limit == LIMITS[-1]:
                raise Wrong(f"{run.job} is never done, however long files may be")
    return failed


def test(options, work):
    driver = Driver(options.driver, options.library, work)
    root = os.path.join(work, "root")
    trees = make_trees(driver, root)
    disk = FullDisk(work) if options.may_mount else None
    for job in JOBS:
        if not job.startswith(options.job):
            continue
        start = time.monotonic()
        # Without any index nobody knows which songs the playlists mean.
        playlists = {} if job == "create" else trees["playlists"]
        run = Run(driver, root, job, start_of(job, trees), playlists)
        runs = run.all_modes()
        print(f"{job}: {len(run.calls)} calls, {runs} faults, {run.done} times done all the same, "
              f"{time.monotonic() - start:.1f} s")
        if disk:
            disk.empty()
            small = Run(driver, os.path.join(disk.folder, "root"), job, start_of(job, trees),
                        playlists)
            print(f"    done with {full_disk_runs(small, disk)} free pages, "
                  f"{small.made_room} times an old song went first")
            if job == "transfer" and small.made_room == 0:
                raise Wrong("no song went first to make room")
            small.clear()
        else:
            print(f"    cannot mount: failed at {limited_runs(run)} of {len(LIMITS)} limits")
        sys.stdout.flush()
    driver.close()


def main():
    parser = argparse.ArgumentParser(description="Lets every step of every job fail.")
    parser.add_argument("--job", default="", help="only jobs that begin like this")
    parser.add_argument("--may-mount", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("driver")
    parser.add_argument("library")
    options = parser.parse_args()
    if not options.may_mount:
        enter_own_mounts()
    folder = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=folder) as work:
        try:
            test(options, work)
        except Wrong as wrong:
            print(f"WRONG: {wrong}")
            return 1
        finally:
            if options.may_mount:
                subprocess.run(["umount", "-l", os.path.join(work, "small")], check=False)
    return 0


if __name__ == "__main__":
    sys.exit(main())
