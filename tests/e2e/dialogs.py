# SPDX-License-Identifier: MIT
"""The program's dialogs: how they are opened, what stands in them, and a user's acts in them."""

import re

from waiting import wait_until
from wine import ROOT

WM_COMMAND, WM_CLOSE = 0x0111, 0x0010
BM_GETCHECK, LB_GETCURSEL, SBM_GETPOS = 0x00F0, 0x0188, 0x00E1
WS_DISABLED, ES_READONLY = 0x08000000, 0x0800
DIALOG_CLASS = "#32770"
ACTIVATE_SECONDS = 0.1
FIRST_ENTRY = 1000  # the menu's entries, its groups among them, are numbered in their order
LOG_ENTRY = 7
# The dialogs that the menu opens, by their form's name: entry and title.
DIALOGS = {
    "frmMap": (1, "Aplikační nabídky"),
    "frmConfig": (4, "Nastavení položky"),
    "frmAppSetting": (5, "Nastavení programu"),
    "FrmVoice": (6, "Hlas"),
    "frmAbout": (9, "O aplikaci Taviro"),
}
# The kinds of buttons by the last four bits of their style.
BUTTON_ROLES = {0: "button", 1: "button", 3: "check box", 9: "radio button"}
TICKS = {"check box": ("not checked", "checked"), "radio button": ("not selected", "selected")}
ROLES = {"Edit": "text", "ListBox": "list", "ComboBox": "combo box", "ScrollBar": "scroll bar"}
KEYS = {1: "Enter", 2: "Escape"}  # of the buttons that the dialog manager knows


def control_numbers():
    """The controls' numbers by their names."""
    header = (ROOT / "dialogs" / "control_ids.h").read_text(encoding="utf-8")
    return {name: int(number)
            for name, number in re.findall(r"#define IDC_(\w+) (-?\d+)", header)}


def open_dialog(desktop, program, name):
    """Chooses a dialog's entry in the menu and waits for its window."""
    entry, title = DIALOGS[name]
    desktop.probe.post(program.window().handle, WM_COMMAND, FIRST_ENTRY + entry)
    return wait_for_dialog(desktop, title)


def wait_for_dialog(desktop, title):
    return wait_until(lambda: desktop.probe.window(title, DIALOG_CLASS), f"the dialog {title!r}")


class Dialog:
    """A dialog that is open, with the keyboard and the pointer of its user."""

    def __init__(self, desktop, window):
        self.window = window
        self._desktop = desktop
        self.probe = desktop.probe
        self._numbers = control_numbers()

    def take_keyboard(self):
        """Chosen from the window manager's list: one that leaves the main window without the focus
        gives its dialogs none either."""
        title = self.window.caption

        def has_keyboard():
            # Again: the window manager may just be giving the focus to another window, which follows
            # the end of an earlier dialog in its own time.
            if not self._desktop.display.active_title().startswith(title):
                self._desktop.display.activate(title)
                return False
            return self.probe.foreground() == self.window.handle

        wait_until(has_keyboard, "the dialog's keyboard", interval=ACTIVATE_SECONDS)
        return self

    def controls(self):
        return self.probe.children(self.window.handle)

    def control(self, name, option=0):
        number = self._numbers[name] + option
        return next(control for control in self.controls() if control.control_id == number)

    def text(self, name):
        return self.probe.text(self.control(name).handle)

    def set_text(self, name, text):
        """Puts a text in at once, as pasting does."""
        self.probe.set_text(self.control(name).handle, text)

    def is_enabled(self, name):
        return not self.control(name).style & WS_DISABLED

    def is_ticked(self, name, option=0):
        return self.probe.send(self.control(name, option).handle, BM_GETCHECK) == 1

    def focus(self):
        """Handle of the control that has the keyboard."""
        return int(self.probe.ask("focus", self.window.handle)[0][0])

    def click(self, name, option=0, button=1):
        control = self.control(name, option)
        self._desktop.display.click((control.left + control.right) // 2,
                                    (control.top + control.bottom) // 2, button)

    def key(self, *names):
        for name in names:
            self._desktop.display.key(name)

    def go_to(self, name, key, option=0):
        """Presses a key that brings the keyboard to a control."""
        self.key(key)
        wanted = self.control(name, option).handle
        wait_until(lambda: self.focus() == wanted, f"the keyboard in {name} after {key}")

    def is_open(self):
        return any(window.handle == self.window.handle for window in self.probe.windows())

    def wait_for_end(self):
        wait_until(lambda: not self.is_open(), f"the end of {self.window.caption!r}")

    def close(self):
        self.probe.post(self.window.handle, WM_CLOSE)
        self.wait_for_end()

    # As a screen reader tells it.

    def stops(self):
        """Every place where Tab stops, from the first on: "name | role | value | shortcut"."""
        lines, seen = [], []
        controls = self.controls()
        while True:
            focus = wait_until(self.focus, "a control with the keyboard")
            if focus in seen:
                assert focus == seen[0], "Tab does not come back to where it began"
                return lines
            seen.append(focus)
            index = next(i for i, control in enumerate(controls) if control.handle == focus)
            lines.append(" | ".join(self._told(controls[index], controls[index - 1])))
            self.key("Tab")
            wait_until(lambda before=focus: self.focus() != before, f"Tab going on from {lines[-1]}")

    def _told(self, control, before):
        own = self.probe.text(control.handle)
        if control.class_name == "Button":
            role = BUTTON_ROLES[control.style & 0xF]
            ticked = self.probe.send(control.handle, BM_GETCHECK)
            return _name(own), role, TICKS.get(role, ("",))[min(ticked, len(TICKS.get(role, [0])) - 1)], \
                _shortcut(own) or KEYS.get(control.control_id, "")
        assert before.class_name == "Static", "no label before it"
        label = self.probe.text(before.handle)
        return _name(label), ROLES[control.class_name], self._value(control, own), _shortcut(label)

    def _value(self, control, own):
        if control.class_name == "ListBox":
            selected = self.probe.send(control.handle, LB_GETCURSEL)
            texts = self.probe.ask("listtext", control.handle, selected) if selected < 1 << 31 else []
            return texts[0][0] if texts else "nothing selected"
        if control.class_name == "ScrollBar":
            return str(self.probe.send(control.handle, SBM_GETPOS))
        read_only = control.class_name == "Edit" and control.style & ES_READONLY
        return own.replace("\r\n", " / ") + (" (read only)" if read_only else "")


def _name(text):
    return text.replace("&", "")


def _shortcut(text):
    found = re.search("&(.)", text)
    return f"Alt+{found[1].upper()}" if found else ""
