"""What a job that failed somewhere left of the songs and the memory, and whether that is allowed."""

import os
import re
import shutil
import types

import check_memory

SONG = re.compile(r"\.(mid|mf3|mf4|mf5|mp3|cdg)$")
INDEX = set(check_memory.INDEX_FILES)


class Wrong(Exception):
    pass


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


def write_tree(tree, root, now=None):
    """Makes the root's content this tree again, where now tells what it is."""
    if now is None:
        shutil.rmtree(root, ignore_errors=True)
        os.makedirs(root)
        now = {}
    for path in sorted(now.keys() - tree.keys(), reverse=True):
        full = os.path.join(root, path)
        os.rmdir(full) if path.endswith("/") else os.remove(full)
    for path in sorted(tree):
        if path in now and now[path] == tree[path]:
            continue
        full = os.path.join(root, path)
        if path.endswith("/"):
            os.makedirs(full)
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

    def __init__(self, before, after, playlists, removes):
        self.before = before
        self.after = after
        self.playlists = playlists
        self.old = songs_of(before)
        self.new = songs_of(after)
        # The songs that the job is to remove.
        self.removed = {path for path in self.old if removes and path not in self.new
                        and self.old[path] not in self.new.values()}

    def judge_songs(self, tree):
        now = songs_of(tree)
        for path, content in now.items():
            # A backup's folder carries the time in its name.
            known = [self.old.get(path), self.new.get(path), self.of_backup(path)]
            if content not in known:
                raise Wrong(f"{path} is neither the old song nor the whole new one")
        contents = set(now.values())
        for path, content in self.old.items():
            if path not in now and content not in contents and path not in self.removed:
                raise Wrong(f"{path} is missing")

    def of_backup(self, path):
        match = re.match(r"backup/backup_kravo_[-_0-9]+/(.*)$", path)
        return self.old.get("library/" + match[1]) if match else None

    def judge_index(self, tree, root, said):
        index = index_of(tree)
        if set(index) != INDEX:
            return "none"
        if index == index_of(self.before):
            gone = [path for path in self.removed & self.listed() if path not in tree]
            if gone:
                raise Wrong(f"the old index lists songs that are gone: {gone}")
            playlist = "mnt/CARD/playlist/play0001.dat"
            if self.playlists and tree[playlist][0] != self.before[playlist][0]:
                raise Wrong("the playlist does not have the old index's ids")
            return "old"
        checker = checked_memory(os.path.join(root, "mnt/CARD"),
                                 "[Index::renameLongFileName]" in said)
        if self.playlists:
            checker.options.allow_changed = True  # the songs' titles, not the songs
            checker.compare_playlists(self.playlists)
        if checker.faults:
            raise Wrong("the memory has an index that is not whole: " + "; ".join(checker.faults))
        return "new"

    def listed(self):
        """The songs that the old index lists."""
        records = index_of(self.before).get("index.idx", b"")
        paths = [records[at + 4:at + 50] for at in range(0, len(records), 64)]
        return {"mnt/CARD" + path.split(b"\0")[0].decode("cp850") for path in paths}

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


def checked_memory(card, renames_failed):
    options = types.SimpleNamespace(
        allow_changed=False, allow_missing=renames_failed, allow_lost_songs=False,
        follow_links=False, list=False)
    checker = check_memory.Checker(card, options)
    checker.run()
    return checker
