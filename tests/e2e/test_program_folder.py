# SPDX-License-Identifier: MIT
"""The folder that a build leaves is what a user gets: complete, small, and nothing else."""

from builds import for_every_build
from wine import BUILD, ROOT

DELIVERED = ("data", "sound", "help")
BESIDE = "comfort.ini"  # data, and not what the first start copies to the user
BUILT = {"taviro.exe", "presager.exe", "czech.dict", "czech.dict.txt"}
LARGEST_PROGRAM = 3 * 1024 * 1024  # bytes


def files_below(folder):
    return {path.relative_to(folder): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


@for_every_build
def test_program_folder_holds_the_program_and_what_is_delivered_with_it(build):
    folder = BUILD / build / "taviro"
    wanted = BUILT | {BESIDE} | {name for name in DELIVERED if (ROOT / name).exists()
                      and any((ROOT / name).iterdir())}
    assert {path.name for path in folder.iterdir()} == wanted
    assert (folder / BESIDE).read_bytes() == (ROOT / BESIDE).read_bytes()
    for name in wanted - BUILT - {BESIDE}:
        assert files_below(folder / name) == files_below(ROOT / name)
    assert ((folder / "czech.dict.txt").read_bytes()
            == (ROOT / "predictor" / "data" / "NOTICE").read_bytes())
    for program in ("taviro.exe", "presager.exe"):
        assert (folder / program).stat().st_size <= LARGEST_PROGRAM
