# SPDX-License-Identifier: MIT
"""The list of entries that opens over the map."""

WS_VISIBLE = 0x10000000
LB_GETCURSEL, LB_GETCOUNT, LB_GETITEMHEIGHT = 0x0188, 0x018B, 0x01A1
BORDER = 2  # pixels around the entries


class ChoiceList:
    def __init__(self, desktop, window):
        self._probe = desktop.probe
        self._display = desktop.display
        self._window = window

    def _find(self):
        return next(child for child in self._probe.children(self._window.handle)
                    if child.class_name == "ListBox")

    def handle(self):
        return self._find().handle

    def is_shown(self):
        return bool(self._find().style & WS_VISIBLE)

    def selected(self):
        return self._probe.send(self._find().handle, LB_GETCURSEL)

    def count(self):
        return self._probe.send(self._find().handle, LB_GETCOUNT)

    def area(self):
        """Left, top, right and bottom on the screen."""
        found = self._find()
        return (found.left, found.top, found.right, found.bottom)

    def click(self, row):
        left, top, right, _ = self.area()
        height = self._probe.send(self._find().handle, LB_GETITEMHEIGHT)
        self._display.click((left + right) // 2, top + BORDER + row * height + height // 2)
