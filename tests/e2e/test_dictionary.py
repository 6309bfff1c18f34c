# SPDX-License-Identifier: MIT
"""The dictionary's server, asked by scripts and by a late-bound client: what it answers, what it
learns and forgets, how long it stays, and what it does when its files are bad."""

import contextlib
import os
import pathlib
import signal
import subprocess

import pytest

import gui_object
from dictionary import (CLASS, DONE, NUL, SERVER, Client, data_folder, kill_server, learned,
                        order, own_memory_kib, register, server_process)
from gui_object import run_script
from waiting import wait_until
from wine import windows_path

SCRIPT = pathlib.Path(__file__).parent / "dictionary" / "forms.vbs"
MEMORY_KIB = 15 * 1024
STORM_MILLISECONDS = 20_000
OWN_WORD = "plkuj"  # in no dictionary
UNCHANGED = [({}, {})] * 2


@contextlib.contextmanager
def client_of(program, build="win64"):
    with contextlib.closing(Client(program.environment, build)) as client:
        assert client.create() == DONE
        yield client


def typed(client, word):
    """The lists of all beginnings of a word."""
    return [client.words(word[:end]) for end in range(1, len(word) + 1)]


def fresh(client):
    """The client with a new object, which has seen no text."""
    client.release()
    assert client.create() == DONE
    return client


def wait_for_end(program):
    wait_until(lambda: server_process(program) is None, "the server's end", 15)


def test_scripts_and_clients_pass_prefixes_in_every_form(desktop):
    program = desktop.program()
    register(program)
    told = dict(line.split(": ", 1) for line in run_script(SCRIPT, program.environment))
    assert told == {
        "create": "0 Object", "constant": "0 list", "variable": "0 list 8 dobr",
        "corrected": "0 list prav", "corrected within a function": "0 list dob",
        "by value": "0 list 5", "element": "0 list 3",
        "empty": "0 []", "null": "0 []", "number": "0 []", "unknown letter": "0 list",
        "without the result": "0 ",
        "object": "13 ", "array": "13 ",  # a wrong kind of value
        "no argument": "450 ", "two arguments": "450 ",  # a wrong number of them
        "no method": "438 "}  # no such method

    process = server_process(program)
    with client_of(program) as client:
        assert server_process(program) == process  # the one that the script left a moment ago
        for form in ("bstr", "&bstr", "&variant", "&variant &bstr"):
            code, words, after = client.predict("dobr", form)
            assert (code, after) == (DONE, "dobr")
            assert words and all(word.startswith("dobr") for word in words)
            assert any(word.endswith(" ") for word in words)
            code, words, after = client.predict(f"x\b{NUL}obr", form)
            assert code == DONE and words
            assert after == (f"{NUL}obr" if form.startswith("&") else f"x\b{NUL}obr")
        assert client.predict("") == (DONE, [], "")
        assert client.predict("12") == (DONE, [], "12")

        # Each client's text is its own.
        alone = [typed(fresh(client), word) for word in ("pravda", "zdravit")]
        with client_of(program) as other:
            fresh(client)
            mixed = [(client.words("pravda"[:end]), other.words("zdravit"[:end]))
                     for end in range(1, 7)]
        assert [list(lists) for lists in zip(*mixed)] == [lists[:6] for lists in alone]
        assert any(alone[0]) and any(alone[1])
        assert server_process(program) == process
        assert own_memory_kib(process) <= MEMORY_KIB


@pytest.mark.x86
def test_x86_client_shares_the_server_of_the_x64_ones(desktop):
    program = desktop.program()
    register(program)
    with client_of(program) as client, client_of(program, "win32") as other:
        assert client.words("dobr")
        process = server_process(program)
        assert other.words("dobr")
        assert server_process(program) == process


def test_words_are_learned_kept_and_forgotten(desktop):
    program = desktop.program()
    register(program)
    file = data_folder(program) / "learned.txt"

    def learn(client):
        client.write(OWN_WORD, "den", OWN_WORD, "den", OWN_WORD, "den")
        wait_until(lambda: OWN_WORD in learned(program), "the learned word")

    with client_of(program) as client, client_of(program) as other:
        assert OWN_WORD not in client.words("plk")
        learn(client)
        client.write("den")
        assert OWN_WORD in client.words("plk")
        assert OWN_WORD in other.words("plk")

        assert order(program, "/forget") == (0, "")
        assert not file.exists()
        assert OWN_WORD not in client.words("plk")
        assert OWN_WORD not in other.words("plk")
        learn(client)
    wait_for_end(program)  # with its last client
    assert [path.name for path in data_folder(program).iterdir()] == ["learned.txt"]
    with client_of(program) as client:
        assert OWN_WORD in client.words("plk")
        before = learned(program)

        def kill():
            wait_until(lambda: learned(program).get(OWN_WORD, 0) > before[OWN_WORD],
                       "more that is learned")
            kill_server(program)

        code, calls = client.storm(OWN_WORD, STORM_MILLISECONDS, kill)
        assert code != DONE and calls > 0
    text = file.read_text(encoding="utf-8")
    assert text.startswith("Taviro learned words 1\n") and text.endswith("\n")
    assert learned(program)[OWN_WORD] > before[OWN_WORD]
    assert order(program, "/forget") == (0, "")  # without a server
    assert not any(path.name.startswith("learned") for path in data_folder(program).iterdir())


class ServerByHand:
    """A server that is started as the system does it, with its error output."""

    def __init__(self, program):
        self._program = program
        self._path = program.folder.parent / "errors.txt"
        self._file = open(self._path, "wb")
        self._process = subprocess.Popen(
            ["wine", str(program.folder / SERVER), "-Embedding"], env=program.environment,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=self._file)

    def told(self):
        return self._path.read_text(encoding="utf-8").splitlines()

    def close(self):
        process = server_process(self._program)
        if process:
            os.kill(process, signal.SIGKILL)
        self._process.wait(20)
        self._file.close()


def test_bad_files_cost_offers_and_are_told(desktop):
    program = desktop.program()  # not registered, so that no other server is started
    dictionary = program.folder / "czech.dict"
    whole = dictionary.read_bytes()
    dictionary.write_bytes(whole[:len(whole) // 2])
    folder = data_folder(program)
    folder.mkdir(parents=True)
    (folder / "presager.ini").write_text("[Presager]\nWords=none\n")
    damaged = b"\x00\xffno words\n" * 1000
    (folder / "learned.txt").write_bytes(damaged)
    with contextlib.closing(ServerByHand(program)) as server, \
            contextlib.closing(Client(program.environment)) as client:
        wait_until(lambda: client.create(CLASS) == DONE, "the server ready for clients")
        assert [line.split(": ")[:2] for line in server.told()] == [
            ["presager", name] for name in ("czech.dict", "presager.ini", "learned.txt")]
        assert client.predict("dobr\b") == (DONE, [], "dob")
        client.write(OWN_WORD, "den", OWN_WORD, "den")
        assert client.predict("dob") == (DONE, [], "dob")
    assert not (folder / "learned.txt").exists()
    assert (folder / "learned.txt.bad").read_bytes() == damaged
    assert order(program, "/forget") == (0, "")
    assert not (folder / "learned.txt.bad").exists()


def test_options_are_followed(desktop):
    program = desktop.program()
    register(program)
    data_folder(program).mkdir(parents=True)
    (data_folder(program) / "presager.ini").write_text(
        "[Presager]\r\nWords=2\r\nLearn=0\r\nBlanks=0\r\n")
    with client_of(program) as client:
        code, words, _ = client.predict("dobr")
        assert code == DONE and len(words) == 2
        assert all(not word.endswith(" ") for word in words)
        client.write(OWN_WORD, "den", OWN_WORD, "den", OWN_WORD, "den")
        assert OWN_WORD not in client.words("plk")
    assert not learned(program)


def test_orders_leave_the_registry_as_it_was_and_say_what_is_wrong(desktop):
    program = desktop.program()
    blank = program.folder.parent / "jiná složka"
    program.folder = program.folder.rename(blank)
    path = windows_path(blank / SERVER)
    with contextlib.closing(gui_object.Client(program.environment)) as watcher:
        watcher.changes("user")
        watcher.changes("machine")
        for scope, word in (("user", ""), ("machine", ":machine")):
            assert order(program, "/regserver" + word) == (0, "")
            for came, gone in watcher.changes(scope):
                assert (r"\Presager.Dict",) in came and not gone
                if scope == "user":  # of the machine's, only the keys are told
                    assert came[rf"\CLSID\{CLASS}\LocalServer32", ""] == f'"{path}"'
                    assert came[r"\Presager.Dict\CLSID", ""] == CLASS
            if scope == "machine":
                with client_of(program) as client:  # from the folder with the blank
                    assert client.words("dobr")
            for _ in range(2):  # the second time there is nothing to do
                assert order(program, "/unregserver" + word) == (0, "")
                assert watcher.changes(scope) == UNCHANGED

        # Half of it can be written: all of that goes again, and the user is told why.
        assert watcher.call("volatile", "Presager.Dict.1")[0] == DONE
        code, told = order(program, "/regserver")
        assert code == 1
        assert told.startswith("Slovník se nepodařilo zaregistrovat: ")
        assert watcher.changes("user") == UNCHANGED
    code, told = order(program, "/regsrv")
    assert code == 2
    assert told.startswith("Neznámý příkaz: /regsrv\n")
    assert all(word in told for word in ("/regserver:machine", "/unregserver", "/forget"))
    assert order(program, "") == (0, told.split("\n", 1)[1])


@pytest.mark.x86
def test_x86_server_serves_clients_of_both_widths(desktop):
    program = desktop.program(build="win32")
    register(program)
    for build in ("win32", "win64"):
        with client_of(program, build) as client:
            assert client.words("dobr")
            assert client.predict("dobr\b")[2] == "dob"
