"""The modal picks of the host's Knowledge menu: each way out of them, and what the host is told."""

from case_dialog import case_dialog, fill_case
from desktop import wait_for
from workbench import WorkbenchTest


class Picks(WorkbenchTest):
    def pick(self, letter, **case):
        """Opens a pick by its letter in the Knowledge menu and describes the case; the picker's window."""
        self.forget_what_was_told()
        self.desktop.click(self.workbench.lists()[0].middle)
        self.desktop.key("alt+k")
        self.desktop.one("#32768")
        self.desktop.key(letter)
        fill_case(self.desktop, case_dialog(self.desktop), **case)
        return self.workbench.dialog()

    def press(self, dialog, caption):
        self.desktop.click(self.desktop.one("Button", caption, inside=dialog).middle)
        self.desktop.gone(dialog)

    def status(self):
        return self.desktop.one("msctls_statusbar32").text

    def forget_what_was_told(self):
        """Has the host say something else, so that what it says next about a pick is not about an earlier one."""
        self.shows_a_list_again()
        self.desktop.key("ctrl+1")
        wait_for("the host to have shown its list", lambda: self.status() == "ShowWindowProcessesView: the view is shown")

    def told(self, start):
        return wait_for(f"the host to be told about {start}",
                        lambda: self.status() if self.status().startswith(start) else None)

    def shows_a_list_again(self):
        wait_for("the embedded view again", lambda: self.workbench.refresh().enabled and self.workbench.lists())

    def test_ok_tells_the_selected_process(self):
        self.press(self.pick("p"), "OK")
        self.assertEqual(self.told("OpenProcess"), "OpenProcess: chosen: Tap M6")
        self.shows_a_list_again()

    def leaves(self, letter, call):
        """Leaves a pick in each way that is not OK; the host is told of nothing."""
        for way in ("cancel", "escape", "close box"):
            with self.subTest(way):
                dialog = self.pick(letter)
                if way == "cancel":
                    self.press(dialog, "Cancel")
                else:
                    self.desktop.key("Escape" if way == "escape" else "alt+F4")
                    self.desktop.gone(dialog)
                self.assertEqual(self.told(call), f"{call}: nothing was chosen")
                self.shows_a_list_again()

    def test_cancel_escape_and_the_close_box_tell_no_process(self):
        self.leaves("p", "OpenProcess")

    def test_cancel_escape_and_the_close_box_tell_no_feature_case(self):
        cases = self.workbench.query("SELECT * FROM feature_case")
        self.leaves("f", "OpenFeatureCase")
        self.assertEqual(self.workbench.query("SELECT * FROM feature_case"), cases)

    def test_ok_creates_a_feature_case_that_does_not_exist(self):
        cases = self.workbench.query("SELECT count(*) FROM feature_case")[0][0]
        self.press(self.pick("f", values=("Thread: M6",)), "OK")
        self.assertEqual(self.told("OpenFeatureCase"), "OpenFeatureCase: a feature case was chosen")
        self.assertEqual(self.workbench.query("SELECT count(*) FROM feature_case")[0][0], cases + 1)
