#!/usr/bin/env python3
"""Takes a USB stick away from a guest in the middle of the program's work, and judges what is left.

Started by run.sh. For each job the guest (init, driver.cpp) first does it undisturbed: this gives
the new songs and the times of the program's claims. Then it does it again on a fresh stick for each
pull. The stick goes at a random moment between the beginning and a little after the end, after so
many seconds or after so many writes, by a device_del of the emulator, of which the guest learns
only when its next access fails: what it has not written by then is lost. Two control pulls prove
that, before anything else.

After each pull fsck.vfat repairs the image, the driver reads all songs so that the program can put
back what was cut off, and then

- every song is there, byte for byte the old one or the new one; a new one may be missing unless it
  was claimed;
- every song that was claimed as copied or saved is the new one, and so are all songs and the index
  when that was claimed;
- the index is the old one, a whole new one (check_memory.py is the judge), or none; where songs
  are removed, it lists no song that is gone;
- the next update makes a whole one.

A twin is what fsck.vfat makes of a rename that was cut off: the song is whole under one of its two
names, and an empty file has the other. FAT has no order of writes without that moment, or a worse
one, so it is counted, but no loss.
"""

import argparse
import collections
import glob
import json
import os
import random
import re
import shutil
import socket
import subprocess
import sys
import threading
import time
import types

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tools"))
sys.dont_write_bytecode = True
import check_memory  # noqa: E402

# As desktops mount a stick, and as a user does by hand. "flush" writes soon after a file is closed.
MOUNT_OPTIONS = ("utf8=1,shortname=mixed,flush", "utf8=1,shortname=mixed")
STICK_SIZE = 300 << 20
SECTORS_PER_CLUSTER = 8
# A cheap stick. The slower it is, the more pulls come while something is being written.
WRITES_PER_SECOND = 300
BYTES_PER_SECOND = 5 << 20
LONGEST_JOB = 300  # seconds
SONG = re.compile(r"\.(mid|mf3|mf4|mf5|mp3|cdg)$")
INDEX = set(check_memory.INDEX_FILES)
REMOVING = ("remove", "inline")


class Wrong(Exception):
    pass


class Guest:
    """The virtual machine; its stick can be plugged in and pulled."""

    def __init__(self, work):
        self.work = work
        self.lines = []  # (time, text) of what the guest has said since the last job
        self.news = threading.Condition()
        self.sockets = [os.path.join(work, name) for name in ("qmp", "serial")]
        for path in self.sockets:
            if os.path.exists(path):
                os.remove(path)
        kernel = glob.glob(os.path.join(work, "kernel/boot/vmlinuz-*"))[0]
        # No kvm: where it is there, but does not work, the guest would stand still.
        self.process = subprocess.Popen(
            ["qemu-system-x86_64", "-accel", "tcg", "-m", "1024", "-display", "none",
             "-nic", "none", "-no-reboot", "-kernel", kernel,
             "-initrd", os.path.join(work, "guest.cpio"),
             "-append", "console=ttyS0 panic=-1 rdinit=/init", "-device", "qemu-xhci",
             "-serial", "file:" + os.path.join(work, "console.log"),
             "-serial", f"unix:{self.sockets[1]},server=on,wait=off",
             "-qmp", f"unix:{self.sockets[0]},server=on,wait=off"], stdin=subprocess.DEVNULL)

    def begin(self):
        """Returns when the guest is ready for its first job."""
        self.qmp, self.serial = (connect(path).makefile("rw") for path in self.sockets)
        self.qmp.readline()
        self.command("qmp_capabilities")
        self.command("object-add", **{"qom-type": "throttle-group"}, id="cheap", limits={
            "iops-write": WRITES_PER_SECOND, "bps-write": BYTES_PER_SECOND})
        threading.Thread(target=self.listen, daemon=True).start()
        self.wait_for("READY")

    def listen(self):
        for line in self.serial:
            with self.news:
                self.lines.append((time.monotonic(), line.strip()))
                self.news.notify_all()

    def command(self, name, **arguments):
        self.qmp.write(json.dumps({"execute": name, "arguments": arguments}) + "\n")
        self.qmp.flush()
        while True:
            answer = json.loads(self.qmp.readline())
            if "error" in answer:
                raise Wrong(f"{name}: {answer['error']}")
            if "return" in answer:
                return answer["return"]

    def say(self, line):
        self.serial.write(line + "\n")
        self.serial.flush()

    def wait_for(self, beginning, count=1, seconds=LONGEST_JOB):
        """Waits until so many lines begin like this; returns when the last of them came."""
        def found():
            return [when for when, line in self.lines if line.startswith(beginning)][count - 1:]
        with self.news:
            if not self.news.wait_for(found, seconds):
                raise Wrong(f"no {beginning} within {seconds} s: {self.lines[-5:]}")
            return found()[0]

    def start(self, job, options, image):
        self.lines = []
        # The emulator's own flushes are of no use: what it has written is in the file for us.
        file = {"driver": "raw", "file": {"driver": "file", "filename": image}}
        self.command("blockdev-add", driver="throttle", file=file, cache={"no-flush": True},
                     **{"node-name": "image", "throttle-group": "cheap"})
        self.command("device_add", driver="usb-storage", id="stick", drive="image")
        self.say(f"{job} {options}")
        return self.wait_for("MOUNTED")

    def writes(self):
        """How often the stick was written since it was plugged in."""
        return sum(device["stats"]["wr_operations"] for device in self.command("query-blockstats")
                   if "stick" in device.get("qdev", ""))

    def pull(self):
        self.command("device_del", id="stick")
        for _ in range(100):
            try:
                self.command("blockdev-del", **{"node-name": "image"})
                return
            except Wrong:
                time.sleep(0.02)  # the last write is still under way
        raise Wrong("the stick cannot be pulled")

    def release(self):
        self.say("release")
        self.wait_for("RELEASED")

    def said(self):
        with self.news:
            return [line for _, line in self.lines]

    def close(self):
        self.process.kill()
        self.process.wait()


def connect(path):
    for _ in range(200):
        try:
            connection = socket.socket(socket.AF_UNIX)
            connection.connect(path)
            return connection
        except OSError:
            connection.close()
            time.sleep(0.05)
    raise Wrong("the emulator does not start")


def run(*command, good=(0,)):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", check=False)
    if done.returncode not in good:
        raise Wrong(f"{' '.join(command)} ended with {done.returncode}: {done.stdout[-2000:]}")
    return done.stdout


def make_image(folder, image):
    if os.path.exists(image):
        os.remove(image)
    with open(image, "wb") as file:
        file.truncate(STICK_SIZE)
    run("mkfs.vfat", "-F", "32", "-s", str(SECTORS_PER_CLUSTER), "-n", "CARD", image)
    content = [os.path.join(folder, name) for name in os.listdir(folder)]
    if content:
        run("mcopy", "-s", "-m", "-Q", "-i", image, *content, "::/")


def read_image(image, folder):
    """Copies the stick's files into the folder and returns them: path and bytes."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    run("mcopy", "-s", "-m", "-n", "-Q", "-i", image, "::/", folder)
    return read_tree(folder)


def read_tree(root):
    tree = {}
    for folder, _, names in os.walk(root):
        for name in names:
            path = os.path.join(folder, name)
            with open(path, "rb") as file:
                tree[os.path.relpath(path, root)] = file.read()
    return tree


def songs_of(tree):
    return {path: content for path, content in tree.items()
            if SONG.search(path) and not os.path.basename(path).startswith(".")}


def index_of(tree):
    return {path: content for path, content in tree.items() if path in INDEX}


class Verdict(collections.Counter):
    """How many songs are what after a pull, and what must not be."""

    LOSSES = ("empty", "cut", "damaged", "missing", "untrue", "index", "unusable")

    def __init__(self):
        super().__init__()
        self.faults = []

    def lose(self, kind, text):
        self[kind] += 1
        self.faults.append(f"{kind}: {text}")

    def losses(self):
        return sum(self[kind] for kind in self.LOSSES)


class Job:
    """One of the jobs, on a stick of its own for each pull."""

    def __init__(self, name, guest, options):
        self.name = name
        self.guest = guest
        self.options = options
        self.work = options.work
        self.fresh = os.path.join(self.work, name + ".img")
        self.image = os.path.join(self.work, "stick.img")
        self.folder = os.path.join(self.work, "stick")
        make_image(os.path.join(self.work, "songs", name), self.fresh)
        before = read_image(self.fresh, self.folder)
        self.old, self.old_index = songs_of(before), index_of(before)
        self.rehearsals = [self.rehearse(mount) for mount in MOUNT_OPTIONS]

    def take_fresh(self):
        run("cp", "--sparse=always", self.fresh, self.image)

    def rehearse(self, mount):
        """The job without a pull; returns when its steps and its end came after its beginning, and
        how many writes it takes."""
        self.take_fresh()
        began = self.guest.start(self.name, mount, self.image)
        ended = self.guest.wait_for("DONE 0") - began
        lines = list(self.guest.lines)
        self.guest.release()
        writes = self.guest.writes()
        self.guest.pull()
        after = read_image(self.image, self.folder)
        self.new = songs_of(after)
        faults = self.memory_faults() if self.name != "sync" else []
        if not self.is_done() or faults or set(index_of(after)) != INDEX:
            raise Wrong(f"{self.name} does not do its work: {faults}")
        verdict = self.judge(after, [line for _, line in lines])
        if verdict.losses() or verdict["claimed"] != len(self.new.keys() | self.gone()):
            raise Wrong(f"{self.name} goes wrong without a pull: {verdict} {verdict.faults}")
        return [when - began for when, line in lines if line.startswith("STEP")] + [ended], writes

    def is_done(self):
        """Whether the new songs are those that the job has to make."""
        if self.name == "remove":
            return bool(self.gone()) and all(self.old[path] == content
                                             for path, content in self.new.items())
        if self.name in ("empty", "over", "inline"):
            library = read_tree(os.path.join(self.work, "songs", "library"))
            return self.new == {"songs/" + name: content for name, content in library.items()}
        if self.name == "sync":
            return all((self.new.get(path) == content) == path.endswith(".cdg")
                       for path, content in self.old.items())
        return self.new != self.old and sorted(self.new.values()) == sorted(self.old.values())

    def gone(self):
        """The songs that the job has to remove."""
        return self.old.keys() - self.new.keys() if self.name in REMOVING else set()

    def wait_seconds(self, times, moment):
        """Counts from the last step before the moment: the guest is not always equally fast."""
        steps = sum(1 for when in times[:-1] if when <= moment)
        if steps:
            self.guest.wait_for("STEP", steps)
        time.sleep(moment - times[steps - 1] if steps else moment)

    def wait_writes(self, writes):
        while self.guest.writes() < writes and not any(
                line.startswith("DONE") for line in self.guest.said()):
            time.sleep(0.001)

    def pull_once(self, number, chance):
        mount = number % len(MOUNT_OPTIONS)
        by_writes = number // len(MOUNT_OPTIONS) % 2
        times, writes = self.rehearsals[mount]
        end = writes if by_writes else times[-1]
        moment = chance.uniform(0, end * 1.1)
        self.take_fresh()
        self.guest.start(self.name, MOUNT_OPTIONS[mount], self.image)
        if by_writes:
            self.wait_writes(moment)
        else:
            self.wait_seconds(times, moment)
        self.guest.pull()
        self.guest.wait_for("DONE")
        said = self.guest.said()
        self.guest.release()

        if self.options.keep:
            run("cp", "--sparse=always", self.image, self.image + ".raw")
        fsck = run("fsck.vfat", "-a", "-w", self.image, good=(0, 1))
        run("fsck.vfat", "-n", self.image)
        read_image(self.image, self.folder)
        index_faults = self.index_faults(read_tree(self.folder))
        recovery = run(self.options.driver, "recover", self.folder, good=(0, 1))
        verdict = self.judge(read_tree(self.folder), said)
        if index_faults:
            verdict.lose("index", "; ".join(index_faults[:5]))
        repair = run(self.options.driver, "update", "-", self.folder, good=(0, 1))
        faults = self.memory_faults()
        if songs_of(read_tree(self.folder)) and (faults or "CLAIM index-written" not in repair):
            verdict.lose("unusable", f"{faults[:5]} {repair}")
        if verdict.losses():
            pulled = f"after {moment:.2f} of {end:.2f} {'writes' if by_writes else 'seconds'}"
            self.keep_findings(number, [
                f"{MOUNT_OPTIONS[mount]}, pulled {pulled}", *verdict.faults, "",
                "The program said:", *said, "", "fsck:", fsck, "The recovery:", recovery])
        return verdict

    def judge(self, tree, said):
        """The songs, and what was claimed of them."""
        verdict = Verdict()
        now = songs_of(tree)
        claimed = self.claimed(said)
        if "CLAIM index-written" in said or "CLAIM all-copied" in said:
            if set(index_of(tree)) != INDEX or index_of(tree) == self.old_index:
                verdict.lose("untrue", "the index was claimed, but is not there")
        for path in sorted(self.old.keys() | self.new.keys() | now.keys()):
            content = now.get(path)
            old, new = self.old.get(path), self.new.get(path)
            verdict["claimed"] += path in claimed
            verdict["early"] += content != new and f"STEP {os.path.basename(path)}" in said
            if path in claimed and content != new:
                verdict.lose("untrue", f"{path} was claimed, but is not the new one")
            if content is not None and content in (old, new):
                verdict["new" if content == new else "old"] += 1
            elif content is None and path in self.gone():
                verdict["new"] += 1
            elif content is None:
                # A song that was renamed is there, or judged, under its other name.
                if old is not None and old not in now.values() and not self.is_renamed(old, now):
                    verdict.lose("missing", path)
            elif not content and {old, new} & set(now.values()):
                verdict["twins"] += 1
            elif not content:
                verdict.lose("empty", path)
            elif any(song and song.startswith(content) for song in (old, new)):
                verdict.lose("cut", f"{path}: {len(content)} bytes")
            else:
                verdict.lose("damaged", f"{path}: {len(content)} bytes")
        return verdict

    def is_renamed(self, content, now):
        return any(path in now and path not in self.old
                   for path, new in self.new.items() if new == content)

    def claimed(self, said):
        paths = set()
        for line in said:
            if line in ("CLAIM all-copied", "CLAIM index-written"):
                paths |= self.new.keys()
            elif re.match("CLAIM (copied|saved|removed) ", line):
                song = "songs/" + line.split(" ", 2)[2]
                known = self.gone() if line.startswith("CLAIM removed") else self.new.keys()
                paths |= {song, song.replace(".mp3", ".cdg")} & known
        return paths

    def index_faults(self, tree):
        index = index_of(tree)
        if set(index) != INDEX:
            return []
        if index != self.old_index:
            return self.memory_faults()
        # The old index may not know what was copied, but never lists a song that was removed.
        return self.memory_faults(True) if self.name in REMOVING else []

    def memory_faults(self, is_old=False):
        """A playlist may name a song that the user has removed."""
        return memory_faults(self.folder, self.name in REMOVING, is_old)

    def keep_findings(self, number, lines):
        folder = os.path.join(self.work, "findings", f"{self.name}-{number:02}")
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)
        shutil.copytree(self.folder, os.path.join(folder, "stick"))
        if self.options.keep:
            os.rename(self.image + ".raw", os.path.join(folder, "stick.img"))
        with open(os.path.join(folder, "report"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")


def memory_faults(folder, may_lose_songs, is_old=False):
    if not INDEX <= set(os.listdir(folder)):
        return ["no whole index"]
    checker = check_memory.Checker(folder, types.SimpleNamespace(
        allow_changed=is_old, allow_missing=is_old, allow_lost_songs=may_lose_songs, follow_links=False,
        list=False))
    checker.run()
    return checker.faults


def control(guest, work):
    """A pull must lose what is not flushed, and nothing else; or all figures are worth nothing."""
    image = os.path.join(work, "stick.img")
    for job, there in (("unflushed", False), ("flushed", True)):
        os.makedirs(os.path.join(work, "songs", "empty"), exist_ok=True)
        make_image(os.path.join(work, "songs", "empty"), image)
        guest.start(job, MOUNT_OPTIONS[1], image)
        guest.wait_for("DONE 0")
        guest.pull()
        guest.release()
        run("fsck.vfat", "-a", "-w", image, good=(0, 1))
        content = read_image(image, os.path.join(work, "stick")).get("control", b"")
        if (content == b"u" * 3000000) != there:
            raise Wrong(f"a pull keeps {len(content)} bytes of a file that is {job}")


COLUMNS = ("old", "new", "twins", "early", "claimed", *Verdict.LOSSES)


def test(options):
    print(f"{'job':8}{'pulls':>6}" + "".join(f"{column:>9}" for column in COLUMNS), flush=True)
    losses = 0
    guest = Guest(options.work)
    try:
        guest.begin()
        control(guest, options.work)
        for name in options.jobs.split():
            job = Job(name, guest, options)
            chance = random.Random(f"{name} {options.seed}")
            total = collections.Counter()
            start = time.monotonic()
            for number in range(options.pulls):
                verdict = job.pull_once(number, chance)
                total.update(verdict)
                losses += verdict.losses()
            print(f"{name:8}{options.pulls:6}" + "".join(f"{total[column]:9}" for column in COLUMNS)
                  + f"   {time.monotonic() - start:.0f} s", flush=True)
    finally:
        guest.close()
    return losses


def main():
    parser = argparse.ArgumentParser(description="Pulls a stick while the program works on it.")
    parser.add_argument("--pulls", type=int, default=30)
    parser.add_argument("--seed", default="1")
    parser.add_argument("--jobs", default="empty over sync update remove inline")
    parser.add_argument("--keep", action="store_true", help="keep images of what was lost, too")
    parser.add_argument("--driver", required=True)
    parser.add_argument("--work", required=True)
    options = parser.parse_args()
    os.environ["TZ"] = "UTC"
    time.tzset()
    shutil.rmtree(os.path.join(options.work, "findings"), ignore_errors=True)
    try:
        losses = test(options)
    except Wrong as wrong:
        print(f"WRONG: {wrong}")
        return 2
    print(f"{losses} losses" + (f", see {options.work}/findings" if losses else ""))
    return 1 if losses else 0


if __name__ == "__main__":
    sys.exit(main())
