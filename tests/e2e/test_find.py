"""Finding, sorting, refreshing and copying in the lists, by keyboard and mouse."""

import contextlib
import re
import sqlite3

from desktop import wait_for
from hands import button
from workbench import WorkbenchTest

FOUND = ("SELECT name FROM process WHERE name LIKE ?1 OR rule LIKE ?1 OR description LIKE ?1 "
         "ORDER BY name COLLATE NOCASE, id")


def natural(name):
    """The order in which a person expects names: numbers by their value, where their first digit stands."""
    return [(ord("0"), int(part)) if part.isdigit() else (ord(part),) for part in re.findall(r"\d+|\D", name.lower())]


class FindTest(WorkbenchTest):
    def list(self):
        return self.workbench.process_list()

    def count(self):
        return self.desktop.row_state(self.list())["count"]

    def table(self):
        return self.desktop.rows(self.list())

    def names(self):
        table = self.table()
        headings = [heading["text"] for heading in table["headings"]]
        # While the columns are made anew there is none of that name.
        return [row["cells"][headings.index("Name")] for row in table["rows"]] if "Name" in headings else []

    def heading(self, text):
        return next(heading for heading in self.table()["headings"] if heading["text"].startswith(text))

    def box(self):
        return self.desktop.one("Edit", inside=self.workbench.window)

    def has_box(self):
        return bool(self.desktop.find("Edit", inside=self.workbench.window))

    def current(self):
        state = self.desktop.row_state(self.list())
        return self.names()[state["focused"]]

    def stored(self, text):
        return [name for name, in self.workbench.query(FOUND, f"%{text}%")]

    def total(self):
        return self.workbench.query("SELECT count(*) FROM process")[0][0]

    def into_the_list(self):
        self.desktop.click(self.desktop.row_middle(self.table()["rows"][0]))
        wait_for("the list to have the keyboard", lambda: (self.desktop.focus() or self.list()).kind == "SysListView32")

    def find(self, text):
        self.desktop.key("ctrl+f")
        wait_for("the line to have the keyboard", lambda: self.has_box() and self.box().focused)
        self.desktop.type(text)
        wait_for("the text in the line", lambda: self.box().text == text)

    def wait_for_message(self, text):
        wait_for(repr(text), lambda: self.desktop.find("Static", text, inside=self.workbench.window))


class Finding(FindTest):
    def test_narrows_the_list_and_escape_keeps_the_row_in_the_whole_list(self):
        total = self.total()
        self.into_the_list()
        self.find("titanium")
        expected = self.stored("titanium")
        self.assertGreater(len(expected), 2)
        wait_for("the rows that hold it", lambda: self.names() == expected)
        self.wait_for_message(f"{len(expected)} of {total}")
        self.desktop.key("Down", "Down")
        wait_for("the second row", lambda: self.current() == expected[1])
        self.desktop.key("Escape")
        wait_for("the whole list", lambda: self.count() == total)
        self.assertFalse(self.has_box())
        self.assertEqual(self.current(), expected[1])

    def test_sorts_by_a_clicked_heading_in_natural_order_and_back(self):
        names = self.names()
        left, top, width, height = self.heading("Name")["area"]
        middle = (left + min(width, 120) // 2, top + height // 2)
        self.desktop.click(middle)
        wait_for("the natural order", lambda: self.names() == sorted(names, key=natural))
        self.desktop.click(middle)
        wait_for("its reverse",
                 lambda: [natural(name) for name in self.names()] == sorted(map(natural, names), reverse=True))
        self.desktop.click(middle)
        wait_for("the list's own order", lambda: self.names() == names)

    def test_f5_shows_what_another_program_has_added_and_keeps_the_row(self):
        self.into_the_list()
        self.desktop.key("Down", "Down")
        name = wait_for("the third row", lambda: self.names()[2] == self.current() and self.current())
        total = self.total()
        with contextlib.closing(sqlite3.connect(self.workbench.file)) as connection, connection:
            connection.execute("INSERT INTO process (id, name, unit) VALUES (randomblob(16), 'AA first', 71)")
        self.desktop.key("F5")
        wait_for("one row more", lambda: self.count() == total + 1)
        self.assertEqual(self.names()[0], "AA first")
        self.assertEqual(self.current(), name)

    def test_the_keys_edit_and_the_menu_names_them(self):
        self.into_the_list()
        for key in ("F2", "Return"):
            self.desktop.key(key)
            dialog = self.workbench.dialog()
            self.desktop.key("Escape")
            self.desktop.gone(dialog)
        self.desktop.key("Escape")
        self.assertIsNone(self.workbench.process.poll(), "Escape in an embedded view closes nothing")


class FindingAmongManyProcesses(FindTest):
    more_processes = 200_000

    def test_m10_is_found_sorted_copied_and_pasted_elsewhere(self):
        with contextlib.closing(sqlite3.connect(self.workbench.file)) as connection, connection:
            connection.executemany("INSERT INTO process (id, name, unit) VALUES (randomblob(16), ?, 71)",
                                   [(f"Tap M10x{pitch}",) for pitch in (1, 2, 10)])
        total = self.total()
        self.assertGreater(total, 200_000)
        self.desktop.click(self.list().middle)
        self.desktop.key("F5")
        wait_for("all of them", lambda: self.count() == total)
        self.find("M10")
        expected = self.stored("M10")
        wait_for("the rows that hold M10", lambda: self.count() == len(expected))
        self.wait_for_message(f"{len(expected)} of {total}")
        self.desktop.key("Down")
        self.desktop.key("ctrl+shift+1", "ctrl+shift+1")
        downwards = sorted(map(natural, expected), reverse=True)
        wait_for("the names downwards", lambda: [natural(name) for name in self.names()] == downwards)
        shown = self.names()
        self.desktop.key("Home", "shift+Down", "shift+Down", "ctrl+c", "Escape")
        wait_for("the whole list", lambda: self.count() == total)
        self.desktop.key("F2")
        dialog = self.workbench.dialog()
        edits = sorted(self.desktop.find("Edit", inside=dialog), key=lambda window: window.area[1])
        self.desktop.tab_to(edits[-1])
        self.desktop.key("ctrl+a", "ctrl+v")
        pasted = wait_for("the rows in the description", lambda: self.pasted(dialog, shown[2]))
        lines = pasted.replace("\r", "").split("\n")
        self.assertEqual(lines[0].split("\t"), ["Name", "Unit", "Rule", "Description"])
        self.assertEqual([line.split("\t")[0] for line in lines[1:4]], shown[:3])
        self.assertEqual({line.split("\t")[1] for line in lines[1:4]} - {"Metric", "Inch"}, set())
        question = self.workbench.question_after_escape()
        self.desktop.click(button(self.desktop, question, "OK").middle)
        self.desktop.gone(dialog)

    def pasted(self, dialog, last):
        edits = sorted(self.desktop.find("Edit", inside=dialog), key=lambda window: window.area[1])
        return edits[-1].text if last in edits[-1].text else ""
