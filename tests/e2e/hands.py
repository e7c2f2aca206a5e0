"""The two ways in which a person works: the same moves with the mouse and with the keyboard alone."""

from desktop import wait_for

# As the context menu of the steps shows them, "-" for a line.
STEP_MENU = ("New...", "Edit...", "-", "Delete", "-", "Open...", "Save...", "Print...", "Format Columns...")


def button(desktop, dialog, caption):
    """A button by its caption, whatever access key it was given."""
    def found():
        return [each for each in desktop.find("Button", inside=dialog) if each.text.replace("&", "") == caption]
    return wait_for(f"a button {caption!r}", found)[0]


class Mouse:
    """Points and clicks; only texts are typed."""

    def __init__(self, desktop):
        self._desktop = desktop

    def _cell(self, grid, row, column):
        """A point in a cell, by the heading of its column."""
        table = self._desktop.rows(grid)
        heading = next(each for each in table["headings"] if each["text"] == column)
        left, _, width, _ = heading["area"]
        _, top, _, height = table["rows"][row]["area"]
        return left + width // 2, top + height // 2

    def select(self, grid, row):
        self._desktop.click(self._desktop.row_middle(self._desktop.rows(grid)["rows"][row]))

    def select_all(self, grid):
        rows = self._desktop.rows(grid)["rows"]
        self._desktop.click(self._desktop.row_middle(rows[0]))
        if len(rows) > 1:
            last = self._scroll_to_last(grid)
            self._desktop.hold("shift", lambda: self._desktop.click(self._desktop.row_middle(last)))

    def _scroll_to_last(self, grid):
        """The last row, brought into view with the wheel where the list has no room for it."""
        def last():
            row = self._desktop.rows(grid)["rows"][-1]
            return row if row["area"][1] + row["area"][3] <= grid.area[1] + grid.area[3] else None

        def wheel():
            wheel_down = 5
            self._desktop.click(grid.middle, button=wheel_down)
            return last()
        return last() or wait_for("the last row to be in view", wheel)

    def open_menu(self, grid):
        """The grid's context menu, at a selected row where there is one: the last, since that is what is in view."""
        rows = self._desktop.rows(grid)["rows"]
        selected = next((row for row in reversed(rows) if row["selected"]), None)
        self._desktop.click(self._desktop.row_middle(selected) if selected else grid.middle, button=3)

    def command(self, grid, menu, caption):
        """Runs a command of the grid's context menu."""
        self.open_menu(grid)
        left, top, width, height = self._desktop.one("#32768").area
        border, line = 3, 9
        entry = (height - 2 * border - line * menu.count("-")) / (len(menu) - menu.count("-"))
        place = menu.index(caption)
        above = sum(line if each == "-" else entry for each in menu[:place])
        self._desktop.click((left + width // 2, round(top + border + above + entry / 2)))

    def delete(self, grid, menu):
        self.command(grid, menu, "Delete")

    def press(self, dialog, caption):
        self._desktop.click(button(self._desktop, dialog, caption).middle)

    def begin_edit(self, grid, row, column):
        self._desktop.double_click(self._cell(grid, row, column))


class Keyboard:
    """Never touches the mouse; where it is alone, the desktop fails when somebody does."""

    def __init__(self, desktop, alone=True):
        self._desktop = desktop
        if alone:
            desktop.put_the_mouse_away()

    def select(self, grid, row):
        self._desktop.tab_to(grid)
        self._desktop.key("Home", *["Down"] * row)

    def select_all(self, grid):
        self._desktop.tab_to(grid)
        self._desktop.key("ctrl+a")

    def open_menu(self, grid):
        self._desktop.tab_to(grid)
        self._desktop.key("shift+F10")

    def command(self, grid, menu, caption):
        self.open_menu(grid)
        self._desktop.one("#32768")
        entries = [each for each in menu if each != "-"]
        self._desktop.key(*["Down"] * (entries.index(caption) + 1), "Return")

    def delete(self, grid, _menu):
        self._desktop.tab_to(grid)
        self._desktop.key("Delete")

    def press(self, dialog, caption):
        self._desktop.tab_to(button(self._desktop, dialog, caption))
        self._desktop.key("space")

    def begin_edit(self, grid, row, _column):
        """Opens the cell that F2 leads to; in all grids here it is the one that a person means."""
        self.select(grid, row)
        self._desktop.key("F2")
