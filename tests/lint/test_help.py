# SPDX-License-Identifier: MIT
"""The help page keeps its rules, and the rules notice a page that does not."""

import re

import pytest

from help_page import faults
from tree import ROOT

FOLDER = ROOT / "help"
GOOD = ('<html lang="cs"><head><link rel="stylesheet" href="page.css"></head><body>'
        '<h1>A</h1><h2 id="one">B</h2><a href="#one">C</a>'
        '<img src="pictures/p.png" alt="words"><table><tr><th scope="col">D</th></tr></table>'
        "</body></html>")
BAD = [
    ('lang="cs"', "", "does not say that it is Czech"),
    ("#one", "#two", "nothing is named #two"),
    ("page.css", "other.css", "there is no file other.css"),
    ("pictures/p.png", "pictures/q.png", "there is no file pictures/q.png"),
    ("page.css", "https://example.org/page.css", "needs a network"),
    ('alt="words"', 'alt=" "', "a picture without words"),
    ('scope="col"', "", "a table's heading"),
    ("h2", "h3", "a heading of level 3 below one of level 1"),
    ("<h1>", '<h1 id="one">', "given twice"),
    ("<h1>", '<h1 id="alone">', "no link leads to alone"),
    ("</table>", "", "is never closed"),
    ("<table>", "", "closes nothing"),
    ('<img src="pictures/p.png" alt="words">', "", "does not show p.png"),
]


@pytest.fixture
def folder(tmp_path):
    (tmp_path / "page.css").touch()
    (tmp_path / "pictures").mkdir()
    (tmp_path / "pictures" / "p.png").touch()
    return tmp_path


def test_help_page_keeps_its_rules():
    assert faults((FOLDER / "taviro.htm").read_text(encoding="utf-8"), FOLDER) == []


def test_good_page_has_no_faults(folder):
    assert faults(GOOD, folder) == []


@pytest.mark.parametrize("part, instead, fault", BAD)
def test_bad_page_is_noticed(folder, part, instead, fault):
    assert part in GOOD
    assert any(fault in found for found in faults(GOOD.replace(part, instead), folder))


def test_help_names_every_setting_as_the_dialog_does():
    """Each check box of the settings can be found in the help by a word of its caption's end."""
    text = (FOLDER / "taviro.htm").read_text(encoding="utf-8")
    layout = (ROOT / "resources" / "dialogs" / "app_setting.rc").read_text(encoding="utf-8")
    captions = [caption.replace("&", "") for caption in re.findall(r'AUTOCHECKBOX "([^"]+)"', layout)]
    assert len(captions) == 6
    section = text[text.index('id="nastaveni"'):text.index('id="tlacitka"')]
    words = [caption.split()[-1] for caption in captions]
    assert [word for word in words if word not in section] == []
