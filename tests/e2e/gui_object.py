# SPDX-License-Identifier: MIT
"""The test's side of the automation object: registers it, and calls it as a typed client and from
scripts."""

import contextlib
import pathlib
import re
import subprocess
import tempfile

from probe import Probe
from wine import BUILD, windows_path

EMPTY_CLASS = "{5E8F2A61-0C47-4BD3-9A1E-7D5236B4C801}"  # of bench/windows/empty_server.cpp
DONE, BUSY = "00000000", "800700aa"  # codes of calls
SCRIPT_SECONDS = 60


def run(command, env, seconds=SCRIPT_SECONDS):
    """Runs a Windows program; its exit code and what it wrote. Its output goes to a file: programs
    that it starts would keep a pipe open."""
    with tempfile.TemporaryFile() as output:
        ended = subprocess.run(["wine", *map(str, command)], env=env, check=False, timeout=seconds,
                               stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        output.seek(0)
        return ended.returncode, output.read()


def order(program, word):
    """Starts the program with one word, /regserver and the like; exit code and what it wrote."""
    code, written = run([program.folder / "taviro.exe", word], program.environment)
    return code, written.decode("utf-8")


def run_script(path, env, *arguments):
    """Runs a VBScript; the lines it wrote. It must end well."""
    code, written = run(["cscript", "//nologo", windows_path(path), *arguments], env)
    text = written.decode("cp852")
    assert code == 0, text
    return text.splitlines()


class Client(Probe):
    """A typed client."""

    def __init__(self, env, build="win64"):
        super().__init__(BUILD / build / "e2e" / "gui_client.exe", env)

    def create(self, name="Taviro.GUI"):
        """The code with which the object was created."""
        return self.ask("create", name)[0][0]

    def call(self, method, *arguments):
        """Calls a method: (code, result)."""
        return tuple(self.ask(method, *arguments)[0])

    def result(self, method, *arguments):
        """The result of a call that must succeed."""
        code, result = self.call(method, *arguments)
        assert code == DONE, (method, arguments, code)
        return result

    def speed(self, calls):
        """How many simple calls a second."""
        return int(self.result("speed", calls))

    def handles(self, process):
        """How many handles a process has open."""
        return int(self.result("handles", process))

    def abandon(self, *command):
        """Sends a command and ends the client while it works."""
        self._tell(command)
        self._program.kill()
        self._program.wait(20)

    def changes(self, root):
        """What has changed since the first call in the classes registered for the "user" or the
        "machine", as 64- and as 32-bit programs see them: a dictionary each of what came, by path and
        name of the value, and of what went."""
        views = []
        for view in ("64", "32"):
            came, gone = {}, {}
            for sign, path, *value in self.ask("changes", root, view):
                (came if sign == "+" else gone)[path, *value[:1]] = "".join(value[1:])
            views.append((came, gone))
        return views


def resident_kib(program):
    """Memory of the program that is its own."""
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            command = (folder / "cmdline").read_bytes().decode(errors="replace")
            if f"{program.folder}/taviro.exe" in command.replace("\\", "/"):
                status = (folder / "status").read_text(encoding="utf-8")
                found = re.search(r"^RssAnon:\s+(\d+)", status, re.MULTILINE)
                if found:
                    return int(found[1])
    raise AssertionError("the program's process is not there")


def register_empty_server(probe):
    """Registers the yardstick of calls."""
    path = windows_path(BUILD / "win64" / "bench" / "empty_server.exe")
    probe.register("64", rf"Software\Classes\CLSID\{EMPTY_CLASS}\LocalServer32", f'"{path}"')


def example_script():
    return pathlib.Path(__file__).resolve().parents[2] / "docs" / "example.vbs"
