// SPDX-License-Identifier: MIT
#include "tools/effort/map_keys.h"

#include <string>

#include "maps/map_grid.h"
#include "predictor/letters.h"

namespace taviro::effort {

namespace {

constexpr int32_t LAST_ROW = 20;
constexpr int32_t LAST_COLUMN = 40;

struct NamedCell {
    wchar_t nCharacter;
    const wchar_t* szCaption;
};
constexpr NamedCell NAMED_CELLS[] = {{L' ', L"mezera"}, {L'\n', L"Enter"}, {L',', L"čárka"}};

std::wstring CaptionFor(wchar_t nCharacter) {
    for (const NamedCell& Named : NAMED_CELLS) {
        if (Named.nCharacter == nCharacter) return Named.szCaption;
    }
    return std::wstring(1, nCharacter);
}

}  // namespace

int32_t ColumnsOf(int32_t nRow) {
    for (int32_t nColumn = LAST_COLUMN; nColumn > 0; --nColumn) {
        const MapCell* pCell = CommonMap.Cell(nColumn, nRow);
        if (pCell != nullptr && !pCell->Caption.empty()) return nColumn;
    }
    return 0;
}

int32_t CellsBefore(CellPlace Place) {
    int32_t nCells = Place.nColumn - 1;
    for (int32_t nRow = 1; nRow < Place.nRow; ++nRow)
        nCells += ColumnsOf(nRow);
    return nCells;
}

CellPlace CellOf(std::wstring_view strCaption) {
    for (int32_t nRow = 1; nRow <= LAST_ROW; ++nRow) {
        for (int32_t nColumn = 1; nColumn <= LAST_COLUMN; ++nColumn) {
            const MapCell* pCell = CommonMap.Cell(nColumn, nRow);
            if (pCell != nullptr && pCell->Caption == strCaption) return {nColumn, nRow};
        }
    }
    return {};
}

std::vector<CellPlace> CellsFor(wchar_t nCharacter) {
    const CellPlace Own = CellOf(CaptionFor(nCharacter));
    if (Own.nColumn > 0) return {Own};
    if (!predictor::IsCapital(nCharacter)) return {};
    const CellPlace Caps = CellOf(L"Caps");
    const CellPlace Small = CellOf(std::wstring(1, predictor::LowerLetter(nCharacter)));
    if (Caps.nColumn == 0 || Small.nColumn == 0) return {};
    return {Caps, Small, Caps};
}

}  // namespace taviro::effort
