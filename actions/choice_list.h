// SPDX-License-Identifier: MIT
// The choice list over the main window: labelled entries of a "*" command or of the word
// prediction; the confirmed one is launched or typed.
//
// While it is open, the list box stands in the window's upper left corner, as wide as the status
// line and half as high as the map, but at least as high as six lines where the map has room for
// them and never higher than the map. The status line grows upwards to meet it, so that nothing of
// the map shows between the two.
//
// How the text of an entry gets into the application is decided in entry_typing.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vocabulary/list_text.h"

namespace taviro {

struct ChoiceListState {
    std::vector<ChoiceEntry> Entries;  ///< one row per segment; row 0 is the hidden first segment
    int32_t nOffset = 0;               ///< how far the status line was moved up, pixels
    bool bCompletions = false;         ///< the entries complete the word being typed
};
inline ChoiceListState ChoiceList;

/// Fills and shows the list from a list's text (list_text.h). Nothing happens when the list is open
/// already.
void ShowList(const std::wstring& strText);

/// Moves the selection: the keys Down and Right to the next, any other to the previous entry;
/// at either end it stays and beeps. Announces the selected entry.
void ListMove(int32_t nVk);

/// Carries out the selected entry and closes the list; without a selection only closes it. A
/// text goes out in key-sequence notation, followed by a blank if its label ends in one.
void ListAccept();

/// Closes the list and gives the status line its place back.
void HideList();

}  // namespace taviro
