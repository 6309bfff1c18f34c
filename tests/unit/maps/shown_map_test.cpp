// SPDX-License-Identifier: MIT
// Which map is shown, and that a map can be returned to after others were.
#include "maps/shown_map.h"

#include "forms/main_form.h"
#include "maps/app_positions.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class ShownMapTest : public ProgramTest {
  protected:
    ShownMapTest() {
        PrepareBare();
        PutData(L"data.ini", L"[1,1]a,65\r\n[2,1]b,66\r\n");
        PutData(L"data_A.EXE.ini", L"[1,1]x,88\r\n[2,1]y,89\r\n");
        PutData(L"data_B.EXE.ini", L"[1,1]z,90\r\n[2,1]w,87\r\n");
        LoadMap(L"");
        ShowMap(true);
    }
    /// The first cell of the map into which cells are stored now.
    static std::wstring FirstCell() { return ShownMap().Cell(1, 1)->Caption; }
};

TEST_F(ShownMapTest, CommonMap_IsReturnedTo_WhenAnApplicationsMapCameMeanwhile) {
    ShowPickedMap(L"A.EXE");
    ShowPickedMap(L"");
    const MapOnScreen Before = CurrentMap();
    EXPECT_FALSE(Before.bAppMap);
    ShowPickedMap(L"A.EXE");  // the map that was loaded last before, too
    EXPECT_TRUE(ReturnToMap(Before));
    EXPECT_EQ(FirstCell(), L"a");
}

TEST_F(ShownMapTest, ApplicationsMap_IsReturnedTo_WhenAnotherCameMeanwhile) {
    ShowPickedMap(L"A.EXE");
    const MapOnScreen Before = CurrentMap();
    EXPECT_TRUE(ReturnToMap(Before)) << "it is shown all the time";
    ShowPickedMap(L"B.EXE");
    EXPECT_TRUE(ReturnToMap(Before));
    EXPECT_EQ(FirstCell(), L"x");
    EXPECT_EQ(CurrentMap().strAppName, L"A.EXE");
    ShowPickedMap(L"");
    EXPECT_TRUE(ReturnToMap(Before));
    EXPECT_EQ(FirstCell(), L"x");
}

TEST_F(ShownMapTest, ApplicationsMap_KeepsItsChanges_WhenItIsStillShown) {
    ShowPickedMap(L"A.EXE");
    const MapOnScreen Before = CurrentMap();
    AppMap.Cell(1, 1)->Caption = L"changed";
    EXPECT_TRUE(ReturnToMap(Before));
    EXPECT_EQ(FirstCell(), L"changed") << "the file is not read again";
}

TEST_F(ShownMapTest, CommonMap_IsShownInstead_WhenTheApplicationsMapHasGone) {
    ShowPickedMap(L"A.EXE");
    const MapOnScreen Before = CurrentMap();
    ShowPickedMap(L"B.EXE");
    Desktop.Failures.Always("ReadFileBytes");
    EXPECT_FALSE(ReturnToMap(Before));
    EXPECT_EQ(FirstCell(), L"a");
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"a");
}

TEST_F(ShownMapTest, Application_IsForgotten_WhenItsMapGivesWayToTheCommonOne) {
    for (const bool bLeft : {false, true}) {
        FollowApplication(L"A.EXE");
        ASSERT_EQ(FirstCell(), L"x");
        if (bLeft) {
            LeaveAppMap();
        } else {
            FollowApplication(L"OTHER.EXE");
        }
        EXPECT_EQ(FirstCell(), L"a");
        EXPECT_EQ(Foreground.strCurrentAppName, L"") << bLeft;
    }
}

TEST_F(ShownMapTest, Application_IsFollowed_WhenNeitherItNorTheOneBeforeHasAMap) {
    FollowApplication(L"OTHER.EXE");
    EXPECT_EQ(FirstCell(), L"a");
    EXPECT_EQ(Foreground.strCurrentAppName, L"OTHER.EXE");
}

TEST_F(ShownMapTest, EachApplication_HasItsOwnCell_AndTheCommonMapAnother) {
    Cursor.nColumn = 2;
    Cursor.Remember();
    FollowApplication(L"A.EXE");
    EXPECT_EQ(Cursor.nColumn, 1);
    Cursor.nColumn = 2;
    FollowApplication(L"B.EXE");
    EXPECT_EQ(Cursor.nColumn, 1);
    FollowApplication(L"A.EXE");
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"y");
    Cursor.nColumn = 1;
    LeaveAppMap();
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"b");
}

struct Place {
    int32_t nColumn, nRow;
};

// The map has the rows "a b c", "d" and "e f _ g".
TEST_F(ShownMapTest, Highlight_IsBroughtToTheNearestCell_WhenItsPlaceIsNotInTheMap) {
    const struct {
        Place Before, After;
    } ROWS[] = {{{2, 1}, {2, 1}}, {{4, 3}, {4, 3}},  {{3, 3}, {2, 3}},  {{9, 3}, {2, 3}},
                {{3, 2}, {1, 2}}, {{2, 9}, {2, 3}},  {{0, 0}, {1, 1}},  {{-5, 2}, {1, 2}},
                {{5, 1}, {3, 1}}, {{41, 1}, {3, 1}}, {{40, 40}, {2, 3}}};
    for (const auto& Row : ROWS) {
        for (const bool bAppMap : {false, true}) {
            MapGrid& Grid = bAppMap ? AppMap : CommonMap;
            FillMap(Grid, {L"a b c", L"d", L"e f"});
            Grid.Cell(4, 3)->Caption = L"g";
            Cursor.nColumn = Row.Before.nColumn;
            Cursor.nRow = Row.Before.nRow;
            Foreground.strCurrentAppName = L"A.EXE";
            SaveAppPosition(L"A.EXE", Row.Before.nColumn, Row.Before.nRow);
            bAppMap ? ShowAppMap() : ShowMap(true);
            EXPECT_EQ(Cursor.nColumn, Row.After.nColumn) << Row.Before.nColumn;
            EXPECT_EQ(Cursor.nRow, Row.After.nRow) << Row.Before.nRow;
            EXPECT_EQ(forms::FrmMain->HiIndex,
                      (Row.After.nRow - 1) * LABELS_PER_ROW + Row.After.nColumn);
        }
    }
}

TEST_F(ShownMapTest, Highlight_StandsAtTheStart_WhenTheMapIsEmpty) {
    CommonMap.Clear();
    Cursor.nColumn = 3;
    Cursor.nRow = 3;
    ShowMap(true);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
}

TEST_F(ShownMapTest, Highlight_IsInsideAFullMap_InItsLastCellToo) {
    for (int32_t nRow = 1; nRow <= MAP_ROWS; ++nRow) {
        for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn)
            CommonMap.Cell(nColumn, nRow)->Caption = L"x";
    }
    Cursor.nColumn = MAP_COLUMNS;
    Cursor.nRow = MAP_ROWS;
    ShowMap(true);
    EXPECT_EQ(Cursor.nColumn, MAP_COLUMNS);
    EXPECT_EQ(Cursor.nRow, MAP_ROWS);
}

}  // namespace
}  // namespace taviro
