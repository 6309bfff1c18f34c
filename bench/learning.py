#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the predictor gains by learning, over long Czech texts that its tables do not know.

Three texts are fetched from Debian's archive into a folder of their own and nothing of them is kept
in the project: the guide to installing Debian (one translator), the dialogues of a puzzle game
(everyday speech, a small team of writers) and the manual of a package manager (one translator).
The trust in the user's own words was chosen with the manual at hand, never with the other two.

    bench/learning.py build/native [FOLDER]
"""
import html
import pathlib
import re
import subprocess
import sys
import tempfile

WORDS = 25000  # of each text at most
PACKAGES = {"guide": "installation-guide-amd64", "dialogues": "fillets-ng-data",
            "manual": "aptitude-doc-cs"}


def fetch(package: str, folder: pathlib.Path) -> pathlib.Path:
    """Unpacks the package into a folder of its name."""
    target = folder / package
    if not target.is_dir():
        subprocess.run(["apt-get", "-q", "download", package], cwd=folder, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        archive = next(folder.glob(f"{package}_*.deb"))
        subprocess.run(["dpkg", "-x", archive, target], check=True)
    return target


def dialogues(folder: pathlib.Path) -> str:
    """The spoken lines, scene by scene."""
    lines = []
    for scene in sorted(folder.rglob("dialogs_cs.lua")):
        text = scene.read_text(encoding="utf-8", errors="replace")
        lines += re.findall(r'^dialogStr\("(.*)"\)', text, flags=re.MULTILINE)
    return "\n".join(line.replace('\\"', '"') for line in lines)


def is_czech(text: str) -> bool:
    """Not every paragraph is translated."""
    marked = sum(letter in "áčďéěíňóřšťúůýž" for letter in text.lower())
    return marked * 20 > len(text)


def paragraphs_of(pages: list[pathlib.Path]) -> str:
    """The running text: Czech paragraphs without commands and listings."""
    paragraphs = []
    for page in sorted(pages):
        source = page.read_text(encoding="utf-8", errors="replace")
        for paragraph in re.findall(r"<p>(.*?)</p>", source, flags=re.DOTALL):
            plain = re.sub(r"<(code|tt)\b.*?</\1>", "", paragraph, flags=re.DOTALL)
            plain = html.unescape(re.sub(r"<[^>]+>", "", plain))
            paragraphs.append(re.sub(r"\s+", " ", plain).strip())
    return "\n".join(p for p in paragraphs if len(p) > 40 and is_czech(p))


def guide(folder: pathlib.Path) -> str:
    return paragraphs_of(list(folder.rglob("installation-guide-amd64/cs/*.html")))


def manual(folder: pathlib.Path) -> str:
    return paragraphs_of(list(folder.rglob("html/cs/*.html")))


def shorten(text: str) -> str:
    """The first WORDS words."""
    words = list(re.finditer(r"\S+", text))
    return text if len(words) <= WORDS else text[:words[WORDS].start()]


def main() -> int:
    build = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory() as own:
        folder = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else own)
        texts = []
        for name, extract in (("guide", guide), ("dialogues", dialogues), ("manual", manual)):
            text = shorten(extract(fetch(PACKAGES[name], folder)))
            path = folder / f"{name}.txt"
            path.write_text(text, encoding="utf-8")
            print(f"{name}: {len(text.split())} words", flush=True)
            texts.append(path)
        return subprocess.run([build / "tools/taviro_effort", "words", "--learn",
                               build / "predictor/czech.dict", "data/data.ini", *texts],
                              check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
