"""The steps of the selected process, each command with what the knowledge base and the disk hold afterwards."""

import csv

from case_dialog import describe_case
from desktop import wait_for
from workbench import WorkbenchTest

STEPS = """SELECT s.name FROM process_step s JOIN process p ON p.row = s.process WHERE p.name = 'Tap M6'
           ORDER BY s.priority, s.row"""
VALUES = """SELECT s.name, v.code, v.value FROM step_value v JOIN process_step s ON s.row = v.step
            JOIN process p ON p.row = s.process WHERE p.name = 'Tap M6' ORDER BY s.priority, s.row, v.code"""


class StepsOfTheSelectedProcess(WorkbenchTest):
    def start(self):
        describe_case(self.desktop, self.workbench)
        wait_for("the three grids of the view", lambda: len(self.workbench.lists()) == 3)
        self.processes, self.steps = self.workbench.lists()[1:]
        wait_for("the steps of Tap M6", lambda: len(self.names()) == len(self.stored()))

    def rows(self):
        return self.desktop.rows(self.steps)["rows"]

    def names(self):
        table = self.desktop.rows(self.steps)
        column = [heading["text"] for heading in table["headings"]].index("Name")
        return [row["cells"][column] for row in table["rows"]]

    def stored(self):
        return [name for name, in self.workbench.query(STEPS)]

    def command(self, place):
        """Runs the place-th command of the first step's context menu."""
        self.desktop.click(self.desktop.row_middle(self.rows()[0]), button=3)
        self.desktop.one("#32768")
        self.desktop.key(*["Down"] * place, "Return")
        return self.workbench.dialog()

    def test_the_steps_follow_the_process(self):
        self.start()
        self.assertEqual(self.names(), self.stored())
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.processes)["rows"][0]))
        self.desktop.key("Down")
        wait_for("the steps of the next process", lambda: self.names() and self.names() != self.stored())

    def test_the_delete_key_deletes_the_selected_step(self):
        self.start()
        before = self.stored()
        self.desktop.click(self.desktop.row_middle(self.rows()[0]))
        self.desktop.key("Delete")
        self.desktop.click(self.desktop.one("Button", "OK", inside=self.workbench.dialog()).middle)
        wait_for("the list without the step", lambda: self.names() == before[1:])
        self.assertEqual(self.stored(), before[1:])

    def test_a_step_is_added_through_its_dialog_and_the_hosts_editor(self):
        self.start()
        before = self.stored()
        dialog = self.command(1)
        self.desktop.key("Return")
        editor = wait_for("the host's editor", lambda: [window for window in self.workbench._dialogs()
                                                        if window.handle != dialog.handle])[0]
        self.desktop.click(self.desktop.one("Button", "OK", inside=editor).middle)
        wait_for("the new step", lambda: len(self.names()) == len(before) + 1)
        self.assertEqual(len(self.stored()), len(before) + 1)

    def test_saved_steps_come_back_from_their_file_as_they_were(self):
        self.start()
        steps, values = self.stored(), self.workbench.query(VALUES)
        self.command(5)
        self.desktop.type(r"C:\Norvex\steps.prc")
        self.desktop.key("Return")
        wait_for("the process file", lambda: (self.workbench.folder / "steps.prc").exists())
        self.desktop.click(self.desktop.row_middle(self.rows()[0]))
        self.desktop.key("ctrl+a", "Delete")
        self.desktop.click(self.desktop.one("Button", "OK", inside=self.workbench.dialog()).middle)
        wait_for("an empty list", lambda: not self.names())
        self.desktop.click(self.steps.middle, button=3)
        self.desktop.one("#32768")
        self.desktop.key(*["Down"] * 4, "Return")
        self.workbench.dialog()
        self.desktop.type(r"C:\Norvex\steps.prc")
        self.desktop.key("Return")
        wait_for("the steps from the file", lambda: self.names() == steps)
        self.assertEqual(self.stored(), steps)
        self.assertEqual(self.workbench.query(VALUES), values)

    def test_saved_tables_are_what_another_programs_reader_finds(self):
        self.start()
        shown = [row["cells"] for row in self.rows()]
        for name, separator in (("steps.csv", ","), ("steps.txt", "\t")):
            self.command(5)
            self.desktop.type("C:\\Norvex\\" + name)
            self.desktop.key("Return")
            file = self.workbench.folder / name
            wait_for("the table", lambda: file.exists() and file.stat().st_size > 0)
            with file.open(newline="", encoding="cp1252") as text:
                table = list(csv.reader(text, delimiter=separator))
            self.assertEqual(table[0][3:], ["Priority", "Name", "Cutting Cycle"])
            self.assertEqual([[row[0], *row[4:]] for row in table[1:]], shown)

    def test_a_name_is_edited_in_place(self):
        self.start()
        before = self.stored()
        row = self.rows()[0]
        self.desktop.click(self.desktop.row_middle(row))
        self.desktop.key("F2")
        self.desktop.key("Home", "shift+End")
        self.desktop.type("Spot twice")
        self.desktop.key("Return")
        wait_for("the new name in the store", lambda: self.stored() == ["Spot twice", *before[1:]])
        self.assertEqual(self.names(), self.stored())
