// SPDX-License-Identifier: MIT
#include "core/main_window_events.h"

#include "forms/main_form.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

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
        Program.nCellWidth = 60;
        Program.nCellHeight = 15;
        Desktop.MainRect = {.nLeft = 100, .nTop = 200, .nRight = 300, .nBottom = 400};
    }
    // A click on a pixel of the map: left and top frame, caption and menu lie before it.
    static void ClickAt(int32_t nX, int32_t nY) {
        Desktop.Pointer = {.nX = 100 + 1 + 4 + nX, .nY = 200 + 19 + 1 + 20 + 4 + nY};
        FrmMain->Label2.OnMouseUp(forms::MouseButton::Left);
    }
};

TEST_F(MainWindowEvents, Click_SelectsTheCellUnderThePointer_AndRunsNothing) {
    ClickAt(60 + 45, 2 * 15 + 7);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 3);
    EXPECT_EQ(FrmMain->HiIndex, 102);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"h");
    EXPECT_TRUE(Desktop.Sent.empty());
}

TEST_F(MainWindowEvents, Click_DividesByTheCellSize_WithoutTheGap) {
    ClickAt(59, 14);
    EXPECT_EQ(FrmMain->HiIndex, 1);
    ClickAt(60, 15);
    EXPECT_EQ(FrmMain->HiIndex, 52);
}

TEST_F(MainWindowEvents, Click_UsesTheFramesWidthForBothDirections) {
    Desktop.Metrics[platform::Metric::FrameHeight] = 40;
    ClickAt(0, 15);
    EXPECT_EQ(Cursor.nRow, 2);
}

TEST_F(MainWindowEvents, Click_ChangesNothing_WhenACellHasNoSize) {
    Program.nCellWidth = Program.nCellHeight = 0;
    ClickAt(60, 15);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
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
