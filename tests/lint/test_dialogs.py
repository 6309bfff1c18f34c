# SPDX-License-Identifier: MIT
"""The layouts of Taviro's dialogs keep their rules, and each rule finds its fault in a sample."""

import pytest

import dialogs
from tree import ROOT

# What users read in each dialog, word for word; "&" marks a letter and is not seen.
CAPTIONS = {
    "FRMAPPSETTING": {
        "Kruhový pohyb v řádku", "Kruhový pohyb ve sloupci", "Návrat na první pozici ve sloupci",
        "Návrat na první pozici na řádku", "Ohlásit změnu řádku", "Použít režim sken", "OK",
        "Storno", "Navigace:", "Režim Sken:", "Rozsah X:", "Rozsah Y:",
        "Prodleva posunu při režimu sken(ms):", "Zobrazení:", "Velikost textu:", "Šířka buňky:",
        "Výška Buňky:", "Nastavení tlačítek pákového ovladače:",
        "V políčku stiskněte nastavované tlačítko:"},
    "FRMVOICE": {"Hlasy:", "Rychlost:", "Hlasitost:", "Výška:", "OK", "Read Sentence", "Stop",
                 "Read Text"},
    "FRMABOUT": {"OK"},
    "FRMBUTTONCONFIG": {"OK", "Storno"},
    "FRMCONFIG": {"OK", "Storno"},
    "FRMMAP": set(),
}

FORM_H = """// SPDX-License-Identifier: MIT
inline constexpr int KINDS = 2;
class TestForm : public forms::Form {
    forms::TextBox Text1{*this, L"Text1", IDC_Text1};
    forms::OptionGroup optKind{*this, L"optKind",
                               IDC_optKind, KINDS};
    forms::ListBox List1{*this, L"List1", IDC_List1};
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};
    forms::Button cmdCancel{*this, L"cmdCancel", IDC_cmdCancel};
};
"""
IDS_H = """#define IDC_LABEL -1
#define IDC_cmdOK 1
#define IDC_cmdCancel 2
#define IDC_Text1 3
#define IDC_List1 4
#define IDC_optKind 5
"""
LAYOUT = """FRMTEST DIALOGEX 0, 0, 200, 120
STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
FONT 9, "Segoe UI"
BEGIN
    LTEXT "&Name:", IDC_LABEL, 10, 10, 60, 10
    EDITTEXT IDC_Text1, 80, 8, 100, 14, ES_AUTOHSCROLL
    AUTORADIOBUTTON "&One", IDC_optKind, 10, 30, 80, 12, WS_GROUP | WS_TABSTOP
    AUTORADIOBUTTON "&Two", IDC_optKind + 1, 100, 30, 80, 12
    LTEXT "&List:", IDC_LABEL, 10, 46, 60, 10, WS_GROUP
    LISTBOX IDC_List1, 10, 58, 100, 30,
        LBS_NOTIFY | WS_TABSTOP | WS_VSCROLL
    DEFPUSHBUTTON "OK", IDC_cmdOK, 40, 98, 50, 14
    PUSHBUTTON "Cancel", IDC_cmdCancel, 100, 98, 50, 14
END
"""

# Check, what to replace in the good layout, by what, what the complaint names.
FAULTS = [
    (dialogs.controls_that_differ, "FRMTEST", "FRMOTHER", "FRMOTHER"),
    (dialogs.controls_that_differ, "IDC_optKind + 1", "IDC_optKind + 2", "IDC_optKind + 2"),
    (dialogs.controls_that_differ, "LISTBOX", "COMBOBOX", "IDC_List1"),
    (dialogs.controls_that_differ, '"Cancel", IDC_cmdCancel', '"Cancel", IDC_LABEL',
     "IDC_cmdCancel"),
    (dialogs.control_numbers_used_twice, "IDC_optKind + 1", "IDC_optKind", "both 5"),
    (dialogs.control_numbers_used_twice, "IDC_Text1", "IDC_Text9", "IDC_Text9"),
    (dialogs.mnemonics, "&Two", "Tw&o", "share"),
    (dialogs.mnemonics, "&Two", "Two", "Two has no letter"),
    (dialogs.mnemonics, "&Name", "Name", "IDC_Text1 has no letter"),
    (dialogs.missing_labels, '    LTEXT "&Name:", IDC_LABEL, 10, 10, 60, 10\n', "", "IDC_Text1"),
    (dialogs.missing_labels, 'LTEXT "&List:"', 'GROUPBOX "&List:"', "IDC_List1"),
    (dialogs.keyboard_order, "10, 30, 80", "10, 2, 80", "comes after"),
    (dialogs.keyboard_order, "100, 30, 80", "2, 30, 8", "comes after"),
    (dialogs.keyboard_order, "LBS_NOTIFY | WS_TABSTOP", "LBS_NOTIFY", "passes"),
    (dialogs.keyboard_order, "ES_AUTOHSCROLL", "NOT WS_TABSTOP", "passes"),
    (dialogs.keyboard_order, "WS_GROUP | WS_TABSTOP", "WS_TABSTOP", "wrong at AUTORADIOBUTTON"),
    (dialogs.keyboard_order, "60, 10, WS_GROUP", "60, 10", "wrong at LTEXT"),
    (dialogs.keyboard_order, "100, 30, 80, 12", "100, 30, 80, 12, WS_GROUP", "&Two"),
    (dialogs.default_buttons, "DEFPUSHBUTTON", "PUSHBUTTON", "[]"),
    (dialogs.default_buttons, '    PUSHBUTTON "C', '    DEFPUSHBUTTON "C', "IDC_cmdCancel"),
    (dialogs.cramped_layouts, "0, 0, 200, 120", "0, 0, 360, 120", "too large"),
    (dialogs.cramped_layouts, "0, 0, 200, 120", "0, 0, 200, 240", "too large"),
    (dialogs.cramped_layouts, "0, 0, 200, 120", "0, 0, 170, 120", "outside"),
    (dialogs.cramped_layouts, "&Name:", "&Name of the thing:", "units"),
    (dialogs.cramped_layouts, "100, 30, 80", "60, 30, 80", "overlap"),
    (dialogs.cramped_layouts, " | WS_SYSMENU", "", "style"),
]


def tree_of(layout, script='#include "dialogs/test.rc"\n'):
    return {"dialogs/test_form.h": FORM_H, "dialogs/test_form.cpp": 'T() : Form(L"frmTest") {}\n',
            "dialogs/control_ids.h": IDS_H, "resources/dialogs/test.rc": layout,
            "resources/taviro.rc": script}


@pytest.mark.parametrize("check", dialogs.CHECKS, ids=lambda check: check.__name__)
def test_layouts_keep(check):
    problems = check(ROOT)
    assert not problems, "\n" + "\n".join(problems)


def test_every_dialog_shows_its_captions():
    shown = {layout.name: {item.text.replace("&", "") for item in layout.items}
             for layout in dialogs.layouts(ROOT)}
    assert shown.keys() == CAPTIONS.keys()
    missing = {name: texts - shown[name] for name, texts in CAPTIONS.items() if texts - shown[name]}
    assert missing == {}


@pytest.mark.parametrize("check, old, new, named", FAULTS,
                         ids=[f"{check.__name__}-{new[:20]}" for check, _, new, _ in FAULTS])
def test_check_finds(sample, check, old, new, named):
    assert old in LAYOUT
    problems = check(sample(tree_of(LAYOUT.replace(old, new))))
    assert [problem for problem in problems if named in problem], problems


def test_layout_left_out_is_found(sample):
    assert dialogs.layouts_left_out(sample(tree_of(LAYOUT, script=""))) != []


def test_form_without_layout_is_found(sample):
    texts = tree_of(LAYOUT)
    texts["dialogs/other_form.h"] = "class OtherForm {};\n"
    texts["dialogs/other_form.cpp"] = 'O() : Form(L"frmOther") {}\n'
    assert dialogs.controls_that_differ(sample(texts)) == ["FRMOTHER: no layout"]


@pytest.mark.parametrize("check", dialogs.CHECKS, ids=lambda check: check.__name__)
def test_check_accepts_a_good_layout(sample, check):
    assert check(sample(tree_of(LAYOUT))) == []
