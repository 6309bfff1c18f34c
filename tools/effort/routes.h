// SPDX-License-Identifier: MIT
// The shortest ways over a map with the stick: how many tilts lead from one cell to another, and
// which. The rules of the edges are the program's; typing_run.h tries them on the program itself.
#pragma once

#include <cstdint>
#include <vector>

#include "maps/map_grid.h"

namespace taviro::effort {

struct CellPlace {
    int32_t nColumn = 0;  ///< 0: no cell
    int32_t nRow = 0;
    bool operator==(const CellPlace&) const = default;
};

struct Step {
    int32_t nRight = 0;  ///< -1 left, 1 right
    int32_t nDown = 0;   ///< -1 up, 1 down
};

/// Which edges of the map lead to the opposite one.
struct Wraps {
    bool bRow = true;      ///< setting RowWrap
    bool bColumn = false;  ///< setting ColumnWrap
};

class Routes {
  public:
    Routes(const MapGrid& Grid, Wraps Edges) : m_Grid(Grid), m_Edges(Edges) {}

    /// Cells of the rows that are shown, row by row.
    [[nodiscard]] std::vector<CellPlace> Cells() const;
    /// Tilts from one cell to another, the fewest; empty when it is the same cell.
    [[nodiscard]] std::vector<Step> Way(CellPlace From, CellPlace To) const;
    /// Tilts from one cell to every other, by Index; -1 where no way leads.
    [[nodiscard]] std::vector<int32_t> Distances(CellPlace From) const;
    [[nodiscard]] static size_t Index(CellPlace Place);
    /// Where one tilt leads.
    [[nodiscard]] CellPlace Move(CellPlace From, Step Tilt) const;

  private:
    [[nodiscard]] int32_t LastColumn(int32_t nRow) const;
    [[nodiscard]] bool IsCell(int32_t nColumn, int32_t nRow) const;

    const MapGrid& m_Grid;
    Wraps m_Edges;
};

}  // namespace taviro::effort
