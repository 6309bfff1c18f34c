// SPDX-License-Identifier: MIT
// New places for the cells in the upper rows of a map, where the letters are. What stands below
// stays. Everything is computed in the same way every time.
#pragma once

#include <cstdint>

#include "maps/map_grid.h"
#include "tools/effort/letter_counts.h"

namespace taviro::effort {

enum class Order : uint8_t {
    Frequency,  ///< the most frequent first, row by row: shortest for scanning from the first cell
    Near,       ///< the most frequent with the fewest tilts from the first cell
    Annealed,   ///< fewest tilts, found by simulated annealing, without any order to read
    Readable,   ///< the same, but the first column keeps its cells and each row goes by alphabet
};

/// Rearranges the rows 1 to nRows. Cells whose character the counts do not know go last.
void Arrange(MapGrid& Grid, int32_t nRows, Order Wanted, const LetterCounts& Counts,
             uint32_t nSeed);

/// Tilts a character with the stick, from the counts of two characters in a row.
[[nodiscard]] double ExpectedTilts(const MapGrid& Grid, const LetterCounts& Counts);

}  // namespace taviro::effort
