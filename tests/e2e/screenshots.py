"""Writes pictures of the workbench: one file shows the main views side by side, a folder gets a picture per view."""

import pathlib
import subprocess
import sys
import tempfile

from desktop import Desktop, wait_for
from workbench import Workbench


class Album:
    """The pictures taken so far, in a folder, in their order."""

    def __init__(self, desktop, folder):
        self._desktop = desktop
        self.folder = pathlib.Path(folder)
        self.paths = []

    def add(self, name, window):
        # The pointer must not stand on a control that would look pressed or lit.
        self._desktop.move((2, 2))
        path = self.folder / f"{len(self.paths) + 1:02d}-{name}.png"
        self._desktop.picture(path, window)
        self.paths.append(path)
        print(path, file=sys.stderr)


def take_processes_view(desktop, album):
    with Workbench(desktop, "processes") as workbench:
        album.add("processes-view", workbench.refresh())


def take_case_view(desktop, album):
    with Workbench(desktop, "case") as workbench:
        album.add("process-case-view", workbench.refresh())


SCENES = [take_processes_view, take_case_view]


def main():
    target = sys.argv[1]
    single = not (target.endswith("/") or pathlib.Path(target).is_dir())
    with Desktop() as desktop, tempfile.TemporaryDirectory() as scratch:
        album = Album(desktop, scratch if single else target)
        for scene in SCENES[:2] if single else SCENES:
            scene(desktop, album)
        if single:
            pathlib.Path(target).parent.mkdir(parents=True, exist_ok=True)
            subprocess.run(["convert", *map(str, album.paths), "-append", target], check=True)


if __name__ == "__main__":
    main()
