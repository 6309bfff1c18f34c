// SPDX-License-Identifier: MIT
#include "maps/shown_map.h"

#include <algorithm>

#include "maps/app_positions.h"
#include "maps/map_file.h"
#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

// A map may have become smaller since, or the place be another's. In a row the cells behind a gap
// are cells too.
void KeepCursorInMap() {
    const MapGrid& Grid = ShownMap();
    const auto HasCell = [&](int32_t nColumn, int32_t nRow) {
        const MapCell* pCell = Grid.Cell(nColumn, nRow);
        return pCell != nullptr && !pCell->Caption.empty();
    };
    int32_t nRows = 0;
    while (HasCell(1, nRows + 1))
        ++nRows;
    Cursor.nRow = std::max(1, std::min(Cursor.nRow, nRows));
    if (Cursor.nColumn >= 1 && HasCell(Cursor.nColumn, Cursor.nRow)) return;
    int32_t nColumns = 0;
    while (HasCell(nColumns + 1, Cursor.nRow))
        ++nColumns;
    Cursor.nColumn = std::max(1, std::min(Cursor.nColumn, nColumns));
}

// Shows an application's map if there is one.
bool ShowMapOf(const std::wstring& strAppName) {
    // A map without a name would be the common one.
    if (strAppName.empty() || !LoadMap(strAppName)) return false;
    ShowAppMap();
    Foreground.AppMapName = strAppName;
    return true;
}

void ForgetApplication() {
    Foreground.strCurrentAppName.clear();
    ShowCommonMapAgain();
}

}  // namespace

void ShowMap(bool bHighlight) {
    Foreground.bAppMapShown = false;
    if (bHighlight) KeepCursorInMap();  // first: the layout names its cell in the caption
    LayOutMap();
    if (bHighlight) SetHi(Cursor.nColumn, Cursor.nRow);
}

void ShowAppMap() {
    Foreground.bAppMapShown = true;
    LayOutMap();
    Cursor.nColumn = 1;
    Cursor.nRow = 1;
    GetAppPosition(Foreground.strCurrentAppName, Cursor.nColumn, Cursor.nRow);
    KeepCursorInMap();
    SetHi(Cursor.nColumn, Cursor.nRow);
}

void HighlightCursor() {
    KeepCursorInMap();
    SetHi(Cursor.nColumn, Cursor.nRow);
    NameCursorInCaption();
}

void FollowApplication(const std::wstring& strAppName) {
    SaveAppPosition(Foreground.strCurrentAppName, Cursor.nColumn, Cursor.nRow);
    Foreground.strCurrentAppName = strAppName;
    if (ShowMapOf(strAppName) || !Foreground.bAppMapShown) return;
    ForgetApplication();
}

void LeaveAppMap() {
    SaveAppPosition(Foreground.strCurrentAppName, Cursor.nColumn, Cursor.nRow);
    ForgetApplication();
}

void ShowCommonMapAgain() {
    Cursor.Restore();
    ShowMap(true);
}

void ShowPickedMap(const std::wstring& strAppName) {
    if (!ShowMapOf(strAppName)) ShowMap(true);
}

MapOnScreen CurrentMap() {
    if (!Foreground.bAppMapShown) return {};
    return {.bAppMap = true, .strAppName = Foreground.AppMapName};
}

bool ReturnToMap(const MapOnScreen& Map) {
    if (!Map.bAppMap) {
        Foreground.bAppMapShown = false;
        return true;
    }
    if (Foreground.bAppMapShown && Foreground.AppMapName == Map.strAppName) return true;
    if (!LoadMap(Map.strAppName)) {
        ShowMap(true);
        return false;
    }
    Foreground.bAppMapShown = true;
    Foreground.AppMapName = Map.strAppName;
    return true;
}

}  // namespace taviro
