#!/usr/bin/env python3
"""Lets every job of the program fail at each of its steps, and judges what is left.

    run_faults.py [--job PREFIX] DRIVER LIBRARY

DRIVER does the jobs (driver.cpp), LIBRARY lets calls to the system fail (faultpreload.cpp). Each
job is done once without a fault; then again for each call that it made on songs and memories, once
for each way in which that call can fail. After each time:

- every song file is byte for byte the old one or the whole new one, and none is missing (where the
  program was killed, or the medium stayed dead: after the songs have been imported again);
- a memory has its whole old index, a whole new one (check_memory.py is the judge) or none;
- the program has said that something failed, unless the job was done all the same;
- no temporary file is left, unless the program was killed or could not remove it any more.

Then the same on a disk that is full, and with a memory that is pulled in the middle.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import types

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tools"))
sys.dont_write_bytecode = True
import check_memory  # noqa: E402

SAVES = (
    "s03.mid:A_title_that_makes_the_file_longer",
    "s03.mid:x",
    "s03.mid:Song_3",
    "p3.mf3:A_longer_title",
    "p4.mf4:x",
    "p5.mf5:A_longer_title",
    "a0.mp3:A_title_that_makes_the_file_longer",
    "a2.mp3:x",
)
JOBS = ["save:" + save for save in SAVES] + ["sync", "create", "update", "transfer", "backup"]

# Which calls can fail in which way. A flush writes nothing, so it cannot write too little.
CAN_FAIL = {
    "eio": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove", "close",
            "mkdir"},
    "enospc": {"create", "write", "flush", "truncate", "rename", "close", "mkdir"},
    "short": {"write"},
    "dead": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir"},
    "kill": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir"},
    "gone": {"create", "open", "openread", "write", "flush", "truncate", "rename", "remove",
             "close", "mkdir"},
}

SONG = re.compile(r"\.(mid|mf3|mf4|mf5|mp3|cdg)$")
FAILURE = re.compile(r"^(warning|failure) |Impossible|aborting|Aborting|creation failed", re.M)
INDEX = set(check_memory.INDEX_FILES)
FOLDERS = ("library", "mnt/CARD", "backup")


class Wrong(Exception):
    pass


class Driver:
    def __init__(self, program, library, work):
        self.work = work
        environment = dict(os.environ, LD_PRELOAD=library, XDG_CONFIG_HOME=work, TZ="UTC")
        environment.pop("USER", None)
        self.process = subprocess.Popen(
            [program], cwd=work, env=environment, text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def run(self, job, root, at=0, mode="none", gone="-", limit=0):
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


def read_tree(root):
    """Path below the root: bytes and time of change. Folders end in "/"."""
    tree = {}
    for folder, folders, names in os.walk(root):
        below = os.path.relpath(folder, root)
        for name in folders:
            tree[os.path.normpath(os.path.join(below, name)) + "/"] = None
        for name in names:
            path = os.path.normpath(os.path.join(below, name))
            with open(os.path.join(root, path), "rb") as file:
                tree[path] = (file.read(), os.fstat(file.fileno()).st_mtime_ns)
    return tree


def write_tree(tree, root):
    shutil.rmtree(root, ignore_errors=True)
    os.makedirs(root)
    for path in sorted(tree):
        full = os.path.join(root, path)
        if path.endswith("/"):
            os.makedirs(full, exist_ok=True)
            continue
        content, changed = tree[path]
        with open(full, "wb") as file:
            file.write(content)
        os.utime(full, ns=(changed, changed))


def songs_of(tree):
    return {path: item[0] for path, item in tree.items() if item and SONG.search(path)
            and not os.path.basename(path).startswith(".")}


def index_of(tree):
    return {os.path.basename(path): item[0] for path, item in tree.items()
            if os.path.dirname(path) == "mnt/CARD" and os.path.basename(path) in INDEX}


def is_temporary(path):
    name = os.path.basename(path)
    return name.startswith(".") or name.endswith(".tmp")


class Judge:
    """Knows a job's folders before it and after it was done without a fault."""

    def __init__(self, before, after):
        self.before = before
        self.after = after
        self.old = songs_of(before)
        self.new = songs_of(after)

    def judge_songs(self, tree):
        now = songs_of(tree)
        for path, content in now.items():
            # A backup's folder carries the time in its name.
            known = [self.old.get(path), self.new.get(path), self.of_backup(path)]
            if content not in known:
                raise Wrong(f"{path} is neither the old song nor the whole new one")
        contents = set(now.values())
        for path, content in self.old.items():
            if path not in now and content not in contents:
                raise Wrong(f"{path} is missing")

    def of_backup(self, path):
        match = re.match(r"backup/backup_kravo_[-_0-9]+/(.*)$", path)
        return self.old.get("library/" + match[1]) if match else None

    def judge_index(self, tree, root, said):
        index = index_of(tree)
        if set(index) != INDEX:
            return "none"
        if index == index_of(self.before):
            return "old"
        faults = memory_faults(os.path.join(root, "mnt/CARD"), "[PlaylistFiles::" in said,
                               "[Index::renameLongFileName]" in said)
        if faults:
            raise Wrong("the memory has an index that is not whole: " + "; ".join(faults))
        return "new"

    def judge_temporaries(self, tree):
        for path in tree:
            if is_temporary(path) and path not in self.before:
                raise Wrong(f"{path} was left behind")

    def is_done(self, tree, index):
        """The job has reached all that it reaches without a fault."""
        songs = {path: content for path, content in songs_of(tree).items()
                 if not path.startswith("backup/")}
        wanted = {path: content for path, content in self.new.items()
                  if not path.startswith("backup/")}
        backups = sum(1 for path in songs_of(tree) if path.startswith("backup/"))
        wanted_backups = sum(1 for path in self.new if path.startswith("backup/"))
        return (songs == wanted and backups == wanted_backups
                and (index == "new" or not index_of(self.after)
                     or index_of(self.after) == index_of(self.before)))


def memory_faults(card, playlists_failed, renames_failed):
    options = types.SimpleNamespace(
        allow_changed=False, allow_missing=renames_failed, allow_lost_songs=playlists_failed,
        follow_links=False, list=False)
    checker = check_memory.Checker(card, options)
    checker.run()
    return checker.faults


class Run:
    """All faults of one job."""

    def __init__(self, driver, root, job, before):
        self.driver = driver
        self.root = root
        self.job = job
        write_tree(before, root)
        self.before = read_tree(root)
        end, said, self.calls = driver.run(job, root)
        after = read_tree(root)
        self.judge = Judge(self.before, after)
        self.outcomes = {}
        if end != "exit 0" or "result 1" not in said:
            raise Wrong(f"fails without a fault: {end}\n{said}")
        if len(self.calls) < 5 or after == self.before:
            raise Wrong("does nothing that could fail")
        if index_of(after) != index_of(self.before) and \
                self.judge.judge_index(after, root, "") != "new":
            raise Wrong("makes no index without a fault")

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

    def one(self, number, mode):
        write_tree(self.before, self.root)
        gone = os.path.join(self.root, "library" if self.job[:4] in ("save", "sync") else
                            "backup" if self.job == "backup" else "mnt/CARD")
        end, said, calls = self.driver.run(self.job, self.root, number, mode, gone)
        try:
            if end != ("signal 9" if mode == "kill" else "exit 0"):
                raise Wrong(f"the program ended with {end}")
            if mode == "gone":
                if os.path.exists(gone):
                    raise Wrong(f"{gone} is back, but the memory is not")
                os.rename(gone + ".gone", gone)
            self.judge_outcome(mode, said)
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
        tree = read_tree(self.root)
        self.judge.judge_songs(tree)
        index = self.judge.judge_index(tree, self.root, said)
        if not ended_early:
            self.judge.judge_temporaries(tree)
        if any(path.endswith(".kavena-journal") for path in tree):
            raise Wrong("a journal outlives the import")
        done = self.judge.is_done(tree, index)
        self.outcomes[done] = self.outcomes.get(done, 0) + 1
        if mode != "kill" and not done and not FAILURE.search(said):
            raise Wrong("the program does not say that something failed")

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
    return {"all": tree, "library": library,
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


def main():
    parser = argparse.ArgumentParser(description="Lets every step of every job fail.")
    parser.add_argument("--job", default="", help="only jobs that begin like this")
    parser.add_argument("driver")
    parser.add_argument("library")
    options = parser.parse_args()
    in_memory = "/dev/shm"
    folder = in_memory if os.access(in_memory, os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=folder) as work:
        driver = Driver(options.driver, options.library, work)
        root = os.path.join(work, "root")
        try:
            trees = make_trees(driver, root)
            for job in JOBS:
                if not job.startswith(options.job):
                    continue
                start = time.monotonic()
                run = Run(driver, root, job, start_of(job, trees))
                runs = run.all_modes()
                print(f"{job}: {len(run.calls)} calls, {runs} faults, "
                      f"{run.outcomes.get(True, 0)} times done all the same, "
                      f"{time.monotonic() - start:.1f} s", flush=True)
            driver.close()
        except Wrong as wrong:
            print(f"WRONG: {wrong}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
