// SPDX-License-Identifier: MIT
// What comes first in a tick, and what a tick asks for: the user hears and sees the difference.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/foreground_watch.h"
#include "core/cursor_movement.h"
#include "core/poll_loop.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "settings/button_table.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/core/two_programs.h"
#include "tests/unit/program_fixture.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

constexpr int KEY_BUTTON = 4;

// Two programs, of which the editor has a map of its own:
//   common map  A B C    the editor's  X Y
//               D E F                  Z W
class TickOrder : public ProgramTest {
  protected:
    TickOrder() {
        InstallEngine();
        PutData(L"data.ini",
                L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[1,2]D,68\r\n[2,2]E,69\r\n"
                L"[3,2]F,70\r\n");
        PutData(L"data_EDITOR.EXE.ini", L"[1,1]X,88\r\n[2,1]Y,89\r\n[1,2]Z,90\r\n[2,2]W,87\r\n");
        OpenTwoPrograms(EDITOR_WINDOW);
        Start();
        ButtonTable[KEY_BUTTON] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 90};
    }
    ~TickOrder() override { Speech = {}; }

    static void OneTick() { forms::FrmMain->Timer1.Tick(); }
    static void BeIn(Mode nMode) {
        if (nMode == Mode::Application) CheckForegroundApp(true);
        Modes.Set(nMode);
        StandOn(1, 1);
    }
    static void StandOn(int32_t nColumn, int32_t nRow) {
        Cursor.nColumn = nColumn;
        Cursor.nRow = nRow;
        Cursor.nPrevRow = nRow;
        SetHi(nColumn, nRow);
        Desktop.TakeEffects();
    }
    /// Where an effect stands among those that happened; it must be there.
    static size_t Place(const Effects& Done, const std::string& strEffect) {
        const auto Found = std::find(Done.begin(), Done.end(), strEffect);
        EXPECT_NE(Found, Done.end()) << strEffect;
        return static_cast<size_t>(Found - Done.begin());
    }
    /// One tick with the stick to the right and the button down.
    static Effects TiltAndPress(int nButton) {
        TiltRight();
        PressButton(nButton);
        OneTick();
        return Desktop.TakeEffects();
    }
};

TEST_F(TickOrder, ActionButton_TakesTheCellBeforeTheTiltLeavesIt) {
    for (const Mode nMode : {Mode::Select, Mode::Application}) {
        BeIn(nMode);
        Poll = {};
        Desktop.Keyboard.strTyped.clear();
        TiltAndPress(ACTION_BUTTON);
        EXPECT_EQ(Desktop.Keyboard.strTyped, nMode == Mode::Select ? L"a" : L"x");
        EXPECT_EQ(Cursor.nColumn, 2);
    }
}

TEST_F(TickOrder, Buttons_ComeBeforeTilts_ButInArrowMode) {
    const std::string strKey = "SendInput: vk 90 down, vk 90 up";
    for (const Mode nMode : {Mode::Select, Mode::Scan, Mode::Application}) {
        BeIn(nMode);
        Poll = {};
        const Effects Done = TiltAndPress(KEY_BUTTON);
        const std::string strMoved = Said(Foreground.bAppMapShown ? "Y" : "B");
        EXPECT_LT(Place(Done, strKey), Place(Done, strMoved)) << static_cast<int>(nMode);
    }
    BeIn(Mode::Arrow);
    Poll = {};
    const Effects Done = TiltAndPress(KEY_BUTTON);
    EXPECT_LT(Place(Done, "SendInput: vk 39 down, vk 39 up"), Place(Done, strKey));
}

TEST_F(TickOrder, ArrowMode_SendsTheArrowBeforeEnter) {
    BeIn(Mode::Arrow);
    EXPECT_EQ(TiltAndPress(ACTION_BUTTON),
              (Effects{"SendInput: vk 39 down, vk 39 up", "SendInput: vk 13 down, vk 13 up"}));
}

TEST_F(TickOrder, ScanMode_StartsBeforeTheTiltMoves) {
    BeIn(Mode::Scan);
    TiltLeft();
    PressButton(ACTION_BUTTON);
    OneTick();
    EXPECT_TRUE(forms::FrmMain->ScanTimer.Enabled);
    EXPECT_EQ(Scanning.nScanDirection, KeyCode::Left) << "the hand's direction is the last word";
}

TEST_F(TickOrder, RunningScan_HasStopped_WhenItsCellIsCarriedOut) {
    BeIn(Mode::Scan);
    forms::FrmMain->ScanTimer.Interval = 60000;
    forms::FrmMain->ScanTimer.Enabled = true;
    static bool bRunning;
    bRunning = false;
    Desktop.Keyboard.pHook = [](int32_t, uintptr_t, const platform::KeyHookRecord&) -> intptr_t {
        if (forms::FrmMain->ScanTimer.Enabled) bRunning = true;
        return 0;
    };
    PressButton(ACTION_BUTTON);
    OneTick();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    EXPECT_FALSE(bRunning) << "a step between press and release would take another cell";
}

TEST_F(TickOrder, ScanMode_IsLeftBeforeTheTiltMoves) {
    BeIn(Mode::Scan);
    Desktop.hForeground = OTHER_WINDOW;
    StandOn(2, 1);
    TiltAndPress(MODE_BUTTON);
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_EQ(Cursor.nLastColumn, 2) << "the cell that was left is remembered, not the next one";
    EXPECT_EQ(Cursor.nColumn, 3);
}

TEST_F(TickOrder, ChoiceList_TakesTheEntryBeforeTheTiltLeavesIt) {
    ShowList(L"*T;Jedna,calc;Dvě,mail");
    Desktop.TakeEffects();
    const Effects Done = TiltAndPress(ACTION_BUTTON);
    EXPECT_NE(std::find(Done.begin(), Done.end(), "launch \"calc\""), Done.end());
    EXPECT_EQ(std::find(Done.begin(), Done.end(), "launch \"mail\""), Done.end());
}

TEST_F(TickOrder, ModeButton_ChangesTheModeBeforeTheTiltMoves) {
    BeIn(Mode::Select);
    TiltAndPress(MODE_BUTTON);
    EXPECT_EQ(Cursor.nLastColumn, 1);
    EXPECT_EQ(Cursor.nColumn, 2) << "the tick goes on as it began";
}

TEST_F(TickOrder, Stick_IsReadAfterTheWaitOfARepeat) {
    TiltRight();
    for (int n = 0; n < 3; ++n)
        OneTick();
    const uint32_t nStart = Desktop.nNow;
    OneTick();
    EXPECT_EQ(Desktop.Joystick.nLastReadAt, nStart + 100);
}

TEST_F(TickOrder, ArrowKey_IsSentBeforeItIsLogged) {
    EventLog.bLog = true;
    EventLog.strLog.clear();
    BeIn(Mode::Arrow);
    static bool bLoggedBefore;
    bLoggedBefore = false;
    Desktop.Keyboard.pHook = [](int32_t, uintptr_t, const platform::KeyHookRecord&) -> intptr_t {
        if (EventLog.strLog.find(L"Arrow") != std::wstring::npos) bLoggedBefore = true;
        return 0;
    };
    TiltRight();
    OneTick();
    EXPECT_FALSE(bLoggedBefore);
    EXPECT_NE(EventLog.strLog.find(L"Arrow right"), std::wstring::npos);
}

TEST_F(TickOrder, ArrowMode_LogsEachDirectionByItsName) {
    EventLog.bLog = true;
    BeIn(Mode::Arrow);
    const struct {
        int nRight, nDown;
        const wchar_t* szLine;
    } Rows[] = {{.nRight = 1, .nDown = 0, .szLine = L"Arrow right"},
                {.nRight = -1, .nDown = 0, .szLine = L"Arrow left"},
                {.nRight = 0, .nDown = 1, .szLine = L"Arrow down"},
                {.nRight = 0, .nDown = -1, .szLine = L"Arrow up"}};
    for (const auto& Row : Rows) {
        EventLog.strLog.clear();
        TiltStick(Row.nRight, Row.nDown);
        OneTick();
        EXPECT_TRUE(EventLog.strLog.ends_with(Row.szLine)) << platform::ToUtf8(EventLog.strLog);
    }
}

// The program in front was seen before: only a forced look notices that its map is not shown.
TEST_F(TickOrder, LeavingAMode_LooksAfreshAtTheProgramInFront) {
    for (const Mode nMode : {Mode::Arrow, Mode::Scan}) {
        BeIn(Mode::Select);
        Modes.Set(nMode);
        ShowMap(true);
        Foreground.hWindow = EDITOR_WINDOW;
        Foreground.nProcess = 500;
        Poll = {};
        ReleaseButtons();
        PressButton(MODE_BUTTON);
        OneTick();
        EXPECT_TRUE(Modes.bAppMode) << static_cast<int>(nMode);
        EXPECT_TRUE(Foreground.bAppMapShown);
    }
}

TEST_F(TickOrder, ApplicationMode_LeavesTheMapAlone_WhileTheSameProgramIsInFront) {
    BeIn(Mode::Application);
    AppMap.Cell(1, 1)->Caption = L"changed";
    OneTick();
    EXPECT_EQ(AppMap.Cell(1, 1)->Caption, L"changed") << "the map was read again";
}

TEST_F(TickOrder, OpenList_KeepsTheMap_WhenAnotherProgramComesToTheFront) {
    BeIn(Mode::Application);
    ShowList(L"*T;Jedna");
    Desktop.hForeground = OTHER_WINDOW;
    OneTick();
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_TRUE(Modes.bAppMode);
    HideList();
    OneTick();
    EXPECT_FALSE(Foreground.bAppMapShown);
}

// The end of a repeat, as its announcement.
class RepeatsEnd : public TickOrder {
  protected:
    static Effects After(int nHeldTicks) {
        TiltRight();
        for (int n = 0; n < nHeldTicks; ++n)
            OneTick();
        CentreStick();
        Desktop.TakeEffects();
        OneTick();
        return Desktop.TakeEffects();
    }
    static void AnnounceRepeatAt(int32_t nColumn, int32_t nRow) {
        Cursor.nAnnColumn = nColumn;
        Cursor.nAnnRow = nRow;
    }
};

TEST_F(RepeatsEnd, NamesTheCellOfTheApplicationsMap_WhileThatIsShown) {
    BeIn(Mode::Application);
    objSetting.RowWrap(0);
    EXPECT_EQ(After(5), Effects{Said("Y")});
}

TEST_F(RepeatsEnd, SaysNothing_WhenTheTiltWasTooShortToRepeat) {
    BeIn(Mode::Select);
    AnnounceRepeatAt(2, 1);
    EXPECT_EQ(After(2), Effects{});
}

TEST_F(RepeatsEnd, SaysNothing_WhenOneCoordinateDiffers) {
    for (const auto& [nColumn, nRow] : {std::pair{3, 2}, {2, 1}}) {
        BeIn(Mode::Arrow);
        Poll = {};
        StandOn(3, 1);
        AnnounceRepeatAt(nColumn, nRow);
        EXPECT_EQ(After(5), Effects{}) << nColumn << ", " << nRow;
    }
}

TEST_F(RepeatsEnd, SaysNothing_WhenNoRepeatWasAnnouncedYet_EvenInColumnZero) {
    BeIn(Mode::Arrow);
    StandOn(3, 1);
    Cursor.nColumn = 0;  // where a step to the left from a full row's start leads
    EXPECT_EQ(After(5), Effects{});
}

TEST_F(RepeatsEnd, HasNoTextOutsideTheGrid) {
    BeIn(Mode::Arrow);
    StandOn(3, 1);
    Cursor.nColumn = MAP_COLUMNS + 1;
    AnnounceRepeatAt(MAP_COLUMNS + 1, 1);
    EXPECT_EQ(After(5), Effects{Said("")});
}

// Wherever it was held: the cell on which a repeat was announced last is named once more.
TEST_F(RepeatsEnd, IsAnnouncedInArrowModeAndUnderAList_WhenTheCellIsTheOneOfTheLastRepeat) {
    for (const bool bList : {false, true}) {
        BeIn(Mode::Arrow);
        Poll = {};
        StandOn(2, 1);
        AnnounceRepeatAt(2, 1);
        if (bList) ShowList(L"*T;1;2;3;4;5;6;7;8;9");
        EXPECT_EQ(After(5), Effects{Said("B")}) << bList;
        HideList();
    }
}

TEST_F(TickOrder, RunningScan_GoesOn_WhenAHandMovesUpOrDownAtTheMapsEnd) {
    BeIn(Mode::Scan);
    objSetting.ColumnWrap(0);
    forms::FrmMain->ScanTimer.Interval = 60000;
    for (const int nDown : {-1, 1}) {
        forms::FrmMain->ScanTimer.Enabled = true;
        Scanning.nScanDirection = KeyCode::Right;
        Poll = {};
        StandOn(1, nDown < 0 ? 1 : 2);
        TiltStick(0, nDown);
        OneTick();
        EXPECT_TRUE(forms::FrmMain->ScanTimer.Enabled) << nDown;
        EXPECT_EQ(Scanning.nScanDirection, KeyCode::Right);
    }
}

TEST_F(TickOrder, MoveOntoAnEmptyCell_KeepsTheHighlightAndTheStatus_AndSaysSo) {
    BeIn(Mode::Select);
    CommonMap.Cell(2, 1)->Caption.clear();
    StandOn(3, 1);
    MoveCursor(KeyCode::Left);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(forms::FrmMain->HiIndex, 3);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"C");
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Said(""), "caption Taviro - "}));
}

TEST_F(TickOrder, EditorsMap_ComesBack_AfterTheSelectionMark) {
    ButtonTable[5] = {.Kind = ButtonKind::Command, .Command = L"<", .Code = 0};
    ButtonTable[6] = {.Kind = ButtonKind::Command, .Command = L">", .Code = 0};
    BeIn(Mode::Application);
    CommandAction(5);
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"A");
    CommandAction(6);
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(Foreground.strCurrentAppName, L"EDITOR.EXE");
    EXPECT_EQ(Foreground.AppMapName, L"EDITOR.EXE");
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"X");
}

}  // namespace
}  // namespace taviro
