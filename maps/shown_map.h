// SPDX-License-Identifier: MIT
// Which map is on screen, under which name, and on which of its cells the highlight stands: the one
// place that changes them. What is shown is read from Foreground (program_state.h) and ShownMap().
#pragma once

#include <string>

namespace taviro {

/// Lays out the common map and shows it; bHighlight also moves the highlight to the cursor, which
/// is brought into the map first.
void ShowMap(bool bHighlight);

/// Lays out the loaded application map and shows it with the application's last cell highlighted;
/// an application seen for the first time starts at column 1, row 1.
void ShowAppMap();

/// Moves the highlight to the cursor and names its cell in the caption. A cursor that stands
/// outside the map, or behind a row's end, comes to the nearest cell of its row first.
void HighlightCursor();

/// Another application came to the front: the cell of the outgoing one is kept, and the new one's
/// map is shown, or the common map on its remembered cell when it has none. A process that could
/// not be named has none.
void FollowApplication(const std::wstring& strAppName);

/// Keeps the application's cell and goes back to the common map, on its remembered cell.
void LeaveAppMap();

/// The common map on its remembered cell; the application's cell is not kept.
void ShowCommonMapAgain();

/// Shows a map that was picked by its name; the common one when the name is empty or has no map
/// that can be loaded. The application in front stays the one whose cell is kept.
void ShowPickedMap(const std::wstring& strAppName);

/// A map as it can be returned to.
struct MapOnScreen {
    bool bAppMap = false;
    std::wstring strAppName;  ///< whose map it is; empty for the common one
    bool operator==(const MapOnScreen&) const = default;
};
MapOnScreen CurrentMap();

/// Makes that map the one that cells are stored into, without laying it out. Returns false when it
/// cannot be loaded any more; the common map is shown then.
bool ReturnToMap(const MapOnScreen& Map);

}  // namespace taviro
