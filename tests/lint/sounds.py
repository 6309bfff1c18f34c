# SPDX-License-Identifier: MIT
"""The delivered sounds: those that the maps ask for and no others, in the one format that every
player takes, heard at once, equally loud, without clicks."""

import array
import math
import statistics
import sys
import wave

from tree import ROOT

sys.path.insert(0, str(ROOT / "tools"))

import make_sounds  # noqa: E402  (found through the line above)
import sound_texts  # noqa: E402

RATE = 16000
AGAIN = "run tools/make_sounds.py"
FULL = 32768
LONGEST = 1.2                          # seconds
LATEST_START = 0.06                    # seconds of silence that nobody notices
QUIETEST, LOUDEST_PEAK = 0.02, 0.95    # of full scale
EDGE = 0.004                           # of full scale: more is heard as a click
MOST_DIFFERENCE = 1.5                  # dB
MOST_BYTES = 5_000_000


def missing_or_stale(folder, wanted):
    problems = []
    for name, words in wanted.items():
        path = folder / f"{name}.wav"
        if not path.exists():
            problems.append(f"{path.name}: missing, {AGAIN}")
        elif not make_sounds.is_current(path, words):
            problems.append(f"{path.name}: stale, {AGAIN}")
    for path in sorted(folder.iterdir()):
        if path.suffix != ".wav" or path.stem not in wanted:
            problems.append(f"{path.name}: no map asks for it, {AGAIN}")
    return problems


def samples_of(path):
    """The samples from -1 to 1; raises ValueError when the format is another one."""
    with wave.open(str(path)) as sound:
        shape = sound.getnchannels(), sound.getsampwidth(), sound.getframerate()
        content = sound.readframes(sound.getnframes())
    if shape != (1, 2, RATE):
        raise ValueError(f"{shape[0]} channels of {shape[1]} bytes, {shape[2]} a second")
    return [x / FULL for x in array.array("h", content)]


def loudness(samples, rate=RATE):
    """Root mean square of the loudest fifth of a second, in dB; the ear adds up over that time."""
    size = rate // 5
    padded = samples + [0.0] * size
    loudest = max(sum(x * x for x in padded[i:i + size])
                  for i in range(0, len(samples), rate // 100))
    return 10 * math.log10(max(loudest / size, 1e-20))


def bad_shape(name, samples):
    problems = []
    seconds, peak = len(samples) / RATE, max(map(abs, samples), default=0)
    if not QUIETEST < peak < LOUDEST_PEAK:
        problems.append(f"its loudest sample is {peak:.2f}")
    if max(map(abs, samples[:2] + samples[-2:]), default=1) > EDGE:
        problems.append("it begins or ends with a click")
    if seconds > LONGEST:
        problems.append(f"it takes {seconds:.2f} s")
    start = next((i for i, x in enumerate(samples) if abs(x) > peak / 30), 0) / RATE
    if start > LATEST_START:
        problems.append(f"it begins with {start:.3f} s of silence")
    return [f"{name}.wav: {problem}" for problem in problems]


def bad_sounds(folder):
    problems, levels = [], {}
    for path in sorted(folder.glob("*.wav")):
        try:
            samples = samples_of(path)
        except (ValueError, EOFError, wave.Error) as error:
            problems.append(f"{path.name}: {error}")
            continue
        problems += bad_shape(path.stem, samples)
        levels[path.name] = loudness(samples)
    middle = statistics.median(levels.values()) if levels else 0
    problems += [f"{name}: {level - middle:+.1f} dB beside the others"
                 for name, level in levels.items() if abs(level - middle) > MOST_DIFFERENCE]
    return problems


def delivered_size(folder):
    return sum(path.stat().st_size for path in folder.iterdir())
