"""A small disk of this program's own, with as little room as a test wants."""

import os
import subprocess
import sys
import tempfile


class FullDisk:
    """A small disk of which a filler leaves just so many pages free."""

    PAGE = 4096

    def __init__(self, work):
        self.folder = os.path.join(work, "small")
        self.filler = os.path.join(self.folder, "filler")
        os.mkdir(self.folder)
        mount(self.folder, "size=4m")

    def empty(self):
        if os.path.exists(self.filler):
            os.remove(self.filler)

    def leave_free(self, pages):
        self.empty()
        free = os.statvfs(self.folder)
        size = (free.f_bavail - pages) * free.f_frsize
        with open(self.filler, "wb") as file:
            if size > 0:
                os.posix_fallocate(file.fileno(), 0, size)
        return size >= 0


def mount(folder, options):
    subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", folder], check=True)


def enter_own_mounts():
    """Starts this program again where it may mount what nobody else sees; returns if it may not."""
    for flags in ("-m", "-rm"):
        test = ["unshare", flags, "mount", "-t", "tmpfs", "tmpfs", tempfile.gettempdir()]
        try:
            works = subprocess.run(test, stderr=subprocess.DEVNULL, check=False).returncode == 0
        except FileNotFoundError:
            return
        if works:
            os.execvp("unshare", ["unshare", flags, sys.executable, *sys.argv, "--may-mount"])
