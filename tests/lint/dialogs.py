# SPDX-License-Identifier: MIT
"""The dialogs' layouts, read as text beside the forms that they lay out: what the view, the
keyboard and a screen reader need of them."""

import re
from dataclasses import dataclass, field

from tree import files, read

# The largest layout that fits 640 x 480 pixels at 96 dots per inch, caption and frame included.
MOST_WIDTH, MOST_HEIGHT = 350, 230
# A layout unit is a quarter of an average letter; a fifth more, for other fonts and scalings.
UNITS_PER_LETTER = 4 * 1.2
STYLE = "DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU"

CAPTIONED = ("LTEXT", "RTEXT", "CTEXT", "GROUPBOX", "AUTOCHECKBOX", "AUTORADIOBUTTON", "PUSHBUTTON",
             "DEFPUSHBUTTON")
LABELLED = ("EDITTEXT", "LISTBOX", "COMBOBOX", "SCROLLBAR")
INPUTS = LABELLED + ("AUTOCHECKBOX", "AUTORADIOBUTTON", "PUSHBUTTON", "DEFPUSHBUTTON")
NO_TAB_STOP_OF_ITS_OWN = ("LISTBOX", "SCROLLBAR")
ROOM_BESIDE_TEXT = {"AUTOCHECKBOX": 12, "AUTORADIOBUTTON": 12, "PUSHBUTTON": 8, "DEFPUSHBUTTON": 8,
                    "GROUPBOX": 12}
# How each control of a form is laid out.
KINDS = {"Label": ("LTEXT", "RTEXT", "CTEXT"), "TextBox": ("EDITTEXT",), "ListBox": ("LISTBOX",),
         "ComboBox": ("COMBOBOX",), "CheckBox": ("AUTOCHECKBOX",), "ScrollBar": ("SCROLLBAR",),
         "OptionGroup": ("AUTORADIOBUTTON",), "GroupFrame": ("GROUPBOX",),
         "Button": ("PUSHBUTTON", "DEFPUSHBUTTON")}
STATEMENT = re.compile(r'(\w+)\s+(?:"((?:[^"]|"")*)",\s*)?(IDC_\w+)(?:\s*\+\s*(\d+))?,\s*(.*)')
MEMBER = re.compile(r'forms::(\w+) (\w+)\{\*this, L"(\w+)",\s*IDC_(\w+)(?:,\s*([^{}]*))?\};')


@dataclass
class Item:
    """One control of a layout."""
    kind: str
    text: str
    name: str
    offset: int
    x: int
    y: int
    width: int
    height: int
    style: str

    @property
    def visible(self):
        return "NOT WS_VISIBLE" not in self.style

    @property
    def mnemonic(self):
        if "SS_NOPREFIX" in self.style:
            return None
        found = re.search(r"&([^&])", self.text.replace("&&", ""))
        return found[1].upper() if found else None

    @property
    def shown_height(self):
        return 14 if self.kind == "COMBOBOX" else self.height  # the rest is the list that drops

    def __str__(self):
        return f"{self.kind} {self.text or self.name}"


@dataclass
class Layout:
    path: str
    name: str
    width: int
    height: int
    style: str
    items: list = field(default_factory=list)

    def inputs(self):
        return [item for item in self.items if item.kind in INPUTS and item.visible]


def parse(path, text):
    """The layout in a template's text."""
    head = re.search(r"^(\w+) DIALOGEX \d+, \d+, (\d+), (\d+)\nSTYLE (.*)$", text, re.MULTILINE)
    layout = Layout(str(path), head[1], int(head[2]), int(head[3]), head[4])
    body = re.search(r"^BEGIN\n(.*)^END$", text, re.MULTILINE | re.DOTALL)[1]
    for line in re.sub(r"([,|])\n\s+|\n\s+(?=\|)", r"\1 ", body).splitlines():
        kind, caption, name, offset, rest = STATEMENT.fullmatch(line.strip()).groups()
        x, y, width, height, *style = [part.strip() for part in rest.split(",")]
        layout.items.append(Item(kind, (caption or "").replace('""', '"'), name, int(offset or 0),
                                 int(x), int(y), int(width), int(height), " ".join(style)))
    return layout


def layouts(root):
    return [parse(path, read(root, path)) for path in files(root)
            if str(path).startswith("resources/dialogs/")]


def forms(root):
    """Controls by the layout's name: {name: {(control's id, offset): kind}}."""
    found = {}
    for path in files(root):
        if not re.fullmatch(r"dialogs/\w+_form\.h", str(path)):
            continue
        source = read(root, path.with_suffix(".cpp")) or ""
        name = re.search(r'\bForm\(L"(\w+)"\)', source)[1].upper()
        header = read(root, path)
        controls = found[name] = {}
        for kind, member, text, control_id, more in MEMBER.findall(header):
            assert member == text == control_id, f"{path}: {member} {text} {control_id}"
            count = _count(more, header) if kind == "OptionGroup" else 1
            for offset in range(count):
                controls[f"IDC_{control_id}", offset] = kind
    return found


def _count(text, header):
    named = re.search(rf"\b{text} = (\d+);", header)
    return int(named[1] if named else text)


def controls_that_differ(root):
    """Form and layout name the same controls, of the same kinds."""
    problems = []
    of_forms = forms(root)
    for layout in layouts(root):
        model = of_forms.pop(layout.name, None)
        if model is None:
            problems.append(f"{layout.path}: no form is called {layout.name}")
            continue
        laid_out = {(item.name, item.offset): item.kind for item in layout.items
                    if item.name != "IDC_LABEL"}
        for key in sorted(model.keys() | laid_out.keys()):
            if key not in laid_out or laid_out[key] not in KINDS.get(model.get(key), ()):
                problems.append(f"{layout.path}: {key[0]} + {key[1]} is {model.get(key)} in the "
                                f"form and {laid_out.get(key)} in the layout")
    return problems + [f"{name}: no layout" for name in of_forms]


def control_numbers_used_twice(root):
    """One number would be two controls: by name, and for an option by its group."""
    problems = []
    numbers = dict(re.findall(r"#define (IDC_\w+) \(?(-?\d+)",
                              read(root, root / "dialogs/control_ids.h") or ""))
    for layout in layouts(root):
        seen = {}
        for item in layout.items:
            if item.name not in numbers:
                problems.append(f"{layout.path}: {item.name} has no number")
                continue
            number = int(numbers[item.name]) + item.offset
            if number != -1 and number in seen:
                problems.append(f"{layout.path}: {item} and {seen[number]} are both {number}")
            seen[number] = item
    return problems


def mnemonics(root):
    """Every control that takes input has a letter of its own."""
    problems = []
    for layout in layouts(root):
        seen = {}
        for item in layout.items:
            if not item.mnemonic:
                continue
            if item.mnemonic in seen:
                problems.append(f"{layout.path}: {item} and {seen[item.mnemonic]} share a letter")
            seen[item.mnemonic] = item
        for before, item in zip([None] + layout.items, layout.items):
            bearer = before if item.kind in LABELLED else item
            needs = item.kind in INPUTS and item.visible and "ES_READONLY" not in item.style
            # Enter and Escape press these two.
            if item.name in ("IDC_cmdOK", "IDC_cmdCancel") or not needs:
                continue
            if bearer is None or not bearer.mnemonic:
                problems.append(f"{layout.path}: {item} has no letter")
    return problems


def missing_labels(root):
    """A screen reader names an edit, list, combo or bar by the text directly before it."""
    problems = []
    for layout in layouts(root):
        for before, item in zip([None] + layout.items, layout.items):
            if item.kind in LABELLED and (before is None or before.kind != "LTEXT"):
                problems.append(f"{layout.path}: no label before {item}")
    return problems


def keyboard_order(root):
    """Tab goes from top to bottom, stops at every input, and arrows stay inside a group."""
    problems = []
    for layout in layouts(root):
        inputs = layout.inputs()
        for before, item in zip(inputs, inputs[1:]):
            # Controls that overlap in height stand beside each other: left before right.
            beside = item.y < before.y + before.shown_height and before.y < item.y + item.shown_height
            if item.x <= before.x if beside else item.y < before.y:
                problems.append(f"{layout.path}: {item} comes after {before}")
        for item in inputs:
            stops = item.kind not in NO_TAB_STOP_OF_ITS_OWN or "WS_TABSTOP" in item.style
            if not stops or "NOT WS_TABSTOP" in item.style:
                problems.append(f"{layout.path}: Tab passes {item} over")
        for before, item in zip([None] + layout.items, layout.items):
            option = item.kind == "AUTORADIOBUTTON"
            starts = option and item.offset == 0
            ends = not option and before is not None and before.kind == "AUTORADIOBUTTON"
            if (starts or ends) != ("WS_GROUP" in item.style) and (option or ends):
                problems.append(f"{layout.path}: WS_GROUP is wrong at {item}")
    return problems


def default_buttons(root):
    """Enter presses one button; where there is a cancel button, Escape finds it by its number."""
    problems = []
    for layout in layouts(root):
        defaults = [item.name for item in layout.items if item.kind == "DEFPUSHBUTTON"]
        names = [item.name for item in layout.items]
        expected = "IDC_cmdOK" if "IDC_cmdOK" in names else "IDC_Command1"
        if defaults != [expected]:
            problems.append(f"{layout.path}: Enter presses {defaults}")
    return problems


def cramped_layouts(root):
    """The dialog fits a small screen, its controls the dialog, its texts their controls."""
    problems = []
    for layout in layouts(root):
        if layout.width > MOST_WIDTH or layout.height > MOST_HEIGHT:
            problems.append(f"{layout.path}: {layout.width} x {layout.height} is too large")
        if layout.style != STYLE:
            problems.append(f"{layout.path}: style {layout.style}")
        shown = [item for item in layout.items if item.visible]
        for item in shown:
            if item.x + item.width > layout.width or item.y + item.shown_height > layout.height:
                problems.append(f"{layout.path}: {item} stands outside")
            letters = len(item.text.replace("&", ""))
            needed = letters * UNITS_PER_LETTER + ROOM_BESIDE_TEXT.get(item.kind, 0)
            if item.kind in CAPTIONED and item.width < needed:
                problems.append(f"{layout.path}: {item} has {item.width} units for {needed:.0f}")
        framed = [item for item in shown if item.kind != "GROUPBOX"]
        for index, item in enumerate(framed):
            problems += [f"{layout.path}: {item} and {other} overlap"
                         for other in framed[index + 1:] if _overlap(item, other)]
    return problems


def _overlap(one, other):
    return (one.x < other.x + other.width and other.x < one.x + one.width
            and one.y < other.y + other.shown_height and other.y < one.y + one.shown_height)


def layouts_left_out(root):
    """The resource script takes every layout in."""
    script = read(root, root / "resources/taviro.rc") or ""
    return [f"{layout.path} is not included" for layout in layouts(root)
            if f'#include "{layout.path.removeprefix("resources/")}"' not in script]


CHECKS = (controls_that_differ, control_numbers_used_twice, mnemonics, missing_labels,
          keyboard_order, default_buttons, cramped_layouts, layouts_left_out)
