"""Writes pictures of the workbench: one file shows the main views and says what they are for, a folder gets a picture
per view and dialog.

    screenshots.py TARGET [LANGUAGE]              the language by its number, as Workbench.exe takes it
    screenshots.py TARGET LANGUAGE --fill         with the workbench as large as the screen; a scene that cannot be
                                                  reached there is left out, and said at the end
"""

import argparse
import contextlib
import pathlib
import subprocess
import sys
import tempfile

from case_dialog import TYPE, VALUES, case_dialog, describe_case, fill_case, fill_case_by_keyboard
from desktop import Desktop, wait_for
from hands import STEP_MENU, Keyboard, Mouse
from workbench import Workbench


class Album:
    """The pictures taken so far, in a folder, in their order, in one language."""

    def __init__(self, desktop, folder, language, fill=False):
        self._desktop = desktop
        self._options = ("--language", language)
        self._fill = fill
        # What a small screen does not show, the keyboard reaches.
        self.hand = Keyboard(desktop, alone=False) if fill else Mouse(desktop)
        self.folder = pathlib.Path(folder)
        self.paths = []

    @contextlib.contextmanager
    def workbench(self):
        with Workbench(self._desktop, "processes", self._options) as workbench:
            if self._fill:
                self._maximize(workbench)
            yield workbench

    def _maximize(self, workbench):
        def is_full():
            _, _, *size = workbench.refresh().area
            return all(part >= whole for part, whole in zip(size, self._desktop.size()))

        if not is_full():
            left, top, _, _ = workbench.window.area
            self._desktop.double_click((max(left, 0) + 200, max(top, 0) + 14))
            wait_for("the window to fill the screen", is_full)

    def describe_case(self, workbench, values=VALUES, kind=TYPE):
        """The case view, with the host's dialog filled in by the keyboard where the screen may be too small for it."""
        if not self._fill:
            describe_case(self._desktop, workbench, values, kind)
            return
        self._desktop.click(workbench.lists()[0].middle)
        self._desktop.key("ctrl+2")
        self.fill_case(values, kind)

    def fill_case(self, values=VALUES, kind=TYPE):
        """Fills the host's dialog, which has opened."""
        if self._fill:
            fill_case_by_keyboard(self._desktop, values, kind)
        else:
            fill_case(self._desktop, case_dialog(self._desktop), values, kind)

    def open_menu(self, grid, row):
        """The context menu of a row."""
        self.hand.select(grid, row)
        self.hand.open_menu(grid)
        self._desktop.one("#32768")

    def add(self, name, window):
        # The pointer must not stand on a control that would look pressed or lit.
        self._desktop.move((2, 2))
        path = self.folder / f"{len(self.paths) + 1:02d}-{name}.png"
        self._desktop.still_picture(path, window)
        self.paths.append(path)
        print(path, file=sys.stderr)


def take_processes_view(desktop, album):
    with album.workbench() as workbench:
        album.add("processes-view", workbench.refresh())


def take_case_view(desktop, album):
    with album.workbench() as workbench:
        album.describe_case(workbench)
        album.add("process-case-view", workbench.refresh())


def take_finding(desktop, album):
    with album.workbench() as workbench:
        desktop.click(desktop.row_middle(desktop.rows(workbench.process_list())["rows"][0]))
        desktop.key("ctrl+shift+1", "ctrl+shift+1", "ctrl+f")
        wait_for("the line", lambda: desktop.find("Edit", inside=workbench.window))
        desktop.type("titanium")
        wait_for("what is found", lambda: desktop.rows(workbench.process_list())["count"] < 20)
        album.add("finding", workbench.refresh())


def take_process_menu(desktop, album):
    with album.workbench() as workbench:
        album.open_menu(workbench.process_list(), 3)
        album.add("process-menu", workbench.refresh())


def take_process_dialog(desktop, album):
    with album.workbench() as workbench:
        album.hand.select(workbench.process_list(), 5)
        desktop.key("Return")
        album.add("process-dialog", workbench.dialog())


def take_delete_question(desktop, album):
    with album.workbench() as workbench:
        album.hand.select(workbench.process_list(), 3)
        desktop.key("Delete")
        workbench.dialog()
        album.add("delete-question", workbench.refresh())


def take_host_dialog(desktop, album):
    with album.workbench() as workbench:
        desktop.click(workbench.lists()[0].middle)
        desktop.key("ctrl+2")
        album.add("case-description", desktop.one("#32770"))


def open_case_menu(desktop, album, workbench):
    """The context menu of the first process of the described case."""
    album.describe_case(workbench)
    listed = wait_for("the lists of the case", lambda: workbench.lists()[1:2])[0]
    wait_for("its processes", lambda: desktop.rows(listed)["rows"])
    album.open_menu(listed, 0)


def take_case_menu(desktop, album):
    with album.workbench() as workbench:
        open_case_menu(desktop, album, workbench)
        album.add("case-menu", workbench.refresh())


def take_members_dialog(desktop, album):
    with album.workbench() as workbench:
        open_case_menu(desktop, album, workbench)
        desktop.key(*["Down"] * 3, "Return")
        album.add("process-members", workbench.dialog())


def take_materials_dialog(desktop, album):
    with album.workbench() as workbench:
        album.hand.select(workbench.process_list(), 3)
        desktop.key("ctrl+m")
        album.add("process-materials", workbench.dialog())


def open_step_menu(desktop, album, workbench):
    """The context menu of the first step of a process of the described case."""
    album.describe_case(workbench)
    steps = wait_for("the lists of the case", lambda: workbench.lists()[2:3])[0]
    wait_for("the steps", lambda: desktop.rows(steps)["rows"])
    album.open_menu(steps, 0)


def take_step_menu(desktop, album):
    with album.workbench() as workbench:
        open_step_menu(desktop, album, workbench)
        album.add("step-menu", workbench.refresh())


def take_field_chooser(desktop, album):
    with album.workbench() as workbench:
        album.open_menu(workbench.process_list(), 3)
        desktop.key("Up", "Return")
        album.add("field-chooser", workbench.dialog())


def take_picker(desktop, album):
    with album.workbench() as workbench:
        desktop.click(workbench.lists()[0].middle)
        # The third menu, its first item: the letters differ from language to language.
        desktop.key("F10", "Right", "Right", "Return")
        desktop.one("#32768")
        desktop.key("Return")
        album.fill_case()
        album.add("process-pick", workbench.dialog())


def take_value_list(desktop, album):
    """The list of a cell of the feature case, opened by the keyboard."""
    with album.workbench() as workbench:
        album.describe_case(workbench)
        grid = wait_for("the lists of the case", lambda: workbench.lists()[0:1])[0]
        wait_for("its values", lambda: desktop.rows(grid)["rows"][2:])
        album.hand.select(grid, 2)
        desktop.key("alt+Down")
        desktop.one("ComboLBox")
        album.add("feature-case-value", workbench.refresh())


def show_bearing_seat(desktop, album, workbench):
    """The case view with the process whose steps have their technology from each of the six sources."""
    album.describe_case(workbench, ("Diameter: 12 - 25 mm", "Tolerance: H6, bored"), "Plain hole (metric)")
    processes, steps = wait_for("the lists of the case", lambda: workbench.lists()[1:3])
    rows = wait_for("its processes", lambda: desktop.rows(processes)["rows"])
    seat = next(at for at, row in enumerate(rows) if any(cell.startswith("Bearing seat") for cell in row["cells"]))
    album.hand.select(processes, seat)
    wait_for("its steps", lambda: desktop.rows(steps)["count"] == 6)
    return steps


def take_steps(desktop, album):
    with album.workbench() as workbench:
        show_bearing_seat(desktop, album, workbench)
        album.add("steps-by-source", workbench.refresh())


def host_window(desktop):
    """The window that the host has opened over the component's."""
    return wait_for("a window of the host", lambda: desktop.find("#32770", enabled=True))[0]


def take_technology(desktop, album):
    with album.workbench() as workbench:
        steps = show_bearing_seat(desktop, album, workbench)
        album.hand.command(steps, STEP_MENU, "New...")
        dialog = workbench.dialog()
        album.add("technology-dialog", dialog)
        desktop.key("Return")
        album.add("technology-editor", host_window(desktop))


def take_expression(desktop, album):
    with album.workbench() as workbench:
        album.hand.select(workbench.process_list(), 5)
        desktop.key("Return")
        dialog = workbench.dialog()
        # The button beside the rule is the only one that is not a command of the whole dialog.
        desktop.tab_to(min(desktop.find("Button", inside=dialog), key=lambda each: each.area[1]))
        desktop.key("space")
        album.add("expression-builder", desktop.one("#32770"))


def take_wizard(desktop, album):
    with album.workbench() as workbench:
        steps = show_bearing_seat(desktop, album, workbench)
        album.hand.select(steps, 1)
        album.hand.command(steps, STEP_MENU, "Edit...")
        wizard = host_window(desktop)
        album.add("step-wizard-tool", wizard)
        desktop.key("Return")
        wait_for("the second page", lambda: any("2 / 3" in window.text for window in desktop.windows()))
        album.add("step-wizard-speeds", wizard)


SCENES = [take_processes_view, take_case_view, take_finding, take_process_menu, take_process_dialog, take_delete_question,
          take_host_dialog, take_case_menu, take_members_dialog, take_picker, take_materials_dialog, take_step_menu,
          take_field_chooser, take_value_list, take_steps, take_technology, take_expression, take_wizard]


# The one picture of everything: what a newcomer has to be told about each view, and the scene that shows it.
INTRODUCTION = [
    (take_steps, "Process Case: describe a feature above, and the processes that machine it are found - exact matches in "
                 "green, partial ones in italics. Below are the steps of the selected process, coloured by where their "
                 "cutting data come from."),
    (take_processes_view, "Processes: everything that the knowledge base knows how to machine, with the rule that says "
                          "when a process applies. A name in red belongs to no feature case."),
]
CAPTION_FONT = "/usr/share/fonts/truetype/open-sans/OpenSans-Regular.ttf"


def introduce(desktop, album, target):
    """Writes the picture of everything: each scene below what there is to say about it."""
    for scene, _ in INTRODUCTION:
        scene(desktop, album)
    parts = []
    for path, (_, words) in zip(album.paths, INTRODUCTION):
        width = subprocess.run(["identify", "-format", "%w", str(path)], check=True, capture_output=True, text=True).stdout
        parts += ["(", "-background", "white", "-fill", "gray20", "-font", CAPTION_FONT, "-pointsize", "17", "-size", width,
                  f"caption:{words}", "-bordercolor", "white", "-border", "0x10", ")", str(path)]
    pathlib.Path(target).parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["convert", *parts, "-append", target], check=True)


def take_all(desktop, album, scenes, leave_out):
    """Takes the scenes; one that fails ends everything, or is left out and returned in a list."""
    missing = []
    for scene in scenes:
        try:
            scene(desktop, album)
        except AssertionError as error:
            if not leave_out:
                raise
            missing.append(f"{scene.__name__}: {error}")
    return missing


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("target")
    arguments.add_argument("language", nargs="?", default="1")
    arguments.add_argument("--fill", action="store_true")
    options = arguments.parse_args()
    target = options.target
    single = not (target.endswith("/") or pathlib.Path(target).is_dir())
    with Desktop() as desktop, tempfile.TemporaryDirectory() as scratch:
        album = Album(desktop, scratch if single else target, options.language, options.fill)
        if single:
            introduce(desktop, album, target)
            return
        for each in take_all(desktop, album, SCENES, options.fill):
            print("left out", each, file=sys.stderr)


if __name__ == "__main__":
    main()
