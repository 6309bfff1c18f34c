// SPDX-License-Identifier: MIT
// Map files: "data.ini" and "data_" + application + ".ini" in the user's data folder. Line-oriented
// Windows-1250 text, "[column,row]caption,code,command"; a line that starts with "_" continues the
// command of the cell before it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "maps/map_grid.h"

namespace taviro {

/// Path of an application's map file; of the common map's when the name is empty.
std::wstring MapPath(const std::wstring& strAppName);

/// Loads a map: the common one into CommonMap when the name is empty (cells that the file does not
/// mention keep what they hold), else the application's into AppMap, which is cleared first. Does
/// not show it. Returns false when there is no such file, or it cannot be read.
bool LoadMap(const std::wstring& strAppName);

/// Reads the lines of a map file into a grid. Returns how many cell lines stored a cell.
int32_t ReadMapText(std::string_view strBytes, MapGrid& Grid);

/// The bytes of a map file that hold the grid: row by row, ended by the first row whose first cell
/// is empty.
std::string WriteMapText(const MapGrid& Grid);

/// Stores one cell into the grid on screen, lays the map out again and rewrites that map's file. A
/// file that could not be read as a map is kept beside it with ".bak" added, or, when that fails,
/// left alone. Positions outside the grid store nothing.
void SaveCell(int32_t nColumn, int32_t nRow, const MapCell& Cell);

}  // namespace taviro
