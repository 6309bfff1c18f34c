// SPDX-License-Identifier: MIT
// The grids in memory, and the measuring font of their captions.
#include "maps/map_grid.h"

#include <utility>

#include "maps/text_measure.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class MapStore : public ProgramTest {};

TEST_F(MapStore, FontsHeight_IsRoundedToTheNearestPixel) {
    const struct {
        int32_t nDpi, nSize, nHeight;
    } Rows[] = {{.nDpi = 96, .nSize = 9, .nHeight = -12},
                {.nDpi = 100, .nSize = 9, .nHeight = -13},
                {.nDpi = 100, .nSize = 7, .nHeight = -10},
                {.nDpi = 96, .nSize = 10, .nHeight = -13}};
    for (const auto& Row : Rows) {
        Desktop.nDpi = Row.nDpi;
        PrepareMeasureFont({.strName = L"Arial", .nSize = Row.nSize});
        EXPECT_EQ(Desktop.MeasureFont.nHeight, Row.nHeight) << Row.nDpi << ", " << Row.nSize;
        ReleaseMeasureFont();
    }
}

TEST_F(MapStore, Grid_HoldsColumnAndRowZero_AndForgetsAllWhenCleared) {
    MapGrid Grid;
    for (const auto& [nColumn, nRow] : {std::pair{0, 0}, {MAP_COLUMNS, MAP_ROWS}}) {
        ASSERT_NE(Grid.Cell(nColumn, nRow), nullptr);
        Grid.Cell(nColumn, nRow)->Caption = L"x";
    }
    for (const auto& [nColumn, nRow] :
         {std::pair{-1, 0}, {0, -1}, {MAP_COLUMNS + 1, 0}, {0, MAP_ROWS + 1}})
        EXPECT_EQ(Grid.Cell(nColumn, nRow), nullptr) << nColumn << ", " << nRow;
    Grid.bFileHoldsMore = true;
    Grid.Clear();
    EXPECT_EQ(Grid.Cell(0, 0)->Caption, L"");
    EXPECT_EQ(Grid.Cell(MAP_COLUMNS, MAP_ROWS)->Caption, L"");
    EXPECT_FALSE(Grid.bFileHoldsMore);
}

}  // namespace
}  // namespace taviro
