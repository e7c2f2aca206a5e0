"""The reference host under test: started on a knowledge base of its own, used like a person would, read afterwards."""

import contextlib
import os
import pathlib
import shutil
import sqlite3
import subprocess
import unittest
import uuid

from desktop import LOGS, PICTURES, PRODUCTS, Desktop, wait_for

START_SECONDS = 60
# What the program and the system below it said: the only trace that an end of the display's connection leaves.
SAID = LOGS / "e2e-workbench.log"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def drive_c():
    return pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"


class Workbench:
    """One run of Workbench.exe over a fresh, seeded knowledge base."""

    def __init__(self, desktop, view="processes", options=(), more_processes=0):
        self.desktop = desktop
        # On the prefix's own drive, so that the path in the title is the same on every machine.
        self.folder = drive_c() / "Norvex"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        self.file = self.folder / "knowledge.db"
        self._view = view
        self._options = list(options)
        self._more_processes = more_processes
        self.process = None
        self.window = None

    def __enter__(self):
        self.desktop.forget_layouts()
        if self._more_processes:
            self._start("none")
            self.kill()
            self._add_processes(self._more_processes)
        self._start(self._view)
        return self

    def _start(self, view):
        ready = self.folder / "ready"
        ready.unlink(missing_ok=True)
        with SAID.open("wb") as said:
            self.process = subprocess.Popen(
                ["wine", str(PRODUCTS / "Workbench.exe"), "--kb", r"C:\Norvex\knowledge.db", "--view", view,
                 "--screenshot-ready", windows_path(ready), *self._options],
                stdin=subprocess.DEVNULL, stdout=said, stderr=said, env={**os.environ, "WINEDEBUG": "fixme-all"})
        try:
            self._wait_for_start(ready)
            self.refresh()
        except AssertionError as error:
            seen = f"{self.how_it_is()}; there are {self.desktop.windows()}"
            self.kill()
            raise AssertionError(f"{error}; {seen}") from None

    def how_it_is(self):
        """Whether the program runs, and the last that was said."""
        state = "runs" if self.process.poll() is None else f"ended with {self.process.returncode}"
        said = " | ".join(SAID.read_text(errors="replace").splitlines()[-20:])
        return f"the workbench {state}; it said: {said}"

    def _wait_for_start(self, ready):
        wait_for("the workbench's first view", lambda: ready.exists() or self.process.poll() is not None,
                 START_SECONDS)
        if self.process.poll() is not None:
            raise AssertionError("the workbench ended before its first view")

    def _add_processes(self, count):
        """Adds processes to the knowledge base while no program has it open."""
        rows = [(uuid.uuid4().bytes_le, f"Process {number:05d}", 70 + number % 2) for number in range(count)]
        with contextlib.closing(sqlite3.connect(self.file)) as connection, connection:
            connection.executemany("INSERT INTO process (id, name, unit) VALUES (?, ?, ?)", rows)

    def __exit__(self, *_):
        self.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def refresh(self):
        """Looks for the main window anew, after it was moved or resized."""
        self.window = self.desktop.one("NorvexWorkbench")
        return self.window

    @property
    def area(self):
        """Where the host shows the component's views."""
        return self.desktop.one("NorvexViewArea", inside=self.refresh())

    def view(self):
        """The component's main form inside the host; None when there is none."""
        area = self.area
        children = [window for window in self.desktop.windows() if window.parent == area.handle]
        return children[0] if children else None

    def lists(self):
        """The visible lists of the view, from top to bottom and left to right."""
        found = self.desktop.find("SysListView32", inside=self.window)
        return sorted(found, key=lambda window: (window.area[1], window.area[0]))

    def process_list(self):
        return wait_for("a list in the view", self.lists)[0]

    def button(self, caption):
        return self.desktop.one("Button", caption, inside=self.window)

    def dialog(self, seconds=20):
        """The enabled top-level window that stands over the disabled workbench."""
        return wait_for("a dialog", self._dialogs, seconds)[0]

    def has_dialog(self):
        return bool(self._dialogs())

    def _dialogs(self):
        return [window for window in self.desktop.windows()
                if window.owner and window.enabled and window.handle != self.window.handle
                and window.kind not in ("tooltips_class32", "#32768", "ComboLBox")]

    def question_after_escape(self):
        """Leaves a dialog in which something was changed; whether that is to be discarded is asked then."""
        self.desktop.key("Escape")
        return self.desktop.one("#32770")

    def query(self, sql, *values):
        """Reads the knowledge base's file, as another program would."""
        connection = sqlite3.connect(f"file:{self.file}?mode=ro", uri=True, timeout=10)
        try:
            return connection.execute(sql, values).fetchall()
        finally:
            connection.close()

    def restart(self):
        """Ends the program through its menu, and starts it again on the same knowledge base."""
        self.desktop.key("alt+f")
        self.desktop.one("#32768")
        self.desktop.key("x")
        self.wait_for_end()
        self._start(self._view)

    def wait_for_end(self):
        """The program's exit code, once it has ended by itself."""
        wait_for("the workbench to end", lambda: self.process.poll() is not None)
        return self.process.returncode


class WorkbenchTest(unittest.TestCase):
    """A test with a running workbench; a failed one leaves a picture of the screen in build/e2e."""

    view = "processes"
    options = ()
    more_processes = 0
    workbench_class = Workbench

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.workbench = self.enterContext(self.workbench_class(self.desktop, self.view, self.options, self.more_processes))
        self.addCleanup(self._picture_of_failure)

    def _picture_of_failure(self):
        outcome = self._outcome.result
        failed = outcome and any(test is self for test, _ in outcome.failures + outcome.errors)
        if failed:
            self.desktop.picture(PICTURES / f"{self.id()}.png")
            print("   ", self.workbench.how_it_is())

    def keep_trying(self, what, condition):
        return wait_for(what, condition)


def temporary_files(name):
    """The files of that name in the temporary folders of the prefix's users."""
    return [path for path in (drive_c() / "users").rglob(name) if path.is_file()]
