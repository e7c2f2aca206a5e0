"""The knowledge base that the workbench has open: one that cannot be opened, one that nobody may write to, and what the
title, the status line and the menu say of each."""

from case_dialog import describe_case
from desktop import wait_for
from hands import STEP_MENU, Mouse
from workbench import START_SECONDS, Workbench, WorkbenchTest, drive_c

READ_ONLY = "The knowledge base is read-only"


class KnowledgeBaseTest(WorkbenchTest):
    def title(self):
        return self.workbench.refresh().text

    def status(self):
        return self.desktop.one("msctls_statusbar32").text

    def message(self):
        """The text of the message that is open, once it is; it is closed then."""
        box = self.workbench.dialog()
        words = " ".join(window.text for window in self.desktop.find("Static", inside=box))
        self.desktop.key("Return")
        self.desktop.gone(box)
        return words

    def assert_centred(self, dialog):
        middle, wanted = dialog.middle, self.workbench.refresh().middle
        self.assertLessEqual(abs(middle[0] - wanted[0]) + abs(middle[1] - wanted[1]), 4, f"{dialog} over {wanted}")

    def open(self, path):
        """Opens a knowledge base through the menu and the system's dialog."""
        self.desktop.key("ctrl+o")
        dialog = self.desktop.one("#32770")
        wait_for("the dialog to take a name", lambda: (self.desktop.focus() or dialog).kind == "Edit")
        self.desktop.key("ctrl+a")
        self.desktop.type(path)
        self.desktop.key("Return")
        self.desktop.gone(dialog)


class WithoutItsFolder(Workbench):
    """A workbench that was started on a knowledge base whose folder does not exist; it says so first."""

    def _wait_for_start(self, ready):
        wait_for("the message", lambda: self.desktop.find("#32770") or self.process.poll() is not None, START_SECONDS)


class AFolderThatDoesNotExist(KnowledgeBaseTest):
    workbench_class = WithoutItsFolder
    options = ("--kb", r"C:\Nowhere\knowledge.db")

    def test_is_named_and_not_made_and_another_knowledge_base_opens_then(self):
        why = r"The knowledge base 'C:\Nowhere\knowledge.db' cannot be opened: there is no folder 'C:\Nowhere'."
        self.assert_centred(self.workbench.dialog())
        self.assertIn(why, self.message())
        self.assertFalse((drive_c() / "Nowhere").exists())
        self.assertEqual(self.title(), "Norvex Workbench - No knowledge base is open")
        self.assertIn(why, self.status())
        self.assertIsNone(self.workbench.view())
        self.desktop.key("ctrl+1")
        self.desktop.key("ctrl+2")
        self.assertIn(why, self.status(), "the commands that need a knowledge base are not offered")
        self.open(r"C:\Norvex\knowledge.db")
        wait_for("the title", lambda: self.title() == r"Norvex Workbench - C:\Norvex\knowledge.db")
        self.desktop.key("ctrl+1")
        wait_for("the processes", lambda: self.desktop.rows(self.workbench.process_list())["rows"])
        self.assertEqual(self.status(), "ShowWindowProcessesView: the view is shown")


class AReadOnlyKnowledgeBase(KnowledgeBaseTest):
    def setUp(self):
        super().setUp()
        # Opened, filled and closed once, so that everything is in the file.
        self.desktop.key("alt+F4")
        self.workbench.wait_for_end()
        self.workbench.file.chmod(0o444)
        self.addCleanup(self.workbench.file.chmod, 0o644)
        self.before = self.workbench.file.read_bytes()
        self.workbench._start("processes")

    def rows(self, window=None):
        return wait_for("rows", lambda: self.desktop.rows(window or self.workbench.process_list())["rows"])

    def assert_refused(self):
        self.assertIn(READ_ONLY, self.message())
        self.assertFalse(self.workbench.has_dialog(), "the refused command has opened a dialog")

    def test_is_shown_searched_and_sorted_with_its_steps(self):
        self.assertEqual(self.title(), r"Norvex Workbench - C:\Norvex\knowledge.db (read-only)")
        self.assertGreaterEqual(self.desktop.row_state(self.workbench.process_list())["count"], 60)
        self.desktop.click(self.desktop.row_middle(self.rows()[0]))
        self.desktop.key("ctrl+shift+1", "ctrl+f")
        wait_for("the line", lambda: self.desktop.find("Edit", inside=self.workbench.window))
        self.desktop.type("titanium")
        wait_for("what is found",
                 lambda: 0 < self.desktop.row_state(self.workbench.process_list())["count"] < 20)
        describe_case(self.desktop, self.workbench)
        steps = wait_for("the lists of the case", lambda: self.workbench.lists()[2:3])[0]
        self.assertTrue(self.rows(steps))
        names = {each.name for each in self.workbench.folder.iterdir()}
        self.assertEqual(names, {"knowledge.db", "ready"}, "nothing is left beside the file")

    def test_refuses_each_change_before_a_dialog_opens(self):
        self.desktop.click(self.desktop.row_middle(self.rows()[2]))
        for key in ("Delete", "Return", "ctrl+m"):
            with self.subTest(key):
                self.desktop.key(key)
                self.assert_refused()
        describe_case(self.desktop, self.workbench)
        processes, steps = wait_for("the lists of the case", lambda: self.workbench.lists()[1:3])
        self.desktop.click(self.desktop.row_middle(self.rows(processes)[0]))
        self.desktop.key("Insert")
        self.assert_refused()
        mouse = Mouse(self.desktop)
        mouse.select(steps, 0)
        for command in ("New...", "Edit...", "Delete", "Open..."):
            with self.subTest(command):
                mouse.command(steps, STEP_MENU, command)
                self.assert_refused()
        mouse.select(steps, 0)
        self.desktop.key("F2")
        self.assert_refused()
        self.desktop.key("alt+k", "e")
        self.assert_refused()
        self.assertEqual(self.workbench.file.read_bytes(), self.before)


class InGerman(AReadOnlyKnowledgeBase):
    options = ("--language", "2")

    def test_is_shown_searched_and_sorted_with_its_steps(self):
        self.assertEqual(self.title(), "Norvex Workbench - C:\\Norvex\\knowledge.db (schreibgesch\u00fctzt)")

    def test_refuses_each_change_before_a_dialog_opens(self):
        self.desktop.click(self.desktop.row_middle(self.rows()[2]))
        self.desktop.key("Delete")
        self.assertIn("Die Wissensbasis ist schreibgesch\u00fctzt", self.message())


class TheMainWindow(KnowledgeBaseTest):
    def test_opens_where_it_was_left(self):
        self.assertEqual(self.workbench.refresh().area, (60, 40, 1180, 780), "the first time")
        left, top, width, height = self.workbench.window.area
        self.desktop.drag((left + width // 2, top + 10), (left + width // 2 + 40, top + 70))
        wait_for("it to move", lambda: self.workbench.refresh().area[0] == left + 40)
        left, top, width, height = self.workbench.window.area
        self.desktop.drag((left + width - 2, top + height - 2), (left + width - 202, top + height - 102))
        area = (left, top, width - 200, height - 100)
        wait_for("it to be smaller", lambda: self.workbench.refresh().area == area)
        self.workbench.restart()
        self.assertEqual(self.workbench.refresh().area, area)

    def test_never_gets_too_small_to_be_used(self):
        left, top, width, height = self.workbench.refresh().area
        self.desktop.drag((left + width - 2, top + height - 2), (left + 20, top + 20))
        wait_for("it to be at its smallest", lambda: self.workbench.refresh().area[2:] == (560, 400))

    def test_closes_the_process_manager_in_words_that_say_so(self):
        self.desktop.key("alt+v")
        menu = self.desktop.one("#32768")
        self.desktop.key("l")
        self.desktop.gone(menu)
        wait_for("the status", lambda: self.status() == "Dispose: the Process Manager is closed")
        self.assertIsNone(self.workbench.view())

    def test_has_its_dialogs_over_its_middle(self):
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][0]))
        self.desktop.key("ctrl+2")
        self.assert_centred(self.desktop.one("#32770"))
