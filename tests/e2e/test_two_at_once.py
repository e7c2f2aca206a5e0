"""A second person at the same knowledge base: what one stores, locks or deletes while the other is at work."""

import contextlib
import os
import sqlite3
import subprocess

from desktop import PRODUCTS, wait_for
from hands import button
from workbench import WorkbenchTest, windows_path

# One call waits five seconds for the lock; sixty processes would make that five minutes.
SECONDS_OF_A_LOCK = 30


class TwoAtOneKnowledgeBase(WorkbenchTest):
    @classmethod
    def setUpClass(cls):
        cls.register()
        cls.addClassCleanup(cls.register, "/u")  # other tests start where nothing is registered

    @staticmethod
    def register(*options):
        subprocess.run(["wine", "regsvr32", "/s", *options, windows_path(PRODUCTS / "Norvex.dll")], check=True,
                       timeout=60)

    def rows(self):
        return self.desktop.rows(self.workbench.process_list())["rows"]

    def names(self):
        table = self.desktop.rows(self.workbench.process_list())
        column = [heading["text"] for heading in table["headings"]].index("Name")
        return [row["cells"][column] for row in table["rows"]]

    def open_first(self):
        """The dialog of the first process, with its name box marked."""
        self.desktop.double_click(self.desktop.row_middle(self.rows()[0]))
        dialog = self.workbench.dialog()
        self.desktop.click(self.desktop.find("Edit", inside=dialog)[0].middle)
        self.desktop.key("Home", "shift+End")
        return dialog

    def stored(self, name):
        return self.workbench.query("SELECT rule, description FROM process WHERE name = ?", name)

    def other_does(self, script):
        """Another program uses the knowledge base through the host's own objects."""
        file = self.workbench.folder / "other.vbs"
        file.write_text('Set base = CreateObject("Norvex.KnowledgeBaseService")\n' + script + 'WScript.Echo "done"\n')
        done = subprocess.run(["wine", "cscript", "//nologo", windows_path(file)], timeout=60, capture_output=True, text=True,
                              env={**os.environ, "NORVEX_KNOWLEDGE_BASE": r"C:\Norvex\knowledge.db", "WINEDEBUG": "-all"})
        self.assertEqual(done.stdout.strip(), "done", done.stderr)

    def message(self, seconds=20):
        """What the box over the dialog or view says, once it has been closed."""
        box = self.desktop.one("#32770", seconds=seconds)
        words = " ".join(window.text for window in self.desktop.find("Static", inside=box))
        self.desktop.key("Return")
        self.desktop.gone(box)
        return words

    @contextlib.contextmanager
    def locked(self):
        """Another program writes, and takes its time."""
        connection = sqlite3.connect(self.workbench.file, isolation_level=None)
        try:
            connection.execute("BEGIN IMMEDIATE")
            yield
        finally:
            connection.close()

    def test_what_the_other_has_changed_of_a_process_is_told_and_kept(self):
        name = self.names()[0]
        before = self.stored(name)[0]
        dialog = self.open_first()
        self.other_does('Set record = base.ProcessStore.Processes("")\n'
                        'base.ProcessStore.UpdateProcess record.Field("_Id"), record.Field("_Name"), record.Field("_Unit"), '
                        '"theirs", record.Field("_Rule")\n')
        self.desktop.type("A mine")
        self.desktop.key("Return")
        self.assertIn("Somebody else has changed this meanwhile.", self.message())
        self.assertEqual(self.stored(name), [(before[0], "theirs")])
        self.desktop.click(button(self.desktop, dialog, "OK").middle)
        self.desktop.gone(dialog)
        self.assertEqual(self.stored("A mine"), [(before[0], "theirs")])

    def test_a_process_that_the_other_has_deleted_is_said_and_what_was_typed_stays(self):
        count = len(self.names())
        dialog = self.open_first()
        self.other_does('base.ProcessStore.DeleteProcess base.ProcessStore.Processes("").Field("_Id")\n')
        self.desktop.type("A mine")
        self.desktop.key("Return")
        self.assertIn("no longer exists", self.message())
        self.assertEqual(self.desktop.find("Edit", inside=dialog)[0].text, "A mine")
        self.workbench.question_after_escape()
        self.desktop.key("Tab", "Return")
        self.desktop.gone(dialog)
        self.desktop.key("F5")
        wait_for("one row less", lambda: len(self.names()) == count - 1)

    def test_a_locked_knowledge_base_is_said_and_what_was_typed_is_stored_once_it_is_free(self):
        dialog = self.open_first()
        self.desktop.type("A mine")
        with self.locked():
            self.desktop.key("Return")
            self.assertIn("in use by another program", self.message(SECONDS_OF_A_LOCK))
        self.assertEqual(self.desktop.find("Edit", inside=dialog)[0].text, "A mine")
        self.desktop.click(button(self.desktop, dialog, "OK").middle)
        self.desktop.gone(dialog)
        self.assertEqual(len(self.stored("A mine")), 1)

    def test_many_deletions_in_a_locked_knowledge_base_are_told_in_one_box_before_long(self):
        count = len(self.names())
        self.desktop.click(self.desktop.row_middle(self.rows()[0]))
        self.desktop.key("ctrl+a", "Delete")
        question = self.workbench.dialog()
        with self.locked():
            self.desktop.click(button(self.desktop, question, "OK").middle)
            self.desktop.gone(question)
            self.message(SECONDS_OF_A_LOCK)
        self.assertEqual(len(self.names()), count)

    def test_a_locked_knowledge_base_is_listed_and_searched_nevertheless(self):
        count = len(self.names())
        with self.locked():
            self.desktop.click(self.desktop.row_middle(self.rows()[0]))
            self.desktop.key("F5", "ctrl+f")
            self.desktop.type("tap")
            wait_for("fewer rows", lambda: 0 < len(self.names()) < count)
            self.assertTrue(all("tap" in " ".join(row["cells"]).lower() for row in self.rows()))
