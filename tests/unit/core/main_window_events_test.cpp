// SPDX-License-Identifier: MIT
#include "core/main_window_events.h"

#include "actions/choice_list.h"
#include "dialogs/cell_editor_form.h"
#include "forms/main_form.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"
#include "tests/unit/source_tree.h"
#include "tools/simulator/host_files.h"

namespace taviro {
namespace {

using forms::FrmMain;

class MainWindowEvents : public ProgramTest {
  protected:
    MainWindowEvents() {
        PutData(L"data.ini",
                L"[1,1]a,65\r\n[2,1]b,66\r\n[3,1]c,67\r\n[1,2]d,68\r\n[2,2]e,69\r\n"
                L"[3,2]f,70\r\n[1,3]g,71\r\n[2,3]h,72\r\n[3,3]i,73\r\n");
        Start();
        Desktop.MainRect = {.nLeft = 100, .nTop = 200, .nRight = 300, .nBottom = 400};
    }
    static void ClickAt(int32_t nX, int32_t nY,
                        forms::MouseButton nButton = forms::MouseButton::Left) {
        Desktop.Pointer = Desktop.MainInnerCorner();
        Desktop.Pointer.nX += nX;
        Desktop.Pointer.nY += nY;
        FrmMain->Label2.OnMouseUp(nButton);
    }
    static void LayOutCells(int32_t nWidth, int32_t nHeight) {
        Program.nCellWidth = nWidth;
        Program.nCellHeight = nHeight;
        ShowMap(true);
    }
    // A click on a cell's first pixel, its last one, and the gap behind it selects that cell.
    static void ExpectClicksOn(int32_t nColumn, int32_t nRow) {
        const int32_t nIndex = (nRow - 1) * LABELS_PER_ROW + nColumn;
        const forms::Label& Cell = *FrmMain->CellLabel(nIndex);
        const std::pair<int32_t, int32_t> PLACES[] = {
            {0, 0}, {Cell.Width - 1, Cell.Height - 1}, {Cell.Width, Cell.Height}};
        for (const auto& [nX, nY] : PLACES) {
            SetHi(1, 1);
            ClickAt(Cell.Left + nX, Cell.Top + nY);
            ASSERT_EQ(FrmMain->HiIndex, nIndex) << "column " << nColumn << " row " << nRow;
            ASSERT_EQ(Cursor.nColumn, nColumn);
            ASSERT_EQ(Cursor.nRow, nRow);
            ASSERT_EQ(FrmMain->Caption.Get(), L"Taviro - " + Cell.Caption.Get());
        }
    }
    static void ExpectClicksOnAll() {
        for (int32_t nRow = 1; nRow <= MAP_ROWS; ++nRow) {
            for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
                if (IsEmptyCell(nColumn, nRow)) continue;
                ExpectClicksOn(nColumn, nRow);
                if (HasFatalFailure()) return;
            }
        }
    }
};

TEST_F(MainWindowEvents, Click_SelectsTheCellUnderThePointer_AndRunsNothing) {
    LayOutCells(60, 15);
    ClickAt(61 + 45, 2 * 16 + 7);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 3);
    EXPECT_EQ(FrmMain->HiIndex, 102);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"h");
    EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - h");
    EXPECT_TRUE(Desktop.Sent.empty());
}

TEST_F(MainWindowEvents, Click_SelectsItsCell_OnTheWholeDeliveredMapAtEverySize) {
    std::string strMap;
    ASSERT_TRUE(simulator::ReadHostFile(SourceTree() / "data" / "data.ini", strMap));
    CommonMap.Clear();
    ASSERT_GT(ReadMapText(strMap, CommonMap), 0);
    for (const int32_t nColumn : {1, 2, 5, MAP_COLUMNS})  // whatever it leaves free
        CommonMap.Cell(nColumn, MAP_ROWS)->Caption = L"x";
    const std::pair<int32_t, int32_t> SIZES[] = {{1, 16}, {2, 3},   {5, 1},     {30, 40},
                                                 {59, 2}, {60, 15}, {100, 196}, {196, 196}};
    for (const auto& [nWidth, nHeight] : SIZES) {
        SCOPED_TRACE(std::to_string(nWidth) + " x " + std::to_string(nHeight));
        LayOutCells(nWidth, nHeight);
        ASSERT_NO_FATAL_FAILURE(ExpectClicksOnAll());
    }
}

TEST_F(MainWindowEvents, Click_ChangesNothing_WhereNoCellIs) {
    CommonMap.Cell(3, 1)->Caption.clear();
    LayOutCells(60, 15);
    SetHi(2, 2);
    const std::pair<int32_t, int32_t> PLACES[] = {{-1, 5},         {5, -1},   {130, 5}, {5, 3 * 16},
                                                  {5, 3 * 16 + 5}, {5000, 5}, {5, 5000}};
    for (const auto& [nX, nY] : PLACES) {
        ClickAt(nX, nY);
        EXPECT_EQ(FrmMain->HiIndex, 52) << nX << ", " << nY;
        EXPECT_EQ(Cursor.nColumn, 1) << nX << ", " << nY;
        ClickAt(nX, nY, forms::MouseButton::Right);
        EXPECT_EQ(frmConfig->IsLoaded(), nX == 130) << "only an empty place of a row can be edited";
        frmConfig->cmdCancel.Click();
        Cursor = {};
        SetHi(2, 2);
    }
}

TEST_F(MainWindowEvents, Click_FindsEveryRow_OfAMapWithASingleColumn) {
    for (int32_t nRow = 1; nRow <= 3; ++nRow)
        CommonMap.Cell(2, nRow)->Caption.clear();
    LayOutCells(60, 15);
    ExpectClicksOn(1, 2);
    ExpectClicksOn(1, 3);
}

TEST_F(MainWindowEvents, RightClick_OffersAnEmptyPlaceOfARow_WhichTheHighlightLeavesAgain) {
    CommonMap.Cell(3, 1)->Caption.clear();
    LayOutCells(60, 15);
    ClickAt(130, 5, forms::MouseButton::Right);
    EXPECT_EQ(frmConfig->ComboX.ListIndex + 1, 3);
    EXPECT_EQ(frmConfig->ComboY.ListIndex + 1, 1);
    frmConfig->cmdCancel.Click();
    EXPECT_EQ(FrmMain->HiIndex, 2);
    EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - b");
}

TEST_F(MainWindowEvents, RightClick_NamesItsCell_BeforeTheEditorTakesTheScreen) {
    LayOutCells(60, 15);
    Desktop.TakeEffects();
    ClickAt(65, 5, forms::MouseButton::Right);
    const Effects Seen = Desktop.TakeEffects();
    ASSERT_GE(Seen.size(), 2U);
    EXPECT_EQ(Seen[0], "caption Taviro - b");
    EXPECT_EQ(Seen[1], "frmConfig shown");
}

TEST_F(MainWindowEvents, Click_OnTheRaisedStatusLineSelectsNothing_WhileAListIsOpen) {
    LayOutCells(60, 40);
    ShowList(L"*T;a");
    ClickAt(5, 2 * 41 + 20);
    EXPECT_EQ(FrmMain->HiIndex, 1);
}

TEST_F(MainWindowEvents, Click_ChangesNothing_WhenACellHasNoSize) {
    for (const auto& [nWidth, nHeight] : {std::pair{0, 0}, {0, 15}, {60, 0}}) {
        LayOutCells(nWidth, nHeight);
        for (const int32_t n : {0, 1, 2}) {
            ClickAt(n, n);
            EXPECT_EQ(FrmMain->HiIndex, 1) << nWidth << " x " << nHeight << " at " << n;
        }
    }
}

TEST_F(MainWindowEvents, ControlBox_TestsEachWordOnceInOrder_AndIsEmptied) {
    FrmMain->txtCmd.Text = std::wstring(L"rightdown");
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(FrmMain->txtCmd.Text.Get(), L"");
    FrmMain->txtCmd.Text = std::wstring(L"right up");
    EXPECT_EQ(Cursor.nColumn, 3);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"c");
}

TEST_F(MainWindowEvents, ControlBox_KnowsEachWord) {
    const struct {
        const wchar_t* szWord;
        int32_t nColumn, nRow;
        const wchar_t* szTyped;
    } Rows[] = {{.szWord = L"up", .nColumn = 2, .nRow = 1, .szTyped = L""},
                {.szWord = L"down", .nColumn = 2, .nRow = 3, .szTyped = L""},
                {.szWord = L"left", .nColumn = 1, .nRow = 2, .szTyped = L""},
                {.szWord = L"right", .nColumn = 3, .nRow = 2, .szTyped = L""},
                {.szWord = L"enter", .nColumn = 2, .nRow = 2, .szTyped = L"e"},
                {.szWord = L"other", .nColumn = 2, .nRow = 2, .szTyped = L""}};
    for (const auto& Row : Rows) {
        SCOPED_TRACE(platform::ToUtf8(Row.szWord));
        Cursor.nColumn = Cursor.nRow = 2;
        Desktop.Keyboard.strTyped.clear();
        FrmMain->txtCmd.Text = std::wstring(L"x ") + Row.szWord + L" " + Row.szWord;
        EXPECT_EQ(Cursor.nColumn, Row.nColumn);
        EXPECT_EQ(Cursor.nRow, Row.nRow);
        EXPECT_EQ(Desktop.Keyboard.strTyped, Row.szTyped);
        EXPECT_EQ(FrmMain->txtCmd.Text.Get(), L"");
    }
}

TEST_F(MainWindowEvents, ControlBox_GoesUpDownLeftRight_ThenEnters) {
    Cursor.nColumn = Cursor.nRow = 2;
    Desktop.TakeEffects();
    FrmMain->txtCmd.Text = std::wstring(L"enter right left down up");
    EXPECT_EQ(
        Desktop.TakeEffects(),
        (std::vector<std::string>{"caption Taviro - b", "caption Taviro - e", "caption Taviro - d",
                                  "caption Taviro - e", "SendInput: vk 69 down, vk 69 up"}));
}

TEST_F(MainWindowEvents, ControlBox_RunsTheCell_OnEnter) {
    FrmMain->txtCmd.Text = std::wstring(L"enter");
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
}

TEST_F(MainWindowEvents, ControlBox_IgnoresCapitals) {
    FrmMain->txtCmd.Text = std::wstring(L"RIGHT Enter");
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    EXPECT_EQ(FrmMain->txtCmd.Text.Get(), L"");
}

TEST_F(MainWindowEvents, Resize_StretchesTheClickSurface) {
    FrmMain->Label2.Left = 7;
    FrmMain->Label2.Top = 8;
    FrmMain->SetScale(321, 123);
    EXPECT_EQ(FrmMain->Label2.Left, 0);
    EXPECT_EQ(FrmMain->Label2.Top, 0);
    EXPECT_EQ(FrmMain->Label2.Width, 321);
    EXPECT_EQ(FrmMain->Label2.Height, 123);
}

}  // namespace
}  // namespace taviro
