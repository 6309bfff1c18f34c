// SPDX-License-Identifier: MIT
// What the cell editor cannot store: that it says so, and what becomes of edits when another cell
// is to be shown.
#include "forms/main_form.h"
#include "tests/unit/dialogs/cell_editor_fixture.h"

namespace taviro {
namespace {

constexpr const wchar_t* GRID_FILE = L"[1,1]a,65\r\n[2,1]b,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n";

/// What OK says, and nothing else; the editor stays as it is.
std::string Refusal() {
    Desktop.TakeEffects();
    frmConfig->cmdOK.Click();
    EXPECT_TRUE(frmConfig->Visible);
    Effects Said = Desktop.TakeEffects();
    EXPECT_EQ(Said.size(), 1U);
    return Said.empty() ? "" : Said.front();
}

TEST_F(CellEditorTest, PlaceThatTheMapCannotHold_IsRefusedWithAMessage) {
    const std::string strOutside =
        "information \"Mapa má nejvýše 40 sloupců a 20 řádků. Vyberte jiné místo.\" titled "
        "\"Nastavení položky - a\"";
    const std::string strApart =
        "information \"Řádky mapy následují za sebou a každý začíná v prvním sloupci. Vyberte jiné "
        "místo.\" titled \"Nastavení položky - a\"";
    const struct {
        int32_t nColumn, nRow;
        const std::string& strWhy;
    } ROWS[] = {{41, 1, strOutside}, {1, 21, strOutside}, {50, 50, strOutside},
                {2, 3, strApart},    {1, 4, strApart},    {40, 20, strApart}};
    for (const auto& Row : ROWS) {
        SCOPED_TRACE(std::to_string(Row.nColumn) + "," + std::to_string(Row.nRow));
        ShowCommon(GRID_FILE);
        OpenAt(1, 1);
        frmConfig->Text4.Type(L"kept");
        frmConfig->ComboX.Select(Row.nColumn - 1);
        frmConfig->ComboY.Select(Row.nRow - 1);
        EXPECT_EQ(Refusal(), Row.strWhy);
        EXPECT_EQ(CommonFile(), GRID_FILE);
        frmConfig->ComboX.Select(2);
        frmConfig->ComboY.Select(0);
        Ok();
        EXPECT_FALSE(frmConfig->IsLoaded());
        EXPECT_EQ(CommonMap.Cell(3, 1)->Caption, L"kept");
        CommonMap.Cell(3, 1)->Caption.clear();
    }
}

TEST_F(CellEditorTest, FirstRow_IsNotReachedEither_WithoutItsFirstCell) {
    ShowCommon(GRID_FILE);
    OpenAt(1, 1);
    CommonMap.Clear();  // as when a script gives the program another map
    frmConfig->ComboX.Select(1);
    Ok();
    EXPECT_TRUE(frmConfig->Visible);
    EXPECT_TRUE(IsEmptyCell(2, 1));
}

TEST_F(CellEditorTest, RefusedPlace_IsRefusedOverItsOwnMap_WhenThatLeftTheScreenMeanwhile) {
    ShowCommon(GRID_FILE);
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n[2,1]y,66\r\n");
    OpenAt(2, 1);
    ShowMap(true);
    HighlightCursor();
    frmConfig->ComboY.Select(4);
    Ok();
    EXPECT_TRUE(frmConfig->Visible);
    EXPECT_EQ(forms::FrmMain->CellLabel(2)->Caption.Get(), L"y");
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"y") << "the highlighted one";
}

TEST_F(CellEditorTest, NewRow_BeginsBelowTheLast) {
    ShowCommon(GRID_FILE);
    OpenAt(1, 3);
    frmConfig->Text4.Type(L"nový");
    Ok();
    EXPECT_EQ(CommonFile(), std::wstring(GRID_FILE) + L"[1,3]nový,0\r\n");
}

TEST_F(CellEditorTest, RemovalOfWhatIsNowhere_IsNoEditToRefuse) {
    ShowCommon(GRID_FILE);
    OpenAt(1, 1);
    frmConfig->Text4.Type(L"");
    frmConfig->ComboY.Select(9);
    Ok();
    EXPECT_FALSE(frmConfig->IsLoaded());
    EXPECT_EQ(CommonFile(), GRID_FILE);
}

TEST_F(CellEditorTest, CursorOutsideTheMap_OpensAnEmptyCellAndHarmsNone) {
    for (const auto& [nColumn, nRow] : {std::pair{45, 1}, {60, 70}, {0, 0}, {-3, 1}}) {
        SCOPED_TRACE(std::to_string(nColumn) + "," + std::to_string(nRow));
        ShowCommon(GRID_FILE);
        OpenAt(nColumn, nRow);
        EXPECT_EQ(Text(frmConfig->Text4), "");
        EXPECT_EQ(frmConfig->OptionType.Selected, CELL_KIND_NO_KEY);
        frmConfig->Text4.Type(L"nowhere");
        EXPECT_NE(Refusal(), "");
        frmConfig->cmdCancel.Click();
        EXPECT_EQ(CommonFile(), GRID_FILE);
        EXPECT_EQ(Cursor.nColumn, nColumn > 2 ? 2 : 1) << "the highlight is back in the map";
        EXPECT_EQ(Cursor.nRow, nRow > 2 ? 2 : 1);
    }
}

TEST_F(CellEditorTest, KeyCell_IsRefusedWithAMessage_WithoutAKey) {
    OpenCell(L"x,0,calc");
    frmConfig->OptionType.Choose(CELL_KIND_KEY);
    for (const bool bCtrl : {false, true}) {
        frmConfig->chkCTRL.Value = bCtrl;
        EXPECT_EQ(Refusal(),
                  "information \"Vyberte klávesu, kterou má buňka stisknout.\" titled "
                  "\"Nastavení položky - x\"");
    }
    frmConfig->ComboKey.SelectText(L"S");
    EXPECT_EQ(SavedCell(), "x,20083,calc");
}

TEST_F(CellEditorTest, RightClickOnAnotherCell_SaysThatAChosenPlaceIsLost) {
    for (const bool bColumn : {true, false}) {
        SCOPED_TRACE(bColumn ? "column" : "row");
        ShowCommon(GRID_FILE);
        OpenAt(1, 1);
        (bColumn ? frmConfig->ComboX : frmConfig->ComboY).Select(2);
        Cursor.nColumn = 2;
        Desktop.TakeEffects();
        frmConfig->ShowCursorCell();
        EXPECT_EQ(Desktop.TakeEffects().size(), 2U) << "the message, then the form";
        frmConfig->cmdCancel.Click();
    }
}

TEST_F(CellEditorTest, RightClickOnAnotherCell_ShowsThatCell_AndSaysWhatIsLost) {
    ShowCommon(GRID_FILE);
    OpenAt(1, 1);
    frmConfig->Text4.Type(L"jiná");
    frmConfig->ShowCursorCell();
    EXPECT_EQ(Text(frmConfig->Text4), "jiná") << "the same cell: its edits stay";
    Cursor.nColumn = 2;
    Desktop.TakeEffects();
    frmConfig->ShowCursorCell();
    EXPECT_EQ(Text(frmConfig->Text4), "b");
    EXPECT_EQ(frmConfig->ComboX.ListIndex, 1);
    EXPECT_EQ(
        Desktop.TakeEffects(),
        (Effects{"information \"Úpravy položky „a“ se neuložily.\" titled \"Nastavení položky - "
                 "b\"",
                 "frmConfig shown"}));
    Cursor.nRow = 2;
    frmConfig->ShowCursorCell();
    EXPECT_EQ(Text(frmConfig->Text4), "d");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"frmConfig shown"}) << "nothing was edited";
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n[2,1]y,66\r\n[1,2]z,67\r\n[2,2]w,68\r\n");
    Cursor.nColumn = Cursor.nRow = 2;
    frmConfig->ShowCursorCell();
    EXPECT_EQ(Text(frmConfig->Text4), "w") << "the same place of another map";
    frmConfig->Text4.Type(L"v");
    Ok();
    EXPECT_EQ(CommonFile(), GRID_FILE);
    EXPECT_EQ(AppMap.Cell(2, 2)->Caption, L"v");
}

}  // namespace
}  // namespace taviro
