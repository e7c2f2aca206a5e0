"""A person without a mouse: each dialog and pick from its opening to what the knowledge base holds afterwards."""

from case_dialog import VALUES, case_dialog, fill_case_by_keyboard
from desktop import wait_for
from hands import button
from workbench import WorkbenchTest

ATTACHMENTS = "SELECT count(*) FROM attachment"


class KeyboardTest(WorkbenchTest):
    def setUp(self):
        super().setUp()
        self.desktop.put_the_mouse_away()

    def number(self, sql, *values):
        return self.workbench.query(sql, *values)[0][0]

    def texts(self, window):
        """The names of the processes in a list: a column of a grid, the only one of a member list."""
        table = self.desktop.rows(window)
        headings = [each["text"] for each in table["headings"]]
        column = headings.index("Name") if "Name" in headings else 0
        return [row["cells"][column] for row in table["rows"]]

    def press(self, dialog, caption):
        self.desktop.tab_to(button(self.desktop, dialog, caption))
        self.desktop.key("space")

    def confirm(self, dialog):
        self.press(dialog, "OK")
        self.desktop.gone(dialog)

    def show_case(self, values=VALUES):
        """The case view; the keyboard is in the list of its processes."""
        self.desktop.key("ctrl+2")
        case_dialog(self.desktop)
        fill_case_by_keyboard(self.desktop, values)
        wait_for("the three grids of the view", lambda: len(self.workbench.lists()) == 3)
        self.processes = self.workbench.lists()[1]
        self.desktop.tab_to(self.processes)

    def command(self, place):
        """Runs the place-th command of the context menu."""
        self.desktop.key("shift+F10")
        self.desktop.one("#32768")
        self.desktop.key(*["Down"] * place, "Return")
        return self.workbench.dialog()

    def overwrite(self, text):
        self.desktop.key("Home", "shift+End")
        self.desktop.type(text)


class TheProcessDialog(KeyboardTest):
    def test_a_process_is_made_and_attached_to_the_case(self):
        self.show_case()
        attachments = self.number(ATTACHMENTS)
        dialog = self.command(1)
        edits = sorted(self.desktop.find("Edit", inside=dialog), key=lambda window: window.area[1])
        self.desktop.tab_to(edits[0])  # where the keyboard is at once; typing replaces the name that it proposes
        self.desktop.type("Mill by hand")
        self.desktop.tab_to(self.desktop.one("ComboBox", inside=dialog))
        self.desktop.key("Home")
        self.desktop.tab_to(edits[2])
        self.desktop.type("Without a mouse")
        self.confirm(dialog)
        wait_for("the new process in the list", lambda: "Mill by hand" in self.texts(self.processes))
        stored = self.workbench.query("SELECT unit, description FROM process WHERE name = 'Mill by hand'")
        self.assertEqual(stored, [(70, "Without a mouse")])
        self.assertEqual(self.number(ATTACHMENTS), attachments + 1)

    def test_a_process_is_changed_with_the_enter_key(self):
        self.show_case()
        self.desktop.key("Home")
        name = self.texts(self.processes)[0]
        dialog = self.command(2)
        edits = sorted(self.desktop.find("Edit", inside=dialog), key=lambda window: window.area[1])
        self.desktop.tab_to(edits[0])
        self.overwrite(name + " again")
        self.desktop.key("Return")
        self.desktop.gone(dialog)
        wait_for("the new name in the list", lambda: name + " again" in self.texts(self.processes))
        self.assertEqual(self.number("SELECT count(*) FROM process WHERE name = ?", name + " again"), 1)

    def test_the_materials_of_a_process_are_moved_and_stored(self):
        self.show_case()
        self.desktop.key("Home")
        name = self.texts(self.processes)[0]
        materials = ("SELECT count(*) FROM process_material JOIN process ON process.row = process "
                     f"WHERE process.name = '{name}'")
        before = self.number(materials)
        dialog = self.command(2)
        lists = sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda window: window.area[0])
        offered = wait_for("materials to choose from", lambda: self.desktop.row_state(lists[0])["count"])
        self.desktop.tab_to(lists[0])
        self.desktop.key("Home", "shift+Down")
        self.press(dialog, ">")
        wait_for("two materials to move", lambda: self.desktop.row_state(lists[0])["count"] == offered - 2)
        self.confirm(dialog)
        wait_for("two materials more", lambda: self.number(materials) == before + 2)

    def test_a_rule_is_built_and_stored(self):
        self.show_case()
        self.desktop.key("Home")
        dialog = self.command(2)
        self.press(dialog, "Build Expression...")
        builder = self.desktop.one("#32770", "Expression Builder")
        before = self.desktop.find("Edit", inside=builder)[0].text
        self.assertNotEqual(before, "")
        self.desktop.key("alt+t", "Home", "alt+i")
        rule = self.desktop.find("Edit", inside=builder)[0]
        wait_for("the term in the rule", lambda: "Diameter" in self.desktop.one("Edit", inside=builder).text)
        wait_for("the keyboard in the rule", lambda: self.desktop.focus().handle == rule.handle)
        self.desktop.type(" > 8")
        wait_for("the rest of it", lambda: self.desktop.one("Edit", inside=builder).text.endswith(" > 8"))
        built = self.desktop.one("Edit", inside=builder).text
        self.assertEqual(built, before + "Diameter > 8")
        self.confirm(builder)
        self.confirm(dialog)
        wait_for("the rule to be stored",
                 lambda: self.number("SELECT count(*) FROM process WHERE rule = ?", built) == 1)

    def test_tab_visits_every_control_and_comes_round(self):
        dialog = self.open_first_process()
        kinds = ("Edit", "ComboBox", "SysListView32", "Button")
        # a disabled button and the frame around the lists are passed over
        expected = {window.handle for kind in kinds for window in self.desktop.find(kind, inside=dialog, enabled=True)}
        start = wait_for("a control to have the keyboard at once", self.desktop.focus)
        visited = [start.handle]
        while len(visited) <= len(expected):
            here = visited[-1]
            self.desktop.key("Tab")
            wait_for("Tab to move on", lambda: self.desktop.focus() and self.desktop.focus().handle != here)
            if self.desktop.focus().handle == start.handle:
                break
            visited.append(self.desktop.focus().handle)
        self.assertEqual(set(visited), expected)
        self.assertEqual(len(visited), len(expected))

    def test_the_name_has_the_keyboard_at_once(self):
        dialog = self.open_first_process()
        name = min(self.desktop.find("Edit", inside=dialog), key=lambda window: window.area[1])
        wait_for("the keyboard in the name", lambda: (self.desktop.focus() or dialog).handle == name.handle)

    def open_first_process(self):
        self.desktop.tab_to(self.workbench.process_list())
        self.desktop.key("Home")
        dialog = self.command(1)
        self.desktop.one("Edit", inside=dialog)
        return dialog


class TheMembersDialog(KeyboardTest):
    def test_processes_are_attached_and_one_is_detached_again(self):
        self.show_case()
        attachments = self.number(ATTACHMENTS)
        dialog = self.command(3)
        candidates, members = sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda w: w.area[0])
        offered = wait_for("candidates", lambda: self.desktop.row_state(candidates)["count"])
        names = self.texts(candidates)[:3]
        self.desktop.tab_to(candidates)
        self.desktop.key("Home", "shift+Down", "shift+Down")
        self.press(dialog, ">")
        wait_for("three to move", lambda: self.desktop.row_state(candidates)["count"] == offered - 3)
        self.desktop.tab_to(members)
        self.desktop.key("Home", *["Down"] * self.texts(members).index(names[1]))
        self.press(dialog, "<")
        wait_for("one to move back", lambda: self.desktop.row_state(candidates)["count"] == offered - 2)
        self.confirm(dialog)
        wait_for("two more attachments", lambda: self.number(ATTACHMENTS) == attachments + 2)
        attached = self.number("SELECT count(*) FROM process WHERE name = ? AND attachments > 0", names[0])
        self.assertEqual(attached, 1)

    def test_escape_attaches_nothing(self):
        self.show_case()
        attachments = self.workbench.query("SELECT * FROM attachment ORDER BY 1, 2")
        dialog = self.command(3)
        self.press(dialog, ">>")
        self.desktop.key("Escape")
        self.desktop.gone(dialog)
        self.assertEqual(self.workbench.query("SELECT * FROM attachment ORDER BY 1, 2"), attachments)


class Picks(KeyboardTest):
    def pick(self, letter, values=VALUES):
        self.desktop.tab_to(self.workbench.process_list())
        self.desktop.key("alt+k")
        self.desktop.one("#32768")
        self.desktop.key(letter)
        case_dialog(self.desktop)
        fill_case_by_keyboard(self.desktop, values)
        return self.workbench.dialog()

    def told(self, call):
        """What the host was told of a call; it has been told nothing of it before."""
        def status():
            return self.desktop.one("msctls_statusbar32").text
        return wait_for("the host to be told", lambda: status() if status().startswith(call) else None)

    def test_a_process_is_picked(self):
        dialog = self.pick("p")
        listed = sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda w: (w.area[1], w.area[0]))[1]
        names = wait_for("processes to pick from", lambda: self.texts(listed))
        self.desktop.tab_to(listed)
        self.desktop.key("End")
        wait_for("the last one", lambda: self.desktop.row_state(listed)["focused"] == len(names) - 1)
        self.confirm(dialog)
        self.assertEqual(self.told("OpenProcess"), f"OpenProcess: chosen: {names[-1]}")

    def test_a_feature_case_is_made_by_its_pick(self):
        cases = self.number("SELECT count(*) FROM feature_case")
        self.confirm(self.pick("f", values=("Thread: M6",)))
        self.assertEqual(self.told("OpenFeatureCase"), "OpenFeatureCase: a feature case was chosen")
        self.assertEqual(self.number("SELECT count(*) FROM feature_case"), cases + 1)

    def test_escape_leaves_a_pick_and_the_list_has_the_keyboard_again(self):
        dialog = self.pick("p")
        self.desktop.key("Escape")
        self.desktop.gone(dialog)
        wait_for("the keyboard in the list",
                 lambda: self.desktop.focus() and self.desktop.focus().handle == self.workbench.process_list().handle)


class ManyProcesses(KeyboardTest):
    """Lists of 20,000 processes, in the view and in the dialog of the members."""

    more_processes = 20_000

    def state(self, window, **wanted):
        """Waits until the list says so; says what it says otherwise."""
        seen = {}

        def reached():
            seen.update(self.desktop.row_state(window))
            return all(seen[name] == value for name, value in wanted.items())

        try:
            wait_for(f"{wanted}", reached)
        except AssertionError as error:
            raise AssertionError(f"{error}; the list says {seen}") from None

    def goes_everywhere(self, window, count):
        self.desktop.tab_to(window)
        self.desktop.key("Home")
        self.state(window, count=count, focused=0, selected=1)
        self.desktop.key("End")
        self.state(window, focused=count - 1, selected=1)
        self.desktop.key("Up")
        self.state(window, focused=count - 2, selected=1)
        self.desktop.key("shift+Home")
        self.state(window, focused=0, selected=count - 1)
        # A list ignores a key that does not move the focus, so each selection begins with one that does.
        self.desktop.key("Down")
        self.state(window, focused=1, selected=1)
        self.desktop.key("shift+End")
        self.state(window, focused=count - 1, selected=count - 1)
        self.desktop.key("Home")
        self.state(window, focused=0, selected=1)
        self.desktop.key("ctrl+a")
        self.state(window, selected=count)

    def test_the_keys_go_everywhere_in_the_view(self):
        count = self.number("SELECT count(*) FROM process")
        window = self.workbench.process_list()
        self.goes_everywhere(window, count)
        self.desktop.key("End")
        self.state(window, focused=count - 1, selected=1)
        last = self.workbench.query("SELECT name FROM process ORDER BY name COLLATE NOCASE DESC, id DESC LIMIT 1")[0][0]
        self.desktop.key("Delete")
        question = self.workbench.dialog()
        self.desktop.key("Return")  # Cancel: what is deleted cannot be had back
        self.desktop.gone(question)
        self.assertEqual(self.number("SELECT count(*) FROM process WHERE name = ?", last), 1)
        self.desktop.key("Delete")
        self.confirm(self.workbench.dialog())
        wait_for("the last process to go", lambda: self.number("SELECT count(*) FROM process WHERE name = ?", last) == 0)
        self.state(window, count=count - 1)

    def test_the_keys_go_everywhere_among_the_members(self):
        self.show_case()
        dialog = self.command(3)
        candidates, members = sorted(self.desktop.find("SysListView32", inside=dialog), key=lambda w: w.area[0])
        offered = wait_for("candidates", lambda: self.desktop.row_state(candidates)["count"])
        held = self.desktop.row_state(members)["count"]
        self.assertGreaterEqual(offered, self.more_processes)
        self.goes_everywhere(candidates, offered)
        self.press(dialog, ">")
        self.state(candidates, count=0)
        self.goes_everywhere(members, held + offered)
        attachments = self.number(ATTACHMENTS)
        self.desktop.key("Escape")
        self.desktop.gone(dialog)
        self.assertEqual(self.number(ATTACHMENTS), attachments)
