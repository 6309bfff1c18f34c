// SPDX-License-Identifier: MIT
// What is wrong with a map file that is to be delivered. Anybody may write a map by hand and Taviro
// takes what it understands; what we deliver must be understood whole, work, and read well.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "maps/map_grid.h"

namespace taviro {

/// Words that captions and entries may hold: those of a Czech dictionary and the keys' names,
/// small.
using KnownWords = std::set<std::wstring>;

/// Every fault of a map file, each with the cell where it is; empty when the map is good. Runs in a
/// program that was reset: texts are typed on the virtual desktop to see whether they arrive.
std::vector<std::string> FaultsOf(std::string_view strBytes, const KnownWords& Words);

/// Faults of one action code, of one command.
std::string CodeFault(int32_t nCode);
std::string CommandFault(std::wstring strCommand, const KnownWords& Words);

/// All cells of the rows that are shown.
std::vector<MapCell> ShownCells(const MapGrid& Grid);

}  // namespace taviro
