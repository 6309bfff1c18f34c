// SPDX-License-Identifier: MIT
#include "maps/shown_map.h"

#include "maps/app_positions.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

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
    LayOutMap();
    if (bHighlight) SetHi(Cursor.nColumn, Cursor.nRow);
}

void ShowAppMap() {
    Foreground.bAppMapShown = true;
    LayOutMap();
    Cursor.nColumn = 1;
    Cursor.nRow = 1;
    GetAppPosition(Foreground.strCurrentAppName, Cursor.nColumn, Cursor.nRow);
    SetHi(Cursor.nColumn, Cursor.nRow);
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
    return {.bAppMap = Foreground.bAppMapShown, .strAppName = Foreground.AppMapName};
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
