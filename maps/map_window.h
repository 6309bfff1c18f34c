// SPDX-License-Identifier: MIT
// The map on the main window: one label a cell, the highlight, the status line and the window's
// size.
#pragma once

#include <cstdint>

namespace taviro {

inline constexpr int32_t LABELS_PER_ROW = 50;  ///< label index = (row - 1) * 50 + column

/// Lays out the map on screen: labels, status line and the window's size. The highlight stays.
void LayOutMap();

/// Names the cell under the cursor in the window's caption; outside the grid nothing happens.
void NameCursorInCaption();

/// Moves the highlight to a cell and shows its caption in the status line. Outside columns and rows
/// 1 to 50 nothing happens.
void SetHi(int32_t nColumn, int32_t nRow);

/// The cell that a pixel of the window belongs to: the gap behind a cell is its own. Returns false,
/// and leaves the rest alone, where there is none: beside the map, under the status line, or when
/// cells have no size. A place without a caption in a row of the map is found too.
[[nodiscard]] bool CellAt(int32_t nX, int32_t nY, int32_t& nColumn, int32_t& nRow);

}  // namespace taviro
