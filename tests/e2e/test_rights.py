"""A user whom the knowledge base lets only look."""

from desktop import wait_for
from workbench import WorkbenchTest


class AnOperator(WorkbenchTest):
    options = ("--user", "Operator")

    def refusal(self):
        dialog = self.workbench.dialog()
        words = " ".join(window.text for window in self.desktop.find("Static", inside=dialog))
        self.desktop.key("Return")
        self.desktop.gone(dialog)
        return words

    def test_is_told_that_deleting_and_editing_are_not_allowed(self):
        before = self.workbench.query("SELECT * FROM process")
        rows = wait_for("processes", lambda: self.desktop.rows(self.workbench.process_list())["rows"])
        self.desktop.click(self.desktop.row_middle(rows[2]))
        self.desktop.key("Delete")
        self.assertIn("You do not have permission to delete objects from the database!", self.refusal())
        self.desktop.double_click(self.desktop.row_middle(rows[2]))
        self.assertIn("You do not have permission to edit objects in the database!", self.refusal())
        self.assertEqual(self.workbench.query("SELECT * FROM process"), before)
