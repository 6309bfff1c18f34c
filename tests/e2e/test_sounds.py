# SPDX-License-Identifier: MIT
"""Sounds in the program's folder, the delivered ones and the user's: a mode's own is waited for, then
comes the cell's sound, or its text where it has none."""

from automation import spoken
from standin import MODE_PRESSED
from waiting import wait_until
from wine import windows_path

MODE = 1
WM_NULL = 0
ASYNC, NO_DEFAULT = 1, 2
MODE_SECONDS = 2.0


class Sounds:
    def __init__(self, program, *names, seconds):
        self._program = program
        self._taken = 0
        program.use_sounds(*names, seconds=seconds)

    def new(self):
        """What was played, or asked for, since the last expect."""
        folder = windows_path(self._program.folder / "sound") + "\\"
        return [(sound.path.removeprefix(folder), sound.flags)
                for sound in self._program.standin.sounds()[self._taken:]]

    def expect(self, *sounds):
        wait_until(lambda: len(self.new()) >= len(sounds),
                   lambda: f"the sounds {sounds}; there were {self.new()}")
        assert self.new() == list(sounds)
        self._taken += len(sounds)


def played(name):
    """In the background; what cannot be played is no reason for the system to play its own."""
    return (f"{name}.wav", ASYNC | NO_DEFAULT)


def test_mode_sound_is_played_to_its_end_before_the_cells_own(desktop):
    automation = desktop.automation()
    program = desktop.program()
    automation.serve(program)
    program.use_map([("a", 65), ("bě", 66), ("c", 67)])
    program.use_map([("první", 65)], app="NOTEPAD.EXE")
    sounds = Sounds(program, "mode_select", "mode_arrow", "mode_app", "bě", seconds=MODE_SECONDS)
    window = program.start()
    stick = program.standin
    stick.wait_for_poll()
    automation.take()

    stick.tilt("right")
    sounds.expect(played("bě"))
    stick.press(MODE)
    sounds.expect(played("mode_arrow"))

    stick.play(MODE_PRESSED)
    sounds.expect(played("mode_select"))
    reads = stick.read_count()
    for _ in range(20):  # its messages run while it waits
        desktop.probe.send(window.handle, WM_NULL)
    begun, ended = wait_until(lambda: len(stick.sounds()) > 3 and stick.sounds()[2:4], "its end")
    assert ended.tick - begun.tick >= 1000 * MODE_SECONDS
    assert not [read for read in stick.reads()[reads:] if read.tick < ended.tick]
    sounds.expect(played("bě"))
    stick.centre()
    assert automation.take() == []

    stick.tilt("right")
    automation.expect(spoken("c"))
    stick.press(MODE)
    stick.press(MODE)
    sounds.expect(played("mode_arrow"), played("mode_select"))
    automation.expect(spoken("c"))

    desktop.editor()
    stick.press(MODE)
    stick.press(MODE)  # the editor's map has its cursor on a cell without a sound
    sounds.expect(played("mode_arrow"), played("mode_app"))
    automation.expect(spoken("a"))
    assert program.close() == 0


def test_delivered_sounds_are_played_and_other_cells_are_spoken(desktop):
    automation = desktop.automation()
    program = desktop.program()
    automation.serve(program)
    program.start()
    program.standin.wait_for_poll()
    automation.take()
    # Wine takes files whose names begin with a full stop for hidden ones, which do not count.
    delivered = {path.stem for path in (program.folder / "sound").glob("[!.]*.wav")}
    for caption in ("č", "mezera", "A"):
        program.go_to(program.map().find(caption)[0])
        path = program.standin.sounds()[-1].path
        assert path == windows_path(program.folder / "sound" / f"{caption}.wav")
    assert not {spoken(text) for text in delivered} & set(automation.take())
    program.go_to(program.map().find("?")[0])  # no file can have that name
    wait_until(lambda: spoken("?") in automation.calls(), "the question mark spoken")
    program.standin.press(MODE)
    assert program.standin.sounds()[-1].path.endswith("\\mode_arrow.wav")
    assert program.close() == 0
