"""Songs put together byte by byte, and the folders and runs of a test of the command line."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
CHECKER = HERE.parent / "tools" / "check_memory.py"
KAVENA = None  # the program under test; set by main()
NO_DATA = subprocess.DEVNULL

sys.path.append(str(HERE.parent / "fuzz"))
import seeds  # noqa: E402


def meta(kind, data):
    return bytes([0, 0xFF, kind, len(data)]) + data


def midi(*events):
    """A MIDI file of one track with a note behind the events."""
    track = b"".join(events) + bytes.fromhex("00903c40 60803c40 00ff2f00".replace(" ", ""))
    head = b"MThd" + (6).to_bytes(4, "big") + bytes.fromhex("0000 0001 0060".replace(" ", ""))
    return head + b"MTrk" + len(track).to_bytes(4, "big") + track


def song(title="Title", artist=None, signed=False):
    events = [meta(3, title.encode("latin-1"))]
    if signed:
        events.append(meta(2, b"(c) K-RAVO"))
    if artist:
        events.append(meta(0x4B, b"\x02" + artist.encode("latin-1")))
    return midi(*events)


def mp3(title):
    text = b"\0" + title.encode("latin-1")
    frame = b"TIT2" + len(text).to_bytes(4, "big") + b"\0\0" + text
    size = len(frame)
    return b"ID3\x03\0\0" + bytes([0, 0, size >> 7, size & 127]) + frame + b"\xff\xfb\x90\0" * 300


def mf5():
    return seeds.MFX_FILES["mf5"]


class Result:
    def __init__(self, process):
        self.status = process.returncode
        self.out = process.stdout.decode("utf-8")  # fails for a line that is no UTF-8
        self.err = process.stderr.decode("utf-8")

    @property
    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]


class CliTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kavena-cli."))
        self.addCleanup(shutil.rmtree, self.folder)
        self.card = self.folder / "mounts" / "CARD"
        self.card.mkdir(parents=True)
        self.music = self.folder / "music"
        self.music.mkdir()
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "en_GB.UTF-8",
            "KAVENA_MOUNT_DIRS": str(self.folder / "mounts"), "USER": "nobody-at-all",
            "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS", ""),
        }

    def write(self, name, data, folder=None):
        path = (folder or self.music) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        return path

    def run_kavena(self, *arguments, stdin=b"", status=None, **environment):
        process = subprocess.run(
            [KAVENA, *[os.fsencode(argument) for argument in arguments]], input=stdin,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60, check=False,
            cwd=self.music, env={**self.environment, **environment})
        result = Result(process)
        if status is not None:
            self.assertEqual(result.status, status, f"{arguments}: {result.out}{result.err}")
        return result

    def snapshot(self, folder=None):
        return {path: path.read_bytes() for path in (folder or self.folder).rglob("*")
                if path.is_file()}

    def judge_memory(self):
        """What the independent checker finds wrong with the card; empty when it is in order."""
        process = subprocess.run([sys.executable, "-S", CHECKER, self.card], check=False,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return "" if process.returncode == 0 else process.stdout.decode()


def main():
    global KAVENA
    KAVENA = os.path.abspath(sys.argv.pop(1))
    signal.signal(signal.SIGINT, signal.default_int_handler)
    unittest.main(module="__main__")
