// SPDX-License-Identifier: MIT
#include "actions/foreground_watch.h"

#include "maps/app_positions.h"
#include "state/cursor_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

struct Position {
    int32_t nColumn = 0, nRow = 0;
    bool operator==(const Position&) const = default;
};
void PrintTo(const Position& At, std::ostream* pStream) {
    *pStream << "(" << At.nColumn << ", " << At.nRow << ")";
}
Position Here() {
    return {Cursor.nColumn, Cursor.nRow};
}
Position Stored(const std::wstring& strApp) {
    Position Found;
    GetAppPosition(strApp, Found.nColumn, Found.nRow);
    return Found;
}

void PutCursor(int32_t nColumn, int32_t nRow) {
    Cursor.nColumn = nColumn;
    Cursor.nRow = nRow;
}

// Windows 11 and 12 belong to Notepad, 21 to Paint; both have maps. 31 is a calculator without one.
class ForegroundWatch : public ActionTest {
  protected:
    ForegroundWatch() {
        Desktop.Windows = {{11, L"a.txt", L"", 1, 101},
                           {12, L"b.txt", L"", 1, 101},
                           {21, L"Paint", L"", 2, 201},
                           {31, L"Calculator", L"", 3, 301}};
        Desktop.Processes = {{4, L"System"},
                             {1, L"C:\\Windows\\System32\\notepad.exe"},
                             {2, L"Malování.exe"},
                             {3, L"calc.exe"}};
        PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1,65\r\n[2,1]N2,66\r\n[1,2]N3,67\r\n");
        PutData(L"data_MALOVÁNÍ.EXE.ini", L"[1,1]P1,65\r\n[2,1]P2,66\r\n");
    }

    static void BringToFront(platform::WindowHandle hWindow) {
        Desktop.hForeground = hWindow;
        CheckForegroundApp(false);
    }
    static std::wstring FirstShown() { return ShownMap().Cell(1, 1)->Caption; }
};

TEST_F(ForegroundWatch, ProcessName_IsTheUpperCaseFileName) {
    const struct {
        const char* szName;
        const wchar_t* strExecutable;
        const wchar_t* strResult;
    } Rows[] = {
        {"no folder", L"Word.exe", L"WORD.EXE"},
        {"a folder", L"C:\\Program Files\\Mail\\mail.exe", L"MAIL.EXE"},
        {"accents", L"účty.exe", L"ÚČTY.EXE"},
        {"no extension", L"server", L"SERVER"},
        {"ends in a separator", L"C:\\x\\", L""},
        {"empty", L"", L""},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Desktop.Processes = {{7, Row.strExecutable}, {7, L"second.exe"}};
        EXPECT_EQ(GetProcessName(7), Row.strResult);
    }
}

TEST_F(ForegroundWatch, ProcessName_IsEmpty_WhenTheProcessHasEnded) {
    EXPECT_EQ(GetProcessName(99), L"");
    Desktop.Processes.clear();
    EXPECT_EQ(GetProcessName(1), L"");
}

TEST_F(ForegroundWatch, NewApplication_ShowsItsMapFromItsFirstCell) {
    PutCursor(3, 2);
    BringToFront(11);
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(FirstShown(), L"N1");
    EXPECT_EQ(Foreground.strCurrentAppName, L"NOTEPAD.EXE");
    EXPECT_EQ(Foreground.AppMapName, L"NOTEPAD.EXE");
    EXPECT_EQ(Here(), (Position{1, 1}));
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"N1");
}

TEST_F(ForegroundWatch, OtherApplication_KeepsTheCellOfEach) {
    BringToFront(11);
    PutCursor(2, 1);
    BringToFront(21);
    EXPECT_EQ(FirstShown(), L"P1");
    EXPECT_EQ(Foreground.strCurrentAppName, L"MALOVÁNÍ.EXE");
    EXPECT_EQ(Stored(L"NOTEPAD.EXE"), (Position{2, 1}));
    BringToFront(12);
    EXPECT_EQ(FirstShown(), L"N1");
    EXPECT_EQ(Here(), (Position{2, 1}));
}

TEST_F(ForegroundWatch, OtherWindowOfTheSameProgram_ChangesNothing) {
    BringToFront(11);
    PutCursor(2, 1);
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]changed,65\r\n");
    BringToFront(12);
    EXPECT_EQ(FirstShown(), L"N1");
    EXPECT_EQ(Here(), (Position{2, 1}));
    EXPECT_EQ(Foreground.hWindow, 12U);
}

TEST_F(ForegroundWatch, SameWindow_IsNotLookedAtAgain) {
    BringToFront(11);
    PutCursor(2, 1);
    Desktop.Windows[0].nProcess = 2;
    CheckForegroundApp(false);
    EXPECT_EQ(FirstShown(), L"N1");
    EXPECT_EQ(Here(), (Position{2, 1}));
}

TEST_F(ForegroundWatch, Force_LoadsAgain_KeepsTheCell) {
    BringToFront(11);
    PutCursor(2, 1);
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1b,65\r\n[2,1]N2b,66\r\n");
    CheckForegroundApp(true);
    EXPECT_EQ(FirstShown(), L"N1b");
    EXPECT_EQ(Here(), (Position{2, 1}));
    EXPECT_EQ(Stored(L"NOTEPAD.EXE"), (Position{2, 1}));
}

TEST_F(ForegroundWatch, Force_LoadsAgain_WhateverNumbersTheSystemGave) {
    Desktop.Windows = {{1, L"a.txt", L"", 1, 101}};
    BringToFront(1);
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1b,65\r\n");
    CheckForegroundApp(true);
    EXPECT_EQ(FirstShown(), L"N1b");
}

TEST_F(ForegroundWatch, ApplicationWithoutAMap_BringsTheCommonMapBack) {
    PutCursor(3, 2);
    Cursor.Remember();
    BringToFront(11);
    PutCursor(2, 1);
    BringToFront(31);
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(FirstShown(), L"a");
    EXPECT_EQ(Here(), (Position{3, 2}));
    EXPECT_EQ(Foreground.strCurrentAppName, L"");
    EXPECT_EQ(Stored(L"NOTEPAD.EXE"), (Position{2, 1}));
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"g");
}

TEST_F(ForegroundWatch, ApplicationWithoutAMap_OnlyTakesItsName_WhenTheCommonMapIsShown) {
    PutCursor(3, 2);
    BringToFront(31);
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(Here(), (Position{3, 2}));
    EXPECT_EQ(Foreground.strCurrentAppName, L"CALC.EXE");
    EXPECT_EQ(Foreground.AppMapName, L"");
}

TEST_F(ForegroundWatch, EndedProcess_BringsTheCommonMapBack_NotAStaleOne) {
    PutData(L"data.ini", L"[1,1]reloaded,65\r\n");
    BringToFront(11);
    Desktop.Processes.clear();
    BringToFront(21);
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(FirstShown(), L"a");
}

TEST_F(ForegroundWatch, NoWindow_ChangesNothingAtFirst_LeavesTheMapLater) {
    CheckForegroundApp(false);
    CheckForegroundApp(true);
    EXPECT_EQ(Foreground.strCurrentAppName, L"");
    BringToFront(11);
    BringToFront(0);
    EXPECT_FALSE(Foreground.bAppMapShown);
}

TEST_F(ForegroundWatch, Forgotten_LooksAfresh) {
    BringToFront(11);
    PutCursor(2, 1);
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1b,65\r\n[2,1]N2b,66\r\n");
    ForgetForegroundApp();
    EXPECT_EQ(Foreground.hWindow, 0U);
    EXPECT_EQ(Foreground.nProcess, 0U);
    CheckForegroundApp(false);
    EXPECT_EQ(FirstShown(), L"N1b");
}

TEST_F(ForegroundWatch, ForceForeground_JoinsTheInputQueuesMeanwhile) {
    Desktop.hForeground = 21;
    ForceForeground(11);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"attach thread 101 to 201", "foreground \"a.txt\"",
                                              "detach thread 101 from 201"}));
    EXPECT_EQ(GetActiveWindowHandle(), 11U);
}

TEST_F(ForegroundWatch, ForceForeground_DoesNothing_WhenTheQueuesCannotBeJoined) {
    Desktop.hForeground = 21;
    Desktop.Failures.Always("AttachInput");
    ForceForeground(11);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_EQ(GetActiveWindowHandle(), 21U);
}

TEST_F(ForegroundWatch, ForceForeground_PartsTheQueues_WhenTheWindowIsGone) {
    Desktop.hForeground = 21;
    ForceForeground(77);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"attach thread 0 to 201", "detach thread 0 from 201"}));
}

}  // namespace
}  // namespace taviro
