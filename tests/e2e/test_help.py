"""Help: what F1 opens, in the host's language, and what the help file holds."""

import pathlib
import re
import struct
import subprocess
import tempfile

from desktop import PRODUCTS, wait_for
from workbench import WorkbenchTest, drive_c

PAGE_CLASS = "PellmarkTestPage"
ASKED = r"C:\asked-pages.txt"


def registry(*words):
    subprocess.run(["wine", "reg", *words, "/f"], check=True, capture_output=True, timeout=60)


class Browser:
    """The program that the system opens pages with: it writes down what it is asked for."""

    def __init__(self):
        self.file = drive_c() / "asked-pages.txt"

    def __enter__(self):
        self.file.unlink(missing_ok=True)
        registry("add", r"HKLM\Software\Classes\.html", "/ve", "/d", PAGE_CLASS)
        registry("add", rf"HKLM\Software\Classes\{PAGE_CLASS}\shell\open\command", "/ve", "/d",
                 rf'cmd.exe /c echo "%1">> {ASKED}')
        return self

    def __exit__(self, *_):
        registry("add", r"HKLM\Software\Classes\.html", "/ve", "/d", "htmlfile")
        registry("delete", rf"HKLM\Software\Classes\{PAGE_CLASS}")
        self.file.unlink(missing_ok=True)

    def pages(self):
        if not self.file.exists():
            return []
        text = self.file.read_text(encoding="utf-8", errors="replace")
        return [line.strip().strip('"') for line in text.splitlines() if line.strip()]


def unix_path(windows):
    """The file behind a path of the drive that shows the whole file system."""
    assert windows.upper().startswith("Z:"), windows
    return pathlib.Path(windows[2:].replace("\\", "/"))


class HelpInTheMainView(WorkbenchTest):
    def setUp(self):
        self.browser = self.enterContext(Browser())
        super().setUp()

    def help_key(self):
        """F1 where the keyboard is now, and the answer to what is told the first time."""
        self.desktop.key("F1")
        self.desktop.click(self.desktop.one("Button", "OK", inside=self.workbench.dialog()).middle)
        return wait_for("a page in the browser", self.browser.pages)[-1]

    def test_the_help_key_opens_the_start_page_and_says_once_why_in_the_browser(self):
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][1]))
        page = unix_path(self.help_key())
        self.assertEqual(page, PRODUCTS / "Help" / "1033" / "qdl" / "index.html")
        self.assertIn("<h1>Process Manager</h1>", page.read_text(encoding="utf-8"))
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][2]))
        self.desktop.key("F1")
        wait_for("the page a second time", lambda: len(self.browser.pages()) == 2)
        self.assertFalse(self.workbench.has_dialog())

    def test_the_help_key_works_in_a_dialog(self):
        row = self.desktop.rows(self.workbench.process_list())["rows"][1]
        self.desktop.double_click(self.desktop.row_middle(row))
        dialog = self.workbench.dialog()
        self.desktop.key("F1")
        told = wait_for("the reason", lambda: [window for window in self.workbench._dialogs()
                                               if window.handle != dialog.handle])[0]
        self.desktop.click(self.desktop.one("Button", "OK", inside=told).middle)
        page = wait_for("a page in the browser", self.browser.pages)[-1]
        self.assertEqual(unix_path(page).name, "index.html")


class HelpInGerman(HelpInTheMainView):
    options = ("--language", "2")

    def test_the_help_key_opens_the_start_page_and_says_once_why_in_the_browser(self):
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][1]))
        page = unix_path(self.help_key())
        self.assertEqual(page, PRODUCTS / "Help" / "1031" / "qdl" / "index.html")
        self.assertIn("<h1>Prozessmanager</h1>", page.read_text(encoding="utf-8"))

    test_the_help_key_works_in_a_dialog = None


class HelpFileInALanguageWithoutOne(HelpInTheMainView):
    options = ("--language", "3")

    def test_the_help_key_opens_the_start_page_and_says_once_why_in_the_browser(self):
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][1]))
        self.assertEqual(unix_path(self.help_key()).parent.parent.name, "1033")

    test_the_help_key_works_in_a_dialog = None


class HelpFile(WorkbenchTest):
    """The compiled file, taken apart again by a program of its own."""

    def setUp(self):
        pass  # no workbench

    def contexts_of(self, file):
        """The pages that the context numbers of a help file lead to in the end, and all its pages."""
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["chmls", "extractall", str(file), folder], check=True, capture_output=True, timeout=60)
            names = (pathlib.Path(folder) / "#STRINGS").read_bytes()
            table = (pathlib.Path(folder) / "#IVB").read_bytes()
            pages = {path.name for path in pathlib.Path(folder).glob("*.html")}
            entries = struct.iter_unpack("<II", table[4:4 + struct.unpack("<I", table[:4])[0]])
            targets = {number: names[at:names.index(b"\0", at)].decode() for number, at in entries}
            return {number: self._followed(pathlib.Path(folder), target) for number, target in targets.items()}, pages

    @staticmethod
    def _followed(folder, page):
        """The page that a page of the extracted file leads on to, its own path when it does not."""
        path = folder / page.lstrip("/")
        onward = re.search(r'http-equiv="refresh" content="0; url=([^"]*)"', path.read_text(encoding="utf-8"))
        end = (path.parent / onward.group(1)).resolve() if onward else path
        assert end.is_file(), end
        return str(end.relative_to(folder.resolve()))

    def test_context_5000_leads_to_the_start_page_in_each_language(self):
        for locale in ("1033", "1031"):
            folder = PRODUCTS / "Help" / locale
            contexts, pages = self.contexts_of(folder / "qdl.chm")
            self.assertEqual(contexts, {5000: "index.html"})
            self.assertEqual(pages, {path.name for path in (folder / "qdl").glob("*.html")})
