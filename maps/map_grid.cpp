// SPDX-License-Identifier: MIT
#include "maps/map_grid.h"

#include <utility>

#include "state/program_state.h"

namespace taviro {

const MapCell* MapGrid::Cell(int32_t nColumn, int32_t nRow) const {
    if (nColumn < 0 || nColumn > MAP_COLUMNS || nRow < 0 || nRow > MAP_ROWS) return nullptr;
    return &m_Cells[static_cast<size_t>(nColumn)][static_cast<size_t>(nRow)];
}

MapCell* MapGrid::Cell(int32_t nColumn, int32_t nRow) {
    return const_cast<MapCell*>(std::as_const(*this).Cell(nColumn, nRow));
}

void MapGrid::Clear() {
    for (auto& Column : m_Cells)
        Column.fill(MapCell{});
    bFileHoldsMore = bUnicodeFile = false;
}

MapGrid& ShownMap() {
    return Foreground.bAppMapShown ? AppMap : CommonMap;
}

bool CellText(int32_t nColumn, int32_t nRow, std::wstring& strText) {
    const MapCell* pCell = ShownMap().Cell(nColumn, nRow);
    if (pCell == nullptr) return false;
    strText = pCell->Caption;
    return true;
}

bool IsEmptyCell(int32_t nColumn, int32_t nRow) {
    const MapCell* pCell = ShownMap().Cell(nColumn, nRow);
    return pCell != nullptr && pCell->Caption.empty();
}

}  // namespace taviro
