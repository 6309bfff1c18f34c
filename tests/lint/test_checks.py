# SPDX-License-Identifier: MIT
"""Each check finds its fault in a bad sample, and nothing in a good one."""

import pytest

import floors
import meaning
import sizes
import style
import words

LICENCE = "// SPDX-License-Identifier: MIT\n"
SHEBANG = "#!/usr/bin/env bash\n"

# Check, a tree with one fault, what the complaint names.
BAD = [
    (floors.upward_includes, {"maps/a.cpp": '#include "core/b.h"\n', "core/b.h": ""}, "core/b.h"),
    (floors.upward_includes, {"maps/a.cpp": "#include <core/b.h>\n", "core/b.h": ""}, "core/b.h"),
    (floors.upward_includes, {"maps/a.cpp": '#include "feedback/b.h"\n'}, "feedback/b.h"),
    (floors.upward_includes, {"core/a.cpp": '#include "main.cpp"\n'}, "main.cpp"),
    (floors.upward_includes, {"maps/a.cpp": '#include "tests/unit/b.h"\n'}, "tests/unit/b.h"),
    (floors.upward_includes, {"maps/a.cpp": '#include "elsewhere/b.h"\n'}, "no known floor"),
    (floors.upward_includes, {"core/a.cpp": '#include "platform/win32/b.h"\n'}, "platform/win32/b.h"),
    (floors.upward_includes, {"core/a.cpp": '#include "platform/headless/b.h"\n'}, "headless/b.h"),
    (floors.upward_includes, {"platform/a.h": '#include "platform/win32/b.h"\n'}, "win32/b.h"),
    (floors.upward_includes, {"platform/win32/a.h": '#include "maps/b.h"\n'}, "maps/b.h"),
    (floors.upward_includes, {"platform/win32/a.h": '#include "platform/headless/b.h"\n'}, "headless"),
    (floors.upward_includes, {"core/win32/a.h": '#include "platform/headless/b.h"\n'}, "headless"),
    (floors.upward_includes, {"predictor/a.cpp": '#include "platform/b.h"\n'}, "platform/b.h"),
    (floors.upward_includes, {"predictor/a.cpp": '#include "predictor/win32/b.h"\n'}, "win32/b.h"),
    (floors.upward_includes, {"core/a.cpp": '#include "predictor/b.h"\n'}, "predictor/b.h"),
    (floors.include_cycles, {"maps/a.h": '#include "maps/b.h"\n',
                             "maps/b.h": '#include "maps/a.h"\n'}, "maps/a.h -> maps/b.h"),
    (floors.include_cycles, {"maps/a.h": '#include "maps/b.h"\n', "maps/b.h": "#include <maps/c.h>",
                             "maps/c.h": '#include "maps/a.h"\n'}, "maps/c.h -> maps/a.h"),
    (meaning.meaning_elsewhere, {"actions/a.cpp": "n = nCode / 1000;\n"}, "takes a code apart"),
    (meaning.meaning_elsewhere, {"dialogs/a.cpp": "n = nCode % 10'000;\n"}, "takes a code apart"),
    (meaning.meaning_elsewhere, {"core/a.cpp": "constexpr int VK_ENTER = 13;\n"}, "names a key"),
    (meaning.meaning_elsewhere, {"core/a.cpp": "    SendVirtualKey(13);\n"}, "holds a key number"),
    (meaning.meaning_elsewhere, {"input/a.cpp": "if (nVk == 13) {\n"}, "holds a key number"),
    (meaning.meaning_elsewhere, {"maps/a.cpp": "if (n == L'" + "|') {\n"}, "holds a mark"),
    (meaning.meaning_elsewhere, {"settings/a.cpp": 'auto s = L"*act' + 'ion";\n'}, "button's word"),
    (meaning.second_writers, {"core/a.cpp": "    Foreground.bAppMapShown = true;\n"}, "which map"),
    (meaning.second_writers, {"maps/a.cpp": "    Foreground.AppMapName.clear();\n"}, "which map"),
    (meaning.second_writers, {"core/a.cpp": "    Modes.Set(Mode::Arrow);\n"}, "the mode"),
    (meaning.second_writers, {"dialogs/a.cpp": "    Modes.bAppMode = false;\n"}, "the mode"),
    (meaning.second_writers, {"core/a.cpp": "    Modes.bListMode = false;\n"}, "the list"),
    (meaning.second_writers, {"actions/a.cpp": "    Modes.bAutoRepeatMode = false;\n"}, "repeats"),
    (meaning.second_writers, {"input/a.cpp": "    Comfort.bWatch = true;\n"}, "comfort.ini"),
    (meaning.disturbed_dead_keys,
     {"platform/win32/a.cpp": "    return ToAsciiEx(nVk, 0, State, &n, 0, hLayout);\n"}, "dead key"),
    (floors.foreign_headers, {"core/a.cpp": "#include <windows.h>\n"}, "<windows.h>"),
    (floors.foreign_headers, {"core/a.cpp": "#  include <filesystem>\n"}, "<filesystem>"),
    (floors.foreign_headers, {"platform/headless/a.cpp": "#include <windows.h>\n"}, "<windows.h>"),
    (floors.missing_folders, {"maps/a.h": ""}, "core/"),
    (sizes.long_files, {"core/a.cpp": "\n" * 401}, "401 lines"),
    (sizes.long_files, {"tools/a.py": "\n" * 401}, "401 lines"),
    (sizes.long_files, {"test": SHEBANG + "\n" * 400}, "401 lines"),
    (sizes.long_procedures, {"tools/a.py": "def grown():\n" + "    pass\n" * 60}, "grown has 61"),
    (sizes.long_procedures, {"run": SHEBANG + "grown() {\n" + "    :\n" * 59 + "}\n"}, "grown has 61"),
    (style.unformatted_files, {".clang-format": "BasedOnStyle: Google\n",
                               "core/a.cpp": "int  a ;\n"}, "core/a.cpp"),
    (style.shell_faults, {"a.sh": SHEBANG + "cd $1\n"}, "SC2164"),
    (words.unfinished_work, {"core/a.cpp": "// TO" + "DO: later\n"}, "core/a.cpp:1"),
    (words.unfinished_work, {"docs/a.md": "text\nx" + "xx\n"}, "docs/a.md:2"),
    (words.foreign_origins, {"docs/a.md": "see the sp" + "ec\n"}, "docs/a.md:1"),
    (words.foreign_origins, {"docs/a.md": "as Part " + "1.2 says\n"}, "docs/a.md:1"),
    (words.foreign_origins, {"run": "cd /wo" + "rk/main\n"}, "run:1"),
    (words.missing_licence_lines, {"core/a.h": "#pragma once\n"}, "core/a.h"),
    (words.missing_licence_lines, {"core/a.cpp": "\n" + LICENCE}, "core/a.cpp"),
    (words.missing_licence_lines, {"tools/a.sh": SHEBANG}, "tools/a.sh"),
]

# The floors of the samples.
DESIGN = """
| 8 | `main.cpp` | `windows.h` | |
| 6 | `core/` | | |
| beside 6 | `core/win32/` | `windows.h` | |
| 4 | `maps/` `feedback/` | | |
| 2 | `platform/` | | |
| beside 2 | `platform/win32/` | `windows.h` | |
| beside 2 | `platform/headless/` | | |
| 1 | `state/` | | |
| 0 | `vocabulary/` `win32/com/` | `windows.h` | |
| above `win32/com/` | `predictor/` | | |
| above `predictor/` `win32/com/` | `predictor/win32/` | | |
| 9 | `tests/unit/` `tests/win32/` | `gtest/gtest.h` | |
Every folder may use the headers that only compute: `string`
`vector`.
"""

GOOD = {
    "docs/design.md": DESIGN,
    ".clang-format": "BasedOnStyle: Google\n",
    "state/a.h": LICENCE,
    "core/a.h": LICENCE + '#include "maps/a.h"\n',
    "maps/a.h": LICENCE + '#include "state/a.h"\n',
    "maps/b.cpp": LICENCE + "#include <state/a.h>\n",
    "feedback/a.h": LICENCE,
    "predictor/a.h": LICENCE + '#include "win32/com/a.h"\n',
    "predictor/win32/x.cpp": LICENCE + '#include "predictor/a.h"\n#include "win32/com/a.h"\n',
    "win32/com/a.h": LICENCE + "#include <windows.h>\n",
    "vocabulary/a.cpp": LICENCE + "constexpr int VK_ENTER = 13;\n",
    "maps/shown_map.cpp": LICENCE + "void f() {\n  Foreground.bAppMapShown = true;\n  f();\n}\n",
    "core/b.cpp": LICENCE + "bool b = Modes.bArrowMode == true && nKey >= 1;\n",
    "platform/a.h": LICENCE,
    "platform/win32/view.cpp": LICENCE + '#include <windows.h>\n\n#include "platform/a.h"\n',
    "platform/win32/a.h": LICENCE,
    "platform/headless/a.h": LICENCE + '#include "platform/a.h"\n',
    "core/win32/x.cpp": LICENCE + '#include "platform/win32/a.h"\n',
    "main.cpp": LICENCE + '#include <windows.h>\n\n#include "platform/win32/a.h"\n',
    "tests/unit/x_test.cpp": LICENCE + '#include <gtest/gtest.h>\n\n#include "platform/headless/a.h"\n',
    "tests/win32/x_test.cpp": LICENCE + '#include "core/a.h"\n#include "predictor/win32/a.h"\n',
    "tools/a.py": "# SPDX-License-Identifier: MIT\ndef whole():\n" + "    pass\n" * 59,
    "tools/b.sh": SHEBANG + "# SPDX-License-Identifier: MIT\nwhole() {\n" + "    :\n" * 58
                  + "}\nwhole\n",
    "tools/a.sh": SHEBANG + "# SPDX-License-Identifier: MIT\ntrue\n",
    "data/data.ini": "[1,1]TO" + "DO,65\n",
    "docs/long.md": "\n" * 1000,
}


@pytest.mark.parametrize("check, texts, named", BAD,
                         ids=[f"{check.__name__}-{named}" for check, _, named in BAD])
def test_check_finds(sample, check, texts, named):
    problems = check(sample({"docs/design.md": DESIGN, **texts}))
    assert [problem for problem in problems if named in problem], problems


@pytest.mark.parametrize("check", sorted({check for check, _, _ in BAD}, key=lambda c: c.__name__),
                         ids=lambda check: check.__name__)
def test_check_accepts_a_good_tree(sample, check):
    assert check(sample(GOOD)) == []


def test_long_table_is_exempt_until_it_is_short(sample):
    root = sample({"maps/table.cpp": "\n" * 500, "maps/short.cpp": "\n"})
    assert sizes.long_files(root, {"maps/table.cpp": "a table"}) == []
    assert "can go" in sizes.long_files(root, {"maps/table.cpp": "a table",
                                               "maps/short.cpp": "was a table"})[0]
