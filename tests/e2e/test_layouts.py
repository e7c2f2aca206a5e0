"""What a person arranges is there again after the next start: columns, windows, filters. And what of it stands in the
registry, by name and type, as another program finds it there."""

import collections
import pathlib
import re
import subprocess

from case_dialog import case_dialog, describe_case, fill_case
from desktop import wait_for
from workbench import WorkbenchTest, drive_c

BASE = r"HKEY_CURRENT_USER\Software\Orvane\Applications\Norvex - Process Manager"
CHOOSER = r"DialogSettings\FrmFormatColumns"
MAIN_FORM = r"DialogSettings\FrmMain"
PLACEMENT = ("Left", "Top", "Width", "Height", "WindowState")
EXPECTED = pathlib.Path(__file__).with_name("layouts_expected.txt")


def expected_values():
    """{key below the base: {(value name, type)}} as the file of expected names has it."""
    keys = collections.defaultdict(set)
    for line in EXPECTED.read_text().splitlines():
        if line and not line.startswith("#"):
            key, name, kind = line.split("\t")
            keys[key].add((name, kind))
    return dict(keys)


def exported_values():
    """The same as `reg export` writes it."""
    file = drive_c() / "layouts.reg"
    file.unlink(missing_ok=True)
    subprocess.run(["wine", "reg", "export", BASE, r"C:\layouts.reg", "/y"], check=True, timeout=60,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    keys, key = collections.defaultdict(set), None
    for line in file.read_text("utf-16").splitlines():
        if line.startswith("["):
            key = line[1:-1].removeprefix(BASE).removeprefix("\\")
        elif found := re.match(r'"(.*?)"=("|dword:|hex)', line):
            keys[key].add((found[1], {'"': "REG_SZ", "dword:": "REG_DWORD", "hex": "other"}[found[2]]))
    return dict(keys)


class LayoutTest(WorkbenchTest):
    def columns(self, window):
        return [(each["text"], each["width"]) for each in self.desktop.rows(window)["headings"]]

    def divider(self, window, text):
        """The right edge of a column's heading."""
        left, top = window.area[:2]
        columns = self.columns(window)
        place = [name for name, _ in columns].index(text)
        return left + 1 + sum(width for _, width in columns[:place + 1]), top + 12

    def heading(self, window, text):
        width = dict(self.columns(window))[text]
        right, top = self.divider(window, text)
        return right - width // 2, top

    def resize(self, window, text, by):
        before = dict(self.columns(window))[text]
        x, y = self.divider(window, text)
        self.desktop.drag((x - 1, y), (x - 1 + by, y))
        wait_for(f"{text!r} to have another width", lambda: dict(self.columns(window))[text] == before + by)

    def carry(self, window, text, before_which):
        """Drags one heading to the left of another."""
        before = [name for name, _ in self.columns(window)]
        right, top = self.divider(window, before_which)
        left = right - dict(self.columns(window))[before_which]
        self.desktop.drag(self.heading(window, text), (left + 8, top))
        wait_for(f"{text!r} to have moved", lambda: [name for name, _ in self.columns(window)] != before)

    def choose_fields(self, window, *hide):
        """Opens the field chooser from the grid's menu and hides columns, by the keyboard alone."""
        self.desktop.click(self.desktop.row_middle(self.desktop.rows(window)["rows"][0]), button=3)
        self.desktop.one("#32768")
        self.desktop.key("Up", "Return")
        dialog = self.workbench.dialog()
        self.assertEqual(dialog.text, "Field Chooser")
        chooser = self.desktop.one("SysListView32", inside=dialog)
        offered = [row["cells"][0] for row in self.desktop.rows(chooser)["rows"]]
        for text in hide:
            place = offered.index(text)
            ticked = self.desktop.ticks(chooser)
            self.assertTrue(ticked[place])
            self.desktop.key("Home", *["Down"] * place, "space")
            wait_for(f"{text!r} not to be ticked", lambda: not self.desktop.ticks(chooser)[place])
        self.desktop.key("Return")
        self.desktop.gone(dialog)
        wait_for("the columns to go", lambda: not {name for name, _ in self.columns(window)} & set(hide))
        return offered

    def move_and_size(self, dialog):
        """Drags a window by its caption and by its lower right corner; its area then."""
        left, top, width, height = dialog.area
        self.desktop.drag((left + 80, top + 12), (left + 30, top + 42))
        moved = wait_for("the window to move", lambda: self.area_of(dialog) != dialog.area and self.area_of(dialog))
        left, top, width, height = moved
        self.desktop.drag((left + width - 2, top + height - 2), (left + width + 38, top + height + 28))
        return wait_for("the window to grow", lambda: self.area_of(dialog)[2:] != moved[2:] and self.area_of(dialog))

    def area_of(self, window):
        return next(each.area for each in self.desktop.windows() if each.handle == window.handle)

    def leave(self, dialog):
        self.desktop.key("Escape")
        self.desktop.gone(dialog)

    def has_exported(self, *keys, of_main_form=PLACEMENT):
        """These keys and no others, each with all its values; of the main form's own key the named ones."""
        exported, expected = exported_values(), expected_values()
        expected[MAIN_FORM] = {each for each in expected[MAIN_FORM] if each[0] in of_main_form}
        for key in keys:
            self.assertEqual(exported.get(key), expected[key], key)
        self.assertEqual(set(exported) - {"", "DialogSettings", "GridDefaults", r"GridDefaults\FrmMain"}, set(keys))


class Columns(LayoutTest):
    def test_the_list_of_all_processes_is_as_it_was_left(self):
        grid = self.workbench.process_list()
        inner = grid.area[2] - 2
        self.assertLessEqual(inner - sum(width for _, width in self.columns(grid)), 20, "the last column is stretched")
        self.resize(grid, "Name", 60)
        self.carry(grid, "Rule", "Name")
        offered = self.choose_fields(grid, "Unit")
        self.assertEqual(offered, ["Name", "Unit", "Rule", "Description"])
        left = self.columns(grid)
        self.assertEqual([name for name, _ in left], ["Rule", "Name", "Description"])
        self.workbench.restart()
        self.assertEqual(self.columns(self.workbench.process_list()), left)
        self.has_exported("GlobalSettings", CHOOSER, r"GridDefaults\FrmMain\VSFGAllProcesses")

    def test_the_grids_and_filters_of_a_case_are_as_they_were_left(self):
        describe_case(self.desktop, self.workbench)
        case, processes, steps = wait_for("the three grids",
                                          lambda: len(self.workbench.lists()) == 3 and self.workbench.lists())
        self.resize(case, "Key", 25)
        self.resize(processes, "Unit", -30)
        self.carry(processes, "Unit", "Name")
        self.choose_fields(processes, "Rule")
        self.resize(steps, "Name", -40)
        self.carry(steps, "Cutting Cycle", "Name")
        left = [self.columns(each) for each in (case, processes, steps)]
        combos = sorted(self.desktop.find("ComboBox", inside=self.workbench.window), key=lambda w: w.area[1])
        self.desktop.choose(combos[-2], "Metric")
        self.workbench.restart()
        describe_case(self.desktop, self.workbench)
        grids = wait_for("the three grids", lambda: len(self.workbench.lists()) == 3 and self.workbench.lists())
        self.assertEqual([self.columns(each) for each in grids], left)
        combos = sorted(self.desktop.find("ComboBox", inside=self.workbench.window), key=lambda w: w.area[1])
        self.assertEqual(combos[-2].text, "Metric")
        self.has_exported("GlobalSettings", CHOOSER, MAIN_FORM, r"GridDefaults\FrmMain\VSFGProcessCase",
                          r"GridDefaults\FrmMain\VSFGProcessCaseResults", r"GridDefaults\FrmMain\VSFGProcessStep",
                          of_main_form=["CmbProcessCaseUnit"])


class Bars(LayoutTest):
    def show_case(self):
        """The three grids of a described case; the bars below the filters and between the two lower lists."""
        describe_case(self.desktop, self.workbench)
        wait_for("the three grids", lambda: len(self.workbench.lists()) == 3)
        self.bars = sorted(self.desktop.find("Pellmark.Splitter", inside=self.workbench.window),
                           key=lambda window: window.area[1])
        self.assertEqual(len(self.bars), 2)

    def heights(self):
        return [window.area[3] for window in self.workbench.lists()]

    def drag_bar(self, number, down):
        wanted = self.heights()[number] + down
        x, y = self.area_of(self.bars[number])[:2]
        self.desktop.drag((x + 200, y + 3), (x + 200, y + 3 + down))
        wait_for("the list above the bar to have the other height", lambda: self.heights()[number] == wanted)

    def test_the_bars_of_a_case_stand_where_they_were_left(self):
        self.show_case()
        usual = self.heights()
        self.drag_bar(0, 40)
        self.drag_bar(1, -25)
        left = [window.area for window in self.workbench.lists()]
        self.workbench.restart()
        self.show_case()
        self.assertEqual([window.area for window in self.workbench.lists()], left)
        self.has_exported("GlobalSettings", MAIN_FORM, of_main_form=["SplitFilters", "SplitSteps"])
        for number in (0, 1):
            x, y = self.area_of(self.bars[number])[:2]
            self.desktop.double_click((x + 200, y + 3))
        wait_for("the usual heights", lambda: self.heights() == usual)
        self.workbench.restart()
        self.show_case()
        self.assertEqual(self.heights(), usual)

    def test_the_bars_are_moved_without_a_mouse(self):
        self.show_case()
        self.desktop.tab_to(self.workbench.lists()[1])
        usual = self.heights()
        self.desktop.key("F6")
        wait_for("the keyboard in the bar", lambda: self.desktop.focus().handle == self.bars[1].handle)
        self.desktop.key("Up", "Up", "Return")
        wait_for("the lists to have other heights", lambda: self.heights() == [usual[0], usual[1] - 20, usual[2] + 20])
        wait_for("the keyboard in the list",
                 lambda: self.desktop.focus().handle == self.workbench.lists()[1].handle)

    def test_a_small_window_scrolls_and_its_lists_keep_three_rows(self):
        self.show_case()
        left, top, width, height = self.workbench.window.area
        self.desktop.drag((left + width - 2, top + height - 2), (left + 638, top + 478))
        wait_for("the window to be small", lambda: self.workbench.refresh().area[2] < 660)
        view = self.workbench.view()
        for grid in self.workbench.lists():
            self.assertLess(grid.area[0] + grid.area[2], view.area[0] + view.area[2], "nothing is beyond the right edge")
            table = self.desktop.rows(grid)
            row = table["rows"][0]["area"]
            self.assertGreaterEqual(grid.area[1] + grid.area[3] - row[1], 3 * row[3], grid)
        steps = self.workbench.lists()[-1]
        self.desktop.tab_to(steps)
        wait_for("the steps in view", lambda: view.contains(self.area_window(steps)))

    def area_window(self, window):
        return next(each for each in self.desktop.windows() if each.handle == window.handle)


class Windows(LayoutTest):
    def edit_first_process(self):
        self.desktop.double_click(self.desktop.row_middle(self.desktop.rows(self.workbench.process_list())["rows"][0]))
        return self.workbench.dialog()

    def member_lists(self, dialog):
        return sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda window: window.area[0])

    def test_a_dialog_and_its_lists_are_as_they_were_left(self):
        dialog = self.edit_first_process()
        area = self.move_and_size(dialog)
        others, members = self.member_lists(dialog)
        self.resize(others, "Nonmembers", -35)
        width = self.columns(others)
        follows = self.columns(members)
        self.leave(dialog)
        self.workbench.restart()
        dialog = self.edit_first_process()
        self.assertEqual(dialog.area, area)
        others, members = self.member_lists(dialog)
        self.assertEqual(self.columns(others), width)
        self.assertEqual(self.columns(members), follows)
        self.leave(dialog)
        self.has_exported("GlobalSettings", r"DialogSettings\FrmAddEditProcess")

    def test_the_members_of_a_case_are_as_they_were_left(self):
        def open_members():
            describe_case(self.desktop, self.workbench)
            wait_for("the three grids", lambda: len(self.workbench.lists()) == 3)
            listed = self.workbench.lists()[1]
            self.desktop.click(self.desktop.row_middle(self.desktop.rows(listed)["rows"][0]), button=3)
            self.desktop.one("#32768")
            self.desktop.key("Down", "Down", "Down", "Return")
            return self.workbench.dialog()

        dialog = open_members()
        area = self.move_and_size(dialog)
        members = self.member_lists(dialog)[1]
        self.resize(members, "Members", -50)
        width = self.columns(members)
        self.leave(dialog)
        self.workbench.restart()
        dialog = open_members()
        self.assertEqual(dialog.area, area)
        self.assertEqual(self.columns(self.member_lists(dialog)[1]), width)
        self.leave(dialog)
        self.has_exported("GlobalSettings", r"DialogSettings\FrmAddExistingProcess")

    def test_the_materials_of_a_process_are_as_they_were_left(self):
        def open_materials():
            listed = self.workbench.process_list()
            self.desktop.click(self.desktop.row_middle(self.desktop.rows(listed)["rows"][0]))
            self.desktop.key("ctrl+m")
            return self.workbench.dialog()

        dialog = open_materials()
        area = self.move_and_size(dialog)
        others, members = self.member_lists(dialog)
        self.resize(others, "Nonmembers", -35)
        self.resize(members, "Members", -50)
        widths = self.columns(others), self.columns(members)
        self.leave(dialog)
        self.workbench.restart()
        dialog = open_materials()
        self.assertEqual(dialog.area, area)
        self.assertEqual(tuple(self.columns(each) for each in self.member_lists(dialog)), widths)
        self.leave(dialog)
        self.has_exported("GlobalSettings", r"DialogSettings\FrmEditProcessMaterials")

    def test_the_fixed_dialog_of_a_step_stands_where_it_was_left_in_its_own_size(self):
        def open_step():
            describe_case(self.desktop, self.workbench)
            wait_for("the three grids", lambda: len(self.workbench.lists()) == 3)
            self.desktop.tab_to(self.workbench.lists()[2])
            self.desktop.key("Insert")
            return self.workbench.dialog()

        dialog = open_step()
        left, top, width, height = dialog.area
        self.desktop.drag((left + 80, top + 12), (left + 30, top + 42))
        moved = wait_for("the window to move", lambda: self.area_of(dialog) != dialog.area and self.area_of(dialog))
        self.assertEqual(moved[2:], (width, height))
        self.leave(dialog)
        self.workbench.restart()
        dialog = open_step()
        self.assertEqual(dialog.area, moved)
        self.leave(dialog)
        self.has_exported("GlobalSettings", r"DialogSettings\frmAddEditProcessTechStep")

    def test_a_pick_stands_where_the_last_one_was_left_and_the_view_in_the_host_does_not(self):
        def pick():
            self.desktop.click(self.workbench.lists()[0].middle)
            self.desktop.key("alt+k")
            self.desktop.one("#32768")
            self.desktop.key("p")
            fill_case(self.desktop, case_dialog(self.desktop))
            return self.workbench.dialog()

        embedded = self.workbench.view().area
        dialog = pick()
        area = self.move_and_size(dialog)
        self.leave(dialog)
        wait_for("the embedded view where it was",
                 lambda: self.workbench.view() and self.workbench.view().area == embedded)
        self.workbench.restart()
        dialog = pick()
        self.assertEqual(dialog.area, area)
        self.leave(dialog)
        self.has_exported("GlobalSettings", MAIN_FORM)

    def test_the_field_chooser_stands_where_it_was_left(self):
        def choose():
            listed = self.workbench.process_list()
            self.desktop.click(self.desktop.row_middle(self.desktop.rows(listed)["rows"][0]), button=3)
            self.desktop.one("#32768")
            self.desktop.key("Up", "Return")
            return self.workbench.dialog()

        dialog = choose()
        area = self.move_and_size(dialog)
        self.leave(dialog)
        dialog = choose()
        self.assertEqual(dialog.area, area)
        self.leave(dialog)
        self.has_exported("GlobalSettings", CHOOSER)
