"""The commands on the processes of a feature case, each with what the knowledge base holds afterwards."""

from case_dialog import describe_case
from desktop import wait_for
from hands import button
from workbench import WorkbenchTest

CASES = "SELECT count(*) FROM feature_case"
ATTACHMENTS = "SELECT count(*) FROM attachment"


class CommandsOnACase(WorkbenchTest):
    def start(self, **case):
        describe_case(self.desktop, self.workbench, **case)
        wait_for("the three grids of the view", lambda: len(self.workbench.lists()) == 3)
        self.processes = self.workbench.lists()[1]

    def names(self):
        table = self.desktop.rows(self.processes)
        column = [heading["text"] for heading in table["headings"]].index("Name")
        return [row["cells"][column] for row in table["rows"]]

    def command(self, place):
        """Runs the place-th command of the first process's context menu by mouse and keyboard."""
        rows = self.desktop.rows(self.processes)["rows"]
        point = self.desktop.row_middle(rows[0]) if rows else self.processes.middle
        self.desktop.click(point, button=3)
        self.desktop.one("#32768")
        self.desktop.key(*["Down"] * place, "Return")
        return self.workbench.dialog()

    def press(self, dialog, caption):
        self.desktop.click(self.desktop.one("Button", caption, inside=dialog).middle)

    def number(self, sql, *values):
        return self.workbench.query(sql, *values)[0][0]

    def test_a_new_process_creates_the_feature_case_that_it_is_attached_to(self):
        self.start(values=("Thread: M6",))
        cases, attachments = self.number(CASES), self.number(ATTACHMENTS)
        dialog = self.command(1)
        self.press(dialog, "OK")
        self.desktop.gone(dialog)
        wait_for("the new process in the list", lambda: "New Process" in self.names())
        self.assertEqual(self.number(CASES), cases + 1)
        self.assertEqual(self.number(ATTACHMENTS), attachments + 1)
        held = self.number("SELECT count(*) FROM feature_case_value WHERE feature_case = "
                           "(SELECT feature_case FROM attachment JOIN process ON process.row = process "
                           "WHERE name = 'New Process')")
        self.assertEqual(held, 1)

    def test_an_edited_process_is_stored_and_listed(self):
        self.start()
        dialog = self.command(2)
        self.desktop.click(self.desktop.find("Edit", inside=dialog)[0].middle)
        self.desktop.key("Home", "shift+End")
        self.desktop.type("Tap M6 twice")
        self.desktop.key("Return")
        self.desktop.gone(dialog)
        wait_for("the new name in the list", lambda: "Tap M6 twice" in self.names())
        self.assertEqual(self.number("SELECT count(*) FROM process WHERE name = 'Tap M6 twice'"), 1)

    def test_escape_leaves_the_process_as_it_was(self):
        self.start()
        before = self.workbench.query("SELECT id, name, rule, description FROM process ORDER BY row")
        dialog = self.command(2)
        self.desktop.click(self.desktop.find("Edit", inside=dialog)[0].middle)
        self.desktop.type("x")
        question = self.workbench.question_after_escape()
        self.desktop.key("Return")  # too soon: it keeps what was typed
        self.desktop.gone(question)
        self.assertIn("x", self.desktop.find("Edit", inside=dialog)[0].text)
        self.press(self.workbench.question_after_escape(), "OK")
        self.desktop.gone(dialog)
        self.assertEqual(self.workbench.query("SELECT id, name, rule, description FROM process ORDER BY row"), before)

    def test_two_processes_are_attached_and_one_is_detached(self):
        self.start()
        attachments = self.number(ATTACHMENTS)
        dialog = self.command(3)
        lists = sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda window: window.area[0])
        rows = self.desktop.rows(lists[0])["rows"]
        names = [row["cells"][0] for row in rows[:2]]
        self.desktop.click(self.desktop.row_middle(rows[0]))
        self.desktop.key("shift+Down")
        self.press(dialog, ">")
        wait_for("both among the members", lambda: {row["cells"][0] for row in self.desktop.rows(lists[1])["rows"]}
                 >= set(names) or self.desktop.rows(lists[1])["count"] > len(self.desktop.rows(lists[1])["rows"]))
        self.press(dialog, "OK")
        self.desktop.gone(dialog)
        wait_for("two more attachments", lambda: self.number(ATTACHMENTS) == attachments + 2)

        question = self.command(5)
        self.press(question, "OK")
        self.desktop.gone(question)
        wait_for("one attachment less", lambda: self.number(ATTACHMENTS) == attachments + 1)


class DeletingProcesses(WorkbenchTest):
    def test_of_three_processes_the_one_that_the_store_refuses_stays(self):
        stored = "SELECT name, protected FROM process ORDER BY name COLLATE NOCASE, id"
        before = self.workbench.query(stored)
        # Three neighbours of which exactly one is protected.
        first = next(at for at in range(len(before) - 2) if sum(kept for _, kept in before[at:at + 3]) == 1)
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][0]))
        self.desktop.key("Home", *["Down"] * first, "shift+Down", "shift+Down", "Delete")
        question = self.workbench.dialog()
        self.desktop.click(button(self.desktop, question, "OK").middle)
        self.desktop.gone(question)
        left = before[:first] + [row for row in before[first:first + 3] if row[1]] + before[first + 3:]
        wait_for("two processes to go", lambda: self.workbench.query(stored) == left)
        self.assertEqual(self.desktop.rows(self.workbench.process_list())["count"], len(left))
