# SPDX-License-Identifier: MIT
"""The test's side of the dictionary's server: registers it, asks it as a client, finds its process
and its files, and puts a stand-in into its place. The client and the stand-in are dictionary/."""

import itertools
import os
import pathlib
import re
import signal

from gui_object import run
from probe import Probe
from waiting import wait_until
from wine import BUILD, windows_path

NAME = "Presager.Dict"
SERVER = "presager.exe"
CLASS = "{8D9C41B6-2E57-4F0A-9B63-C1A4F2D7E850}"
STANDIN = "dictionary_standin.exe"
# A class for each stand-in: Wine does not start the server of a class again that it knows as running
# and that has died.
STANDIN_CLASS = "{{6B1F2A30-52C4-4D0E-9C37-2F8E105A{:04X}}}"
DONE = "00000000"
NUL = "\u2400"  # how the client and the stand-in write it
NEXT_ROW = "down"
ACTION, MODE = 0, 1


def order(program, word):
    """Starts the server with one word, /regserver and the like; exit code and what it wrote."""
    arguments = [word] if word else []
    code, written = run([program.folder / SERVER, *arguments], program.environment)
    return code, written.decode("utf-8").replace("\r\n", "\n")


def register(program):
    assert order(program, "/regserver:machine") == (0, "")


def data_folder(program):
    """The user's folder of the server."""
    return program.data_folder.parent / "presager"


def learned(program):
    """The learned words by their counts, in hundredths; pairs are left out."""
    path = data_folder(program) / "learned.txt"
    if not path.exists():
        return {}
    found = re.findall(r"^(\d+) ([^=\n]+)$", path.read_text(encoding="utf-8"), re.MULTILINE)
    return {word: int(count) for count, word in found}


def processes(name=SERVER):
    """The processes of a server, by the end of their program's path."""
    found = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            command = (folder / "cmdline").read_bytes().decode(errors="replace").split("\0")
            environment = (folder / "environ").read_bytes()
        except OSError:
            continue
        program = command[0].replace("\\", "/")
        if program.endswith("/" + name):
            found.append((int(folder.name), environment))
    return found


def server_process(program, name=SERVER):
    """The process of a server in the program's prefix, or None."""
    prefix = f"WINEPREFIX={program.environment['WINEPREFIX']}\0".encode()
    return next((process for process, environment in processes(name) if prefix in environment),
                None)


def own_memory_kib(process):
    """Memory of the process that is its own."""
    status = pathlib.Path(f"/proc/{process}/status").read_text(encoding="utf-8")
    return int(re.search(r"^RssAnon:\s+(\d+)", status, re.MULTILINE)[1])


def kill_server(program, name=SERVER):
    """Ends the server as a crash does."""
    process = wait_until(lambda: server_process(program, name), "the server's process")
    os.kill(process, signal.SIGKILL)
    wait_until(lambda: server_process(program, name) != process, "the server's end")


class Client(Probe):
    """A late-bound client."""

    def __init__(self, env, build="win64"):
        super().__init__(BUILD / build / "e2e" / "dictionary_client.exe", env)

    def create(self, name=NAME):
        """The code with which the object was created."""
        return self.ask("create", name)[0][0]

    def predict(self, prefix, form="&bstr"):
        """Code, the words of the list as they stand there, and the prefix afterwards."""
        code, text, after = self.ask("ask", form, prefix)[0]
        first, *words = text.split(";")
        assert first in ("", "*"), text
        return code, words, after

    def words(self, prefix):
        """The words offered for a prefix, without their blanks."""
        code, words, _ = self.predict(prefix)
        assert code == DONE, code
        return [word.rstrip(" ") for word in words]

    def write(self, *words):
        """Types words to their ends, letter by letter, and passes over what is offered."""
        for word in words:
            for end in range(1, len(word) + 1):
                self.predict(word[:end])

    def start(self, server, class_id, prefix=""):
        """Starts a server that is not registered; code, milliseconds from there to the object, and
        from there to the first list, where a prefix is given."""
        code, ready, first = self.ask("start", windows_path(server), class_id, prefix)[0]
        return code, float(ready), float(first)

    def storm(self, word, milliseconds, during=lambda: None):
        """Types a word again and again for that long, or until a call fails, and does something
        meanwhile; code and how many calls went well."""
        command = ("storm", word, milliseconds)
        self._tell(command)
        during()
        code, calls = self._answer(command)[0]
        return code, int(calls)

    def release(self):
        self.ask("release")


class StandIn:
    """A server in the dictionary's place: answers every call with one list after a delay, and does
    not live to answer one of them."""

    _made = itertools.count(1)

    def __init__(self, desktop, program, words="", delay=0, death=0):
        number = next(self._made)
        class_id = STANDIN_CLASS.format(number)
        self._calls = program.folder.parent / f"calls-{number}.txt"
        executable = windows_path(BUILD / "win64" / "e2e" / STANDIN)
        classes = r"Software\Classes"
        desktop.probe.register("64", rf"{classes}\{NAME}\CLSID", class_id)
        desktop.probe.register(
            "64", rf"{classes}\CLSID\{class_id}\LocalServer32",
            f'"{executable}" {class_id} "{windows_path(self._calls)}" "*;{words}" {delay}'
            f" {death}")

    def calls(self):
        """The prefixes asked for so far."""
        if not self._calls.exists():
            return []
        return self._calls.read_text(encoding="utf-8").split("\n")[:-1]


class Offers:
    """The words offered over the map, as the user answers them."""

    def __init__(self, program, choices, probe, look=lambda rows: None):
        """Calls look() with the rows of each open list from which a word is about to be taken."""
        self._program = program
        self._choices = choices
        self._probe = probe
        self._look = look
        self.taken = []
        self.dismissed = 0

    def rows(self):
        """The rows of the open list; none when it is not open."""
        if not self._choices.is_shown():
            return []
        handle = self._choices.handle()
        return [self._probe.ask("listtext", handle, row)[0][0]
                for row in range(self._choices.count())]

    def answer(self, word):
        """Takes the word when it is offered and returns its row; sends the list away otherwise."""
        rows = self.rows()
        place = next((place for place, row in enumerate(rows) if row.rstrip(" ") == word), None)
        if place is None:
            if rows:
                self._program.standin.press(MODE)
                assert not self._choices.is_shown()
                self.dismissed += 1
            return ""
        self._look(rows)
        for _ in range(place):
            self._program.standin.tilt(NEXT_ROW)
        self._program.standin.press(ACTION)
        self.taken.append(word)
        return rows[place]
