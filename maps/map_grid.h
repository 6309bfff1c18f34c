// SPDX-License-Identifier: MIT
// The two maps in memory: fixed grids of cells, read and written with every index checked.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace taviro {

inline constexpr int32_t MAP_COLUMNS = 40;  ///< last column that a grid holds; 0 is never used
inline constexpr int32_t MAP_ROWS = 20;     ///< last row that a grid holds; 0 is never used
inline constexpr int32_t MAP_SEARCH_END =
    50;  ///< walks over a map go on to this, wider than a grid

/// One cell of a map.
struct MapCell {
    std::wstring Caption;  ///< shown and spoken; empty: there is no cell here
    int32_t Code = 0;      ///< action code; 0: the command is carried out instead
    std::wstring Command;  ///< command text, may be empty
    bool operator==(const MapCell&) const = default;
};

/// A grid of cells, columns 0 to 40 and rows 0 to 20.
class MapGrid {
  public:
    /// The cell, nullptr when the position is outside the grid.
    MapCell* Cell(int32_t nColumn, int32_t nRow);
    const MapCell* Cell(int32_t nColumn, int32_t nRow) const;
    /// Empties every cell.
    void Clear();

    /// The file of this grid holds what a save would not write: it may be locked, or no map at all,
    /// have cells behind the map's end, or characters that could not be read. A save must not
    /// destroy it.
    bool bFileHoldsMore = false;
    /// The file begins with a byte order mark: it is written as UTF-8, because its letters need not
    /// be of the code page.
    bool bUnicodeFile = false;

  private:
    std::array<std::array<MapCell, MAP_ROWS + 1>, MAP_COLUMNS + 1> m_Cells;
};

inline MapGrid CommonMap;  ///< selection and scanning modes
inline MapGrid AppMap;     ///< the application map that is loaded

/// The grid on screen.
MapGrid& ShownMap();

/// Text of a cell of the map on screen. Returns false, and leaves strText alone, when the position
/// is outside the grid.
bool CellText(int32_t nColumn, int32_t nRow, std::wstring& strText);

/// Whether the cell of the map on screen is inside the grid and has no text.
bool IsEmptyCell(int32_t nColumn, int32_t nRow);

}  // namespace taviro
