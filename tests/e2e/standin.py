# SPDX-License-Identifier: MIT
"""The test's side of the stand-in joystick and loudspeaker; the layout is winmm/standin_layout.h."""

import dataclasses
import mmap
import struct

from waiting import wait_until

MAGIC, VERSION = 0x49535654, 2
QUEUE_LENGTH, READ_LOG_LENGTH, SOUND_LOG_LENGTH, PATH_LENGTH = 1024, 4096, 256, 260
PRESENT, CAPS_RESULT, QUEUED, TAKEN, READS, SOUNDS = range(12, 36, 4)
SAMPLE = struct.Struct("<3I")
READ = struct.Struct("<5I")
SOUND = struct.Struct(f"<2I{2 * PATH_LENGTH}s")
QUEUE_START = 36
READ_LOG_START = QUEUE_START + QUEUE_LENGTH * SAMPLE.size
SOUND_LOG_START = READ_LOG_START + READ_LOG_LENGTH * READ.size
SIZE = SOUND_LOG_START + SOUND_LOG_LENGTH * SOUND.size

CENTRE = (32767, 32767, 0)
TILTS = {"right": (65535, 32767, 0), "left": (0, 32767, 0),
         "down": (32767, 65535, 0), "up": (32767, 0, 0)}
PRESSED = (32767, 32767, 1)  # the first button, which new users have as the action button
MODE_PRESSED = (32767, 32767, 2)
POLL, OPEN = 0, 1


@dataclasses.dataclass(frozen=True)
class Read:
    """One position that was asked for: when (milliseconds), what was answered, and why."""
    tick: int
    sample: tuple
    kind: int


@dataclasses.dataclass(frozen=True)
class Sound:
    """One call to play a sound."""
    tick: int
    flags: int
    path: str


class Standin:
    def __init__(self, path, present=True):
        self.path = path
        with open(path, "w+b") as file:
            file.truncate(SIZE)
            self._memory = mmap.mmap(file.fileno(), SIZE)
        struct.pack_into("<4I", self._memory, 0, MAGIC, VERSION, SIZE, int(present))

    def _get(self, offset):
        return struct.unpack_from("<I", self._memory, offset)[0]

    def _put(self, offset, value):
        struct.pack_into("<I", self._memory, offset, value)

    def set_present(self, present):
        self._put(PRESENT, int(present))

    def let_every_read_take(self):
        """Until set_present() every read takes a sample, also one right after a question about the
        device, which is an opening else: the settings' dialog asks before each of its reads."""
        self._put(PRESENT, 2)

    def set_caps_result(self, error):
        self._put(CAPS_RESULT, error)

    # The stick.

    def queue(self, *samples):
        """Lets the program's next polls read these samples, one each; the last one stays in
        force."""
        for sample in samples:
            queued = self._get(QUEUED)
            SAMPLE.pack_into(self._memory, QUEUE_START + queued % QUEUE_LENGTH * SAMPLE.size,
                             *sample)
            self._put(QUEUED, queued + 1)

    def play(self, *samples, seconds=20.0):
        """Queues samples and waits until the program has read them all."""
        self.queue(*samples)
        wait_until(lambda: self._get(TAKEN) == self._get(QUEUED),
                   f"the program reading {samples}", seconds)

    def tilt(self, direction):
        """Tilts for one poll."""
        self.play(TILTS[direction], CENTRE)

    def hold(self, direction):
        self.play(TILTS[direction])

    def centre(self):
        self.play(CENTRE)

    def press(self, button):
        """Presses a button (counted from 0) for one poll. When this returns, what the press did has
        ended: the release was read by a later poll."""
        self.play((32767, 32767, 1 << button), CENTRE)

    # What the program asked for.

    def read_count(self):
        return self._get(READS)

    def reads(self, first=0, kind=POLL):
        """The positions asked for since an earlier read_count()."""
        assert self.read_count() - first <= READ_LOG_LENGTH, "the log of reads ran over"
        entries = (READ.unpack_from(self._memory,
                                    READ_LOG_START + i % READ_LOG_LENGTH * READ.size)
                   for i in range(first, self.read_count()))
        return [Read(tick, (x, y, buttons), why) for tick, x, y, buttons, why in entries
                if why == kind]

    def wait_for_poll(self, seconds=10.0):
        """Waits for one more poll."""
        before = self.read_count()
        wait_until(lambda: self.reads(before), "a poll of the joystick", seconds)

    def sounds(self):
        result = []
        for i in range(self._get(SOUNDS)):
            tick, flags, path = SOUND.unpack_from(
                self._memory, SOUND_LOG_START + i % SOUND_LOG_LENGTH * SOUND.size)
            result.append(Sound(tick, flags, path.decode("utf-16-le").split("\0")[0]))
        return result
