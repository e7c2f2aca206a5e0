"""The workbench's start where something that it cannot do without is missing."""

import shutil
import subprocess
import tempfile
import unittest

from desktop import PRODUCTS, Desktop, wait_for
from workbench import drive_c


class WithoutItsLibraries(unittest.TestCase):
    def test_the_person_reads_why_before_the_program_ends(self):
        desktop = self.enterContext(Desktop())
        folder = self.enterContext(tempfile.TemporaryDirectory(dir=drive_c()))
        program = shutil.copy(PRODUCTS / "Workbench.exe", folder)
        process = subprocess.Popen(["wine", program], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        box = desktop.one("#32770", "Norvex Workbench")
        said = " ".join(window.text for window in desktop.find("Static", inside=box))
        self.assertIn("Norvex.Application", said)
        self.assertEqual(desktop.find("NorvexWorkbench"), [])
        desktop.key("Return")
        wait_for("the workbench to end", lambda: process.poll() is not None)
        self.assertEqual(process.returncode, 1)
