"""The steps of the selected process, each command with what the knowledge base and the disk hold afterwards."""

import csv

from case_dialog import describe_case, fill_case_by_keyboard
from desktop import wait_for
from hands import STEP_MENU, Keyboard, Mouse
from workbench import WorkbenchTest

STEPS = """SELECT s.name FROM process_step s JOIN process p ON p.row = s.process WHERE p.name = 'Tap M6'
           ORDER BY s.priority, s.row"""
CYCLES = """SELECT s.cutting_cycle FROM process_step s JOIN process p ON p.row = s.process WHERE p.name = 'Tap M6'
            ORDER BY s.priority, s.row"""
VALUES = """SELECT s.name, v.code, v.value FROM step_value v JOIN process_step s ON s.row = v.step
            JOIN process p ON p.row = s.process WHERE p.name = 'Tap M6' ORDER BY s.priority, s.row, v.code"""
WHOLE = """SELECT s.name, s.cutting_cycle, v.code, typeof(v.value), hex(v.value)
           FROM process_step s JOIN process p ON p.row = s.process LEFT JOIN step_value v ON v.step = s.row
           WHERE p.name = 'Tap M6' ORDER BY s.priority, s.row, v.code"""


class StepsTest(WorkbenchTest):
    """The case view with the steps of its first process, as shown and as stored."""

    def find_grids(self):
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


class StepsOfTheSelectedProcess(StepsTest):
    def start(self):
        describe_case(self.desktop, self.workbench)
        self.find_grids()

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

    def test_tab_leads_from_the_name_of_a_step_to_its_cutting_cycle(self):
        self.start()
        names = self.stored()
        before = self.workbench.query(CYCLES)
        self.desktop.click(self.desktop.row_middle(self.rows()[0]))
        self.desktop.key("F2")
        self.desktop.one("Edit", inside=self.steps)
        self.desktop.type("Spot deep")
        self.desktop.key("Tab")
        self.desktop.one("ComboBox", inside=self.steps)
        self.desktop.key("Down", "Return")
        wait_for("another cycle in the store", lambda: self.workbench.query(CYCLES)[0] != before[0])
        self.assertEqual(self.workbench.query(CYCLES)[1:], before[1:])
        self.assertEqual(self.stored(), ["Spot deep", *names[1:]])

    def test_saved_tables_are_what_another_programs_reader_finds(self):
        self.start()
        hands = Mouse(self.desktop)
        hands.select(self.steps, 0)
        shown = [row["cells"] for row in self.rows()]
        for name, separator in (("steps.csv", ","), ("steps.txt", "\t")):
            hands.command(self.steps, STEP_MENU, "Save...")
            self.workbench.dialog()
            self.desktop.type("C:\\Norvex\\" + name)
            self.desktop.key("Return")
            file = self.workbench.folder / name
            wait_for("the table", lambda: file.exists() and file.stat().st_size > 0)
            with file.open(newline="", encoding="cp1252") as text:
                table = list(csv.reader(text, delimiter=separator))
            self.assertEqual(table[0][3:], ["Priority", "Name", "Cutting Cycle"])
            self.assertEqual([[row[0], *row[4:]] for row in table[1:]], shown)


class AWorkingDay(StepsTest):
    """Each thing that an engineer does to steps, and after each what the knowledge base holds."""

    def host_window(self, *besides):
        """The window that the host has opened over the component's."""
        return wait_for("a window of the host", lambda: [
            window for window in self.workbench._dialogs()
            if window.kind == "#32770" and window.handle not in [each.handle for each in besides]])[0]

    def parameter(self, window, caption):
        """The list of a page of parameters, and where the parameter stands in it."""
        def found():
            grid = self.desktop.find("SysListView32", inside=window)[0]
            captions = [row["cells"][0] for row in self.desktop.rows(grid)["rows"]]
            return (grid, captions.index(caption)) if caption in captions else None
        return wait_for(f"the parameter {caption!r}", found)

    def set_parameter(self, window, caption, value):
        grid, row = self.parameter(window, caption)
        self.hands.begin_edit(grid, row, "Value")
        self.desktop.key("Home", "shift+End")
        self.desktop.type(value)
        self.desktop.key("Return")
        wait_for(f"{caption} {value}",
                 lambda: self.desktop.rows(grid)["rows"][row]["cells"][1] == value)

    def question(self, answer):
        dialog = self.workbench.dialog()
        self.hands.press(dialog, answer)
        self.desktop.gone(dialog)

    def add_a_step(self):
        before = self.stored()
        self.hands.command(self.steps, STEP_MENU, "New...")
        dialog = self.workbench.dialog()
        self.hands.press(dialog, "OK")
        editor = self.host_window(dialog)
        self.set_parameter(editor, "Operation name", "Drill, once more")
        self.hands.press(editor, "OK")
        self.desktop.gone(editor)
        wait_for("the new step", lambda: len(self.names()) == len(before) + 1)
        self.assertEqual(self.stored(), ["Drill, once more", *before])  # its priority is 0

    def edit_its_name_in_place(self):
        before = self.stored()
        self.hands.begin_edit(self.steps, 0, "Name")
        self.desktop.key("Home", "shift+End")
        self.desktop.type("Spot twice")
        self.desktop.key("Return")
        wait_for("the new name in the store", lambda: self.stored() == ["Spot twice", *before[1:]])
        self.assertEqual(self.names(), self.stored())

    def edit_it_in_the_wizard(self):
        before = self.workbench.query(VALUES)
        self.hands.select(self.steps, 0)
        self.hands.command(self.steps, STEP_MENU, "Edit...")
        wizard = self.host_window()
        self.hands.press(wizard, "Next >")
        self.set_parameter(wizard, "Spindle speed", "1234")
        self.hands.press(wizard, "Next >")
        wait_for("the last page", lambda: any("3 / 3" in window.text for window in self.desktop.windows()))
        self.hands.press(wizard, "Finish")
        self.desktop.gone(wizard)
        wait_for("the value in the store", lambda: len(self.workbench.query(VALUES)) > len(before))
        after = self.workbench.query(VALUES)
        # It had no speed before. The feed rate that the wizard shows follows from it and is not stored.
        self.assertEqual([value for _, _, value in set(after) - set(before)], ["1234"])
        self.assertEqual(set(before) - set(after), set())

    def leave_the_wizard(self):
        before = self.workbench.query(WHOLE)
        self.hands.select(self.steps, 0)
        self.hands.command(self.steps, STEP_MENU, "Edit...")
        wizard = self.host_window()
        self.hands.press(wizard, "Next >")
        self.set_parameter(wizard, "Spindle speed", "4321")
        self.hands.press(wizard, "Cancel")
        self.desktop.gone(wizard)
        self.assertEqual(self.workbench.query(WHOLE), before)

    def save_delete_and_open(self):
        before = self.workbench.query(WHOLE)
        names = self.stored()
        self.hands.command(self.steps, STEP_MENU, "Save...")
        self.workbench.dialog()
        self.desktop.type(r"C:\Norvex\steps.prc")
        self.desktop.key("Return")
        wait_for("the process file", lambda: (self.workbench.folder / "steps.prc").exists())
        self.hands.select_all(self.steps)
        self.hands.delete(self.steps, STEP_MENU)
        self.question("OK")
        wait_for("an empty list", lambda: not self.names())
        self.assertEqual(self.stored(), [])
        self.hands.command(self.steps, STEP_MENU, "Open...")
        self.workbench.dialog()
        self.desktop.type(r"C:\Norvex\steps.prc")
        self.desktop.key("Return")
        wait_for("the steps from the file", lambda: self.names() == names)
        self.assertEqual(self.workbench.query(WHOLE), before)

    def go_through(self):
        self.add_a_step()
        self.edit_its_name_in_place()
        self.edit_it_in_the_wizard()
        self.leave_the_wizard()
        self.save_delete_and_open()


class ADayWithTheMouse(AWorkingDay):
    def test_steps_are_added_changed_saved_deleted_and_opened_again(self):
        describe_case(self.desktop, self.workbench)
        self.find_grids()
        self.hands = Mouse(self.desktop)
        self.go_through()


class ADayWithTheKeyboardAlone(AWorkingDay):
    def test_steps_are_added_changed_saved_deleted_and_opened_again(self):
        self.hands = Keyboard(self.desktop)
        self.desktop.tab_to(self.workbench.process_list())
        self.desktop.key("ctrl+2")
        fill_case_by_keyboard(self.desktop)
        self.find_grids()
        self.go_through()
