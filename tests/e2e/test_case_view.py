"""The Process Case view inside the reference host, opened for a described feature case."""

from case_dialog import TYPE, describe_case
from desktop import wait_for
from workbench import WorkbenchTest

EXACT = """
    SELECT process.name FROM process
    JOIN attachment ON attachment.process = process.row
    JOIN feature_case ON feature_case.row = attachment.feature_case
    WHERE 2 = (SELECT count(*) FROM feature_case_value WHERE feature_case = feature_case.row)
    AND 2 = (SELECT count(*) FROM feature_case_value
        JOIN feature_value ON feature_value.row = feature_case_value.value
        WHERE feature_case_value.feature_case = feature_case.row AND feature_value.name IN ('M6', 'Through'))
    ORDER BY process.name COLLATE NOCASE
"""


class TheProcessCaseView(WorkbenchTest):
    def setUp(self):
        super().setUp()
        describe_case(self.desktop, self.workbench)
        wait_for("the three grids of the view", lambda: len(self.workbench.lists()) == 3)

    def lists(self):
        """The grids of the view: the feature case, its processes, their steps."""
        return [self.desktop.rows(window) for window in self.workbench.lists()]

    def names(self):
        table = self.lists()[1]
        column = [heading["text"] for heading in table["headings"]].index("Name")
        return [row["cells"][column] for row in table["rows"]]

    def test_shows_the_case_that_the_host_described(self):
        case = [row["cells"][:2] for row in self.lists()[0]["rows"]]
        self.assertEqual(case, [["Feature Type", TYPE], ["Thread", "M6"], ["Hole", "Through"]])

    def test_is_shown_again_when_the_language_of_the_host_changes(self):
        self.desktop.key("alt+s")
        self.desktop.one("#32768")
        self.desktop.key("l", "d")
        wait_for("the host to say its new language",
                 lambda: "Deutsch" in self.desktop.one("msctls_statusbar32").text)
        self.assertEqual(len(self.workbench.lists()), 3)
        self.assertEqual([row["cells"][1] for row in self.lists()[0]["rows"]], [TYPE, "M6", "Through"])

    def test_lists_the_exactly_matching_process_first(self):
        exact = [name for name, in self.workbench.query(EXACT)]
        self.assertEqual(len(exact), 1)
        self.assertEqual(self.names()[:1], exact)

    def test_adds_a_process_that_is_attached_to_the_case(self):
        listed = self.workbench.lists()[1]
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(listed)["rows"][0]), button=3)
        self.desktop.one("#32768")
        self.desktop.key("Down", "Return")
        dialog = self.workbench.dialog()
        self.desktop.click(self.desktop.one("Edit", inside=dialog).middle)
        self.desktop.key("Home", "shift+End")
        self.desktop.type("Thread mill M6")
        self.desktop.click(self.desktop.one("Button", "OK", inside=dialog).middle)
        self.desktop.gone(dialog)
        wait_for("the new process in the list", lambda: "Thread mill M6" in self.names())
        stored = self.workbench.query("SELECT attachments FROM process WHERE name = 'Thread mill M6'")
        self.assertEqual(stored, [(1,)])
