// SPDX-License-Identifier: MIT
#include "core/poll_loop.h"

#include "actions/choice_list.h"
#include "actions/prediction.h"
#include "core/cursor_movement.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "maps/map_window.h"
#include "settings/button_table.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

using forms::FrmMain;

class PollLoop : public ProgramTest {
  protected:
    PollLoop() {
        PutData(L"data.ini",
                L"[1,1]a,65\r\n[2,1]b,66\r\n[3,1]c,67\r\n[4,1]d,68\r\n[5,1]e,69\r\n[6,1]f,70\r\n"
                L"[7,1]g,71\r\n[8,1]h,72\r\n[9,1]i,73\r\n[1,2]j,74\r\n[2,2]k,75\r\n[3,2]l,76\r\n");
        Start();
        objSetting.RowWrap(0);
    }
    // Looks of the loop without the time between them.
    static void Polls(int nCount) {
        for (int n = 0; n < nCount; ++n)
            FrmMain->Timer1.Tick();
    }
    // One press and release of a button.
    static void Push(int nButton) {
        PressButton(nButton);
        Polls(1);
        ReleaseButtons();
        Polls(1);
    }
};

TEST_F(PollLoop, KeysOfArrowMode_LeaveTheWordThatIsBeingTyped) {
    const auto TypeWord = [] {
        Modes.Set(Mode::Select);
        Push(0);
        EXPECT_EQ(StandingText(Prediction.Standing), L"a");
        Modes.Set(Mode::Arrow);
    };
    TypeWord();
    TiltLeft();
    Polls(1);
    CentreStick();
    Polls(1);
    EXPECT_EQ(StandingText(Prediction.Standing), L"");
    TypeWord();
    Push(0);  // Enter
    EXPECT_EQ(StandingText(Prediction.Standing), L"");
}

TEST_F(PollLoop, HeldTilt_MovesOnTicks_1_4_5_6) {
    TiltRight();
    std::vector<int32_t> Columns;
    for (int n = 0; n < 7; ++n) {
        Polls(1);
        Columns.push_back(Cursor.nColumn);
    }
    EXPECT_EQ(Columns, (std::vector<int32_t>{2, 2, 2, 3, 4, 5, 6}));
}

TEST_F(PollLoop, HeldTilt_RepeatsEvery200Milliseconds_AfterThreeTicks) {
    std::vector<uint32_t> Times;
    const uint32_t nStart = Desktop.nNow;
    FrmMain->OnShowChange = [&, View = FrmMain->OnShowChange](forms::Control& Control,
                                                              forms::Aspect nAspect) {
        View(Control, nAspect);
        if (FrmMain->IsFrame(Control) && nAspect == forms::Aspect::Text) {
            Times.push_back(Desktop.nNow - nStart);
        }
    };
    TiltRight();
    Desktop.RunFor(1100);
    EXPECT_EQ(Times, (std::vector<uint32_t>{100, 500, 700, 900, 1100}));
}

TEST_F(PollLoop, TiltFromSideToSide_DoesNotAct_UntilAutoRepeat) {
    TiltRight();
    Polls(1);
    EXPECT_EQ(Cursor.nColumn, 2);
    TiltLeft();
    Polls(2);
    EXPECT_EQ(Cursor.nColumn, 2);
    Polls(1);
    EXPECT_EQ(Cursor.nColumn, 1);
}

TEST_F(PollLoop, Diagonal_MovesBothWaysInOneTick_AndRemembersTheLater) {
    TiltStick(1, 1);
    Polls(1);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(Poll.nPrevTilt, Tilt::Down);
}

TEST_F(PollLoop, Thresholds_AreTheExactRawValues) {
    struct {
        uint32_t nX, nY;
        Tilt nTilt;
    } const Cases[] = {
        {52767, 32767, Tilt::None}, {52768, 32767, Tilt::Right}, {12767, 32767, Tilt::None},
        {12766, 32767, Tilt::Left}, {32767, 52767, Tilt::None},  {32767, 52768, Tilt::Down},
        {32767, 12767, Tilt::None}, {32767, 12766, Tilt::Up},
    };
    for (const auto& Case : Cases) {
        Poll = {};
        Desktop.Joystick.nX = Case.nX;
        Desktop.Joystick.nY = Case.nY;
        Polls(1);
        EXPECT_EQ(Poll.nTilt, Case.nTilt) << Case.nX << ", " << Case.nY;
    }
}

TEST_F(PollLoop, EndOfAutoRepeat_AnnouncesTheCellWhereTheCursorStopped_Once) {
    EventLog.bLog = true;
    TiltRight();
    Polls(5);
    CentreStick();
    EventLog.strLog.clear();
    Polls(1);
    EXPECT_NE(EventLog.strLog.find(L"Say: d"), std::wstring::npos);
    EventLog.strLog.clear();
    Polls(2);
    EXPECT_EQ(EventLog.strLog, L"");
}

TEST_F(PollLoop, EndOfAutoRepeat_SaysNothing_WhenTheCursorMovedSince) {
    EventLog.bLog = true;
    TiltRight();
    Polls(5);
    CentreStick();
    Cursor.nColumn = 1;
    EventLog.strLog.clear();
    Polls(1);
    EXPECT_EQ(EventLog.strLog, L"");
}

TEST_F(PollLoop, AutoRepeat_WaitsHundredMillisecondsATick) {
    TiltRight();
    Polls(3);
    const uint32_t nBefore = Desktop.nNow;
    Polls(2);
    EXPECT_EQ(Desktop.nNow - nBefore, 200U);
    EXPECT_TRUE(Modes.bAutoRepeatMode);
    CentreStick();
    Polls(2);
    EXPECT_FALSE(Modes.bAutoRepeatMode);
}

TEST_F(PollLoop, Wait_SleepsAtLeastOnce_AndInStepsOfHundred) {
    for (const auto& [nWait, nTaken] : {std::pair<int16_t, uint32_t>{0, 100},
                                        {-5, 100},
                                        {1, 100},
                                        {100, 100},
                                        {101, 200},
                                        {1000, 1000}}) {
        const uint32_t nBefore = Desktop.nNow;
        Wait(nWait);
        EXPECT_EQ(Desktop.nNow - nBefore, nTaken) << nWait;
    }
}

TEST_F(PollLoop, Wait_Ends_WhenTheTickCountWraps) {
    Desktop.nNow = 0xFFFFFFF0;
    Wait(200);
    EXPECT_EQ(Desktop.nNow, 200 - 16U);
}

TEST_F(PollLoop, ActionButton_RunsTheHighlightedCell_OncePerPress) {
    PressButton(0);
    Polls(5);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    ReleaseButtons();
    Polls(1);
    Push(0);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"aa");
}

TEST_F(PollLoop, SecondButton_DoesNothingWhileOneIsHeld_AndActsAfterBothWereReleased) {
    ButtonTable[2] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 90};
    PressButton(0);
    Polls(1);
    PressButton(2);
    Polls(2);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    ReleaseButtons();
    Polls(1);
    Push(2);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"az");
}

TEST_F(PollLoop, UnassignedButton_DoesNothing_HidesTheOnesAbove_AndCountsAsHeld) {
    ButtonTable[3] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 90};
    PressButton(2);
    PressButton(3);
    Polls(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    ReleaseButtons();
    PressButton(3);
    Polls(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"") << "no tick without a button came between";
}

TEST_F(PollLoop, LowestButton_Wins) {
    ButtonTable[4] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 89};
    ButtonTable[5] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 90};
    PressButton(5);
    PressButton(4);
    Polls(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"y");
}

TEST_F(PollLoop, Pause_IdlesTheLoop_AndAHeldButtonStillCountsAsANewPressAfterIt) {
    Program.bPauseJoystick = true;
    const uint32_t nReads = Desktop.Joystick.nReads;
    TiltRight();
    PressButton(0);
    Polls(5);
    EXPECT_EQ(Desktop.Joystick.nReads, nReads);
    EXPECT_EQ(Cursor.nColumn, 1);
    Program.bPauseJoystick = false;
    Polls(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(PollLoop, ScanMode_FirstPressStarts_SecondStopsAndRunsTheCell) {
    Modes.Set(Mode::Scan);
    Push(0);
    EXPECT_TRUE(FrmMain->ScanTimer.Enabled);
    EXPECT_EQ(FrmMain->ScanTimer.Interval, 1000);
    EXPECT_EQ(Scanning.nScanDirection, KeyCode::Right);
    Desktop.RunFor(2050);
    EXPECT_EQ(Cursor.nColumn, 3);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    Push(0);
    EXPECT_FALSE(FrmMain->ScanTimer.Enabled);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"c");
}

TEST_F(PollLoop, ScanMode_HandMoveTurnsTheScan) {
    Modes.Set(Mode::Scan);
    Push(0);
    Cursor.nColumn = 5;
    TiltLeft();
    Polls(1);
    CentreStick();
    EXPECT_EQ(Cursor.nColumn, 4);
    EXPECT_EQ(Scanning.nScanDirection, KeyCode::Left);
    TiltRight();
    Polls(2);
    EXPECT_EQ(Scanning.nScanDirection, KeyCode::Left) << "a tilt that does not act turns nothing";
}

TEST_F(PollLoop, ScanMode_HandMoveGoesOnToTheNextRow_AndEndsTheScanAtTheMapsEnd) {
    Modes.Set(Mode::Scan);
    Push(0);
    Cursor.nColumn = 9;
    TiltRight();
    Polls(1);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_TRUE(FrmMain->ScanTimer.Enabled);
    CentreStick();
    Polls(1);
    Cursor.nColumn = 3;
    TiltRight();
    Polls(1);
    EXPECT_FALSE(FrmMain->ScanTimer.Enabled);
}

TEST_F(PollLoop, ScanMode_LeftHandMoveGoesUpAtTheRowsStart) {
    Modes.Set(Mode::Scan);
    Cursor.nRow = 2;
    TiltLeft();
    Polls(1);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(Cursor.nColumn, 3);
}

TEST_F(PollLoop, ScanMode_UpAndDownHaveNoFollowUp) {
    Modes.Set(Mode::Scan);
    TiltUp();
    Polls(1);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Scanning.nScanDirection, 0);
}

TEST_F(PollLoop, ArrowMode_SendsArrowKeysAndEnter) {
    Modes.Set(Mode::Arrow);
    Desktop.TakeEffects();
    TiltStick(1, 1);
    Polls(1);
    TiltStick(0, 0);
    Polls(1);
    TiltStick(-1, -1);
    Polls(1);
    CentreStick();
    Polls(1);
    Push(0);
    EXPECT_EQ(Desktop.TakeEffects(),
              (std::vector<std::string>{
                  "SendInput: vk 39 down, vk 39 up", "SendInput: vk 40 down, vk 40 up",
                  "SendInput: vk 37 down, vk 37 up", "SendInput: vk 38 down, vk 38 up",
                  "SendInput: vk 13 down, vk 13 up"}));
    EXPECT_EQ(Cursor.nColumn, 1);
}

TEST_F(PollLoop, ArrowMode_LogsEveryTickInWhichTheDirectionHolds) {
    EventLog.bLog = true;
    Modes.Set(Mode::Arrow);
    TiltUp();
    Polls(3);
    size_t nLines = 0;
    for (size_t n = EventLog.strLog.find(L"Arrow up"); n != std::wstring::npos;
         n = EventLog.strLog.find(L"Arrow up", n + 1)) {
        ++nLines;
    }
    EXPECT_EQ(nLines, 3U);
}

TEST_F(PollLoop, CommandButton_LaunchesItsCommand_InEveryMode) {
    ButtonTable[6] = {.Kind = ButtonKind::Command, .Command = L"calc", .Code = 0};
    for (const Mode nMode : {Mode::Select, Mode::Scan, Mode::Arrow, Mode::Application}) {
        Modes.Set(nMode);
        Foreground.bAppMapShown = nMode == Mode::Application;
        Desktop.TakeEffects();
        Push(6);
        const auto Effects = Desktop.TakeEffects();
        EXPECT_NE(std::find(Effects.begin(), Effects.end(), "launch \"calc\""), Effects.end());
    }
}

// In an open list every button that has a meaning takes the entry, whatever it does elsewhere.
TEST_F(PollLoop, ChoiceList_IsTakenByEveryAssignedButton_OnItsPressAlone) {
    ButtonTable[4] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 90};
    ButtonTable[5] = {.Kind = ButtonKind::Command, .Command = L"mail", .Code = 0};
    for (const int nButton : {0, 4, 5}) {
        ShowList(L"*T;Jedna,calc");
        Desktop.TakeEffects();
        PressButton(nButton);
        Polls(1);
        EXPECT_EQ(Desktop.TakeEffects(), std::vector<std::string>{"launch \"calc\""}) << nButton;
        EXPECT_FALSE(Modes.bListMode);
        ShowList(L"*T;Jedna,calc");
        Polls(3);
        EXPECT_TRUE(Modes.bListMode) << "held since before the list opened";
        HideList();
        ReleaseButtons();
        Polls(1);
    }
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
}

TEST_F(PollLoop, ChoiceList_StaysOpen_WhenAnUnassignedButtonIsPressed) {
    ShowList(L"*T;Jedna,calc");
    Desktop.TakeEffects();
    PressButton(2);
    Polls(3);
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_EQ(Desktop.TakeEffects(), std::vector<std::string>{});
}

TEST_F(PollLoop, ChoiceList_StepsAsTheStickMoves_TheCursorStays) {
    ShowList(L"*T;1;2;3;4;5;6");
    const struct {
        int nRight, nDown, nTicks, nSelected;
    } STEPS[] = {{1, 0, 1, 1}, {0, 1, 1, 1},  {0, 0, 1, 1}, {0, 1, 3, 2},  {0, 1, 2, 4},
                 {0, 0, 1, 4}, {-1, 0, 1, 3}, {0, 0, 1, 3}, {0, -1, 1, 2}, {0, 0, 1, 2}};
    for (const auto& Step : STEPS) {
        TiltStick(Step.nRight, Step.nDown);
        Polls(Step.nTicks);
        EXPECT_EQ(FrmMain->List1.ListIndex.Get(), Step.nSelected) << &Step - STEPS;
    }
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
}

TEST_F(PollLoop, DeadDevice_RepeatsItsLastSample) {
    TiltRight();
    Polls(1);
    CentreStick();
    Desktop.Failures.Always("JoyGetPosEx");
    Polls(3);
    EXPECT_EQ(Cursor.nColumn, 3) << "the stick still counts as tilted, and repeats";
}

}  // namespace
}  // namespace taviro
