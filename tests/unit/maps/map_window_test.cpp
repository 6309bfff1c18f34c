// SPDX-License-Identifier: MIT
#include "maps/map_window.h"

#include "forms/main_form.h"
#include "maps/app_positions.h"
#include "maps/key_names.h"
#include "maps/shown_map.h"
#include "maps/text_measure.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

class MapWindow : public ProgramTest {
  protected:
    MapWindow() {
        PrepareBare();
        Program.nCellWidth = 40;
        Program.nCellHeight = 30;
    }
    static forms::Label& LabelAt(int32_t nColumn, int32_t nRow) {
        return *FrmMain->CellLabel((nRow - 1) * LABELS_PER_ROW + nColumn);
    }
    static bool IsHighlighted(int32_t nIndex) {
        const auto& Cell = *FrmMain->CellLabel(nIndex);
        return Cell.BackColour == forms::COLOUR_WHITE && Cell.TextColour == forms::COLOUR_BLACK;
    }
};

TEST_F(MapWindow, Cell_StandsInItsColumnAndRow_OnePixelApart) {
    FillMap(CommonMap, {L"a b c", L"d e f"});
    ShowMap(true);
    const auto& Cell = LabelAt(3, 2);
    EXPECT_EQ(Cell.strName, L"lblControl53");
    EXPECT_EQ(Cell.Left, 82);
    EXPECT_EQ(Cell.Top, 31);
    EXPECT_EQ(Cell.Width, 40);
    EXPECT_EQ(Cell.Height, 30);
}

TEST_F(MapWindow, Cell_IsWhiteOnBlack_InBoldArialOfTheSetSize) {
    Program.nCellTextSize = 11;
    FillMap(CommonMap, {L"a b"});
    ShowMap(false);
    const auto& Cell = LabelAt(2, 1);
    EXPECT_EQ(Cell.BackColour, forms::COLOUR_BLACK);
    EXPECT_EQ(Cell.TextColour, forms::COLOUR_WHITE);
    EXPECT_EQ(Cell.TextFont.Get(), (forms::Font{.strName = L"Arial", .nSize = 11, .bBold = true}));
    EXPECT_TRUE(Cell.Visible);
}

TEST_F(MapWindow, Window_IsAsWideAsTheLongestRow_AndEndsBelowTheStatusLine) {
    FillMap(CommonMap, {L"a", L"a b c d e f g h i j", L"a b"});
    ShowMap(true);
    EXPECT_EQ(FrmMain->nScaleWidth, 9 * 41 + 40);
    const auto& Status = FrmMain->Label1;
    EXPECT_EQ(Status.Top, 2 * 31 + 30 + 1);
    EXPECT_EQ(Status.Left, 0);
    EXPECT_EQ(Status.Width, FrmMain->nScaleWidth);
    EXPECT_EQ(FrmMain->nScaleHeight, Status.Top + Status.Height);
    EXPECT_EQ(FrmMain->Width, (9 * 41 + 40) * 15);
    EXPECT_EQ(FrmMain->Height, (93 + Status.Height + 20 + 2 * 4 + 19) * 15);
}

TEST_F(MapWindow, StatusLine_BeginsAtTheWindowsEdge_WhereverItStood) {
    FillMap(CommonMap, {L"a"});
    FrmMain->Label1.Left = 5;
    ShowMap(true);
    EXPECT_EQ(FrmMain->Label1.Left, 0);
}

TEST_F(MapWindow, Sizes_AreBounded_WhateverTheSettingsSay) {
    FillMap(CommonMap, {L"a b", L"c"});
    Program.nCellWidth = 8193;
    Program.nCellHeight = 8193;
    Program.nCellTextSize = 2161;
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 1).Width, 8192);
    EXPECT_EQ(LabelAt(1, 1).Height, 8192);
    EXPECT_EQ(LabelAt(1, 1).TextFont.Get().nSize, 2160);
    Program.nCellWidth = Program.nCellHeight = -1;
    Program.nCellTextSize = 0;
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 1).Width, 0);
    EXPECT_EQ(LabelAt(1, 1).Height, 0);
    EXPECT_EQ(LabelAt(1, 1).TextFont.Get().nSize, 1);
}

TEST_F(MapWindow, Window_FollowsTheScreensResolution) {
    Desktop.nDpi = 144;
    FillMap(CommonMap, {L"a b"});
    ShowMap(true);
    EXPECT_EQ(FrmMain->Width, 81 * 10);
}

TEST_F(MapWindow, Layout_EndsAtTheFirstRowWithoutAFirstCell) {
    FillMap(CommonMap, {L"a"});
    CommonMap.Cell(1, 3)->Caption = L"x";
    ShowMap(true);
    EXPECT_NE(FrmMain->CellLabel(50), nullptr);
    EXPECT_EQ(FrmMain->CellLabel(51), nullptr);
}

TEST_F(MapWindow, Layout_UsesFiftyLabelsARow_WhateverTheMapsWidth) {
    FillMap(CommonMap, {L"a", L"b"});
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 2).Caption.Get(), L"b");
    EXPECT_EQ(FrmMain->CellLabel(100)->Caption.Get(), L"");
    EXPECT_EQ(FrmMain->CellLabel(101), nullptr);
}

TEST_F(MapWindow, Window_GrowsToColumnFifty_WhenTheLastColumnHasACaption) {
    FillMap(CommonMap, {L"a"});
    CommonMap.Cell(40, 1)->Caption = L"z";
    ShowMap(true);
    EXPECT_EQ(LabelAt(50, 1).Caption.Get(), L"z");
    EXPECT_EQ(FrmMain->nScaleWidth, 49 * 41 + 40);
}

TEST_F(MapWindow, FullMap_UsesEveryLabel) {
    for (int r = 1; r <= MAP_ROWS; ++r) {
        for (int c = 1; c <= MAP_COLUMNS; ++c)
            CommonMap.Cell(c, r)->Caption = L"x";
    }
    ShowMap(true);
    EXPECT_NE(FrmMain->CellLabel(1000), nullptr);
    EXPECT_EQ(FrmMain->CellLabel(0), nullptr);
    EXPECT_EQ(FrmMain->CellLabel(1001), nullptr);
}

TEST_F(MapWindow, EmptyMap_ShowsOnlyTheStatusLine_OneCellWide) {
    ShowMap(true);
    EXPECT_EQ(FrmMain->CellLabel(1), nullptr);
    EXPECT_EQ(FrmMain->nScaleWidth, 40);
    EXPECT_EQ(FrmMain->Label1.Top, 31);
}

TEST_F(MapWindow, EmptyMap_HidesTheCellsOfTheMapBeforeIt) {
    FillMap(CommonMap, {L"a b"});
    ShowMap(true);
    ShowAppMap();
    EXPECT_FALSE(LabelAt(1, 1).Visible);
    ShowMap(true);
    EXPECT_TRUE(LabelAt(1, 1).Visible);
}

TEST_F(MapWindow, SmallerMap_LeavesTheOldRowsInPlaceBelowTheWindow) {
    FillMap(CommonMap, {L"a", L"b", L"c", L"d", L"e"});
    ShowMap(true);
    FillMap(AppMap, {L"x", L"y"});
    ShowAppMap();
    EXPECT_EQ(LabelAt(1, 5).Caption.Get(), L"e");
    EXPECT_EQ(LabelAt(1, 5).Top, 4 * 31);
    EXPECT_LE(FrmMain->nScaleHeight, LabelAt(1, 5).Top);
}

TEST_F(MapWindow, Caption_IsLeftAligned_OnlyWhenItIsWiderThanItsCell) {
    // The virtual font is 5 pixels a character at first (8 points at 96 dpi are 11 pixels high).
    FillMap(CommonMap, {L"12345678 123456789"});
    Program.nCellWidth = 8 * 6;
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 1).TextAlignment, forms::Alignment::Centre);
    EXPECT_EQ(LabelAt(2, 1).TextAlignment, forms::Alignment::Left);
}

TEST_F(MapWindow, FirstLayout_MeasuresWithTheLabelsInitialFont_LaterOnesWithTheCellFont) {
    Program.nCellTextSize = 20;
    FillMap(CommonMap, {L"a"});
    ShowMap(true);
    EXPECT_EQ(Desktop.MeasureFont.strFaceName, L"MS Sans Serif");
    EXPECT_EQ(Desktop.MeasureFont.nHeight, -11);
    EXPECT_EQ(Desktop.MeasureFont.nWeight, 400);
    Program.nCellTextSize = 30;
    ShowMap(true);
    EXPECT_EQ(Desktop.MeasureFont.strFaceName, L"Arial");
    EXPECT_EQ(Desktop.MeasureFont.nHeight, -27);  // of the layout before: 20 points
    EXPECT_EQ(Desktop.MeasureFont.nWeight, 800);
}

TEST_F(MapWindow, Layout_MakesOneMeasuringContextAndReleasesIt) {
    FillMap(CommonMap, {L"a b c", L"d e f"});
    ShowMap(true);
    EXPECT_EQ(Desktop.nMeasureContexts, 1U);
    EXPECT_FALSE(Desktop.bMeasuring);
}

TEST_F(MapWindow, MeasureFont_CutsALongFaceNameAndKeepsItsStyles) {
    PrepareMeasureFont({.strName = std::wstring(40, L'f'),
                        .nSize = 10,
                        .bItalic = true,
                        .bUnderline = true,
                        .bStrikeOut = true});
    EXPECT_EQ(Desktop.MeasureFont.strFaceName.size(), 32U);
    EXPECT_EQ(Desktop.MeasureFont.nHeight, -13);
    EXPECT_TRUE(Desktop.MeasureFont.bItalic);
    EXPECT_TRUE(Desktop.MeasureFont.bUnderline);
    EXPECT_TRUE(Desktop.MeasureFont.bStrikeOut);
    PrepareMeasureFont({.nSize = 20});
    EXPECT_EQ(Desktop.nMeasureContexts, 1U) << "a prepared context is kept";
    ReleaseMeasureFont();
    EXPECT_EQ(MeasureText(L"abc"), platform::TextSize{});
}

TEST_F(MapWindow, SetHi_HighlightsTheLabelOfTheCell_WhateverTheMapsWidth) {
    FillMap(CommonMap, {L"a b", L"c d", L"e f"});
    ShowMap(true);
    SetHi(2, 3);
    EXPECT_EQ(FrmMain->HiIndex, 102);
    EXPECT_TRUE(IsHighlighted(102));
    EXPECT_FALSE(IsHighlighted(1));
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"f");
}

TEST_F(MapWindow, SetHi_TouchesOnlyTwoLabels) {
    FillMap(CommonMap, {L"a b c"});
    ShowMap(true);
    std::vector<std::wstring> Changed;
    FrmMain->OnShowChange = [&](forms::Control& Control, forms::Aspect nAspect) {
        if (nAspect == forms::Aspect::Look) Changed.push_back(Control.strName);
    };
    SetHi(3, 1);
    EXPECT_EQ(Changed, (std::vector<std::wstring>{L"lblControl1", L"lblControl1", L"lblControl3",
                                                  L"lblControl3"}));
}

TEST_F(MapWindow, SetHi_ChangesNoColour_WhenThePositionIsOutsideTheLabels) {
    FillMap(CommonMap, {L"a b"});
    ShowMap(true);
    for (const auto& [nColumn, nRow] : {std::pair{0, 1}, {1, 0}, {51, 1}, {1, 51}, {-5, -5}}) {
        SetHi(nColumn, nRow);
        EXPECT_EQ(FrmMain->HiIndex, 1);
        EXPECT_TRUE(IsHighlighted(1));
    }
}

TEST_F(MapWindow, SetHi_HighlightsButKeepsTheStatusLine_BeyondTheGridsColumns) {
    FillMap(CommonMap, {L"a b"});
    ShowMap(true);
    SetHi(45, 1);
    EXPECT_TRUE(IsHighlighted(45));
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"a");
}

TEST_F(MapWindow, SetHi_BeforeTheFirstLayout_IsTakenUpByIt) {
    FillMap(CommonMap, {L"a b"});
    SetHi(1, 1);
    ShowMap(true);
    EXPECT_TRUE(IsHighlighted(1));
}

TEST_F(MapWindow, ShowMap_WithoutHighlight_LeavesTheHighlightOff) {
    FillMap(CommonMap, {L"a b"});
    ShowMap(true);
    ShowMap(false);
    EXPECT_FALSE(IsHighlighted(1));
    EXPECT_EQ(FrmMain->HiIndex, 1);
}

TEST_F(MapWindow, ShowMap_NamesTheCellOfTheCursorInTheCaption) {
    FillMap(CommonMap, {L"a b"});
    Cursor.nColumn = 2;
    ShowMap(true);
    EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - b");
    EXPECT_FALSE(Foreground.bAppMapShown);
}

TEST_F(MapWindow, ShowMap_KeepsTheCaption_WhenTheCursorIsOutsideTheGrid) {
    FillMap(CommonMap, {L"a b"});
    FrmMain->Caption = L"before";
    Cursor.nColumn = 41;
    ShowMap(false);
    EXPECT_EQ(FrmMain->Caption.Get(), L"before");
}

TEST_F(MapWindow, ShowAppMap_NamesTheCellAsItStoodBeforeTheSwitch) {
    FillMap(AppMap, {L"x y"});
    Foreground.strCurrentAppName = L"A.EXE";
    Cursor.nColumn = 2;
    ShowAppMap();
    EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - y");
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_TRUE(IsHighlighted(1));
}

TEST_F(MapWindow, ShowAppMap_RestoresTheApplicationsLastCell_OrTheFirst) {
    FillMap(AppMap, {L"a b c", L"d e f"});
    SaveAppPosition(L"A.EXE", 3, 2);
    Foreground.strCurrentAppName = L"A.EXE";
    ShowAppMap();
    EXPECT_EQ(Cursor.nColumn, 3);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"f");
    EXPECT_TRUE(Foreground.bAppMapShown);
    Foreground.strCurrentAppName = L"B.EXE";
    ShowAppMap();
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
}

TEST_F(MapWindow, Layout_SurvivesAbsurdCellSizes) {
    FillMap(CommonMap, {L"a b", L"c d"});
    for (const int32_t nSize : {0, -1, INT32_MIN, INT32_MAX}) {
        Program.nCellWidth = Program.nCellHeight = Program.nCellTextSize = nSize;
        ShowMap(true);
        EXPECT_GE(FrmMain->Width, 0);
        EXPECT_GT(FrmMain->Height, 0);
    }
}

using AppPositions = ProgramTest;

TEST_F(AppPositions, Get_LeavesThePositionAlone_WhenTheApplicationIsUnknown) {
    SaveAppPosition(L"A.EXE", 5, 6);
    int32_t nColumn = 7, nRow = 8;
    GetAppPosition(L"a.exe", nColumn, nRow);  // names are compared exactly
    EXPECT_EQ(nColumn, 7);
    EXPECT_EQ(nRow, 8);
    GetAppPosition(L"A.EXE", nColumn, nRow);
    EXPECT_EQ(nColumn, 5);
    EXPECT_EQ(nRow, 6);
}

TEST_F(AppPositions, Save_ReplacesTheEarlierPosition) {
    SaveAppPosition(L"A", 1, 2);
    SaveAppPosition(L"B", 3, 4);
    SaveAppPosition(L"A", 5, 6);
    int32_t nColumn = 0, nRow = 0;
    GetAppPosition(L"A", nColumn, nRow);
    EXPECT_EQ(nColumn, 5);
    EXPECT_EQ(AppPosTable[2].strAppName, L"");
    GetAppPosition(L"B", nColumn, nRow);
    EXPECT_EQ(nColumn, 3);
}

TEST_F(AppPositions, Save_WithoutAName_LeavesTheEntryFree) {
    SaveAppPosition(L"", 9, 9);
    EXPECT_EQ(AppPosTable[0].nColumn, 9);
    int32_t nColumn = 7, nRow = 7;
    GetAppPosition(L"", nColumn, nRow);
    EXPECT_EQ(nColumn, 7) << "a free entry is nobody's";
    SaveAppPosition(L"A", 1, 2);
    EXPECT_EQ(AppPosTable[0].strAppName, L"A");
}

TEST_F(AppPositions, Save_RecordsNothing_WhenAllHundredEntriesAreTaken) {
    for (int n = 0; n < 100; ++n)
        SaveAppPosition(L"APP" + std::to_wstring(n), n, n);
    SaveAppPosition(L"ONE MORE", 5, 5);
    int32_t nColumn = 0, nRow = 0;
    GetAppPosition(L"ONE MORE", nColumn, nRow);
    EXPECT_EQ(nColumn, 0);
    GetAppPosition(L"APP99", nColumn, nRow);
    EXPECT_EQ(nColumn, 99);
}

TEST(KeyNames, Table_HoldsEveryKeyInItsPlace) {
    KeyTable = {};
    InitKeyTable();
    EXPECT_EQ(KeyTable[0].Name, L"A");
    EXPECT_EQ(KeyTable[0].Code, 65);
    EXPECT_EQ(KeyTable[41].Code, 1048);
    EXPECT_EQ(KeyTable[63].Name, L"mezera");
    EXPECT_EQ(KeyTable[63].Code, 32);
    EXPECT_EQ(KeyTable[100].Name, L"větší");
    EXPECT_EQ(KeyTable[100].Code, 1062);
    for (const KeyName& Entry : KeyTable) {
        EXPECT_FALSE(Entry.Name.empty());
        EXPECT_LT(Entry.Code, 10000) << "no entry carries a modifier";
        EXPECT_NE(Entry.Code, 91) << "the Windows key is a modifier of its own";
    }
}

TEST_F(MapWindow, Captions_AreCentredInTheirPlaces_WhenTheMeasuringContextIsRefused) {
    FillMap(CommonMap, {L"12345678901234567890 b"});
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 1).TextAlignment, forms::Alignment::Left) << "as long as it is measured";
    const int32_t nLeft = LabelAt(2, 1).Left;
    Desktop.Failures.Always("CreateMeasureContext");
    ShowMap(true);
    EXPECT_EQ(LabelAt(1, 1).TextAlignment, forms::Alignment::Centre);
    EXPECT_EQ(LabelAt(1, 1).Caption.Get(), L"12345678901234567890");
    EXPECT_EQ(LabelAt(2, 1).Left, nLeft);
}

}  // namespace
}  // namespace taviro
