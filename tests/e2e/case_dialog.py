"""The host's dialog that describes a feature case, filled in for an M6 through hole."""

from desktop import wait_for

TYPE = "Threaded hole (metric)"
VALUES = ("Thread: M6", "Hole: Through")


def area_middle(area):
    left, top, width, height = area
    return left + width // 2, top + height // 2


def visible_choice(desktop, box, text):
    """The area of a list box's entry, scrolled into view from the entry that was clicked last."""
    def area():
        return next(choice["area"] for choice in desktop.choices(box) if choice["text"] == text)

    def is_visible():
        return area()[1] + area()[3] <= box.area[1] + box.area[3]

    if not is_visible():
        desktop.key("End")
        wait_for(f"{text} to be visible", is_visible)
    return area()


def fill_case(desktop, dialog, values=VALUES, kind=TYPE):
    """Chooses the type and the values in the dialog, and confirms it."""
    combos = sorted(desktop.find("ComboBox", inside=dialog), key=lambda w: (w.area[1], w.area[0]))
    desktop.choose(combos[3], kind)
    box = desktop.find("ListBox", inside=dialog)[0]
    for value in values:
        desktop.click(area_middle(visible_choice(desktop, box, value)))
    desktop.key("Return")
    desktop.gone(dialog)


def case_dialog(desktop):
    """The only dialog of the system's own kind then; its title is in the host's language."""
    return desktop.one("#32770")


def describe_case(desktop, workbench, values=VALUES, kind=TYPE):
    """Opens the case view through the host's menu key and its dialog, for an M6 through hole."""
    desktop.click(workbench.lists()[0].middle)
    desktop.key("ctrl+2")
    fill_case(desktop, case_dialog(desktop), values, kind)


def fill_case_by_keyboard(desktop, values=VALUES, kind=TYPE):
    """The same without a mouse, in the dialog that has the keyboard."""
    dialog = case_dialog(desktop)
    combos = sorted(desktop.find("ComboBox", inside=dialog), key=lambda w: (w.area[1], w.area[0]))
    desktop.key("alt+f")
    desktop.key("Home", *["Down"] * desktop.entries(combos[3]).index(kind))
    wait_for(f"{kind!r} to be chosen",
             lambda: any(w.handle == combos[3].handle and w.text == kind for w in desktop.windows()))
    box = desktop.find("ListBox", inside=dialog)[0]
    entries = wait_for("the values of the type", lambda: [each["text"] for each in desktop.choices(box)])
    desktop.key("alt+v")
    for value in values:
        desktop.key("Home", *["Down"] * entries.index(value), "space")
    desktop.key("Return")
    desktop.gone(dialog)
