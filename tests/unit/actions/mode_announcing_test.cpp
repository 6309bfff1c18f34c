// SPDX-License-Identifier: MIT
// What is heard on entering selection and application mode: the mode's sound to its end, then the
// cell.
#include "actions/mode_announcing.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/cursor_movement.h"
#include "feedback/speech.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

const std::wstring SOUNDS = L"C:\\Program Files\\Taviro\\sound\\";

// The cursor stands on cell "A" of the common map, the status line reads "Stav".
class ModeSoundsTest : public ProgramTest {
  protected:
    ModeSoundsTest() {
        PrepareBare();
        InstallEngine();
        CreateVoice();
        FillMap(CommonMap, {L"B C", L"D A"});
        FillMap(AppMap, {L"X Y", L"Z W"});
        Cursor.nColumn = 2;
        Cursor.nRow = 2;
        forms::FrmMain->Label1.Caption = L"Stav";
        Desktop.TakeEffects();
    }
    ~ModeSoundsTest() override { Speech = {}; }

    static void PutSound(const std::wstring& strName) {
        Desktop.Files.Put(SOUNDS + strName + L".wav", "RIFF");
    }
    static std::string Played(const std::string& strName) {
        return "sound " + platform::ToUtf8(SOUNDS) + strName + ".wav";
    }
    /// Time between the first and the second effect, ms.
    static uint32_t Between() {
        return Desktop.Transcript.at(1).nTime - Desktop.Transcript[0].nTime;
    }
};

TEST_F(ModeSoundsTest, EnterSelectMode_PlaysModeToItsEndThenCell_WhenBothSoundsExist) {
    PutSound(L"mode_select");
    PutSound(L"A");
    Desktop.nSoundLength = 640;
    EnterSelectMode();
    EXPECT_GE(Between(), 640U);
    EXPECT_LT(Between(), 700U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), Played("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_DoesNotWaitForCellsSound_WhenItPlays) {
    PutSound(L"mode_select");
    PutSound(L"A");
    EnterSelectMode();
    EXPECT_EQ(Desktop.nNow, Desktop.Transcript.at(1).nTime);
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksCell_WhenItHasNoSound) {
    PutSound(L"mode_select");
    EnterSelectMode();
    EXPECT_GE(Between(), 300U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), Said("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksModeAndCell_WhenModeSoundIsMissing) {
    PutSound(L"A");
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr A")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_ReadsCommonMap_WhileApplicationMapIsShown) {
    Foreground.bAppMapShown = true;
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr A")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_SpeaksModeAlone_WhenCursorIsOutsideTheGrid) {
    Cursor.nColumn = 41;
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("výběr ")});
}

TEST_F(ModeSoundsTest, EnterSelectMode_LetsMessagesRun_WhileSoundPlays) {
    PutSound(L"mode_select");
    Desktop.At(Desktop.nNow + 150, [] { Desktop.Record("message"); });
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), "message", Said("A")}));
}

TEST_F(ModeSoundsTest, EnterSelectMode_LetsMessagesRunOnce_WhenSoundIsOverAtOnce) {
    PutSound(L"mode_select");
    Desktop.nSoundLength = 0;
    Desktop.At(Desktop.nNow, [] { Desktop.Record("message"); });
    EnterSelectMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), "message", Said("A")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_PlaysSoundOfStatusLine_WhenItExists) {
    PutSound(L"mode_app");
    PutSound(L"Stav");
    PutSound(L"A");
    Desktop.nSoundLength = 640;
    EnterAppMode();
    EXPECT_GE(Between(), 640U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), Played("Stav")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_SpeaksCommonMapsCell_WhenStatusLineHasNoSound) {
    PutSound(L"mode_app");
    PutSound(L"A");
    Foreground.bAppMapShown = true;
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), Said("A")}));
}

TEST_F(ModeSoundsTest, EnterAppMode_SpeaksStatusLine_WhenModeSoundIsMissing) {
    PutSound(L"Stav");
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("aplikace Stav")});
}

TEST_F(ModeSoundsTest, EnterAppMode_LetsMessagesRun_WhileSoundPlays) {
    PutSound(L"mode_app");
    Desktop.At(Desktop.nNow + 150, [] { Desktop.Record("message"); });
    EnterAppMode();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_app"), "message", Said("A")}));
}

TEST_F(ModeSoundsTest, EnterMode_DoesNotWait_WhenTheSoundDoesNotPlay) {
    PutSound(L"mode_select");
    PutSound(L"mode_app");
    Desktop.bSoundFails = true;
    const uint32_t nBefore = Desktop.nNow;
    EnterSelectMode();
    EnterAppMode();
    EXPECT_EQ(Desktop.nNow, nBefore);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Said("A"), Said("A")}));
}

TEST_F(ModeSoundsTest, EnterMode_GoesOnAfterTenSeconds_WhenTheSoundNeverEnds) {
    PutSound(L"mode_select");
    Desktop.nSoundLength = 3600 * 1000;
    EnterSelectMode();
    EXPECT_EQ(Between(), 10000U);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{Played("mode_select"), Said("A")}));
}

// The same from within the poll loop: the mode's sound lasts several ticks.
class WaitingTest : public ModeSoundsTest {
  protected:
    WaitingTest() {
        PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[4,1]D,68\r\n");
        PutData(L"setting.ini", L"[Info]\r\nScanMode=0\r\n");
        Start();
        Modes.Set(Mode::Arrow);
        PutSound(L"mode_select");
        Desktop.nSoundLength = 950;
    }
    /// Application mode over a program with a map of its own; B of the common map is remembered.
    static void EnterEditor() {
        PutData(L"data_EDITOR.EXE.ini", L"[1,1]X,88\r\n");
        Desktop.Windows = {{50, L"Text", L"", 500, 600}};
        Desktop.Processes = {{500, L"editor.exe"}};
        Desktop.hForeground = 50;
        Cursor.nLastColumn = 2;
        Modes.Set(Mode::Application);
        Ticks(1);
        Desktop.TakeEffects();
    }
    static std::string SetFlags() {
        return std::string(Modes.bSelectMode ? "select" : "") + (Modes.bScanMode ? "scan" : "") +
               (Modes.bArrowMode ? "arrow" : "") + (Modes.bAppMode ? "application" : "");
    }
    /// Goes on to the next mode by its button. Returns how long the tick took, ms.
    static uint32_t PushModeButton() {
        PressButton(1);
        const uint32_t nBefore = Desktop.nNow;
        Ticks(1);
        ReleaseButtons();
        return Desktop.nNow - nBefore;
    }
};

TEST_F(WaitingTest, PollLoop_IsNotEnteredAgain_WhileItsTickWaitsForASound) {
    const uint32_t nReads = Desktop.Joystick.nReads;
    EXPECT_GE(PushModeButton(), 950U);
    EXPECT_EQ(Desktop.Joystick.nReads, nReads + 1) << "one look at the joystick, in one tick";
    EXPECT_TRUE(Modes.bSelectMode);
    Ticks(1);
    EXPECT_EQ(Desktop.Joystick.nReads, nReads + 2) << "and none to catch up";
}

TEST_F(WaitingTest, ScanStep_RunsInsideTheWait_AndNoStepInsideAnother) {
    Modes.Set(Mode::Select);
    Scanning.nScanDirection = KeyCode::Right;
    int nDepth = 0, nDeepest = 0, nSteps = 0;
    forms::FrmMain->ScanTimer.OnTimer = [&] {
        nDeepest = std::max(nDeepest, ++nDepth);
        ++nSteps;
        ScanTimer_Timer();
        EnterSelectMode();  // a step that waits for a sound of its own
        --nDepth;
    };
    forms::FrmMain->ScanTimer.Interval = 100;
    forms::FrmMain->ScanTimer.Enabled = true;
    EnterSelectMode();
    EXPECT_GE(nSteps, 1);
    EXPECT_EQ(nDeepest, 1);
}

// The highlight would move on while the user hears where it stands.
TEST_F(WaitingTest, ScanStep_DoesNotRun_WhileTheModeThatFollowsIsAnnounced) {
    const auto RunScan = [](int& nSteps) {
        forms::FrmMain->ScanTimer.OnTimer = [&nSteps] { ++nSteps; };
        forms::FrmMain->ScanTimer.Interval = 150;  // beyond the tick that leaves
        forms::FrmMain->ScanTimer.Enabled = true;
    };
    int nSteps = 0;
    for (const Mode nMode : {Mode::Arrow, Mode::Scan}) {
        Modes.Set(nMode);
        RunScan(nSteps);
        EXPECT_GE(PushModeButton(), 950U);
        Ticks(1);
    }
    EnterEditor();
    RunScan(nSteps);
    EXPECT_GE(PushModeButton(), 950U);
    Ticks(1);
    EnterEditor();
    RunScan(nSteps);
    Desktop.hForeground = 0;
    forms::FrmMain->Timer1.Tick();
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_EQ(nSteps, 0);
}

TEST_F(WaitingTest, PhysicalKey_ReachesTheProgramInFront_WhileAModeSoundPlays) {
    Desktop.At(Desktop.nNow + 400, [] {
        Desktop.PhysicalKey('X', true);
        Desktop.PhysicalKey('X', false);
    });
    PushModeButton();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"x");
}

TEST_F(WaitingTest, ModeFlag_IsSetAfterTheAnnouncement_WhenArrowModeIsLeft) {
    std::string strMeanwhile;
    Desktop.At(Desktop.nNow + 400, [&] { strMeanwhile = SetFlags(); });
    PushModeButton();
    EXPECT_EQ(strMeanwhile, "") << "arrow mode is over, selection not yet on";
    EXPECT_EQ(SetFlags(), "select");
}

TEST_F(WaitingTest, ModeFlag_StaysDuringTheAnnouncement_WhenApplicationModeIsLeft) {
    EnterEditor();
    std::string strMeanwhile;
    Desktop.At(Desktop.nNow + 400, [&] { strMeanwhile = SetFlags(); });
    PressButton(1);
    Ticks(1);
    EXPECT_EQ(strMeanwhile, "application");
    EXPECT_EQ(SetFlags(), "select");
}

TEST_F(WaitingTest, ModeFlag_IsSetAfterTheAnnouncement_WhenTheApplicationsMapIsGone) {
    EnterEditor();
    std::string strMeanwhile = "none";
    Desktop.At(Desktop.nNow + 400, [&] { strMeanwhile = SetFlags(); });
    Desktop.hForeground = 0;
    Ticks(1);
    EXPECT_EQ(strMeanwhile, "") << "application mode is over, selection not yet on";
    EXPECT_EQ(SetFlags(), "select");
}

TEST_F(WaitingTest, LeavingApplication_LetsMessagesRun_BetweenMapAndAnnouncement) {
    EnterEditor();
    PressButton(1);
    Desktop.At(Desktop.nNow + 100, [] {
        Desktop.At(Desktop.nNow, [] { Desktop.Record("message"); });
        forms::FrmMain->Timer1.Tick();
    });
    Desktop.RunFor(100);
    const Effects Done = Desktop.TakeEffects();
    ASSERT_GE(Done.size(), 3U);
    EXPECT_EQ(Done[0], "caption Taviro - B");
    EXPECT_EQ(Done[1], "message");
    EXPECT_EQ(Done[2], Played("mode_select"));
}

}  // namespace
}  // namespace taviro
