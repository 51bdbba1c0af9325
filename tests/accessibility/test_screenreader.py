#!/usr/bin/env python3
"""test_screenreader.py ON_DISPLAY PROGRAM: what a screen reader meets in the built program, on a display
and a message bus of its own: the page of the empty list, the state of each song in words, the buttons
that filter by state, the way back from a filter without a match, and what a synchronisation came to.

Ends with 77, which means "skipped", where the service for screen readers or its Python is missing."""
import importlib.util
import os
import pathlib
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
PATIENCE = 60  # seconds
SONGS = {"alpha.mid": b"Alpha", "beta.mid": b"Beta", "known.mid": b"Zulu"}


def missing():
    """Why the test cannot run here; None where it can."""
    if importlib.util.find_spec("pyatspi") is None:
        return "python3-pyatspi is not installed"
    services = ("/usr/share/dbus-1/services/org.a11y.Bus.service",
                "/usr/share/dbus-1/accessibility-services/org.a11y.atspi.Registry.service")
    if not all(os.path.exists(service) for service in services):
        return "at-spi2-core is not installed"
    for tool in ("dbus-run-session", "Xvfb", "openbox"):
        if shutil.which(tool) is None:
            return f"{tool} is not installed"
    return None


def midi(title):
    events = (b"\x00\xff\x03" + bytes([len(title)]) + title + b"\x00\x90\x3c\x40"
              b"\x60\x80\x3c\x40\x00\xff\x2f\x00")
    return (b"MThd" + (6).to_bytes(4, "big") + b"\x00\x00\x00\x01\x00\x60"
            + b"MTrk" + len(events).to_bytes(4, "big") + events)


def prepare(folder):
    """The songs, the list that can be opened again, and a catalogue that knows one of them."""
    for name in ("config", "data", "runtime", "music"):
        (folder / name).mkdir()
    (folder / "runtime").chmod(0o700)
    for name, title in SONGS.items():
        (folder / "music" / name).write_bytes(midi(title))
    kept = folder / "data" / "kavena_pc" / "kravo" / "lastlist.m3u8"
    kept.parent.mkdir(parents=True)
    kept.write_text("#EXTM3U\n" + "".join(f"{folder / 'music' / name}\n" for name in SONGS),
                    encoding="utf-8")
    catalogue = sqlite3.connect(folder / "songsdb_debug")
    catalogue.execute("create table Songs (title, artist, genre, author, length, bpm, key, filename, "
                      "markers, altartist)")
    catalogue.execute("insert into Songs values ('KNOWN', 'DOE', 'JAZZ', 'ROE', 60, 100, 'C', 'KNOWN', '', "
                      "'Doe')")
    catalogue.commit()
    catalogue.close()


class Reader:
    """What a screen reader does with the program of this process number."""

    def __init__(self, process):
        import pyatspi
        self.atspi = pyatspi
        self.process = process
        self.program = self.until("the program is on the bus", self.find_program)

    def until(self, what, look):
        end = time.monotonic() + PATIENCE
        while True:
            try:
                found = look()
            except Exception:  # what is asked may be gone just now, or busy
                found = None
            if found:
                return found
            if self.process.poll() is not None:
                sys.exit(f"FAIL: the program ended while waiting until {what}")
            if time.monotonic() > end:
                self.tell_all()
                sys.exit(f"FAIL: it did not come about that {what}")
            time.sleep(0.2)

    def find_program(self):
        for program in self.atspi.Registry.getDesktop(0):
            if program is not None and program.get_process_id() == self.process.pid:
                return program
        return None

    def is_showing(self, item):
        return item.getState().contains(self.atspi.STATE_SHOWING)

    def items(self, item=None):
        """All that is on the screen, without the cells of tables."""
        item = item or self.program
        yield item
        if item.getRole() in (self.atspi.ROLE_TABLE, self.atspi.ROLE_MENU_BAR):
            return
        for child in item:
            if child is not None and (item.getRole() == self.atspi.ROLE_APPLICATION
                                      or self.is_showing(child)):
                yield from self.items(child)

    def named(self, name):
        """The item on the screen whose name begins like this, once there is one."""
        return self.until(f'there is "{name}"', lambda: next(
            (item for item in self.items() if item.name.startswith(name)), None))

    def press(self, name):
        item = self.named(name)
        try:
            item.queryAction().doAction(0)
        except Exception:  # a press that opens a window is answered only when that is closed
            pass

    def cells(self):
        """The names of the cells of the list in which the signs of the states stand."""
        table = self.until("the list is there", lambda: next(
            (item for item in self.items() if item.getRole() == self.atspi.ROLE_TABLE), None))
        grid = table.queryTable()
        return [grid.getAccessibleAt(row, 1).name for row in range(grid.nRows)]

    def tell_all(self):
        for item in self.items():
            print(item.getRoleName(), repr(item.name), file=sys.stderr)


def check(condition, text):
    if not condition:
        sys.exit(f"FAIL: {text}")


def look(program):
    with subprocess.Popen([program]) as process:
        try:
            listen(Reader(process))
        finally:
            process.send_signal(signal.SIGTERM)


def listen(reader):
    # A first start is in German. The page of the empty list tells the three steps.
    for step in ("Songs auswählen", "Synchronisieren", "Übertragen"):
        reader.named(step)
    reader.named("Ordner auswählen")

    reader.press("Letzte Liste wieder öffnen")
    reader.until("the state of new songs is read out",
                 lambda: reader.cells() == ["MIDI, neu"] * len(SONGS))

    # The numbers in the status bar are buttons that filter.
    new = reader.named("neu: 3")
    check(not new.getState().contains(reader.atspi.STATE_CHECKED), "a filter is on at the start")
    reader.press("bearbeitet: 0")
    reader.named("Kein Song passt zum Filter")
    check(reader.named("bearbeitet: 0").getState().contains(reader.atspi.STATE_CHECKED),
          "the pressed button is not told as pressed")
    reader.press("Filter aufheben")
    reader.until("the list is back", lambda: len(reader.cells()) == len(SONGS))
    check(not reader.named("bearbeitet: 0").getState().contains(reader.atspi.STATE_CHECKED),
          "the filter is still on")

    reader.press("Songs mit der K-Ravo-Datenbank synchronisieren")
    reader.press("Ohne Sicherung fortfahren")
    reader.named("1 von 3 gefunden; 2 nicht im Katalog")
    reader.named("Zu meinem Katalog hinzufügen")
    reader.until("the outcome of each song is read out", lambda: sorted(reader.cells()) == [
        "MIDI, nicht synchronisiert"] * 2 + ["MIDI, synchronisiert"])


def main():
    on_display, program = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
    if os.environ.get("KAVENA_READER") == "yes":
        look(program)
        print("screen reader test passed")
        return
    reason = missing()
    if reason:
        print(f"SKIPPED: {reason}")
        sys.exit(SKIPPED)
    with tempfile.TemporaryDirectory(prefix="kavena-reader.") as name:
        folder = pathlib.Path(name)
        prepare(folder)
        environment = dict(os.environ, HOME=name, XDG_CONFIG_HOME=f"{name}/config",
                           XDG_DATA_HOME=f"{name}/data", XDG_RUNTIME_DIR=f"{name}/runtime",
                           LC_ALL="C.UTF-8", KAVENA_READER="yes",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        # The display's script switches the buses off, so the session's bus is started within it.
        done = subprocess.run([on_display, "env", "-u", "NO_AT_BRIDGE", "dbus-run-session", "--",
                               sys.executable, os.path.abspath(__file__), on_display, program],
                              cwd=folder, env=environment, timeout=300)
        sys.exit(done.returncode)


main()
