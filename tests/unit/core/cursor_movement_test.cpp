// SPDX-License-Identifier: MIT
#include "core/cursor_movement.h"

#include "forms/main_form.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "platform/headless/voice.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

using forms::FrmMain;

struct Position {
    int32_t nColumn, nRow;
    bool operator==(const Position&) const = default;
};
void PrintTo(const Position& At, std::ostream* pStream) {
    *pStream << "(" << At.nColumn << ", " << At.nRow << ")";
}
Position Here() {
    return {Cursor.nColumn, Cursor.nRow};
}

// A voice that writes what it is told to say into the transcript.
void InstallVoice() {
    Desktop.Classes[platform::headless::VOICE_CLASS] = platform::headless::MakePlainVoice;
}

class CursorMovement : public ProgramTest {
  protected:
    CursorMovement() {
        InstallVoice();
        PrepareBare();
        FrmVoice_Load();
        // Row lengths 3, 5, 2.
        FillMap(CommonMap, {L"a b c", L"d e f g h", L"i j"});
        ShowMap(true);
        Cursor.nPrevRow = 1;
        Desktop.TakeEffects();
    }
    static void FrmVoice_Load() { Main(); }

    static int32_t MoveFrom(Position From, int32_t nVk) {
        Cursor.nColumn = From.nColumn;
        Cursor.nRow = From.nRow;
        Cursor.nPrevRow = From.nRow;
        SetHi(From.nColumn, From.nRow);
        Desktop.TakeEffects();
        Desktop.nBeeps = 0;
        return MoveCursor(nVk);
    }
};

struct MoveCase {
    const char* szName;
    int32_t nVk;
    Position From, To;
    int32_t nResult;
    uint32_t nBeeps;
    int32_t nRowWrap = 0, nColumnWrap = 0;
    bool bScan = false;
    int32_t nScanX = 50, nScanY = 50;
};

class Move : public CursorMovement, public ::testing::WithParamInterface<MoveCase> {};

TEST_P(Move, LandsWhereTheRulesSay) {
    const MoveCase& Case = GetParam();
    objSetting.RowWrap(Case.nRowWrap);
    objSetting.ColumnWrap(Case.nColumnWrap);
    objSetting.ScanSizeX(Case.nScanX);
    objSetting.ScanSizeY(Case.nScanY);
    Modes.bScanMode = Case.bScan;
    EXPECT_EQ(MoveFrom(Case.From, Case.nVk), Case.nResult);
    EXPECT_EQ(Here(), Case.To);
    EXPECT_EQ(Desktop.nBeeps, Case.nBeeps);
}

constexpr int32_t R = KeyCode::Right, L = KeyCode::Left, D = KeyCode::Down, U = KeyCode::Up;

const MoveCase MOVE_CASES[] = {
    // right
    {"Right_Steps", R, {1, 1}, {2, 1}, 0, 0},
    {"Right_StaysAtTheRowsEnd_WithoutRowWrap", R, {3, 1}, {3, 1}, 1, 1},
    {"Right_GoesToTheRowsStart_WithRowWrap", R, {3, 1}, {1, 1}, 1, 1, 1},
    {"Right_AnyWrapOtherThanZeroWraps", R, {3, 1}, {1, 1}, 1, 1, -1},
    {"Right_WrapsAtTheRowsEnd_InScanMode_WhateverTheSetting", R, {3, 1}, {1, 1}, 1, 1, 0, 0, true},
    {"Right_WrapsAtTheScannedAreasEdge", R, {4, 2}, {1, 2}, 1, 1, 0, 0, true, 4},
    {"Right_IgnoresTheScannedArea_OutsideScanMode", R, {4, 2}, {5, 2}, 0, 0, 0, 0, false, 4},
    // left
    {"Left_Steps", L, {2, 1}, {1, 1}, 0, 0},
    {"Left_StaysAtColumnOne_WithoutRowWrap", L, {1, 2}, {1, 2}, 1, 1},
    {"Left_GoesToTheRowsLastCell_WithRowWrap", L, {1, 2}, {5, 2}, 1, 1, 1},
    {"Left_GoesToTheRowsLastCell_InScanMode", L, {1, 2}, {5, 2}, 1, 1, 0, 0, true, 2},
    // down
    {"Down_Steps", D, {2, 1}, {2, 2}, 0, 0},
    {"Down_PullsTheColumnBack_IntoAShorterRow_WithoutABeep", D, {5, 2}, {2, 3}, 0, 0},
    {"Down_StaysInTheLastRow_WithoutColumnWrap", D, {2, 3}, {2, 3}, 2, 1},
    {"Down_GoesToTheTop_WithColumnWrap", D, {2, 3}, {2, 1}, 2, 1, 0, 1},
    {"Down_GoesToTheTopOfTheScannedArea", D, {2, 2}, {2, 1}, 1, 1, 0, 0, true, 50, 2},
    {"Down_ReachesTheLastRowOfTheScannedArea", D, {2, 1}, {2, 2}, 0, 0, 0, 0, true, 50, 2},
    {"Down_EndsTheMap_InScanModeToo", D, {2, 3}, {2, 3}, 2, 1, 0, 0, true},
    // up
    {"Up_Steps", U, {2, 2}, {2, 1}, 0, 0},
    {"Up_PullsTheColumnBack_IntoAShorterRow", U, {5, 2}, {3, 1}, 0, 0},
    {"Up_StaysInRowOne_WithoutColumnWrap", U, {2, 1}, {2, 1}, 2, 1},
    {"Up_GoesToTheLastRow_WithColumnWrap", U, {2, 1}, {2, 3}, 2, 1, 0, 1},
    {"Up_GoesToTheLastRowsLastCell_WhenThatRowIsShorter", U, {3, 1}, {2, 3}, 2, 1, 0, 1},
    {"Up_ClampsToTheScannedArea_AndReturnsRowEnd", U, {5, 3}, {2, 2}, 1, 0, 0, 0, true, 2, 2},
    {"Up_ReturnsRowEnd_InScanMode_EvenAtTheTop", U, {1, 1}, {1, 1}, 1, 1, 0, 0, true},
    {"Up_ClampsTheWrappedRow_InScanMode", U, {1, 1}, {1, 2}, 1, 1, 0, 1, true, 50, 2},
    // other codes
    {"OtherCode_Stays", 13, {2, 2}, {2, 2}, 0, 0},
};
INSTANTIATE_TEST_SUITE_P(Moves, Move, ::testing::ValuesIn(MOVE_CASES),
                         [](const auto& Info) { return Info.param.szName; });

TEST_F(CursorMovement, Left_LeavesTheCursorAtZero_WhenTheRowIsFull) {
    for (int n = 1; n <= MAP_COLUMNS; ++n)
        CommonMap.Cell(n, 1)->Caption = L"x";
    EXPECT_EQ(MoveFrom({1, 1}, L), MOVE_ROW_END);
    EXPECT_EQ(Here(), (Position{0, 1}));
    EXPECT_EQ(Desktop.nBeeps, 1U);
}

TEST_F(CursorMovement, Left_GoesToTheRowsLastCell_WhenOnlyTheLastColumnIsFree) {
    for (int n = 1; n < MAP_COLUMNS; ++n)
        CommonMap.Cell(n, 1)->Caption = L"x";
    objSetting.RowWrap(1);
    EXPECT_EQ(MoveFrom({1, 1}, L), MOVE_ROW_END);
    EXPECT_EQ(Here(), (Position{MAP_COLUMNS - 1, 1}));
}

TEST_F(CursorMovement, Up_GoesToTheLastRow_WhenOnlyTheLastRowIsFree) {
    for (int n = 1; n < MAP_ROWS; ++n)
        CommonMap.Cell(1, n)->Caption = L"x";
    objSetting.ColumnWrap(1);
    EXPECT_EQ(MoveFrom({1, 1}, U), MOVE_COLUMN_END);
    EXPECT_EQ(Here(), (Position{1, MAP_ROWS - 1}));
}

TEST_F(CursorMovement, Up_LeavesTheGridsCells_WhenTheMapIsEmptyAndWraps) {
    CommonMap.Clear();
    objSetting.ColumnWrap(1);
    EXPECT_EQ(MoveFrom({1, 1}, U), MOVE_COLUMN_END);
    EXPECT_EQ(Here(), (Position{0, 0})) << "there is no last row to go to";
}

TEST_F(CursorMovement, Left_GoesToColumnOne_WhenTheRowHasNoCell) {
    objSetting.RowWrap(0);
    EXPECT_EQ(MoveFrom({1, 7}, L), MOVE_ROW_END);
    EXPECT_EQ(Here(), (Position{1, 7}));
}

TEST_F(CursorMovement, Up_WrapsToTheLastRow_BeyondRowsOfOneCell) {
    FillMap(CommonMap, {L"a b", L"c", L"d e"});
    objSetting.ColumnWrap(1);
    MoveFrom({1, 1}, U);
    EXPECT_EQ(Here(), (Position{1, 3}));
}

TEST_F(CursorMovement, Right_RunsPastTheGrid_WhenTheRowIsFull) {
    for (int n = 1; n <= MAP_COLUMNS; ++n)
        CommonMap.Cell(n, 1)->Caption = L"x";
    EXPECT_EQ(MoveFrom({40, 1}, R), MOVE_NORMAL);
    EXPECT_EQ(Here(), (Position{41, 1}));
    EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - ");
}

TEST_F(CursorMovement, Down_RunsPastTheGrid_WhenTheMapIsFull) {
    for (int n = 1; n <= MAP_ROWS; ++n)
        CommonMap.Cell(1, n)->Caption = L"x";
    EXPECT_EQ(MoveFrom({1, 20}, D), MOVE_NORMAL);
    EXPECT_EQ(Here(), (Position{1, 21}));
}

TEST_F(CursorMovement, Up_StaysAtRowZero_WhenTheMapIsFullAndWraps) {
    for (int n = 1; n <= MAP_ROWS; ++n)
        CommonMap.Cell(1, n)->Caption = L"x";
    objSetting.ColumnWrap(1);
    EXPECT_EQ(MoveFrom({1, 1}, U), MOVE_COLUMN_END);
    EXPECT_EQ(Here(), (Position{0, 0})) << "row 0 is inside the grid and has no cell";
}

TEST_F(CursorMovement, Move_UsesTheApplicationMap_WhileItIsShown) {
    FillMap(AppMap, {L"x y"});
    Foreground.bAppMapShown = true;
    objSetting.RowWrap(0);
    EXPECT_EQ(MoveFrom({2, 1}, R), MOVE_ROW_END);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"y");
}

TEST_F(CursorMovement, Move_HighlightsAnnouncesAndNamesTheCell_InThisOrder) {
    MoveFrom({1, 1}, R);
    EXPECT_EQ(FrmMain->HiIndex, 2);
    EXPECT_EQ(Desktop.TakeEffects(), (std::vector<std::string>{"say b", "caption Taviro - b"}));
}

TEST_F(CursorMovement, Move_LetsMessagesRunBetweenHighlightAndAnnouncement) {
    Desktop.nNow += 5;
    Cursor.nColumn = 1;
    SetHi(1, 1);
    Desktop.At(Desktop.nNow,
               [] { Desktop.Record("message, highlight on " + std::to_string(FrmMain->HiIndex)); });
    MoveCursor(R);
    EXPECT_EQ(Desktop.TakeEffects(),
              (std::vector<std::string>{"message, highlight on 2", "say b", "caption Taviro - b"}));
}

TEST_F(CursorMovement, RowChange_IsAnnouncedWithTheRowNumber_WhenSet) {
    objSetting.VoiceOnLineChange(1);
    FillMap(CommonMap, {L"a", L"b", L"c", L"d"});
    MoveFrom({1, 3}, D);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say řádek  4, d");
    MoveFrom({1, 3}, U);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say řádek  2, b");
}

TEST_F(CursorMovement, FirstMove_IsAnnouncedWithItsRow_WhenSet) {
    objSetting.VoiceOnLineChange(1);
    Cursor = {};
    MoveCursor(R);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say řádek  1, b") << "no row was named before";
    MoveCursor(R);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say c");
}

TEST_F(CursorMovement, MoveWithinTheRow_AnnouncesOnlyTheText_WhenRowChangesAreAnnounced) {
    objSetting.VoiceOnLineChange(-1);
    MoveFrom({1, 1}, R);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say b");
}

TEST_F(CursorMovement, RowChange_IsAnnouncedAsTheTextAlone_WhenNotSet) {
    MoveFrom({1, 1}, D);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say d");
}

TEST_F(CursorMovement, AutoRepeat_IsAnnouncedInsteadOfTheCells_AndItsCellRemembered) {
    Modes.bAutoRepeatMode = true;
    MoveFrom({1, 2}, R);
    EXPECT_EQ(Desktop.TakeEffects(),
              (std::vector<std::string>{"say autorepeat", "caption Taviro - e"}));
    EXPECT_EQ((Position{Cursor.nAnnColumn, Cursor.nAnnRow}), (Position{2, 2}));
}

TEST_F(CursorMovement, PlainMove_LeavesTheCellOfTheLastRepeatAlone) {
    Cursor.nAnnColumn = Cursor.nAnnRow = 9;
    MoveFrom({1, 2}, R);
    EXPECT_EQ((Position{Cursor.nAnnColumn, Cursor.nAnnRow}), (Position{9, 9}));
}

TEST_F(CursorMovement, RowChange_IsAnnouncedDuringAutoRepeatToo_WhenSet) {
    Modes.bAutoRepeatMode = true;
    objSetting.VoiceOnLineChange(1);
    MoveFrom({1, 1}, D);
    EXPECT_EQ(Desktop.TakeEffects().front(), "say řádek  2, d");
    EXPECT_EQ(Cursor.nAnnRow, 0);
}

TEST_F(CursorMovement, OtherCode_RefreshesHighlightAnnouncementAndCaption) {
    MoveFrom({2, 2}, 13);
    EXPECT_EQ(Desktop.TakeEffects(), (std::vector<std::string>{"say e", "caption Taviro - e"}));
}

class Scanner : public CursorMovement {
  protected:
    Scanner() {
        Modes.bScanMode = true;
        FrmMain->ScanTimer.Interval = 1000;
        FrmMain->ScanTimer.Enabled = true;
    }
    // Positions of successive steps until the scan ends by itself or after nSteps.
    static std::vector<Position> Steps(int nSteps) {
        std::vector<Position> Path;
        for (int n = 0; n < nSteps && FrmMain->ScanTimer.Enabled; ++n) {
            ScanTimer_Timer();
            Path.push_back(Here());
        }
        return Path;
    }
};

TEST_F(Scanner, RunsAlongEachRow_DropsToTheNext_AndStopsAtTheEnd) {
    Scanning.nScanDirection = R;
    EXPECT_EQ(Steps(50),
              (std::vector<Position>{
                  {2, 1}, {3, 1}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {1, 3}, {2, 3}, {1, 3}}));
    EXPECT_FALSE(FrmMain->ScanTimer.Enabled);
}

TEST_F(Scanner, RestartsAtTheTop_AndNeverStops_WhenTheScannedAreaIsLowerThanTheMap) {
    Scanning.nScanDirection = R;
    objSetting.ScanSizeY(1);
    EXPECT_EQ(Steps(5), (std::vector<Position>{{2, 1}, {3, 1}, {1, 1}, {2, 1}, {3, 1}}));
    EXPECT_EQ(Steps(500).size(), 500U);
}

TEST_F(Scanner, RunsLeftwardsUpTheRows_AndNeverStopsByItself) {
    Scanning.nScanDirection = L;
    Cursor.nColumn = 2;
    Cursor.nRow = 2;
    // A leftward wrap goes to the row's last cell, then one row up.
    EXPECT_EQ(Steps(4), (std::vector<Position>{{1, 2}, {5, 1}, {4, 1}, {3, 1}}));
    EXPECT_EQ(Steps(500).size(), 500U);
}

TEST_F(Scanner, SleepsForTheScanDelay_OnTopOfTheInterval) {
    Scanning.nScanDirection = R;
    const uint32_t nStart = Desktop.nNow;
    ScanTimer_Timer();
    EXPECT_EQ(Desktop.nNow - nStart, 0U);
    objSetting.ScanDelay(700);
    ScanTimer_Timer();
    EXPECT_EQ(Desktop.nNow - nStart, 700U);
    objSetting.ScanDelay(-5);
    ScanTimer_Timer();
    EXPECT_EQ(Desktop.nNow - nStart, 700U);
}

}  // namespace
}  // namespace taviro
