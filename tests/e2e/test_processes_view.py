"""The Processes view inside the reference host."""

from desktop import wait_for
from hands import button
from workbench import WorkbenchTest, temporary_files

NAME_ORDER = "SELECT name FROM process ORDER BY name COLLATE NOCASE, id"


class TheProcessesView(WorkbenchTest):
    def names(self):
        table = self.desktop.rows(self.workbench.process_list())
        column = [heading["text"] for heading in table["headings"]].index("Name")
        return [row["cells"][column] for row in table["rows"]]

    def row(self, index):
        return self.desktop.rows(self.workbench.process_list())["rows"][index]

    def selected(self):
        rows = self.desktop.rows(self.workbench.process_list())["rows"]
        return [index for index, row in enumerate(rows) if row["selected"]]

    def click_row(self, index):
        self.desktop.click(self.desktop.row_middle(self.row(index)))
        wait_for(f"row {index} to be selected", lambda: self.selected() == [index])

    def process_count(self):
        return self.workbench.query("SELECT count(*) FROM process")[0][0]

    def test_lists_every_seeded_process_by_name_inside_the_host(self):
        stored = [name for name, in self.workbench.query(NAME_ORDER)]
        self.assertGreaterEqual(len(stored), 60)
        self.assertEqual(self.names(), stored)
        self.assertTrue(self.workbench.area.contains(self.workbench.view()))

    def test_follows_the_size_of_the_host_window(self):
        left, top, width, height = self.workbench.refresh().area
        before = self.workbench.process_list().area
        corner = (left + width - 2, top + height - 2)
        self.desktop.drag(corner, (corner[0] - 150, corner[1] - 120))
        wait_for("the host to be smaller", lambda: self.workbench.refresh().area[2] <= width - 100)
        wait_for("the view to fill the host again",
                 lambda: self.workbench.view().area == self.workbench.area.area)
        after = self.workbench.process_list().area
        self.assertLess(after[2], before[2] - 100)
        self.assertLess(after[3], before[3] - 80)

    def test_stays_one_embedded_window_when_it_is_shown_twice(self):
        first = self.workbench.view()
        self.click_row(0)
        self.desktop.key("ctrl+1")
        self.desktop.key("ctrl+1")
        wait_for("the list to be there", lambda: self.names())
        self.assertEqual(self.workbench.view().handle, first.handle)
        children = [w for w in self.desktop.windows() if w.parent == self.workbench.area.handle]
        self.assertEqual(len(children), 1)

    def test_moves_through_the_list_by_the_keyboard(self):
        self.click_row(0)
        self.desktop.key("Down", "Down")
        wait_for("the third row to be selected", lambda: self.selected() == [2])
        self.desktop.key("End")
        last = self.process_count() - 1
        wait_for("the last row to be selected", lambda: self.selected() == [last])

    def test_writes_the_dragged_rows_to_the_drag_file(self):
        for old in temporary_files("Processes.csv"):
            old.unlink()
        self.click_row(1)
        start = self.desktop.row_middle(self.row(1))
        self.desktop.drag(start, (start[0] + 90, start[1] + 160))
        written = wait_for("the drag file", lambda: temporary_files("Processes.csv"))[0]
        text = wait_for("the drag file's text", lambda: written.read_text("cp1252"))
        lines = text.splitlines()
        self.assertIn("Name", lines[0])
        self.assertIn(self.names()[1], lines[1])

    def test_deletes_the_selected_process_after_the_question_is_confirmed(self):
        count = self.process_count()
        name = self.names()[2]
        self.click_row(2)
        self.desktop.key("Delete")
        question = self.workbench.dialog()
        self.desktop.click(button(self.desktop, question, "OK").middle)
        self.desktop.gone(question)
        wait_for("one process less", lambda: self.process_count() == count - 1)
        wait_for("one row less", lambda: len(self.names()) == count - 1)
        self.assertEqual(self.workbench.query("SELECT count(*) FROM process WHERE name = ?", name), [(0,)])

    def test_deletes_nothing_when_the_question_is_cancelled(self):
        count = self.process_count()
        self.click_row(2)
        self.desktop.key("Delete")
        question = self.workbench.dialog()
        self.desktop.key("Escape")
        self.desktop.gone(question)
        self.assertEqual(self.process_count(), count)
        self.assertEqual(len(self.names()), count)

    def test_goes_away_with_its_exit_button_and_comes_back(self):
        self.desktop.click(self.workbench.button("Exit").middle)
        wait_for("the view to be gone", lambda: self.workbench.view() is None)
        self.assertIsNone(self.workbench.process.poll())
        self.desktop.key("ctrl+1")
        wait_for("the view to be back", self.workbench.view)
        self.assertEqual(len(self.names()), self.process_count())

    def test_ends_with_its_host(self):
        self.desktop.key("alt+f")
        self.desktop.key("x")
        self.assertEqual(self.workbench.wait_for_end(), 0)
