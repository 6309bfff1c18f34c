// SPDX-License-Identifier: MIT
// The main form's real window: size, painting, what other programs and the user do to it.
#include "platform/main_window.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <thread>

#include "platform/messages.h"
#include "platform/metrics.h"
#include "platform/win32/numbers.h"
#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

using forms::FrmMain;

constexpr int32_t CELL_WIDTH = 40;
constexpr int32_t CELL_HEIGHT = 30;

void LayOut(int32_t nColumns, int32_t nRows) {
    for (int32_t nRow = 0; nRow < nRows; ++nRow) {
        for (int32_t nColumn = 0; nColumn < nColumns; ++nColumn) {
            forms::Label& Cell = *FrmMain->CreateCellLabel(nRow * 50 + nColumn + 1);
            Cell.Left = nColumn * (CELL_WIDTH + 1);
            Cell.Top = nRow * (CELL_HEIGHT + 1);
            Cell.Width = CELL_WIDTH;
            Cell.Height = CELL_HEIGHT;
            Cell.BackColour = forms::COLOUR_BLACK;
            Cell.TextColour = forms::COLOUR_WHITE;
        }
    }
    FrmMain->Width = ((nColumns - 1) * (CELL_WIDTH + 1) + CELL_WIDTH) * TwipsPerPixelX();
    FrmMain->Label1.Width = FrmMain->nScaleWidth;
    FrmMain->Label1.Top = nRows * (CELL_HEIGHT + 1);
    FrmMain->Height =
        (FrmMain->Label1.Top + FrmMain->Label1.Height + SystemMetric(Metric::MenuHeight) +
         2 * SystemMetric(Metric::FrameHeight) + SystemMetric(Metric::CaptionHeight)) *
        TwipsPerPixelY();
}

class MainWindowTest : public testing::Test {
  protected:
    void SetUp() override {
        CloseMainWindow();
        FrmMain = std::make_unique<forms::MainForm>();
        ASSERT_TRUE(OpenMainWindow(*FrmMain));
        FrmMain->List1.Visible = false;
    }
    void TearDown() override { CloseMainWindow(); }

    static HWND Window() { return win32::ToHwnd(MainWindowHandle()); }
    static void ShowMap(int32_t nColumns, int32_t nRows) {
        LayOut(nColumns, nRows);
        FrmMain->Show();
        UpdateWindow(Window());
        RunPendingMessages();
    }
    // Without a device context Wine takes what happens to stand on its stack for the size of a
    // menu's texts, so that the menu bar has another height each time. The window's sizes are
    // tested without a menu there.
    static void RemoveUnmeasurableMenu() {
        if (tests::HasDrawing()) return;
        ASSERT_NE(SetMenu(Window(), nullptr), FALSE);
    }
    static RECT Inner() {
        RECT Area{};
        GetClientRect(Window(), &Area);
        return Area;
    }
    static COLORREF Pixel(int nX, int nY) {
        const HDC hDc = GetDC(Window());
        const COLORREF nColour = GetPixel(hDc, nX, nY);
        ReleaseDC(Window(), hDc);
        return nColour;
    }
};

TEST_F(MainWindowTest, Size_IsExactlyTheMapAndTheStatusLine_WhateverTheMapsSize) {
    RemoveUnmeasurableMenu();
    for (const auto& [nColumns, nRows] : {std::pair{12, 6}, {20, 8}, {1, 1}, {3, 2}, {12, 6}}) {
        ShowMap(nColumns, nRows);
        const int32_t nWidth = (nColumns - 1) * (CELL_WIDTH + 1) + CELL_WIDTH;
        EXPECT_EQ(FrmMain->Label1.Width, nWidth) << "the layout reads the inner width at once";
        const int32_t nHeight = FrmMain->Label1.Top + FrmMain->Label1.Height;
        EXPECT_TRUE(tests::RunMessagesUntil([&] {
            return Inner().right == nWidth && Inner().bottom == nHeight;
        })) << Inner().right
            << " x " << Inner().bottom;
        EXPECT_EQ(FrmMain->nScaleWidth, nWidth);
        EXPECT_EQ(FrmMain->nScaleHeight, nHeight);
    }
}

TEST_F(MainWindowTest, Size_ComesBack_WhenTheUserChangedItBeforeALayout) {
    RemoveUnmeasurableMenu();
    ShowMap(3, 2);
    const int32_t nWidth = FrmMain->Label1.Width;
    const int32_t nHeight = FrmMain->Label1.Top + FrmMain->Label1.Height;
    // The window manager may take its time, and give another size in between.
    const auto IsLaidOut = [&] { return Inner().right == nWidth && Inner().bottom == nHeight; };
    ASSERT_TRUE(tests::RunMessagesUntil(IsLaidOut)) << Inner().right << " x " << Inner().bottom;
    ASSERT_TRUE(tests::RunMessagesUntil([&] {  // taken for the user's only some time after
        SetWindowPos(Window(), nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
        return FrmMain->nScaleWidth != nWidth;
    }));
    EXPECT_EQ(FrmMain->nScaleWidth, Inner().right);
    ShowMap(3, 2);
    EXPECT_TRUE(tests::RunMessagesUntil(IsLaidOut)) << Inner().right << " x " << Inner().bottom;
}

TEST_F(MainWindowTest, Place_IsTheTopRightCornerAndThenOnScreen_WhenItGrows) {
    ShowMap(3, 2);
    RECT Work{};
    ASSERT_NE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &Work, 0), FALSE);
    const auto Stands = [](auto Condition) {
        RECT Outer{};
        const bool bStands = tests::RunMessagesUntil(
            [&] { return GetWindowRect(Window(), &Outer) != FALSE && Condition(Outer); });
        EXPECT_TRUE(bStands) << Outer.left << " " << Outer.top << " " << Outer.right;
        return Outer.left;
    };
    const auto AtCorner = [&Work](const RECT& Outer) {
        return Outer.right == Work.right && Outer.top == Work.top;
    };
    Stands(AtCorner);
    LayOut(20, 8);
    const LONG nLeft = Stands(AtCorner);
    LayOut(3, 2);
    Stands([nLeft](const RECT& Outer) {
        return Outer.left == nLeft && Outer.right < nLeft + 200;  // it keeps its place
    });
}

TEST_F(MainWindowTest, Styles_AreOnTopAndMinimisable_WhenShown) {
    ShowMap(3, 2);
    EXPECT_NE(GetWindowLongW(Window(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_NE(GetWindowLongW(Window(), GWL_STYLE) & WS_MINIMIZEBOX, 0);
    FrmMain->Caption = std::wstring(L"Taviro - Šipka žluť");
    wchar_t strTitle[64] = {};
    GetWindowTextW(Window(), strTitle, 64);
    EXPECT_STREQ(strTitle, L"Taviro - Šipka žluť");
}

TEST_F(MainWindowTest, Size_FollowsTheMap_WhenItChangedWhileMinimised) {
    RemoveUnmeasurableMenu();
    ShowMap(3, 2);
    ShowWindow(Window(), SW_SHOWMINNOACTIVE);
    LayOut(5, 4);
    EXPECT_EQ(FrmMain->nScaleWidth, 4 * (CELL_WIDTH + 1) + CELL_WIDTH);
    EXPECT_TRUE(tests::RunMessagesUntil([] {
        // A window manager may answer the minimising late, and minimise once more.
        if (IsIconic(Window()) != FALSE) ShowWindow(Window(), SW_SHOWNOACTIVATE);
        return Inner().right == FrmMain->nScaleWidth;
    }));
    EXPECT_EQ(FrmMain->nScaleWidth, 4 * (CELL_WIDTH + 1) + CELL_WIDTH);
    EXPECT_EQ(Inner().bottom, FrmMain->Label1.Top + FrmMain->Label1.Height);
}

TEST_F(MainWindowTest, Paint_ShowsTheCellsColours_WhenTheHighlightMoves) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    ShowMap(3, 2);
    EXPECT_EQ(Pixel(5, 5), forms::COLOUR_BLACK);
    EXPECT_EQ(Pixel(CELL_WIDTH, 5), GetSysColor(COLOR_BTNFACE)) << "the gap between two cells";
    FrmMain->CellLabel(2)->BackColour = forms::COLOUR_WHITE;
    RunPendingMessages();
    EXPECT_EQ(Pixel(CELL_WIDTH + 6, 5), forms::COLOUR_WHITE);
    EXPECT_EQ(Pixel(5, 5), forms::COLOUR_BLACK);
}

TEST_F(MainWindowTest, Map_IsShownAnew_WhenTheScaleOfItsMonitorChanges) {
    RemoveUnmeasurableMenu();
    ShowMap(3, 2);
    const int32_t nWidth = FrmMain->nScaleWidth;
    const int32_t nHeight = FrmMain->nScaleHeight;
    for (const int nDpi : {144, 192, 96}) {
        RECT Proposed{};
        ASSERT_NE(GetWindowRect(Window(), &Proposed), FALSE);
        SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(nDpi, nDpi),
                     reinterpret_cast<LPARAM>(&Proposed));
        EXPECT_TRUE(tests::RunMessagesUntil([&] {
            return Inner().right == MulDiv(nWidth, nDpi, 96) &&
                   Inner().bottom == MulDiv(nHeight, nDpi, 96);
        })) << Inner().right
            << " x " << Inner().bottom;
        EXPECT_EQ(FrmMain->nScaleWidth, nWidth) << "layouts count as before";
        EXPECT_EQ(FrmMain->nScaleHeight, nHeight);
        if (!tests::HasDrawing()) continue;
        UpdateWindow(Window());
        EXPECT_EQ(Pixel(MulDiv(CELL_WIDTH, nDpi, 96) - 1, 5), forms::COLOUR_BLACK);
        EXPECT_EQ(Pixel(MulDiv(CELL_WIDTH, nDpi, 96), 5), GetSysColor(COLOR_BTNFACE));
    }
}

TEST_F(MainWindowTest, Window_ComesBackIntoTheWorkArea_WhenItChanges) {
    ShowMap(3, 2);
    RECT Work{};
    ASSERT_NE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &Work, 0), FALSE);
    for (const UINT nMessage : {UINT{WM_SETTINGCHANGE}, UINT{WM_DISPLAYCHANGE}}) {
        SetWindowPos(Window(), nullptr, Work.right - 20, Work.bottom - 20, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_TRUE(tests::RunMessagesUntil([&] {
            RECT Outer{};
            SendMessageW(Window(), nMessage, SPI_SETWORKAREA, 0);
            return GetWindowRect(Window(), &Outer) != FALSE && Outer.right <= Work.right &&
                   Outer.bottom <= Work.bottom;
        })) << nMessage;
    }
}

TEST_F(MainWindowTest, Repaint_IsOfTheChangedCellsOnly_WhenColoursChange) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    ShowMap(3, 2);
    FrmMain->CellLabel(2)->BackColour = forms::COLOUR_WHITE;
    MSG Message{};
    // Our own notice comes before the paint that it asks for; run it alone.
    ASSERT_NE(PeekMessageW(&Message, Window(), WM_APP, 0xBFFF, PM_REMOVE), FALSE);
    DispatchMessageW(&Message);
    RECT Stale{};
    ASSERT_NE(GetUpdateRect(Window(), &Stale, FALSE), FALSE);
    const RECT Cell{CELL_WIDTH + 1, 0, 2 * CELL_WIDTH + 1, CELL_HEIGHT};
    EXPECT_NE(EqualRect(&Stale, &Cell), FALSE) << Stale.left << " " << Stale.right;
}

TEST_F(MainWindowTest, Click_LeavesTheFocusElsewhere_WhenOnTheMapOnly) {
    ShowMap(3, 2);
    const HWND hOther = CreateWindowExW(0, L"STATIC", L"driven", WS_OVERLAPPEDWINDOW, 0, 400, 200,
                                        100, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(hOther, SW_SHOW);
    ASSERT_TRUE(tests::RunMessagesUntil([&] {
        SetForegroundWindow(hOther);
        return GetForegroundWindow() == hOther;
    }));
    RECT Outer{};
    ASSERT_NE(GetWindowRect(Window(), &Outer), FALSE);
    ASSERT_NE(SetCursorPos(Outer.left / 2, Outer.bottom + 50), FALSE);
    const auto Press = [](WORD nHit) {
        return SendMessageW(Window(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(Window()),
                            MAKELPARAM(nHit, WM_LBUTTONDOWN));
    };
    EXPECT_EQ(Press(HTCLIENT), MA_NOACTIVATE);
    EXPECT_EQ(GetForegroundWindow(), hOther);
    Press(HTMENU);
    EXPECT_EQ(GetForegroundWindow(), Window()) << "the menu works as in any window";
    DestroyWindow(hOther);
}

TEST_F(MainWindowTest, Click_ReportsTheButton_WhenPressedAndReleasedOverTheMap) {
    std::vector<forms::MouseButton> Released;
    FrmMain->Label2.OnMouseUp = [&](forms::MouseButton n) { Released.push_back(n); };
    ShowMap(3, 2);
    const auto Mouse = [](UINT nMessage, WPARAM nDown) {
        SendMessageW(Window(), nMessage, nDown, MAKELPARAM(5, 5));
    };
    Mouse(WM_LBUTTONUP, 0);  // as after a menu over the map
    Mouse(WM_RBUTTONUP, 0);
    EXPECT_TRUE(Released.empty());
    Mouse(WM_LBUTTONDOWN, MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 0);
    Mouse(WM_RBUTTONDOWN, MK_RBUTTON);
    Mouse(WM_RBUTTONUP, 0);
    EXPECT_EQ(Released, (std::vector{forms::MouseButton::Left, forms::MouseButton::Right}));
    Mouse(WM_LBUTTONDOWN, MK_LBUTTON);
    Mouse(WM_MOUSEMOVE, 0);  // released elsewhere
    Mouse(WM_LBUTTONUP, 0);
    EXPECT_EQ(Released.size(), 2U);
}

TEST_F(MainWindowTest, CommandBox_RunsTheHandler_WhenAnotherThreadWritesIntoIt) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    std::vector<std::wstring> Commands;
    bool bInMessage = false;
    FrmMain->txtCmd.OnChange = [&] {
        bInMessage |= InSendMessage() != FALSE;
        Commands.push_back(FrmMain->txtCmd.Text);
        if (!FrmMain->txtCmd.Text.Get().empty()) FrmMain->txtCmd.Text = std::wstring();
    };
    ShowMap(3, 2);
    const HWND hBox = FindWindowExW(Window(), nullptr, L"EDIT", nullptr);
    ASSERT_NE(hBox, nullptr);
    EXPECT_EQ(IsWindowVisible(hBox), FALSE);
    bool bWritten = false;
    std::thread Other([&] {
        for (const wchar_t* szText : {L"right", L"right", L"down", L"up"})
            SendMessageW(hBox, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(szText));
        bWritten = true;
        PostMessageW(hBox, WM_NULL, 0, 0);
    });
    EXPECT_TRUE(tests::RunMessagesUntil([&] { return bWritten; }));
    Other.join();
    EXPECT_TRUE(tests::RunMessagesUntil([&] { return Commands.size() >= 8; }));
    RunPendingMessages();
    EXPECT_EQ(Commands,
              (std::vector<std::wstring>{L"right", L"", L"right", L"", L"down", L"", L"up", L""}));
    EXPECT_FALSE(bInMessage) << "the writer's message was over";
    EXPECT_EQ(GetWindowTextLengthW(hBox), 0);
}

TEST_F(MainWindowTest, List_ShowsItemsAndSelection_WhenTheModelChanges) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    ShowMap(3, 2);
    const HWND hList = FindWindowExW(Window(), nullptr, L"LISTBOX", nullptr);
    ASSERT_NE(hList, nullptr);
    EXPECT_EQ(IsWindowVisible(hList), FALSE);
    int nClicks = 0;
    FrmMain->List1.OnClick = [&] { ++nClicks; };
    FrmMain->List1.AddItem(L"kůň");
    FrmMain->List1.AddItem(L"žába");
    FrmMain->List1.Visible = true;
    FrmMain->List1.ListIndex = 0;
    EXPECT_NE(IsWindowVisible(hList), FALSE);
    EXPECT_EQ(SendMessageW(hList, LB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(hList, LB_GETCURSEL, 0, 0), 0);
    const LRESULT nItemHeight = SendMessageW(hList, LB_GETITEMHEIGHT, 0, 0);
    const HWND hFocus = GetFocus();
    SendMessageW(hList, WM_LBUTTONDOWN, 0, MAKELPARAM(3, nItemHeight + 2));
    EXPECT_EQ(FrmMain->List1.ListIndex, 1);
    EXPECT_EQ(nClicks, 2);
    EXPECT_EQ(GetFocus(), hFocus);
    FrmMain->List1.Clear();
    EXPECT_EQ(SendMessageW(hList, LB_GETCOUNT, 0, 0), 0);
}

TEST_F(MainWindowTest, Menu_MirrorsTheEntries_WhenTheyChange) {
    int nClicks = 0;
    FrmMain->mnuLog.OnClick = [&] { ++nClicks; };
    ShowMap(3, 2);
    const HMENU hMenu = GetSubMenu(GetMenu(Window()), 1);
    ASSERT_EQ(GetMenuItemCount(hMenu), 4);
    wchar_t strCaption[64] = {};
    GetMenuStringW(hMenu, 0, strCaption, 64, MF_BYPOSITION);
    EXPECT_STREQ(strCaption, L"Nastavení &položky");
    FrmMain->mnuLog.Checked = true;
    FrmMain->mnuVoice.Enabled = false;
    EXPECT_EQ(GetMenuState(hMenu, 3, MF_BYPOSITION) & MF_CHECKED, UINT{MF_CHECKED});
    EXPECT_NE(GetMenuState(hMenu, 2, MF_BYPOSITION) & MF_GRAYED, 0U);
    SendMessageW(Window(), WM_COMMAND, GetMenuItemID(hMenu, 3), 0);
    EXPECT_EQ(nClicks, 1);
}

/// Takes the request to end the message loop, so that the next test's loop does not get it.
bool TakeQuit() {
    MSG Message{};
    while (PeekMessageW(&Message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (Message.message == WM_QUIT) return true;
        DispatchMessageW(&Message);
    }
    return false;
}

TEST_F(MainWindowTest, Unload_DestroysTheWindowAndEndsTheLoop_HoweverItIsAsked) {
    struct Way {
        const char* pName;
        std::function<void()> Ask;
    };
    const std::vector<Way> Ways{
        {"close", [] { SendMessageW(Window(), WM_CLOSE, 0, 0); }},
        {"end of session", [] { SendMessageW(Window(), WM_ENDSESSION, TRUE, 0); }},
        {"code", [] { FrmMain->Unload(); }}};
    for (const Way& Each : Ways) {
        SetUp();
        int nUnloads = 0;
        bool bWindowThere = false;
        FrmMain->OnUnload = [&] {
            ++nUnloads;
            bWindowThere = IsWindow(Window()) != FALSE;
            SendMessageW(Window(), WM_CLOSE, 0, 0);  // asked again meanwhile
            RunPendingMessages();
        };
        ShowMap(3, 2);
        const HWND hWindow = Window();
        EXPECT_NE(SendMessageW(hWindow, WM_QUERYENDSESSION, 0, 0), 0);
        SendMessageW(hWindow, WM_ENDSESSION, FALSE, 0);
        EXPECT_EQ(nUnloads, 0) << "another program refused the end";
        Each.Ask();
        EXPECT_EQ(nUnloads, 1) << Each.pName;
        EXPECT_TRUE(bWindowThere) << Each.pName;
        EXPECT_EQ(IsWindow(hWindow), FALSE) << Each.pName;
        EXPECT_EQ(MainWindowHandle(), 0U);
        EXPECT_TRUE(TakeQuit()) << Each.pName;
    }
}

TEST_F(MainWindowTest, Close_LeavesTheLoopRunning_WhenTheProgramClosesTheWindow) {
    ShowMap(3, 2);
    CloseMainWindow();
    CloseMainWindow();
    EXPECT_EQ(MainWindowHandle(), 0U);
    EXPECT_FALSE(TakeQuit());
}

}  // namespace
}  // namespace taviro::platform
