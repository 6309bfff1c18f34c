# SPDX-License-Identifier: MIT
"""What the built programs tell the system: version, icon, and how they want to be treated."""

import re
import subprocess
import xml.etree.ElementTree as xml

import pytest

from builds import for_every_build
from packages import BUILDS
from pe import RT_MANIFEST, Executable
from wine import BUILD, ROOT

HIGHLIGHT = 0xFFFFB200  # of the icon's middle cell, with its opacity
SUPPORTED = {"{35138b9a-5d96-4fbd-8e2d-a2440225f93a}": "7",
             "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}": "8",
             "{1f676c76-80e1-4239-95bb-83d0f6d0da78}": "8.1",
             "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}": "10"}


def product():
    return dict(re.findall(r'^#define PRODUCT_(\w+) "?(.*?)"?$',
                           (ROOT / "dialogs" / "product.h").read_text("utf-8"), re.MULTILINE))


@pytest.fixture
def program(build):
    return Executable(BUILD / build / "taviro" / "taviro.exe")


@for_every_build
def test_program_says_what_it_is(build, program):
    facts = product()
    numbers = tuple(int(facts[part]) for part in ("MAJOR", "MINOR", "REVISION"))
    assert BUILDS[program.machine] == build
    assert program.time_stamp == 0  # the same sources give the same bytes
    assert program.version() == (numbers + (0,), {
        "Comments": facts["COMMENTS"], "CompanyName": facts["MAKER"],
        "FileDescription": facts["TITLE"], "FileVersion": ".".join(map(str, numbers)),
        "InternalName": "taviro", "LegalCopyright": facts["COPYRIGHT"],
        "OriginalFilename": "taviro.exe", "ProductName": facts["TITLE"],
        "ProductVersion": ".".join(map(str, numbers))})
    assert program.icon_sizes(1) == [16, 20, 24, 32, 40, 48, 64, 128, 256]


@for_every_build
def test_program_asks_for_the_systems_look_and_no_rights(program):
    manifests = {name: content for (name, _), content in program.resources(RT_MANIFEST).items()}
    assert sorted(manifests) == [1, 2], "the program's, and that of its dialogs"
    manifest = xml.fromstring(manifests[1])
    found = {element.tag.split("}")[1]: element for element in manifest.iter()}
    assert found["requestedExecutionLevel"].get("level") == "asInvoker"
    assert found["requestedExecutionLevel"].get("uiAccess") == "false"
    assert "assemblyIdentity" not in found, "the map is on the screen sooner without it"
    look = {element.tag.split("}")[1]: element for element in xml.fromstring(manifests[2]).iter()}
    assert look["assemblyIdentity"].get("name") == "Microsoft.Windows.Common-Controls"
    assert found["dpiAware"].text == "true"
    assert found["dpiAwareness"].text == "PerMonitorV2, System"
    supported = [element.get("Id") for element in manifest.iter()
                 if element.tag.endswith("supportedOS")]
    assert [SUPPORTED[name] for name in supported] == ["7", "8", "8.1", "10"]


def test_window_has_the_programs_icon(desktop):
    program = desktop.program()
    program.start()
    env = desktop.display.env
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Taviro - "], env=env,
                           check=True, capture_output=True, text=True).stdout.split()
    shown = subprocess.run(["xprop", "-id", found[0], "-notype", "32c", "_NET_WM_ICON"], env=env,
                           check=True, capture_output=True, text=True).stdout
    assert str(HIGHLIGHT) in re.findall(r"\d+", shown)
    assert program.close() == 0
