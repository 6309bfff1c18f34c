#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes sound/*.wav from the maps in data/ with the Czech voice of espeak-ng: trimmed of silence,
equally loud, without clicks. Sounds that are up to date stay as they are; those of texts that no
map has any more are removed. The same maps, script and voice give the same bytes.

tools/make_sounds.py [--all]    --all makes every sound anew"""

import array
import itertools
import math
import operator
import pathlib
import struct
import subprocess
import sys
import tempfile
import wave

import sound_texts

FOLDER = sound_texts.ROOT / "sound"
VOICE_RATE = 22050  # samples a second, as the voice gives them
# As they are delivered: all that tells consonants apart lies below half of it, in a quarter less room.
RATE = 16000
HALF_TAPS = 24  # samples to each side of which one of the other rate is made
# A little quicker than the voice's own pace: the user waits for every one of these.
VOICE = ("-v", "cs", "-p", "45")
PACES = (160, 190, 220)  # words a minute; the first at which the sound is short enough
LONGEST = 1.2            # seconds
RECIPE = "espeak-ng cs, recipe 2"  # counted on when the making changes: every sound is then stale

FULL = 32767.0
LOUDNESS = -18.0  # dB of full scale, of the loudest WINDOW
PEAK = 0.89       # of full scale: 1 dB of room for players that change the rate
KNEE = 0.7        # of full scale, where peaks begin to be rounded
WINDOW = RATE // 5  # the time over which the ear adds up
QUIET = 45.0      # dB below the loudest moment: silence
LEAD, TAIL = RATE // 100, RATE // 33  # kept before and after what is heard
FADE_IN, FADE_OUT = RATE // 200, RATE // 50
TICK_SECONDS, TICK_HERTZ, TICK_DECAY = 0.09, 880.0, 0.025


def level(samples):
    """Root mean square in dB of full scale."""
    mean = sum(x * x for x in samples) / max(len(samples), 1)
    return 10 * math.log10(mean) if mean > 0 else -200.0


def loudness(samples):
    """The level of the loudest window; silence stands for what a shorter sound lacks."""
    power = [0.0, *itertools.accumulate(x * x for x in samples)]
    last = len(samples)
    loudest = max(power[min(i + WINDOW, last)] - power[i] for i in range(0, last, RATE // 100))
    return 10 * math.log10(max(loudest / WINDOW, 1e-20))


def speak(words, pace):
    """The voice's samples, from -1 to 1."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "spoken.wav"
        subprocess.run(["espeak-ng", *VOICE, "-s", str(pace), "-w", str(path), words], check=True)
        with wave.open(str(path)) as spoken:
            if spoken.getparams()[:3] != (1, 2, VOICE_RATE):
                raise ValueError(f"the voice speaks as {spoken.getparams()}")
            samples = array.array("h", spoken.readframes(spoken.getnframes()))
    middle = sum(samples) / len(samples)
    return resampled([(x - middle) / FULL for x in samples])


def resampled(samples):
    """From VOICE_RATE to RATE, without what the lower rate cannot hold: each sample is weighted from
    those around it by the usual windowed sinc."""
    common = math.gcd(VOICE_RATE, RATE)
    step, phases = VOICE_RATE // common, RATE // common
    band = 0.95 * RATE / VOICE_RATE

    def weight(distance):
        window = 0.5 + 0.5 * math.cos(math.pi * distance / (HALF_TAPS + 1))
        x = math.pi * band * distance
        return band * window * (math.sin(x) / x if x else 1.0)

    taps = [[weight(i - phase / phases) for i in range(1 - HALF_TAPS, HALF_TAPS + 1)]
            for phase in range(phases)]
    padded = [0.0] * HALF_TAPS + samples + [0.0] * HALF_TAPS
    result = []
    for place in range(0, len(samples) * phases, step):
        first = place // phases + 1
        result.append(sum(map(operator.mul, padded[first:first + 2 * HALF_TAPS],
                              taps[place % phases])))
    return result


def tick():
    """A short soft tick, for steps that follow one another quicker than words."""
    return [math.sin(2 * math.pi * TICK_HERTZ * i / RATE) * math.exp(-i / RATE / TICK_DECAY)
            for i in range(int(RATE * TICK_SECONDS))]


def trim(samples):
    """Without the silence around."""
    step = RATE // 200
    levels = [level(samples[i:i + step]) for i in range(0, len(samples), step)]
    heard = [i for i, one in enumerate(levels) if one > max(levels) - QUIET]
    return samples[max(heard[0] * step - LEAD, 0):(heard[-1] + 1) * step + TAIL]


def round_peak(x):
    """Leaves small samples alone and keeps large ones below PEAK."""
    if abs(x) <= KNEE:
        return x
    room = PEAK - KNEE
    return math.copysign(KNEE + room * math.tanh((abs(x) - KNEE) / room), x)


def even(samples):
    """Brought to the common loudness; rounding peaks takes a little away, so in a few rounds."""
    for _ in range(4):
        gain = 10 ** ((LOUDNESS - loudness(samples)) / 20)
        samples = [round_peak(x * gain) for x in samples]
    return samples


def fade(samples):
    def weight(i, length):
        return 0.5 - 0.5 * math.cos(math.pi * min(i / length, 1.0))
    last = len(samples) - 1
    return [x * weight(i, FADE_IN) * weight(last - i, FADE_OUT) for i, x in enumerate(samples)]


def chunk(name, content):
    return struct.pack("<4sI", name, len(content)) + content + b"\0" * (len(content) % 2)


def wav(samples, words):
    """The file's bytes. Its own description says which words it speaks and how it was made, so that
    a stale sound can be told."""
    info = (b"INFO" + chunk(b"INAM", words.encode() + b"\0")
            + chunk(b"ISFT", RECIPE.encode() + b"\0"))
    data = array.array("h", (round(x * FULL) for x in samples)).tobytes()
    content = (b"WAVE" + chunk(b"fmt ", struct.pack("<HHIIHH", 1, 1, RATE, 2 * RATE, 2, 16))
               + chunk(b"data", data) + chunk(b"LIST", info))
    return chunk(b"RIFF", content)


def described(path):
    """The words and the recipe that a sound's description names; None when there is none."""
    content = path.read_bytes()
    start, found = 12, {}
    while start + 8 <= len(content):
        name, size = struct.unpack_from("<4sI", content, start)
        if name == b"LIST":
            start += 12
            continue
        found[name] = content[start + 8:start + 8 + size].rstrip(b"\0")
        start += 8 + size + size % 2
    if not {b"INAM", b"ISFT"} <= found.keys():
        return None
    return found[b"INAM"].decode(), found[b"ISFT"].decode()


def spoken(words):
    """Trimmed, at the slowest pace that is quick enough."""
    for pace in PACES:
        samples = trim(speak(words, pace))
        if len(samples) <= LONGEST * RATE:
            break
    return samples


def make(words):
    return wav(fade(even(spoken(words) if words else tick())), words)


def is_current(path, words):
    return path.exists() and described(path) == (words, RECIPE)


def main():
    wanted = sound_texts.wanted()
    FOLDER.mkdir(exist_ok=True)
    for path in sorted(FOLDER.glob("*.wav")):
        if path.stem not in wanted:
            path.unlink()
            print(f"removed {path.name}")
    for name, words in sorted(wanted.items()):
        path = FOLDER / f"{name}.wav"
        if "--all" in sys.argv[1:] or not is_current(path, words):
            path.write_bytes(make(words))
            print(f"{path.name}: {words or 'a tick'}")
    size = sum(path.stat().st_size for path in FOLDER.glob("*.wav"))
    print(f"{len(wanted)} sounds, {size / 1e6:.1f} MB")
    return 0


if __name__ == "__main__":
    sys.exit(main())
