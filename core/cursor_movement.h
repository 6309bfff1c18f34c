// SPDX-License-Identifier: MIT
// Moves the highlighted cell one step, with the map's edges and the wrap settings, and says where
// it landed; steps it by itself while scanning.
#pragma once

#include <cstdint>

namespace taviro {

inline constexpr int32_t MOVE_NORMAL = 0;
inline constexpr int32_t MOVE_ROW_END = 1;     ///< wrapped or bounced at the end of a row
inline constexpr int32_t MOVE_COLUMN_END = 2;  ///< wrapped or bounced at the end of a column

/// One step in the direction of an arrow key. Every wrap or bounce beeps. In scan mode the scanned
/// area bounds the map, and an upward step always returns MOVE_ROW_END. Another key only refreshes
/// highlight and announcement.
int32_t MoveCursor(int32_t nVk);

/// What follows a sideways move that returned nResult: at the row's end the next row (rightwards)
/// or the previous one (leftwards), at the map's end the end of the scan. Returns false, and does
/// nothing, when the move was not sideways.
bool GoOnAfterRow(int32_t nVk, int32_t nResult);

/// One step of automatic scanning, and what follows it. Then pauses for the scan delay.
void ScanTimer_Timer();

struct ScanState {
    int32_t nScanDirection = 0;  ///< KeyCode::Right or KeyCode::Left, set when a scan starts
};
inline ScanState Scanning;

}  // namespace taviro
