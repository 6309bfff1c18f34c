// SPDX-License-Identifier: MIT
// Every change of the operating mode by a cell's command, from every mode: where it leads, what the
// user hears, what the log says, which cell is kept, and which map is shown.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "actions/command_action.h"
#include "actions/foreground_watch.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr int NONE = 0, SELECT = 1, SCAN = 2, ARROW = 4, APPLICATION = 8;

int ModeFlags() {
    return Modes.bSelectMode * SELECT + Modes.bScanMode * SCAN + Modes.bArrowMode * ARROW +
           Modes.bAppMode * APPLICATION;
}

const std::string SILENCE = Said("");
const std::string NOTHING_LAUNCHED = "launch \"\"";
constexpr const wchar_t* LOG_SILENCE = L"\r\n01:59:52 Say: ";
constexpr const wchar_t* LOG_ARROW = L"\r\n01:59:52 Say: \r\n01:59:52 Say: Šipky";
constexpr const wchar_t* LOG_APPLICATION = L"\r\n01:59:52 Say: \r\n01:59:52 Say: Aplikace";
constexpr const wchar_t* LOG_SELECT = L"\r\n01:59:52 Say: \r\n01:59:52 Say: Výběr";

struct Row {
    const char* szName;
    int nFrom;  // mode flags
    const wchar_t* szCommand;
    int nTo;
    Effects Heard;  // and the captions that a map's change brings
    const wchar_t* szLogged;
    int32_t nColumn, nRow;  // where the cursor stands afterwards
    bool bAppMap;
};

void PrintTo(const Row& Case, std::ostream* pOut) {
    *pOut << Case.szName;
}

// The cell that runs the command is H, column 2 of row 3; C, column 3 of row 1, is remembered. From
// application mode it is W of the editor's map, column 2 of row 2. A change that is none (the mode
// is on already) only silences the speech and runs the rest.
// clang-format off
const Row ROWS[] = {
    {"ArrowAtTheStart", NONE, L"|", ARROW,
     {SILENCE, Said("Šipky"), NOTHING_LAUNCHED}, LOG_ARROW, 2, 3, false},
    {"ArrowFromSelect", SELECT, L"|", ARROW,
     {SILENCE, Said("Šipky"), NOTHING_LAUNCHED}, LOG_ARROW, 2, 3, false},
    {"ArrowFromScan", SCAN, L"|", ARROW,
     {SILENCE, Said("Šipky"), NOTHING_LAUNCHED}, LOG_ARROW, 2, 3, false},
    {"ArrowFromArrow_ChangesNothing", ARROW, L"|", ARROW,
     {SILENCE, NOTHING_LAUNCHED}, LOG_SILENCE, 2, 3, false},
    {"ArrowFromApplication_KeepsItsMap", APPLICATION, L"|", ARROW,
     {SILENCE, Said("Šipky"), NOTHING_LAUNCHED}, LOG_ARROW, 2, 2, true},
    {"ApplicationAtTheStart", NONE, L">", APPLICATION,
     {SILENCE, Said("Aplikace"), "caption Taviro - V", NOTHING_LAUNCHED}, LOG_APPLICATION,
     1, 1, true},
    {"ApplicationFromSelect", SELECT, L">", APPLICATION,
     {SILENCE, Said("Aplikace"), "caption Taviro - V", NOTHING_LAUNCHED}, LOG_APPLICATION,
     1, 1, true},
    {"ApplicationFromScan", SCAN, L">", APPLICATION,
     {SILENCE, Said("Aplikace"), "caption Taviro - V", NOTHING_LAUNCHED}, LOG_APPLICATION,
     1, 1, true},
    {"ApplicationFromArrow", ARROW, L">", APPLICATION,
     {SILENCE, Said("Aplikace"), "caption Taviro - V", NOTHING_LAUNCHED}, LOG_APPLICATION,
     1, 1, true},
    {"ApplicationFromApplication_ChangesNothing", APPLICATION, L">", APPLICATION,
     {SILENCE, NOTHING_LAUNCHED}, LOG_SILENCE, 2, 2, true},
    {"SelectAtTheStart_ReturnsToTheRememberedCell", NONE, L"<", SELECT,
     {SILENCE, Said("Výběr"), "caption Taviro - C", NOTHING_LAUNCHED}, LOG_SELECT, 3, 1, false},
    {"SelectFromSelect_ChangesNothing", SELECT, L"<", SELECT,
     {SILENCE, NOTHING_LAUNCHED}, LOG_SILENCE, 2, 3, false},
    {"SelectFromScan", SCAN, L"<", SELECT,
     {SILENCE, Said("Výběr"), "caption Taviro - C", NOTHING_LAUNCHED}, LOG_SELECT, 3, 1, false},
    {"SelectFromArrow", ARROW, L"<", SELECT,
     {SILENCE, Said("Výběr"), "caption Taviro - C", NOTHING_LAUNCHED}, LOG_SELECT, 3, 1, false},
    {"SelectFromApplication_ShowsTheCommonMap", APPLICATION, L"<", SELECT,
     {SILENCE, Said("Výběr"), "caption Taviro - C", NOTHING_LAUNCHED}, LOG_SELECT, 3, 1, false},
};
// clang-format on

class ModePrefixScene : public ProgramTest {
  protected:
    ModePrefixScene() {
        InstallEngine();
        PutData(L"data.ini",
                L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[1,2]D,68\r\n[2,2]E,69\r\n[3,2]F,70\r\n"
                L"[1,3]G,71\r\n[2,3]H,72\r\n[3,3]I,73\r\n");
        PutData(L"data_EDITOR.EXE.ini",
                L"[1,1]X,88\r\n[2,1]Y,89\r\n[1,2]Z,90\r\n[2,2]W,87\r\n[1,3]U,85\r\n[2,3]V,86\r\n");
        Desktop.Windows = {{50, L"Text", L"Editor", 500, 600}};
        Desktop.Processes = {{500, L"C:\\Apps\\Editor.exe"}};
        Desktop.hForeground = 50;
        Start();
    }
    ~ModePrefixScene() override { Speech = {}; }

    static void BeIn(int nFlags) {
        Modes.bSelectMode = nFlags == SELECT;
        Modes.bScanMode = nFlags == SCAN;
        Modes.bArrowMode = nFlags == ARROW;
        Modes.bAppMode = nFlags == APPLICATION;
        if (Modes.bAppMode) CheckForegroundApp(true);
        Cursor.nColumn = 2;
        Cursor.nRow = Modes.bAppMode ? 2 : 3;
        Cursor.nLastColumn = 3;
        Cursor.nLastRow = 1;
        SetHi(Cursor.nColumn, Cursor.nRow);
        forms::FrmMain->ScanTimer.Interval = 60000;
        forms::FrmMain->ScanTimer.Enabled = true;
        Desktop.TakeEffects();
        EventLog = {.bLog = true, .strLog = L""};
    }
};

class ModePrefix : public ModePrefixScene, public ::testing::WithParamInterface<Row> {};
class ModePrefixAgain : public ModePrefixScene {};

TEST_P(ModePrefix, IsHeardLoggedAndKeepsItsCell) {
    const Row& Case = GetParam();
    BeIn(Case.nFrom);
    *ShownMap().Cell(Cursor.nColumn, Cursor.nRow) = {
        .Caption = L"příkaz", .Code = 0, .Command = Case.szCommand};
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(ModeFlags(), Case.nTo);
    EXPECT_EQ(Desktop.TakeEffects(), Case.Heard);
    EXPECT_EQ(EventLog.strLog, Case.szLogged);
    EXPECT_EQ(Cursor.nColumn, Case.nColumn);
    EXPECT_EQ(Cursor.nRow, Case.nRow);
    EXPECT_EQ(Cursor.nLastColumn, 3) << "no command remembers the cell";
    EXPECT_EQ(Cursor.nLastRow, 1);
    EXPECT_EQ(Foreground.bAppMapShown, Case.bAppMap);
    EXPECT_EQ(forms::FrmMain->ScanTimer.Enabled, Case.nFrom == Case.nTo)
        << "scanning ends with every change";
}

INSTANTIATE_TEST_SUITE_P(All, ModePrefix, ::testing::ValuesIn(ROWS),
                         [](const auto& Info) { return std::string(Info.param.szName); });

// Back from arrow mode, which kept the application's map: the same window is looked at again.
TEST_F(ModePrefixAgain, Application_IsDetectedAfresh_WhenItsWindowIsStillInFront) {
    BeIn(APPLICATION);
    BeIn(ARROW);
    PutData(L"data_EDITOR.EXE.ini", L"[1,1]X,88\r\n[1,2]Z,90\r\n[1,3]U,85\r\n[2,3]new,86\r\n");
    ShownMap().Cell(2, 3)->Code = 0;
    ShownMap().Cell(2, 3)->Command = L">";
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(ModeFlags(), APPLICATION);
    EXPECT_EQ(ShownMap().Cell(2, 3)->Caption, L"new");
    EXPECT_EQ(Cursor.nColumn, 2) << "the cell was stored and found again";
    EXPECT_EQ(Cursor.nRow, 3);
}

TEST_F(ModePrefixAgain, Application_FindsItsCell_AfterTheSelectionMark) {
    BeIn(APPLICATION);
    ShownMap().Cell(2, 2)->Code = 0;
    ShownMap().Cell(2, 2)->Command = L"<";
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Foreground.strCurrentAppName, L"");
    EXPECT_EQ(Foreground.hWindow, 0U) << "looked at afresh by the next check";
    CommonMap.Cell(3, 1)->Code = 0;
    CommonMap.Cell(3, 1)->Command = L">";
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(ModeFlags(), APPLICATION);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"W");
}

// A map that was picked, or that arrows kept.
TEST_F(ModePrefixAgain, SelectionMark_LeavesAnApplicationsMap_WhateverTheMode) {
    for (const int nMode : {NONE, SELECT, SCAN, ARROW}) {
        BeIn(APPLICATION);
        BeIn(nMode);
        ASSERT_TRUE(Foreground.bAppMapShown);
        ShownMap().Cell(2, 3)->Code = 0;
        ShownMap().Cell(2, 3)->Command = L"<";
        CommandAction(CELL_UNDER_CURSOR);
        EXPECT_EQ(ModeFlags(), SELECT) << nMode;
        EXPECT_FALSE(Foreground.bAppMapShown) << nMode;
        EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"C") << nMode;
        ForgetForegroundApp();
    }
}

}  // namespace
}  // namespace taviro
