# SPDX-License-Identifier: MIT
"""The automation object of the real program, called by scripts and by a typed client."""

import contextlib
import pathlib
import re
import subprocess

import pytest

from gui_object import (BUSY, DONE, EMPTY_CLASS, Client, example_script, order,
                        register_empty_server, resident_kib, run_script)
from probe import WS_EX_TOPMOST
from standin import MODE_PRESSED
from waiting import wait_until
from wine import BUILD, windows_path

TITLE = "Cíl skriptu"
NAME_NOT_REGISTERED = "800401f3"
UNCHANGED = [({}, {})] * 2
MODE = 1  # the button
COUNT_PAINTS = 0x8001  # the target's own message
WS_MINIMIZE = 0x20000000
WM_COMMAND = 0x0111
ABOUT_ENTRY = 1009  # the menu's entries are numbered in order, from 1000
SCRIPTS = pathlib.Path(__file__).parent / "gui_client"


class Target:
    """Another real program, whose window scripts drive."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._process = subprocess.Popen(["wine", str(BUILD / "win64" / "e2e" / "gui_target.exe")],
                                         env=desktop.env, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.window = wait_until(lambda: desktop.probe.window(class_name="GuiTarget"),
                                 "the target's window", 30)
        desktop.probe.activate(self.window.handle)
        wait_until(self.has_focus, "the target in the foreground")

    def has_focus(self):
        return self._desktop.probe.foreground() == self.window.handle

    def child(self, class_name):
        return next(child for child in self._desktop.probe.children(self.window.handle)
                    if child.class_name == class_name)

    def wait_for_text(self, class_name, text):
        handle = self.child(class_name).handle
        wait_until(lambda: self._desktop.probe.text(handle) == text,
                   lambda: f"{text!r}; it is {self._desktop.probe.text(handle)!r}")

    def wait_for_keys(self, *keys):
        """Waits for just these keys, each "d" or "u" and its scan code."""
        handle = self.child("Static").handle

        def scans():  # a modifier comes by its virtual key, which stands before the slash
            return re.findall(r"(?:[du])(?:16/0|\d+/\d+)", self._desktop.probe.text(handle))

        def seen():
            return [key.replace("16/0", "shift") if "16/0" in key
                    else key[0] + key.split("/")[1] for key in scans()]

        wait_until(lambda: seen() == list(keys), lambda: f"the keys {keys}; there were {seen()}")

    def paints(self):
        return self._desktop.probe.send(self.window.handle, COUNT_PAINTS)

    def close(self):
        self._process.kill()
        self._process.wait(20)


@contextlib.contextmanager
def target_of(desktop):
    with contextlib.closing(Target(desktop)) as target:
        yield target


def register(program):
    assert order(program, "/regserver:machine") == (0, "")


def our_window(desktop):
    return desktop.probe.window(class_name="TaviroMain")


def wait_for_process_end(client, process):
    """Waits until a process has ended that the system started, not the test."""
    wait_until(lambda: client.call("handles", process)[0] != DONE, "the program's end", 20)


def finds_and_asks_windows(client, desktop, target):
    handle = target.window.handle
    assert client.result("VBS_FindWindow", TITLE, "") == str(handle)
    assert client.result("VBS_FindWindow", "neni", "GuiTarget") == str(handle)
    assert client.result("VBS_FindWindow", TITLE, "neni") == "0"
    assert client.result("VBS_FindWindow", "", "") == "0"
    assert client.result("VBS_GetTitle", handle) == TITLE
    for length, given in ((249, 249), (250, 249), (300, 249)):
        desktop.probe.set_text(handle, "ž" * length)
        assert client.result("VBS_GetTitle", handle) == "ž" * given
    desktop.probe.set_text(handle, TITLE)
    assert client.result("VBS_GetTitle", 0x7FFF0) == ""
    assert client.result("VBS_GetChildNum", handle) == "4"
    assert client.result("VBS_GetChildNum", 0x7FFF0) == "0"
    assert client.result("VBS_GetChild", handle, "eDIT") == str(target.child("Edit").handle)
    assert client.result("VBS_GetChild", handle, "listbox") == \
        str(target.child("ListBox").handle)
    assert client.result("VBS_GetChild", handle, "Edi") == "0"
    assert client.result("VBS_GetChild", 0, "Edit") == "0"


def drives_the_target(client, desktop, target):
    assert client.result("ClickOnWindow", TITLE, "neni") == "0"
    assert client.result("ClickOnWindow", TITLE, "button") == "1"
    target.wait_for_text("Button", "stisknuto")
    client.result("KeyPress", 30, 0)
    client.result("KeyPress", 31, 16)
    target.wait_for_keys("d30", "u30", "dshift", "d31", "u31", "ushift")
    assert desktop.probe.keys_down() == []

    paints = target.paints()
    client.result("VBS_UpdateWindow", target.window.handle)
    wait_until(lambda: target.paints() > paints, "the window painted")
    paints = target.paints()
    client.result("VBS_UpdateFrame", target.window.left, target.window.top,
                  target.window.right, target.window.bottom)
    wait_until(lambda: target.paints() > paints, "the window painted with the desktop")


def shows_and_hides_its_own_window(client, desktop, target, window):
    client.result("SetCaption", "Řídí skript")
    assert our_window(desktop).caption == "Řídí skript"
    client.result("LogDebugWin", "nic")
    client.result("ShowDebugWin")
    shown = our_window(desktop)
    assert (shown.left, shown.top) == (0, 0)
    assert shown.extended_style & WS_EX_TOPMOST
    assert target.has_focus()
    client.result("MinDebugWin")
    assert our_window(desktop).style & WS_MINIMIZE
    client.result("HideDebugWin")
    assert our_window(desktop) is None
    client.result("ShowDebugWin")
    shown = our_window(desktop)
    assert (shown.handle, shown.left, shown.top) == (window.handle, 0, 0)
    assert not shown.style & WS_MINIMIZE
    assert target.has_focus()


def test_typed_client_calls_every_method(desktop):
    program = desktop.program()
    program.use_settings(volume=66)
    register(program)
    window = program.start()
    with target_of(desktop) as target, contextlib.closing(Client(program.environment)) as client:
        assert client.create() == DONE
        finds_and_asks_windows(client, desktop, target)
        drives_the_target(client, desktop, target)
        shows_and_hides_its_own_window(client, desktop, target, window)

        assert program.setting_file().read_bytes().count(b"\n") < 10  # as the test wrote it
        client.result("Quit")
        assert program.wait_for_end() == 0
        assert b"Volume=66" in program.setting_file().read_bytes()
        assert program.setting_file().read_bytes().count(b"\n") > 10  # saved by the shutdown
        assert client.call("SetCaption", "pozde")[0] != DONE


def test_script_starts_the_program_and_calls_every_method(desktop):
    program = desktop.program()
    register(program)
    with target_of(desktop) as target, contextlib.closing(Client(program.environment)) as client:
        lines = run_script(SCRIPTS / "every_method.vbs", program.environment, TITLE)
        handle, child = target.window.handle, target.child
        told = dict(line.split(": ", 1) for line in lines)
        assert told["create"].startswith("0 ")
        assert told["find title"] == f"0 3 {handle}"  # a 32-bit number
        assert told["find class"] == told["find nothing"] == "0 0"
        assert told["title"] == f"0 8 {TITLE}"  # a text
        assert told["title of a text"] == f"0 {TITLE}"
        assert told["children"] == "0 4"
        assert told["child"] == f"0 {child('Edit').handle}"
        assert told["hidden child"] == f"0 {child('ListBox').handle}"
        assert told["no child"] == told["click on nothing"] == "0 0"
        assert told["click"] == "0 1"
        assert told["click without taking the result"] == "0 Empty"
        for name in ("key", "key with modifier", "update window", "update frame", "show",
                     "minimise", "hide", "show again", "caption", "log"):
            assert told[name] == "0 ", name
        for name in ("too few arguments", "no handle", "no method"):
            assert not told[name].startswith("0 "), name
        target.wait_for_text("Button", "stisknuto")
        target.wait_for_keys("d30", "u30", "dshift", "d31", "u31", "ushift")

        window = our_window(desktop)
        assert window.caption == "ze skriptu"
        assert client.create() == DONE  # the same program, which goes on without the script
        client.result("SetCaption", "týž")
        assert our_window(desktop).caption == "týž"
        assert our_window(desktop).process == window.process
        second = program.launch()  # a second start finds the first, too
        assert second.wait(20) == 0
        desktop.probe.set_text(target.child("Button").handle, "volno")
        assert run_script(example_script(), program.environment, TITLE) == [
            f"Found {TITLE}", "Clicked: 1"]
        target.wait_for_text("Button", "stisknuto")
        client.result("Quit")
        wait_for_process_end(client, window.process)
        assert program.setting_file().exists()


def test_registering_and_unregistering_leave_nothing_behind(desktop):
    program = desktop.program()
    blank = program.folder.parent / "jiná složka"
    program.folder = program.folder.rename(blank)
    path = windows_path(blank / "taviro.exe")
    with contextlib.closing(Client(program.environment)) as client:
        client.changes("user")
        client.changes("machine")
        assert order(program, "/regserver") == (0, "")
        for came, gone in client.changes("user"):
            class_id = came[r"\Taviro.GUI\CLSID", ""]
            assert came[rf"\CLSID\{class_id}\LocalServer32", ""] == f'"{path}"'
            assert not gone
        assert order(program, "/unregserver") == (0, "")
        assert client.changes("user") == UNCHANGED

        # Half of it can be written: all of that goes again, and the user is told why.
        assert client.call("volatile", "Taviro.GUI.1")[0] == DONE
        code, told = order(program, "/regserver")
        assert code == 1
        assert told.startswith("Objekt Taviro.GUI se nepodařilo zaregistrovat: ")
        assert client.changes("user") == UNCHANGED

        assert client.create() == NAME_NOT_REGISTERED
        register(program)
        assert client.create() == DONE  # from the folder with the blank
        process = our_window(desktop).process
        client.result("Quit")
        wait_for_process_end(client, process)
        for _ in range(2):  # the second time there is nothing to do
            assert order(program, "/unregserver:machine") == (0, "")
            assert client.changes("machine") == UNCHANGED


@pytest.mark.x86
def test_clients_of_both_widths_reach_the_x86_program(desktop):
    program = desktop.program(build="win32")
    register(program)
    window = program.start()
    for build in ("win32", "win64"):
        with contextlib.closing(Client(program.environment, build)) as client:
            assert client.create() == DONE
            client.result("SetCaption", f"řídí {build}")
            assert client.result("VBS_GetTitle", window.handle) == f"řídí {build}"
            edit = client.result("VBS_GetChild", window.handle, "edit")
            assert edit in [str(child.handle) for child in desktop.probe.children(window.handle)]
            if build == "win64":
                client.result("Quit")
                assert program.wait_for_end() == 0


def test_calls_do_no_harm_while_the_program_waits_or_shows_a_dialog(desktop):
    program = desktop.program()
    program.use_map([("a", 65), ("b", 66)])
    program.use_sounds("mode_select", seconds=5)
    register(program)
    window = program.start()
    stick = program.standin
    environment = program.environment
    with target_of(desktop), contextlib.closing(Client(environment)) as client:
        assert client.create() == DONE
        disturbing = (("MinDebugWin",), ("ClickOnWindow", TITLE, "Button"), ("KeyPress", 30, 0),
                      ("Quit",))

        def refused():
            assert [client.call(*call)[0] for call in disturbing] == [BUSY] * 4
            client.result("SetCaption", "smí se")
            client.result("LogDebugWin", "smí se")
            assert client.result("VBS_FindWindow", TITLE, "") != "0"

        stick.press(MODE)
        stick.play(MODE_PRESSED)
        wait_until(stick.sounds, "the sound that the program waits for")
        refused()
        stick.centre()  # read when the sound has ended
        stick.wait_for_poll()
        assert client.call("KeyPress", 30, 0)[0] == DONE

        desktop.probe.post(window.handle, WM_COMMAND, ABOUT_ENTRY)
        dialog = wait_until(lambda: about_window(desktop, window), "the dialog")
        refused()
        desktop.probe.post(dialog.handle, WM_COMMAND, 2)  # Escape
        wait_until(lambda: not about_window(desktop, window), "the dialog's end")
        assert client.call("KeyPress", 30, 0)[0] == DONE
        client.result("Quit")
        assert program.wait_for_end() == 0


def about_window(desktop, window):
    return next((seen for seen in desktop.probe.windows()
                 if seen.process == window.process and seen.class_name == "#32770"), None)


@pytest.mark.timed
def test_many_calls_and_a_lost_client_leave_nothing_behind(desktop):
    program = desktop.program()
    register(program)
    register_empty_server(desktop.probe)
    window = program.start()
    with contextlib.closing(Client(program.environment)) as client, \
            contextlib.closing(Client(program.environment)) as yardstick:
        assert client.create() == DONE
        assert yardstick.create(EMPTY_CLASS) == DONE
        client.result("storm", 50, window.handle)
        handles = client.handles(window.process)
        growth = []  # a leak shows every time, the heap's own steps do not
        for _ in range(3):
            memory = resident_kib(program)
            client.result("storm", 60, window.handle)
            growth.append(resident_kib(program) - memory)
        assert min(growth) < 16, growth
        assert client.handles(window.process) <= handles + 5

        ours, empty = zip(*((client.speed(100), yardstick.speed(100)) for _ in range(3)))
        assert max(ours) >= min(1000, max(empty) / 2)

        lost = Client(program.environment)
        assert lost.create() == DONE
        lost.abandon("speed", 1000000)  # killed in the middle of its calls
        assert client.result("VBS_GetTitle", window.handle) != ""
        client.result("Quit")
        assert program.wait_for_end() == 0
