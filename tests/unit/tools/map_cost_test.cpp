// SPDX-License-Identifier: MIT
// The cost model of maps: its ways agree with the program's highlight, its figures with a count by
// hand, and the delivered map is as good as we tell.
#include <filesystem>

#include "core/cursor_movement.h"
#include "maps/map_file.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"
#include "tests/unit/source_tree.h"
#include "tools/effort/arrangement.h"
#include "tools/effort/letter_counts.h"
#include "tools/effort/typing_run.h"
#include "tools/simulator/host_files.h"

namespace taviro::effort {

namespace {

constexpr int32_t LETTER_ROWS = 6;  // of the delivered maps

std::string HostFile(const std::filesystem::path& Path) {
    std::string strBytes;
    EXPECT_TRUE(simulator::ReadHostFile(SourceTree() / Path, strBytes));
    return strBytes;
}

MapGrid Delivered(const char* szName) {
    MapGrid Grid;
    (void)ReadMapText(HostFile(std::filesystem::path("data") / szName), Grid);
    return Grid;
}

const LetterCounts& CzechCounts() {
    static const LetterCounts Counts = CountLetters(HostFile("predictor/data/words.tsv"));
    return Counts;
}

class MapCost : public ProgramTest {};

const char* const FOUR_CELLS = "[1,1]a,65\r\n[2,1]h,72\r\n[1,2]o,79\r\n[2,2]j,74\r\n";

}  // namespace

TEST_F(MapCost, Routes_MoveAsTheProgramDoes) {
    PrepareBare();
    FillMap(CommonMap, {L"a b c d", L"e f", L"g h i"});
    struct Key {
        int32_t nVk;
        Step Tilt;
    };
    constexpr Key KEYS[] = {{37, {-1, 0}}, {39, {1, 0}}, {38, {0, -1}}, {40, {0, 1}}};
    for (const Wraps Edges : {Wraps{true, false}, Wraps{true, true}, Wraps{false, false}}) {
        objSetting.RowWrap(Edges.bRow ? 1 : 0);
        objSetting.ColumnWrap(Edges.bColumn ? 1 : 0);
        const Routes Ways(CommonMap, Edges);
        for (const CellPlace From : Ways.Cells()) {
            for (const Key& Pressed : KEYS) {
                Cursor.nColumn = From.nColumn;
                Cursor.nRow = From.nRow;
                MoveCursor(Pressed.nVk);
                const CellPlace Moved = Ways.Move(From, Pressed.Tilt);
                EXPECT_EQ(Cursor.nColumn, Moved.nColumn) << Pressed.nVk << " " << From.nColumn;
                EXPECT_EQ(Cursor.nRow, Moved.nRow) << Pressed.nVk << " " << From.nRow;
            }
        }
    }
}

TEST_F(MapCost, Way_IsTheShortestOverTheEdge) {
    FillMap(CommonMap, {L"a b c d e", L"f g h i j"});
    const Routes Wrapping(CommonMap, {});
    EXPECT_EQ(Wrapping.Way({1, 1}, {5, 2}).size(), 2U);
    EXPECT_EQ(Wrapping.Distances({1, 1})[Routes::Index({5, 2})], 2);
    EXPECT_EQ(Routes(CommonMap, {.bRow = false}).Way({1, 1}, {5, 2}).size(), 5U);
    EXPECT_TRUE(Wrapping.Way({1, 1}, {1, 1}).empty());
}

// a: none, h: right, o: left and down, j: right.
TEST_F(MapCost, Typing_CostsTheTiltsAndPressesCountedByHand) {
    const TypingCost Spent = TypeText(FOUR_CELLS, L"ahoj", {});
    EXPECT_EQ(Spent.strError, "");
    EXPECT_EQ(Spent.nCharacters, 4U);
    EXPECT_EQ(Spent.nMoves, 4U);
    EXPECT_EQ(Spent.nPresses, 4U);
    EXPECT_EQ(Spent.nMilliseconds, 1600U);
}

TEST_F(MapCost, Typing_ComesFromTheFirstCellEachTime_WhenPressesReset) {
    const TypingCost Spent = TypeText(FOUR_CELLS, L"jj", {.Edges = {}, .bResets = true});
    EXPECT_EQ(Spent.strError, "");
    EXPECT_EQ(Spent.nMoves, 4U);
}

TEST_F(MapCost, Scan_PassesTheCellsBefore) {
    const TypingCost Spent =
        TypeText(FOUR_CELLS, L"ho", {.Edges = {}, .bResets = true, .bScans = true});
    EXPECT_EQ(Spent.strError, "");
    EXPECT_EQ(Spent.nMoves, 3U);
    EXPECT_EQ(Spent.nPresses, 4U);
}

TEST_F(MapCost, Typing_LeavesOutWhatTheMapCannotType) {
    EXPECT_EQ(TypeText(FOUR_CELLS, L"ahoj, Jano", {}).nCharacters, 6U);
}

TEST_F(MapCost, Counts_ShareTheCharactersOfWords) {
    const LetterCounts Counts = CountLetters("# note\nab\t0\n");
    EXPECT_NEAR(Counts.Single.at(L'a'), Counts.Single.at(L'b'), 1e-9);
    EXPECT_NEAR(Counts.InARow.at({L' ', L'a'}), Counts.InARow.at({L'a', L'b'}), 1e-9);
    EXPECT_EQ(Counts.InARow.count({L'b', L'a'}), 0U);
}

TEST_F(MapCost, Arrangement_IsTheDeliveredMap) {
    MapGrid Grid = Delivered("data_abeceda.ini");
    Arrange(Grid, LETTER_ROWS, Order::Frequency, CzechCounts(), 0);
    EXPECT_EQ(WriteMapText(Grid), HostFile("data/data_sken.ini"));
}

TEST_F(MapCost, DeliveredMap_SparesAFifthOfTheAlphabetsTilts) {
    const double dAlphabet = ExpectedTilts(Delivered("data_abeceda.ini"), CzechCounts());
    EXPECT_LT(ExpectedTilts(Delivered("data.ini"), CzechCounts()), 0.8 * dAlphabet);
}

}  // namespace taviro::effort
