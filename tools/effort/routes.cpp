// SPDX-License-Identifier: MIT
#include "tools/effort/routes.h"

#include <algorithm>
#include <deque>

namespace taviro::effort {

namespace {

constexpr Step STEPS[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};

}  // namespace

size_t Routes::Index(CellPlace Place) {
    constexpr auto ROW_LENGTH = static_cast<size_t>(MAP_COLUMNS) + 1;
    return static_cast<size_t>(Place.nRow) * ROW_LENGTH + static_cast<size_t>(Place.nColumn);
}

bool Routes::IsCell(int32_t nColumn, int32_t nRow) const {
    const MapCell* pCell = m_Grid.Cell(nColumn, nRow);
    return nColumn >= 1 && nRow >= 1 && pCell != nullptr && !pCell->Caption.empty();
}

int32_t Routes::LastColumn(int32_t nRow) const {
    int32_t nColumn = 0;
    while (IsCell(nColumn + 1, nRow))
        ++nColumn;
    return nColumn;
}

std::vector<CellPlace> Routes::Cells() const {
    std::vector<CellPlace> All;
    for (int32_t nRow = 1; IsCell(1, nRow); ++nRow) {
        for (int32_t nColumn = 1; IsCell(nColumn, nRow); ++nColumn)
            All.push_back({nColumn, nRow});
    }
    return All;
}

CellPlace Routes::Move(CellPlace From, Step Tilt) const {
    if (Tilt.nRight != 0) {
        const int32_t nLast = LastColumn(From.nRow);
        const int32_t nColumn = From.nColumn + Tilt.nRight;
        if (nColumn >= 1 && nColumn <= nLast) return {nColumn, From.nRow};
        if (!m_Edges.bRow) return From;
        return {nColumn < 1 ? nLast : 1, From.nRow};
    }
    int32_t nRow = From.nRow + Tilt.nDown;
    if (!IsCell(1, nRow)) {
        if (!m_Edges.bColumn) return From;
        nRow = nRow < 1 ? Cells().back().nRow : 1;
    }
    return {std::min(From.nColumn, LastColumn(nRow)), nRow};
}

std::vector<int32_t> Routes::Distances(CellPlace From) const {
    std::vector<int32_t> Found(Index({MAP_COLUMNS, MAP_ROWS}) + 1, -1);
    std::deque<CellPlace> Waiting{From};
    Found[Index(From)] = 0;
    for (; !Waiting.empty(); Waiting.pop_front()) {
        const CellPlace Here = Waiting.front();
        for (const Step& Tilt : STEPS) {
            const CellPlace There = Move(Here, Tilt);
            if (Found[Index(There)] >= 0) continue;
            Found[Index(There)] = Found[Index(Here)] + 1;
            Waiting.push_back(There);
        }
    }
    return Found;
}

std::vector<Step> Routes::Way(CellPlace From, CellPlace To) const {
    std::vector<CellPlace> Before(Index({MAP_COLUMNS, MAP_ROWS}) + 1);
    std::vector<Step> Last(Before.size());
    std::deque<CellPlace> Waiting{From};
    Before[Index(From)] = From;
    for (; !Waiting.empty() && Before[Index(To)].nColumn == 0; Waiting.pop_front()) {
        for (const Step& Tilt : STEPS) {
            const CellPlace There = Move(Waiting.front(), Tilt);
            if (Before[Index(There)].nColumn != 0) continue;
            Before[Index(There)] = Waiting.front();
            Last[Index(There)] = Tilt;
            Waiting.push_back(There);
        }
    }
    std::vector<Step> Tilts;
    if (Before[Index(To)].nColumn == 0) return Tilts;
    for (CellPlace Here = To; !(Here == From); Here = Before[Index(Here)])
        Tilts.push_back(Last[Index(Here)]);
    std::reverse(Tilts.begin(), Tilts.end());
    return Tilts;
}

}  // namespace taviro::effort
