"""What leaves the process list: saved tables and printed pages, read back by programs that are not ours."""

import contextlib
import csv
import html
import pathlib
import re
import sqlite3
import subprocess
import uuid

from desktop import wait_for
from hands import Keyboard
from workbench import WorkbenchTest

# As the context menu of the Processes view shows them, "-" for a line.
PROCESS_MENU = ("Edit...", "-", "Delete", "-", "Save...", "Print...", "Format Columns...")
ALL = "SELECT id, name, unit, rule, description FROM process ORDER BY name COLLATE NOCASE, id"
UNITS = {70: "Inch", 71: "Metric"}


class TheProcessList(WorkbenchTest):
    def setUp(self):
        super().setUp()
        self.hands = Keyboard(self.desktop)

    def command(self, caption):
        self.hands.select(self.workbench.process_list(), 0)
        self.hands.command(self.workbench.process_list(), PROCESS_MENU, caption)

    def stored(self):
        """Every process as the list shows it."""
        return [[uuid.UUID(bytes_le=row[0]), row[1], UNITS[row[2]], row[3] or "", row[4] or ""]
                for row in self.workbench.query(ALL)]

    def ask_to_save(self, name):
        self.command("Save...")
        dialog = self.workbench.dialog()
        self.assertEqual(dialog.text, "Save As")
        self.desktop.type("C:\\Norvex\\" + name)
        self.desktop.key("Return")
        return dialog

    @staticmethod
    def read(file, separator, encoding):
        with file.open(newline="", encoding=encoding) as text:
            table = list(csv.reader(text, delimiter=separator))
        return table[0], [[uuid.UUID(row[0]), *row[1:]] for row in table[1:]]


class SavingTheProcessList(TheProcessList):
    def test_the_table_is_what_another_programs_reader_finds(self):
        for name, separator in (("list.csv", ","), ("list.txt", "\t"), ("list.CSV", "\t")):
            self.desktop.gone(self.ask_to_save(name))
            file = self.workbench.folder / name
            wait_for("the table", file.exists)
            headings, rows = self.read(file, separator, "cp1252")
            self.assertEqual(headings, ["Id", "Name", "Unit", "Rule", "Description"])
            self.assertEqual(rows, self.stored())
            file.unlink()

    def test_the_person_is_asked_before_a_file_is_replaced(self):
        file = self.workbench.folder / "list.csv"
        file.write_text("old")
        dialog = self.ask_to_save("list.csv")
        question = wait_for("a question", lambda: [window for window in self.workbench._dialogs()
                                                   if window.handle != dialog.handle])[0]
        self.hands.press(question, "No")
        self.desktop.gone(question)
        self.desktop.key("Escape")
        self.desktop.gone(dialog)
        self.assertEqual(file.read_text(), "old")
        dialog = self.ask_to_save("list.csv")
        question = wait_for("a question", lambda: [window for window in self.workbench._dialogs()
                                                   if window.handle != dialog.handle])[0]
        self.hands.press(question, "Yes")
        wait_for("the new table", lambda: file.read_text("cp1252").startswith("Id,Name"))

    def test_a_file_that_another_program_has_open_stays_and_the_person_is_told(self):
        file = self.workbench.folder / "held.csv"
        holder = subprocess.Popen(["wine", "cmd", "/c", r"pause > C:\Norvex\held.csv"], stdin=subprocess.PIPE,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_for("the other program to have the file", lambda: file.exists() and file.stat().st_size > 0)
            before = file.read_bytes()
            dialog = self.ask_to_save("held.csv")
            question = wait_for("a question", lambda: [window for window in self.workbench._dialogs()
                                                       if window.handle != dialog.handle])[0]
            self.hands.press(question, "Yes")
            self.desktop.gone(dialog)
            box = self.workbench.dialog()
            self.assertTrue(any("held.csv" in window.text for window in self.desktop.find("Static", inside=box)))
            self.desktop.key("Return")
            self.desktop.gone(box)
            self.assertEqual(file.read_bytes(), before)
            self.assertEqual([each.name for each in self.workbench.folder.glob("held*")], ["held.csv"])
        finally:
            holder.stdin.close()
            holder.wait(20)


def add_awkward_processes(file, count):
    """Processes whose texts hold everything that a table could trip over."""
    awkward = ["plain", "a,b;c", "say \"x\"", "two\r\nlines", "one\nline", "\ttab", "", "'", "=1+1", "007",
               "Ø 8 H7", "🔩 工程", "\"", ",", "<b>&amp;</b>", " blanks "]
    rows = [(uuid.uuid4().bytes_le, f"Process {number:06d} {awkward[number % 16]}", 70 + number % 2,
             awkward[(number + 5) % 16], awkward[(number + 11) % 16]) for number in range(count)]
    with contextlib.closing(sqlite3.connect(file)) as connection, connection:
        connection.executemany(
            "INSERT INTO process (id, name, unit, rule, description) VALUES (?, ?, ?, ?, ?)", rows)


class SavingALargeProcessList(TheProcessList):
    def setUp(self):
        super().setUp()
        add_awkward_processes(self.workbench.file, 100_000)
        self.desktop.key("ctrl+1")
        wait_for("the longer list",
                 lambda: self.desktop.row_state(self.workbench.process_list())["count"] > 100_000, 60)

    def test_a_hundred_thousand_rows_come_back_equal_whatever_they_hold(self):
        dialog = self.ask_to_save("large.csv")
        self.desktop.gone(dialog)
        # The characters that the code page lacks: a person agrees to Unicode.
        question = wait_for("the question", lambda: [window for window in self.workbench._dialogs()
                                                     if self.desktop.find("Button", "OK", inside=window)], 120)[0]
        self.desktop.key("Return")
        self.desktop.gone(question)
        file = self.workbench.folder / "large.csv"
        wait_for("the table", file.exists, 120)
        headings, rows = self.read(file, ",", "utf-8-sig")
        self.assertEqual(headings, ["Id", "Name", "Unit", "Rule", "Description"])
        stored = self.stored()
        self.assertGreater(len(stored), 100_000)
        self.assertTrue(rows == stored, "the table differs from the list")


class Word:
    def __init__(self, left, top, text):
        self.left, self.top, self.text = float(left), float(top), html.unescape(text)


def pages_of(pdf):
    """The words of each page, from the top, as another program reads them."""
    text = subprocess.run(["pdftotext", "-bbox", str(pdf), "-"], check=True, capture_output=True, timeout=120,
                          text=True).stdout
    word = re.compile(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="[\d.]+" yMax="[\d.]+">(.*?)</word>')
    return [sorted((Word(*found) for found in word.findall(page)), key=lambda each: (round(each.top), each.left))
            for page in text.split("<page ")[1:]]


class PrintingTest(TheProcessList):
    # As the print server names a document after its title.
    documents = "*Processes*.pdf"

    def printed(self, pages=None):
        """Prints the list as the dialog proposes it, or these pages of it; the document that comes out."""
        folder = pathlib.Path.home() / "PDF"
        before = set(folder.glob(self.documents))
        self.command("Print...")
        dialog = self.workbench.dialog()
        # The boxes for the first and the last page stand above the one for the copies.
        boxes = sorted(self.desktop.find("Edit", inside=dialog), key=lambda each: (each.area[0], each.area[1]))
        for box, number in zip(boxes, pages or ()):
            self.desktop.tab_to(box)
            self.desktop.key("Home", "shift+End")
            self.desktop.type(str(number))
        self.desktop.key("Return")
        self.desktop.gone(dialog)

        def document():
            fresh = [pdf for pdf in set(folder.glob(self.documents)) - before
                     if subprocess.run(["pdfinfo", str(pdf)], capture_output=True, check=False).returncode == 0]
            return fresh
        pdf = wait_for("the printed document", document, 180)[0]
        self.addCleanup(pdf.unlink)
        return pdf


class PrintingInJapanese(PrintingTest):
    options = ("--language", "6")
    documents = "PDF-job_*.pdf"

    def test_headings_are_written_with_a_font_that_has_their_letters(self):
        fonts = subprocess.run(["pdffonts", str(self.printed())], check=True, capture_output=True, timeout=60,
                               text=True).stdout
        self.assertIn("DroidSansFallback", fonts)


class PrintingTheProcessList(PrintingTest):
    more_processes = 1000

    def test_every_row_is_printed_once_in_order_under_headings_on_each_page(self):
        pdf = self.printed()
        pages = pages_of(pdf)
        self.assertGreater(len(pages), 10)
        names = []
        for number, words in enumerate(pages, 1):
            name = next(word for word in words if word.text == "Name")
            unit = next(word for word in words if word.text == "Unit" and abs(word.top - name.top) < 3)
            headings = [word.text for word in words if abs(word.top - name.top) < 3]
            self.assertEqual(headings, ["Name", "Unit", "Rule", "Description"])
            self.assertEqual([word.text for word in words if word.top < name.top - 3], ["Processes"])
            self.assertEqual([word.text for word in words[-3:]], [str(number), "/", str(len(pages))])
            names += [word.text for word in words[:-3]
                      if word.top > name.top + 3 and word.left < unit.left - 1]
        self.assertEqual(" ".join(names), " ".join(" ".join(row[1].split()) for row in self.stored()))

    def test_chosen_pages_are_printed_as_they_are_in_the_whole(self):
        whole = pages_of(self.printed())
        part = pages_of(self.printed(pages=(2, 3)))
        self.assertEqual([[word.text for word in page] for page in part],
                         [[word.text for word in page] for page in whole[1:3]])
