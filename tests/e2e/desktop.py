"""The virtual desktop as a person has it: eyes (winprobe, screenshots), a mouse and a keyboard (xdotool)."""

import json
import pathlib
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
PRODUCTS = ROOT / "build" / "win64" / "bin"
PICTURES = ROOT / "build" / "e2e"
LOGS = ROOT / "build" / "logs"

WAIT_SECONDS = 20
DOUBLE_CLICK_SECONDS = 0.6


def wait_for(what, condition, seconds=WAIT_SECONDS):
    """Polls until the condition is true and returns its value; says what was awaited when it never was."""
    end = time.monotonic() + seconds
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s in vain for: {what}")
        time.sleep(0.05)


class Window:
    """One visible window as winprobe saw it; areas are (left, top, width, height) on the screen."""

    def __init__(self, facts):
        self.handle = facts["handle"]
        self.parent = facts["parent"]
        self.owner = facts["owner"]
        self.kind = facts["class"]
        self.text = facts["text"]
        self.area = tuple(facts["area"])
        self.enabled = facts["enabled"]
        self.focused = facts["focus"]

    @property
    def middle(self):
        left, top, width, height = self.area
        return left + width // 2, top + height // 2

    def contains(self, other):
        left, top, width, height = self.area
        inner_left, inner_top, inner_width, inner_height = other.area
        return (left <= inner_left and top <= inner_top and inner_left + inner_width <= left + width
                and inner_top + inner_height <= top + height)

    def __repr__(self):
        return f"{self.kind} {self.text!r} {self.area}{'' if self.enabled else ' disabled'}"


class Desktop:
    """Everything visible on the display, and the hands that act on it."""

    def __init__(self):
        self._probe = None

    def __enter__(self):
        self._probe = subprocess.Popen(["wine", str(PRODUCTS / "winprobe.exe")], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        return self

    def __exit__(self, *_):
        self._probe.stdin.close()
        try:
            self._probe.wait(10)
        except subprocess.TimeoutExpired:
            self._probe.kill()

    def ask(self, question):
        self._probe.stdin.write(question + "\n")
        self._probe.stdin.flush()
        answer = self._probe.stdout.readline()
        if not answer:
            raise AssertionError("winprobe ended")
        return json.loads(answer)

    def windows(self):
        return [Window(facts) for facts in self.ask("tree")]

    def find(self, kind=None, text=None, inside=None, enabled=None):
        """The visible windows of a class and text, below another window when one is given."""
        everything = self.windows()
        parents = {window.handle: window.parent for window in everything}

        def is_inside(handle):
            while handle in parents:
                handle = parents[handle]
                if handle == inside.handle:
                    return True
            return False

        return [window for window in everything
                if (kind is None or window.kind == kind) and (text is None or window.text == text)
                and (inside is None or is_inside(window.handle))
                and (enabled is None or window.enabled == enabled)]

    def one(self, kind=None, text=None, inside=None, seconds=WAIT_SECONDS):
        """Waits for such a window and returns the first."""
        try:
            return wait_for(f"a window {kind or ''} {text!r}", lambda: self.find(kind, text, inside), seconds)[0]
        except AssertionError as error:
            raise AssertionError(f"{error}; there are {self.windows()}") from None

    def gone(self, window):
        wait_for(f"{window} to go", lambda: all(w.handle != window.handle for w in self.windows()))

    def rows(self, window):
        """A report list: {headings: [{text, width, area}], count, rows: [{cells, area, selected, focused}]}."""
        return self.ask(f"list {window.handle}")

    def row_state(self, window):
        """A report list of any length: {count, selected, focused}, the last being a row's index or -1."""
        return self.ask(f"rows {window.handle}")

    def ticks(self, window):
        """A list with check boxes: whether each row is ticked."""
        return self.ask(f"ticks {window.handle}")

    def forget_layouts(self):
        """Windows, columns and filters are as on the first day."""
        self.ask("forget")

    def tabs(self, window):
        return self.ask(f"tabs {window.handle}")

    def entries(self, window):
        return self.ask(f"combo {window.handle}")

    def choices(self, window):
        """A list box: [{text, area}]."""
        return self.ask(f"choices {window.handle}")

    def choose(self, combo, text):
        """Opens a combo box with the mouse and chooses an entry with the keyboard."""
        entry = self.entries(combo).index(text)
        self.click(combo.middle)
        self.key("Home", *["Down"] * entry, "Return")
        wait_for(f"{text!r} in {combo}",
                 lambda: any(w.handle == combo.handle and w.text == text for w in self.windows()))

    # Mouse and keyboard -----------------------------------------------------------------------------------

    @staticmethod
    def _xdotool(*words):
        subprocess.run(["xdotool", *map(str, words)], check=True, timeout=30, stdout=subprocess.DEVNULL)

    def move(self, point):
        # The question makes sure that the server has moved it. "--sync" would wait 15 s for a pointer that stands there.
        self._xdotool("mousemove", *point, "getmouselocation")

    def click(self, point, button=1, times=1):
        self.move(point)
        self._xdotool("click", "--repeat", times, "--delay", 60, button)

    def double_click(self, point):
        self.click(point, times=2)

    def size(self):
        """Width and height of the whole display."""
        shown = subprocess.run(["xdotool", "getdisplaygeometry"], check=True, timeout=30, capture_output=True, text=True)
        return tuple(int(word) for word in shown.stdout.split())

    def drag(self, start, end, steps=12):
        """Presses at one point, moves in steps as a hand does, and releases at the other."""
        path = [(start[0] + (end[0] - start[0]) * step // steps, start[1] + (end[1] - start[1]) * step // steps)
                for step in range(1, steps + 1)]
        self.move(start)
        time.sleep(DOUBLE_CLICK_SECONDS)  # after a click there, it would be a double click
        self._xdotool("mousedown", 1, "sleep", 0.15, *(word for at in path for word in ("mousemove", *at, "sleep", 0.04)),
                      "sleep", 0.15, "mouseup", 1)

    def hold(self, key, act):
        """Does something while a key is held down."""
        self._xdotool("keydown", key)
        try:
            act()
        finally:
            self._xdotool("keyup", key)

    def key(self, *keys):
        self._xdotool("key", "--delay", 40, *keys)

    def type(self, text):
        self._xdotool("type", "--delay", 30, text)

    def focus(self):
        """The window that has the keyboard; None while there is none."""
        return next((window for window in self.windows() if window.focused), None)

    def tab_to(self, window, key="Tab"):
        """Presses Tab until the keyboard is at the window; says where it went when it never gets there."""
        visited = []
        while True:
            here = wait_for("some control to have the keyboard", self.focus)
            if here.handle == window.handle:
                return
            if any(here.handle == before.handle for before in visited):
                raise AssertionError(f"{key} does not lead to {window}; it visits {visited}")
            visited.append(here)
            self.key(key)
            wait_for(f"{key} to leave {here}", lambda: (self.focus() or here).handle != here.handle)

    def row_middle(self, row):
        """A point on a row's text, near its left end so that a wide list needs no scrolling."""
        left, top, width, height = row["area"]
        return left + min(60, width // 2), top + height // 2

    @staticmethod
    def _no_mouse(*_):
        raise AssertionError("the mouse was used")

    def put_the_mouse_away(self):
        """From here on, whoever uses the mouse fails."""
        self.move = self._no_mouse

    def still_picture(self, path, window=None):
        """A picture of what stands still: two in a row are alike but for a caret, which blinks."""
        caret_pixels = 200
        path = pathlib.Path(path)
        before = path.with_suffix(".before.png")

        def is_still():
            self.picture(before, window)
            time.sleep(0.2)
            self.picture(path, window)
            compared = subprocess.run(["compare", "-metric", "AE", str(before), str(path), "null:"],
                                      stderr=subprocess.PIPE, timeout=30, text=True)
            return compared.returncode < 2 and float(compared.stderr.split()[0]) <= caret_pixels

        try:
            wait_for("a picture that stands still", is_still)
        finally:
            before.unlink(missing_ok=True)

    # Pictures ---------------------------------------------------------------------------------------------

    def picture(self, path, window=None):
        """Writes what the display shows, or one window's part of it."""
        path = pathlib.Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        part = []
        if window:
            left, top, width, height = window.area
            part = ["-crop", f"{width}x{height}+{left}+{top}", "+repage"]
        subprocess.run(["import", "-window", "root", *part, str(path)], check=True, timeout=30)
