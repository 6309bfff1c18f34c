# SPDX-License-Identifier: MIT
"""The sounds of the tree, and the checks on small folders that break one rule each."""

import math
import subprocess

import pytest

import sounds
from sounds import make_sounds, sound_texts
from tree import ROOT

FOLDER = ROOT / "sound"


def test_tree_has_every_sound_that_the_maps_ask_for():
    assert sounds.missing_or_stale(FOLDER, sound_texts.wanted()) == []


def test_tree_has_no_bad_sound():
    assert sounds.bad_sounds(FOLDER) == []
    assert sounds.delivered_size(FOLDER) <= sounds.MOST_BYTES


def test_sounds_are_made_the_same_again():
    if subprocess.run(["espeak-ng", "--version"], capture_output=True, check=True).stdout.split(
            )[3:4] != [b"1.51"]:
        pytest.skip("the sounds were made by another version of the voice")
    for name in ("mode_select", "a", sound_texts.TICK):
        words = sound_texts.wanted()[name]
        assert make_sounds.make(words) == (FOLDER / f"{name}.wav").read_bytes()


@pytest.fixture
def maps(tmp_path):
    (tmp_path / "data.ini").write_bytes(
        "[1,1]Č,67\r\n[2,1]:,58\r\n[3,1]con,67\r\n[4,1]F12,123\r\n[5,1]dlouhý nápis s větou,0\r\n"
        "[6,1],0\r\n_pokračování,\r\n[7,1];,59\r\n[8,1]vpřed,0\r\n".encode("cp1250"))
    (tmp_path / "data_X.EXE.ini").write_bytes("[1,1]ž,67\r\n[2,1]najít,68\r\n".encode("cp1250"))
    return tmp_path


def test_maps_ask_for_each_cell_but_sentences_and_what_no_file_is_named(maps):
    modes = {*sound_texts.MODES, sound_texts.TICK}
    wanted = sound_texts.wanted(maps)
    assert {name: words for name, words in wanted.items() if name not in modes} == {
        "č": "č", "f12": "ef dvanáct", "vpřed": "vpřed", "ž": "ž",
        "najít": "najít"}
    assert wanted["mode_arrow"] == "šipky"


@pytest.mark.parametrize("caption", ["zkr.", "Ctrl+Q", "☺", "x2"])
def test_caption_that_nobody_can_say_is_refused(caption):
    with pytest.raises(LookupError):
        sound_texts.words_for(caption.lower())


def sound(change=lambda samples: samples, words="x"):
    tone = [0.1 * math.sin(i / 15) * math.sin(math.pi * i / 7999) for i in range(8000)]
    return make_sounds.wav(change(tone), words)


BAD = {
    "a.wav": (lambda s: [0.0] * 9000, "loudest sample"),
    "b.wav": (lambda s: s[5000:], "click"),
    "c.wav": (lambda s: s + [0.0] * 15000, "takes 1.44 s"),
    "d.wav": (lambda s: [0.0] * 3000 + s, "of silence"),
    "e.wav": (lambda s: [x * 1.3 for x in s], "+2.3 dB beside"),
    "f.wav": (lambda s: [0.99 if abs(x) > 0.09 else x for x in s], "loudest sample"),
}


@pytest.mark.parametrize("name", BAD)
def test_bad_sound_is_found(tmp_path, name):
    for good in ("x", "y", "z"):
        (tmp_path / f"{good}.wav").write_bytes(sound())
    assert sounds.bad_sounds(tmp_path) == []
    change, complaint = BAD[name]
    (tmp_path / name).write_bytes(sound(change))
    assert any(name in problem and complaint in problem for problem in sounds.bad_sounds(tmp_path))


def test_other_formats_are_found(tmp_path):
    (tmp_path / "no.wav").write_bytes(b"RIFF")
    (tmp_path / "fast.wav").write_bytes(sound().replace(b"\x80\x3e\0\0", b"\x44\xac\0\0", 1))
    assert len(sounds.bad_sounds(tmp_path)) == 2


def test_missing_stale_and_forgotten_sounds_are_found(tmp_path):
    (tmp_path / "same.wav").write_bytes(sound(words="stejné"))
    (tmp_path / "changed.wav").write_bytes(sound(words="staré"))
    (tmp_path / "gone.wav").write_bytes(sound())
    problems = sounds.missing_or_stale(tmp_path, {"same": "stejné", "changed": "nové", "new": "n"})
    assert [problem.split(", ")[0] for problem in problems] == [
        "changed.wav: stale", "new.wav: missing", "gone.wav: no map asks for it"]
